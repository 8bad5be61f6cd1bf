#!/usr/bin/env bash
# All tests: format, warnings as errors, unit tests and transcripts (sanitized and optimised), a short fuzz run, clang-tidy.
# test.sh --quick leaves out the fuzz run and clang-tidy.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

step() { printf '\n== %s\n' "$*"; }

scripts/setup.sh test

step "format"
find src tests fuzz \( -name '*.cpp' -o -name '*.h' \) -print0 | xargs -0 clang-format -n --Werror

for preset in asan release; do
    step "build $preset"
    cmake --preset $preset >/dev/null
    cmake --build --preset $preset
done
if [[ ${1:-} != --quick ]]; then
    step "build fuzz"
    cmake --preset fuzz >/dev/null
    cmake --build --preset fuzz
    step "clang-tidy"
    # The first pass of a header's findings is enough, so only the sources are named.
    run-clang-tidy -quiet -p build/asan -extra-arg=-Wno-error "$PWD/src/.*\.cpp" >build/clang-tidy.log 2>&1 ||
        { grep -E 'warning:|error:|note:' build/clang-tidy.log || cat build/clang-tidy.log; exit 1; }
fi

failed=0
for preset in asan release; do
    step "tests $preset"
    ctest --preset $preset -j2 || failed=1
done
if [[ ${1:-} != --quick ]]; then
    step "tests fuzz"
    ctest --preset fuzz || failed=1
fi
exit $failed
