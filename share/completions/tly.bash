# shellcheck shell=bash
# Made by scripts/completions.py, of what the program says of itself.
# A word may begin a quote behind its letter: -r"c,h sr. Then $2 is what stands in the quote, blanks too, and is what is replaced.

# Offers those of the texts that begin with $piece. What goes on behind itself gets no blank.
_tly_offer() {
    local each
    for each; do
        if [[ $each == "$piece"* ]]; then
            COMPREPLY+=("$each")
            [[ $each == *' ' ]] && compopt -o nospace
        fi
    done
}

# _tly_paths -f|-d BEFORE TEXT [BEHIND]: offers the files or the directories that begin with TEXT, between these two.
_tly_paths() {
    local path
    while IFS= read -r path; do
        if [[ -d $path ]]; then
            COMPREPLY+=("$2$path/")
            compopt -o nospace
        else
            COMPREPLY+=("$2$path$4")
        fi
    done < <(compgen "$1" -- "$3")
}

_tly() {
    local piece=$2 word=${COMP_WORDS[COMP_CWORD]} rest at
    COMPREPLY=()
    if [[ $word == -[[:alpha:]][\"\']* ]]; then
        compopt -o filenames
        case ${word:1:1}$piece in
        r*' '*) _tly_paths -d "${piece%% *} " "${piece#* }" ;;
        wx\ *,*)
            rest=${piece#*,}
            rest=${rest#"${rest%%[! ]*}"}
            _tly_paths -f "${piece%"$rest"}" "$rest"
            ;;
        wx\ *) _tly_paths -f 'x ' "${piece#x }" ', ' ;;
        uFile\ CFG\ *) _tly_paths -f 'File CFG ' "${piece#File\ CFG\ }" ;;
        uFile\ XSL\ *) _tly_paths -f 'File XSL ' "${piece#File\ XSL\ }" ;;
        wCreate\ *) _tly_paths -d 'Create ' "${piece#Create\ }" ;;
        wFile\ dat\ *) _tly_paths -f 'File dat ' "${piece#File\ dat\ }" ;;
        wFile\ cfg\ *) _tly_paths -f 'File cfg ' "${piece#File\ cfg\ }" ;;
        xFile\ csv\ *) _tly_paths -f 'File csv ' "${piece#File\ csv\ }" ;;
        O* | F*) _tly_paths -f '' "$piece" ;;
        u*) _tly_offer 'File CFG ' 'File XSL ' ;;
        w*) _tly_offer 'Create ' 'File dat ' 'File cfg ' 'x ' ;;
        x*) _tly_offer 'File csv ' ;;
        esac
        # What goes on behind itself keeps its quote open: a single completion would close it.
        [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *[/\ ] ]] && COMPREPLY+=("${COMPREPLY[0]} ")
        return
    fi
    case $word in
    -O* | -F*)
        _tly_paths -f '' "${word:2}"
        for at in "${!COMPREPLY[@]}"; do
            COMPREPLY[at]=${word:0:2}$(printf %q "${COMPREPLY[at]}")
        done
        ;;
    -[BMPLrS]?*) ;;
    -D*) _tly_offer -Dt -Du -Dd ;;
    -E*) _tly_offer -Es -Ec -EC ;;
    -f*) _tly_offer -fa -fd -fm -fp ;;
    -h*) _tly_offer -hs -hf -hc -hn -hp ;;
    -k*) _tly_offer -k0 -k1 -k2 -k3 -k4 -k5 -k6 -k7 -k8 -k9 -k10 -kd ;;
    -N*) _tly_offer -Ns -Nv ;;
    -R*) _tly_offer -Rd -Rl -Rn ;;
    -T*) _tly_offer -Ta -Td -Tf -Ti -Tl -TL -Tn -TN -To -Tp -Tq -Ts -Tv -Tw ;;
    -u*) _tly_offer '-u"File CFG ' '-u"File XSL ' ;;
    -w*) _tly_offer '-w"Create ' '-w"File dat ' '-w"File cfg ' '-w"x ' -wD -wd -we -wr -wm -wn -wg -wb -wp -ws \
        -wv ;;
    -x*) _tly_offer -xNOCONFIG -xNOCOMMAND -xNOHEADER -xNOWRAP -xUDQNSHOW -xDEBUG -xDIFFDEBUG -xc \
        '-x"File csv ' -xMODERN -xUDQNKEYS ;;
    -*) _tly_offer -a -A -b -c -C -d -D -e -E -f -F -h -H -i -k -l -m -n -N -o -O -p -B -M -P -L -r -R -s -S \
        -T -u -v -w -x -X -y ;;
    *) compopt -o default ;;
    esac
}
complete -F _tly tly
