# What the scripts of this directory share: a directory to work in, faults counted, calls found. Sourced, with the program as $1.
set -uo pipefail
tly=$(realpath "$1")
script=${0##*/}
export ASAN_OPTIONS=${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0 # leaks can't be looked for in a traced process
strace -o /dev/null true 2>/dev/null || { echo "$script: skipped, strace is missing or may not trace here"; exit 77; }

work=$(mktemp -d)
trap 'umount "$work/full" 2>/dev/null; rm -rf "$work"' EXIT
export TLYHOME=$work
cd "$work" || exit 1
"$tly" -y >/dev/null # makes the settings

faults=0
runs=0

# A run has left its output in "out" and what it was about in "dir".
fault() {
    echo "FAULT: $1"
    sed 's/^/    /' out
    ls -lR dir
    faults=$((faults + 1))
}

conclude() {
    echo "$script: $runs runs, $faults faults"
    [[ $faults -eq 0 ]]
}
