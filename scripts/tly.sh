#!/usr/bin/env bash
# Builds tly where needed and runs it: tly.sh [arguments of tly]. Without arguments: a report over this project's own sources.
# Only the report comes on standard output. tly's settings file is kept beside the binary, in build/release.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

"$root/scripts/setup.sh" build
log=$root/build/release.log
mkdir -p "$root/build"
(cd "$root" && cmake --preset release && cmake --build --preset release --target tly) </dev/null >"$log" 2>&1 || { cat "$log" >&2; exit 1; }

if [[ $# -eq 0 ]]; then
    cd "$root"
    set -- -s -r"cpp,h src"
fi
exec "$root/build/release/tly" "$@"
