#!/usr/bin/env bash
# Shows that the README is true on a machine that has nothing: makes a clean Debian 12 root, clones what is committed into it and runs
# the README's two commands there, word for word, and a plain cmake build between them. Ends with a status other than 0 at the first
# thing that fails. Needs root and Debian's packages; takes some minutes. fresh.sh --keep leaves the root where it is, to look around in.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

keep=false
[[ ${1:-} != --keep ]] || keep=true
. scripts/fresh_root.sh

# The commands of the README are its lines that begin with "    ./scripts/", up to the explanation; "[arguments]" is left out.
mapfile -t commands < <(sed -nE 's/^    (\.\/scripts\/[^#[]*[^#[ ]).*/\1/p' README.md)
[[ ${#commands[@]} -eq 2 ]] || { echo "fresh.sh: ${#commands[@]} commands in README.md, not two" >&2; exit 1; }

make_root bookworm
step "clone"
git clone --quiet --no-local . "$root/root/tly"
run root /root/tly "${commands[0]}"
run root /root/tly 'cmake -B b >/dev/null && cmake --build b --target tly >/dev/null && b/tly -hs >/dev/null && rm -r b' # with what the first command installed
run root /root/tly "${commands[1]}"
step "the README's commands pass on a fresh machine"
