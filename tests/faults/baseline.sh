#!/usr/bin/env bash
# baseline.sh TLY: a second baseline is written over an earlier one while every file call fails or is its last, and on a full disk.
# Afterwards one of the two must stand, the work file and its line records whole, and what else lies there must be as it was. The
# status tells which.
source "$(dirname "$0")/common.sh"

mkdir -p first/src second/src
for ((i = 0; i < 2000; ++i)); do printf 'int a%d; // one\n' "$i"; done >first/src/a.c
sed 's/one/two/' first/src/a.c >second/src/a.c
echo 'int gone;' >first/src/gone.c
echo 'int come;' >second/src/come.c

make() { "$@" "$tly" -xNOHEADER -w"Create src" -wd -w"File dat base.dat" src/*.c; }

(cd first && make env >/dev/null && touch base.dat.dif/of.user)
cp -a first/. dir
rm -r dir/src
cp -a second/src dir
(cd dir && make env >/dev/null)
mv dir second.done

lay_out() {
    rm -rf dir
    cp -a first dir
    rm -r dir/src
    cp -a second/src dir
}

# same_file A B: but for the time of its creation, a work file's fourth line. same_records likewise, of two directories.
same_file() { cmp -s <(sed 4d "$1") <(sed 4d "$2"); }
same_records() { diff -r -x of.user "$1" "$2" >/dev/null 2>&1; }
# baseline_of SAME NAME: the baseline that a file or a directory is of.
baseline_of() {
    if "$1" "dir/$2" "first/$2"; then
        echo first
    elif "$1" "dir/$2" "second.done/$2"; then
        echo second
    else
        echo neither
    fi
}

# examine WHAT KIND: of kind killed, failed or any.
examine() {
    runs=$((runs + 1))
    local file records latest
    file=$(baseline_of same_file base.dat)
    records=$(baseline_of same_records base.dat.dif)
    latest=$(baseline_of same_file workfile.dat)
    [[ $file != neither ]] || fault "$1: the work file is damaged"
    [[ $latest == "$file" || $latest == first ]] || fault "$1: the latest work file is $latest, the work file $file"
    if [[ $2 == killed ]]; then
        [[ $(find dir -name of.user | wc -l) == 1 ]] || fault "$1: a user's file is gone"
        # two steps put the baseline in place: between them, the half that isn't there yet or any more stands whole beside its place
        if [[ $file == first && $records == second ]] && same_records dir/base.dat.dif.tmp.* first/base.dat.dif &&
            same_file dir/base.dat.tmp.0 second.done/base.dat; then
            records=first
            between=$((between + 1))
        fi
        [[ $records == "$file" ]] || fault "$1: the work file is the $file one, its records $records"
        return
    fi
    [[ $2 != failed || $file == first ]] || fault "$1: there was no failure"
    [[ $file == second ]] || grep -q Error out || fault "$1: no word about the failure"
    if [[ $file$latest == secondsecond ]]; then
        [[ $status == 0 ]] || grep -q 'whole report' err || fault "$1: the baseline is whole, and the status $status"
    else
        [[ $status == 1 ]] || fault "$1: status $status without a whole baseline"
    fi
    [[ $latest == "$file" ]] || grep -q Error out || fault "$1: no word about the latest work file"
    grep -q 'had to stay' out && mv -n dir/base.dat.dif.tmp.*/of.user dir/base.dat.dif 2>/dev/null
    grep -q 'had to stay' out && rm -rf dir/base.dat.dif.tmp.*
    [[ -e dir/base.dat.dif/of.user ]] || fault "$1: a user's file is gone"
    [[ $records == "$file" ]] || fault "$1: the work file is the $file one, its records $records"
    [[ $(ls dir) == $'base.dat\nbase.dat.dif\nsrc\nworkfile.dat' ]] || fault "$1: something is left behind"
}

between=0
rewrite() {
    (cd dir && make "$@" >"$work/out" 2>"$work/err")
    status=$?
}
calls=openat,write,fsync,close,rename,renameat2,mkdir,rmdir,unlink,unlinkat,fchmod,fchown,chmod,chown,getdents64,read
trace=(strace -qq -y -o "$work/calls" -e "trace=$calls")

lay_out
rewrite "${trace[@]}"
examine "nothing fails" any
[[ $(baseline_of same_file base.dat) == second ]] || fault "nothing fails, but the earlier baseline stands"

# the number of each call among those of its name, for calls on the baseline's files
awk -F'(' '{ ++seen[$1] } /base\.dat|workfile\.dat/ { print $1, seen[$1] }' calls >baseline_calls
[[ $(wc -l <baseline_calls) -gt 30 ]] || fault "too few calls were seen"

while read -r call number; do
    hows=(error=EIO signal=SIGKILL)
    [[ $call == @(write|fsync|rename|renameat2|mkdir) ]] && hows+=(error=ENOSPC)
    for how in "${hows[@]}"; do
        lay_out
        rewrite "${trace[@]}" -e "inject=$call:$how:when=$number" 2>/dev/null
        what="$call $number $how"
        if [[ $how == signal=* ]]; then
            grep -q 'killed by SIGKILL' calls || fault "$what: not killed"
            examine "$what" killed
        else
            grep INJECTED calls | grep -q 'base\.dat\|workfile\.dat' || fault "$what: not reached"
            examine "$what" any
        fi
    done
done <baseline_calls
[[ $between -le 3 ]] || fault "the two steps are too far apart: $between calls"

# A file system that can't exchange two names in one step.
lay_out
rewrite strace -qq -o /dev/null -e inject=renameat2:error=EINVAL
examine "no exchange" any
[[ $(baseline_of same_file base.dat) == second ]] || fault "no exchange, and no baseline"

# A disk that is full for good.
mkdir full
if mount -t tmpfs -o size=256k tmpfs full 2>/dev/null; then
    lay_out
    mv dir full/dir
    ln -s full/dir dir
    head -c 1000000 /dev/zero >full/rest 2>/dev/null
    rewrite env
    examine "full disk" failed
    rm dir
fi

conclude
