#!/usr/bin/env bash
# decharacter.sh TLY: fails or kills every file call of a rewriting run in turn, fills the disk, and looks at what is left.
# The source must hold the old or the new text whole, and whatever else lies in the directory must be as it was.
source "$(dirname "$0")/common.sh"

for ((i = 0; i < 20000; ++i)); do printf '\tint a%d;\r\n' "$i"; done >old
sed 's/\t/  /; s/\r$//' old >rewritten

# A directory with the source, a neighbour and, with "link", a link to the source and a stale file of an earlier run, whose text goes
# ahead of the new one.
lay_out() {
    rm -rf dir
    mkdir -p dir/real
    cp rewritten new
    cp old dir/real/a.c
    chmod 640 dir/real/a.c
    echo neighbour >dir/real/b.c
    source=dir/real/a.c
    if [[ ${1:-} == link ]]; then
        ln -s real/a.c dir/a.c
        source=dir/a.c
        echo stale >dir/real/a.c.tmp
        cat dir/real/a.c.tmp rewritten >new
    fi
}

# examine WHAT KIND: of kind killed, failed or any.
examine() {
    runs=$((runs + 1))
    local text=neither beside
    cmp -s dir/real/a.c old && text=old
    cmp -s dir/real/a.c new && text=new
    [[ $text != neither ]] || fault "$1: the source is neither old nor new"
    [[ $(stat -c %a dir/real/a.c) == 640 ]] || fault "$1: the mode is another"
    [[ $(<dir/real/b.c) == neighbour ]] || fault "$1: the neighbour is damaged"
    if [[ $source == dir/a.c ]]; then
        [[ -L dir/a.c ]] || fault "$1: the link is damaged"
        if [[ $text == old ]] && ! grep -q 'in file: .*a.c.tmp$' out; then
            [[ $(<dir/real/a.c.tmp) == stale ]] || fault "$1: the stale file is damaged"
            rm -f dir/real/a.c.tmp
        fi
    fi
    [[ $2 != failed || $text == old ]] || fault "$1: there was no failure"
    [[ $2 == killed ]] && return
    if grep -q Complete out; then
        [[ $text == new ]] || fault "$1: complete, but old"
    else
        grep -q Error out || fault "$1: no word about the failure"
        [[ $text == old ]] || fault "$1: an error, but new"
    fi
    beside=$(sed -n 's/.*Modified source in file: //p' out)
    if [[ $beside ]]; then
        cmp -s "$beside" new || fault "$1: the file beside the source isn't the new text"
        rm -f "$beside"
    fi
    [[ $(ls dir/real) == $'a.c\nb.c' ]] || fault "$1: something is left behind"
}

rewrite() { "$@" "$tly" -xNOHEADER -Dt -Du "$source" >out 2>err; }
trace=(strace -qq -o calls -P "$work/dir/real/a.c" -P "$work/dir/real/a.c.tmp" -P "$work/dir/real/a.c.tmp.0" -P dir/real/a.c)

lay_out
rewrite "${trace[@]}"
examine "nothing fails" any
cmp -s dir/real/a.c new || fault "nothing fails"
sed -E 's/\(.*//' calls >all_calls
[[ $(wc -l <all_calls) -gt 15 ]] || fault "too few calls were seen"

declare -A seen
while read -r call; do
    seen[$call]=$((${seen[$call]:-0} + 1))
    for how in error=ENOSPC error=EIO signal=SIGKILL; do
        lay_out
        rewrite "${trace[@]}" -e "inject=$call:$how:when=${seen[$call]}" 2>/dev/null
        what="$call ${seen[$call]} $how"
        if [[ $how == signal=* ]]; then
            grep -q 'killed by SIGKILL' calls || fault "$what: not killed"
            examine "$what" killed
        else
            grep -q INJECTED calls || fault "$what: not reached"
            examine "$what" any
        fi
    done
done <all_calls

# Behind a link, with a stale file. The call that renames is the only one of its kind.
lay_out link
rewrite env
examine "link" any
for what in rename fsync; do
    lay_out link
    rewrite strace -f -qq -o /dev/null -e "inject=$what:error=EACCES"
    examine "link, $what" failed
done

# A limit of the file size kills nobody: it fails the write.
for size in 0 4096 100000; do
    lay_out
    prlimit --fsize=$size "$tly" -xNOHEADER -Dt -Du "$source" 2>err | cat >out
    examine "file size $size" failed
done

# A disk that is full for good.
mkdir full
if mount -t tmpfs -o size=512k tmpfs full 2>/dev/null; then
    lay_out
    mv dir full/dir
    ln -s full/dir dir
    head -c 100000 /dev/zero >full/rest
    rewrite env
    examine "full disk" failed
    rm dir
fi

conclude
