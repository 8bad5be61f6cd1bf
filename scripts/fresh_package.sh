#!/usr/bin/env bash
# Shows that the package works where nothing else is: makes a clean Debian root, lets apt install build/package/tly_*.deb there
# (scripts/package.sh makes it), and measures this project as a user. Then the commands of README.md and docs/questions.md have to
# print what stands there, and the static file has to answer in a root that is empty but for it. Ends with a status other than 0 at
# the first thing that fails. fresh_package.sh trixie takes another release of Debian than 12; --keep as a second argument leaves the
# root where it is.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

release=${1:-bookworm}
keep=false
[[ ${2:-} != --keep ]] || keep=true
. scripts/fresh_root.sh

debs=(build/package/tly_*.deb)
[[ ${#debs[@]} -eq 1 && -f ${debs[0]} ]] || { echo "fresh_package.sh: build/package has no package: run scripts/package.sh" >&2; exit 1; }

make_root "$release"
cp "${debs[0]}" "$root/root/tly.deb"
install='apt-get install -qq -y --no-install-recommends -o Dpkg::Use-Pty=0'
run root /root "(apt-get update -qq && DEBIAN_FRONTEND=noninteractive $install ./tly.deb) >log 2>&1 || { cat log; exit 1; }"
run root /root 'useradd --create-home user'
git clone --quiet --no-local . "$root/home/user/tree"
chroot "$root" chown -R user: /home/user
state() { (cd "$root/home/user/tree" && find . -printf '%p %s %T@ %m\n' | sort); }
before=$(state)

run user '~' 'tly -hs | grep "Version $(dpkg-query -W -f "\${Version}" tly | cut -d- -f1)"'
# A status above 0 is a number of notices.
run user '~/tree/src' 'tly -s -r"cpp,h ." | tail -n 12; tly -n main.cpp >~/notices; test $? -gt 0'
run user '~' 'ls .config/tly && test "$(stat -c %a .config/tly)" = 700'
run root /root "DEBIAN_FRONTEND=noninteractive $install git python3 man-db >log 2>&1 || { cat log; exit 1; }"
run user '~/tree' 'tly-report run -o ../now.xml && tly-report top ../now.xml'
run user '~/tree' 'sed -i "s/^\(Quality Notice 16 *:\).*/\1 No/" ~/.config/tly/tly.cfg && tly-report run -o ../less.xml &&
    ! cmp -s <(tly-report markdown ../now.xml) <(tly-report markdown ../less.xml)' # the user's settings are those of both programs
[[ $(state) == "$before" ]] || { echo "fresh_package.sh: the tree was changed:" >&2; diff <(echo "$before") <(state) >&2; exit 1; }

run user '~/tree' 'for page in docs/*.[1-8]; do man "$(basename "${page%.*}")" | grep -m 1 NAME || exit 1; done'
run user /usr/share 'ls {bash-completion/completions/,zsh/vendor-completions/_}{tly,tly-report} fish/vendor_completions.d/{tly,tly-report}.fish &&
    . bash-completion/completions/tly && complete -p tly'
run user '~/tree' 'python3 tests/docs/commands.py --tly /usr/bin/tly README.md docs/questions.md'

# Both programs of the static file, in a root with no library and no /proc, print what the installed ones do.
step "the static file alone"
empty=$root/home/user/empty
mkdir "$empty"
cp -r build/package/static/. src "$empty"
measure=(-xNOHEADER -fa -o -n -r"cpp,h src")
for command in "tly ${measure[*]@Q}" 'tly-report top now.xml' 'tly-report --help'; do
    cp "$root/home/user/now.xml" "$empty"
    eval "chroot --userspec=1000:1000 '$empty' /$command" >"$root/alone" 2>/dev/null || true
    run user "~/empty" "HOME=/none $command 2>/dev/null || true" | tail -n +3 >"$root/installed"
    [[ -s $root/alone ]]
    cmp "$root/alone" "$root/installed"
done
step "the package works on a fresh Debian $release"
