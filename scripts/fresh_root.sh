# Sourced by fresh.sh and fresh_package.sh, whose arguments are the script's: a clean Debian root in $root, which goes when the script
# ends, or stays with --keep. Needs root and Debian's packages.

# Once more, where what is mounted here is gone with the last process, whatever ends it.
if [[ ${TLY_FRESH:-} != inside ]]; then
    scripts/setup.sh fresh
    exec env TLY_FRESH=inside unshare --mount --propagation private "$0" "$@"
fi

step() { printf '\n== %s (%d s)\n' "$*" $SECONDS; }

# make_root RELEASE: from where this machine gets its packages, and set up as it is.
make_root() {
    local here mirror
    here=$(. /etc/os-release; echo "$VERSION_CODENAME")
    root=$(mktemp -d "${TMPDIR:-/tmp}/tly-fresh-XXXXXX")
    chmod 755 "$root"
    $keep || trap 'umount -q "$root/proc" || true; rm -rf --one-file-system "$root"' EXIT
    step "clean root $root, Debian $1"
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $here" | sed -n 1p)
    debootstrap --variant=minbase "$1" "$root" ${mirror:+"$mirror"} >"$root.log" 2>&1 || { tail -n 30 "$root.log" >&2; exit 1; }
    rm "$root.log"
    rm -f "$root/etc/apt/sources.list"
    cp -a /etc/apt/. "$root/etc/apt/"
    find "$root/etc/apt" -type f \( -name '*.list' -o -name '*.sources' \) -exec sed -i "s/\b$here\b/$1/g" {} +
    cp -L /etc/resolv.conf /etc/hosts "$root/etc/"
    mount -t proc proc "$root/proc"
}

# run USER DIRECTORY COMMAND: in the root.
run() {
    local home=/home/$1
    [[ $1 != root ]] || home=/root
    step "$3"
    chroot "$root" env -i HOME="$home" PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        setpriv --reuid "$1" --regid "$1" --init-groups bash -c "cd $2 && $3" </dev/null ||
        { echo "$(basename "$0"): failed: $3" >&2; exit 1; }
}

[[ -z $(git status --porcelain) ]] || echo "$(basename "$0"): uncommitted changes are left out" >&2
