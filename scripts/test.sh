#!/usr/bin/env bash
# The tests in one sanitized build: unit tests, transcripts, fault runs.
# test.sh --all adds what has to be green before a change goes in: format, the same tests in the optimised build, clang-tidy and a short
# fuzz run.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

case ${1:-} in
'') all=false ;;
--all) all=true ;;
*) echo "usage: test.sh [--all]" >&2; exit 2 ;;
esac

step() { printf '\n== %s (%d s)\n' "$*" $SECONDS; }

build() {
    step "build $1"
    cmake --preset "$1" -DBUILD_TESTING=ON >/dev/null
    cmake --build --preset "$1"
}

failed=0
run_tests() {
    step "tests $1"
    ctest --preset "$1" -j2 || failed=1
}

if $all; then
    scripts/setup.sh all
    step "format"
    find src report tests fuzz packaging \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 clang-format -n --Werror
else
    scripts/setup.sh test
fi

build asan
run_tests asan
if $all; then
    build release
    run_tests release
    step "clang-tidy"
    # The first pass of a header's findings is enough, so only the sources are named.
    run-clang-tidy -quiet -p build/asan -extra-arg=-Wno-error "$PWD/(src|report)/.*\.cpp" >build/clang-tidy.log 2>&1 ||
        { grep -E 'warning:|error:|note:' build/clang-tidy.log || cat build/clang-tidy.log; exit 1; }
    build fuzz
    run_tests fuzz
fi
step "done"
exit $failed
