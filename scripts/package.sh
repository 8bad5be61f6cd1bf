#!/usr/bin/env bash
# Makes what is handed out, of the sources as they stand: the Debian package build/package/tly_*.deb, held against Debian's rules, and
# build/package/static/tly, one file of both programs that needs no library (a link tly-report to it is the other one).
# package.sh --twice builds what is committed in two clones, as two people would, and tells whether they got the same bytes.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

case ${1:-} in
'') twice=false ;;
--twice) twice=true ;;
*) echo "usage: package.sh [--twice]" >&2; exit 2 ;;
esac
scripts/setup.sh package

if $twice; then
    place=$(mktemp -d)
    trap 'rm -rf "$place"' EXIT
    clone() { # UMASK DIRECTORY VARIABLE...
        git clone --quiet . "$place/$2"
        (umask "$1" && env -i HOME="$place" PATH="$PATH" "${@:3}" "$place/$2/scripts/package.sh" >"$place/log" 2>&1) ||
            { cat "$place/log" >&2; exit 1; }
        (cd "$place/$2/build/package" && sha256sum ./*.deb static/tly tly tly-report) | tee "$place/${2//\//.}.sums"
    }
    clone 022 a TZ=UTC
    clone 077 somebody/else/tallyline TZ=Pacific/Auckland LANG=de_DE.UTF-8
    cmp "$place"/*.sums
    exit
fi

# The day that tly shows and the times in the package are those of the commit.
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
cmake --preset package >/dev/null
rm -f build/package/CMakeFiles/tly_core.dir/src/report/build_date.cpp.o # it was compiled on the day of another commit
cmake --build --preset package
(cd build/package && rm -f -- *.deb && cpack)
ln -sf tly build/package/static/tly-report
test "$(stat -c %s build/package/static/tly)" -lt 4000000
lintian --fail-on error,warning --allow-root build/package/*.deb
