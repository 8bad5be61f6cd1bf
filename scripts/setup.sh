#!/usr/bin/env bash
# Installs what is missing on Debian 12: setup.sh build (to build tly), test (to test it as well; the default), all (to pass every check),
# package (to make a package) or fresh (to make a clean root).
# Does nothing, and needs no network and no root, when everything is there.
set -euo pipefail

# package, and the program or file that tells that it is there
build=(g++ g++  cmake cmake  ninja-build ninja  pkg-config pkg-config  libpcre2-dev /usr/include/pcre2posix.h
       libexpat1-dev /usr/include/expat.h  nlohmann-json3-dev /usr/include/nlohmann/json.hpp  libxxhash-dev /usr/include/xxhash.h
       libcli11-dev /usr/include/CLI/CLI.hpp)
test=("${build[@]}"  doctest-dev /usr/include/doctest/doctest.h  libxml2-utils xmllint  tidy tidy  python3 python3  python3-jsonschema /usr/lib/python3/dist-packages/jsonschema/__init__.py  mandoc mandoc
      strace strace  git git)
all=("${test[@]}"  clang-format clang-format  clang-tidy clang-tidy  clang clang++
     libclang-rt-14-dev /usr/lib/llvm-14/lib/clang/14.0.6/lib/linux  zsh zsh  fish fish)
fresh=(debootstrap debootstrap  git git)
package=("${build[@]}"  git git  file file  dpkg-dev dpkg-shlibdeps  lintian lintian)

case ${1:-test} in
build) wanted=("${build[@]}") ;;
test) wanted=("${test[@]}") ;;
all) wanted=("${all[@]}") ;;
package) wanted=("${package[@]}") ;;
fresh) wanted=("${fresh[@]}") ;;
*) echo "usage: setup.sh [build|test|all|package|fresh]" >&2; exit 2 ;;
esac

missing=()
for ((i = 0; i < ${#wanted[@]}; i += 2)); do
    mark=${wanted[i + 1]}
    [[ $mark == /* && -e $mark ]] || command -v "$mark" >/dev/null || missing+=("${wanted[i]}")
done
[[ ${#missing[@]} -gt 0 ]] || exit 0

root=()
if [[ $(id -u) -ne 0 ]]; then
    command -v sudo >/dev/null || { echo "setup.sh: please install: ${missing[*]}" >&2; exit 1; }
    root=(sudo)
fi
echo "setup.sh: installing ${missing[*]}" >&2
"${root[@]}" apt-get update -qq </dev/null >&2
"${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >&2
