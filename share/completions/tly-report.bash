# shellcheck shell=bash
# Made by scripts/completions.py, of what the program says of itself.

# A name of a branch may be anything, even what a shell would run.
_tly_commits() {
    local name
    while IFS= read -r name; do
        [[ $name == "$1"* ]] && COMPREPLY+=("$(printf %q "$name")")
    done < <(git for-each-ref --format='%(refname:short)' 2>/dev/null)
}

_tly_report() {
    local word=$2 command='' options option at
    COMPREPLY=()
    for ((at = 1; at < COMP_CWORD; ++at)); do
        [[ ${COMP_WORDS[at]} == -* ]] || { command=${COMP_WORDS[at]}; break; }
    done
    option=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $option == = ]]; then
        option=${COMP_WORDS[COMP_CWORD - 2]}
    elif [[ ${COMP_WORDS[COMP_CWORD]} == = ]]; then
        word=''
    fi
    case $command in
    run) options='-o --output --classic --jobs --tly' ;;
    json) options='-o --output --root' ;;
    page) options='-o --output --root --before --trend' ;;
    sarif) options='-o --output --root' ;;
    gitlab) options='-o --output --root' ;;
    checkstyle) options='-o --output --root' ;;
    github) options='-o --output --root' ;;
    csv) options='-o --output --root --table' ;;
    markdown) options='-o --output --root --before' ;;
    badge) options='-o --output --root --of --svg' ;;
    top) options='-o --output --root -n --by' ;;
    new) options='--allow -o --output --root --since --max --classic --jobs --tly' ;;
    trend) options='-o --output --page --form --every --tags --classic --jobs --tly' ;;
    between) options='-o --output --page -n --classic --jobs --tly' ;;
    gate) options='-o --output --root --max-complexity --max-lines --max-notices --notice --new --allow' ;;
    rules) options='-o --output' ;;
    *)
        mapfile -t COMPREPLY < <(compgen -W 'run json page sarif gitlab checkstyle github csv markdown badge top new trend between gate rules --help --version' -- "$word")
        return
        ;;
    esac
    [[ $option == -* ]] || option=''
    case $command:$option in
    *:-o | *:--output | *:--tly | *:--before | *:--allow | *:--page | *:--new)
        compopt -o default
        ;;
    *:--jobs | *:-n | *:--max | *:--every | *:--max-complexity | *:--max-lines | *:--max-notices | *:--notice)
        :
        ;;
    *:--root | *:--trend)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word")
        ;;
    *:--table)
        mapfile -t COMPREPLY < <(compgen -W 'files functions classes notices languages kinds' -- "$word")
        ;;
    *:--of)
        mapfile -t COMPREPLY < <(compgen -W 'lines complexity notices' -- "$word")
        ;;
    *:--by)
        mapfile -t COMPREPLY < <(compgen -W 'complexity lines parameters notices' -- "$word")
        ;;
    *:--since)
        _tly_commits "$word"
        ;;
    *:--form)
        mapfile -t COMPREPLY < <(compgen -W 'text csv json' -- "$word")
        ;;
    *)
        if [[ $word == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
            return
        fi
        [[ ' between ' == *" $command "* ]] && _tly_commits "$word"
        compopt -o default # where there is no such commit
        ;;
    esac
}
complete -F _tly_report tly-report
