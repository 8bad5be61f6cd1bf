#!/usr/bin/env bash
# Shows that the README is true on a machine that has nothing: makes a clean Debian 12 root, clones what is committed into it and runs
# the README's two commands there, word for word, and a plain cmake build between them. Ends with a status other than 0 at the first
# thing that fails. Needs root and Debian's packages; takes some minutes. fresh.sh --keep leaves the root where it is, to look around in.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
release=bookworm

# Once more, where what is mounted here is gone with the last process, whatever ends it.
if [[ ${TLY_FRESH:-} != inside ]]; then
    scripts/setup.sh fresh
    exec env TLY_FRESH=inside unshare --mount --propagation private "$0" "$@"
fi

step() { printf '\n== %s (%d s)\n' "$*" $SECONDS; }

# The commands of the README are its lines that begin with "    ./scripts/", up to the explanation; "[arguments]" is left out.
mapfile -t commands < <(sed -nE 's/^    (\.\/scripts\/[^#[]*[^#[ ]).*/\1/p' README.md)
[[ ${#commands[@]} -eq 2 ]] || { echo "fresh.sh: ${#commands[@]} commands in README.md, not two" >&2; exit 1; }
[[ -z $(git status --porcelain) ]] || echo "fresh.sh: uncommitted changes are left out" >&2

root=$(mktemp -d "${TMPDIR:-/tmp}/tly-fresh-XXXXXX")
[[ ${1:-} == --keep ]] || trap 'umount -q "$root/proc" || true; rm -rf --one-file-system "$root"' EXIT

step "clean root $root"
# From where this machine gets its packages, and set up as it is.
mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $release" | sed -n 1p)
debootstrap --variant=minbase "$release" "$root" ${mirror:+"$mirror"} >"$root.log" 2>&1 || { tail -n 30 "$root.log" >&2; exit 1; }
rm "$root.log"
rm -f "$root/etc/apt/sources.list"
cp -a /etc/apt/. "$root/etc/apt/"
cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
mount -t proc proc "$root/proc"

step "clone"
git clone --quiet --no-local . "$root/root/tly"
run() {
    step "$*"
    env -i HOME=/root PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        chroot "$root" bash -c "cd /root/tly && $*" </dev/null || { echo "fresh.sh: failed: $*" >&2; exit 1; }
}
run "${commands[0]}"
run 'cmake -B b >/dev/null && cmake --build b >/dev/null && b/tly -hs >/dev/null && rm -r b' # with what the first command installed
run "${commands[1]}"
step "the README's commands pass on a fresh machine"
