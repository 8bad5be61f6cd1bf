#!/usr/bin/env bash
# Makes what is handed out, of the sources as they stand: the Debian package build/package/tly_*.deb, held against Debian's rules, and
# build/package/static/tly, one file of both programs that needs no library (a link tly-report to it is the other one).
# package.sh --again then builds what is committed once more, as somebody else would, and tells whether the bytes are the same.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

again=false
case ${1:-} in
'') ;;
--again) again=true ;;
*) echo "usage: package.sh [--again]" >&2; exit 2 ;;
esac
scripts/setup.sh package

# The day that tly shows and the times in the package are those of the commit; the modes are nobody's own.
umask 022
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH
cmake --preset package >/dev/null
rm -f build/package/CMakeFiles/tly_core.dir/src/report/build_date.cpp.o # it was compiled on the day of another commit
cmake --build --preset package
(cd build/package && rm -f -- *.deb && cpack)
ln -sf tly build/package/static/tly-report
bytes=$(stat -c %s build/package/static/tly)
((bytes < 4000000)) || { echo "package.sh: the static file has $bytes bytes, which is more than 4 MB" >&2; exit 1; }
lintian --fail-on error,warning --allow-root build/package/*.deb

if $again; then
    elsewhere=$(mktemp -d)/some/body/tallyline
    trap 'rm -rf "${elsewhere%/some/*}"' EXIT
    git clone --quiet . "$elsewhere"
    (umask 077 && env -i HOME="$elsewhere" PATH="$PATH" TZ=Pacific/Auckland LANG=de_DE.UTF-8 "$elsewhere/scripts/package.sh" >&2)
    for file in build/package/{tly,tly-report,static/tly,*.deb}; do
        cmp "$file" "$elsewhere/$file"
        sha256sum "$file"
    done
fi
