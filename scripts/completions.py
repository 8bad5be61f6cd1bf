#!/usr/bin/env python3
"""Makes the completions of share/completions of what the programs say of themselves: completions.py --tly BINARY [--check]

For bash, zsh and fish, of tly and of tly-report. With --check it compares them instead."""
import argparse, pathlib, re, sys, textwrap

from program_help import beside, commands, switches

ROOT = pathlib.Path(__file__).resolve().parents[1] / "share/completions"
MADE = "# Made by scripts/completions.py, of what the program says of itself."

# What a value is, by its name in the help; ahead of it "-" where it stands behind an option. Whatever isn't told here is a file.
KINDS = {"N": "none", "-N": "none", "-K": "none", "-KIND=N": "none", "-DIR": "directory", "-WHAT": "words", "-FORM": "words",
         "-COMMIT": "commit", "OLD": "commit", "NEW": "commit"}
REFS = "git for-each-ref --format='%(refname:short)' 2>/dev/null"


def kind(option):
    return KINDS.get("-" * bool(option.names) + option.value, "file") if option.value else ""


def quoted(text):
    """For a shell, in single quotes."""
    return "'%s'" % text.replace("'", "'\\''")


def parts(form):
    """'-w"Create dir"': what stands between the quotes ahead of a name, and what the name is of."""
    told = re.fullmatch(r'-\w"(\w+ )old, new"|-\w"(.* )(\w+)"', form)
    return (told[1] or told[2], {"dir": "directory", None: "two"}.get(told[3], "file")) if told else None


def opened(form):
    """A form up to the name that is to be given."""
    return form[:3] + parts(form)[0] if parts(form) else form


def folded(before, words, behind=""):
    """Words for bash, on as many lines as they need."""
    text = before + " ".join(word.replace(" ", "\0") for word in words) + behind
    return " \\\n        ".join(textwrap.wrap(text, 110, break_on_hyphens=False)).replace("\0", " ") + "\n"


# ---- bash --------------------------------------------------------------------------------------------------------------------

TLY_BASH = r"""# shellcheck shell=bash
%(made)s
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
        r*' '*) _tly_paths -d "${piece%%%% *} " "${piece#* }" ;;
        wx\ *,*)
            rest=${piece#*,}
            rest=${rest#"${rest%%%%[! ]*}"}
            _tly_paths -f "${piece%%"$rest"}" "$rest"
            ;;
        wx\ *) _tly_paths -f 'x ' "${piece#x }" ', ' ;;
%(names)s        O* | F*) _tly_paths -f '' "$piece" ;;
%(openings)s        esac
        # What goes on behind itself keeps its quote open: a single completion would close it.
        [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *[/\ ] ]] && COMPREPLY+=("${COMPREPLY[0]} ")
        return
    fi
    case $word in
    -O* | -F*)
        _tly_paths -f '' "${word:2}"
        for at in "${!COMPREPLY[@]}"; do
            COMPREPLY[at]=${word:0:2}$(printf %%q "${COMPREPLY[at]}")
        done
        ;;
    -[%(free)s]?*) ;;
%(forms)s%(letters)s    *) compopt -o default ;;
    esac
}
complete -F _tly tly
"""


def tly_bash(found):
    names, openings, forms = "", "", ""
    for switch in found:
        begun = [(form.form, parts(form.form)) for form in switch.forms if parts(form.form)]
        for form, (before, what) in begun:
            if what != "two":
                names += "        %s*) _tly_paths -%s %s \"${piece#%s}\" ;;\n" % (
                    (switch.form[1] + before).replace(" ", "\\ "), what[0], quoted(before), before.replace(" ", "\\ "))
        if begun:
            openings += "        %s*) _tly_offer %s ;;\n" % (switch.form[1], " ".join(quoted(before) for _, (before, _) in begun))
        if switch.forms:
            texts = [opened(form.form) for form in switch.forms]
            forms += folded("    %s*) _tly_offer " % switch.form, [quoted(t) if '"' in t else t for t in texts], " ;;")
    free = "".join(switch.form[1] for switch in found if switch.argument and not switch.forms and switch.argument != "file")
    return TLY_BASH % {"made": MADE, "names": names, "openings": openings, "forms": forms, "free": free,
                       "letters": folded("    -*) _tly_offer ", [switch.form for switch in found], " ;;")}


REPORT_BASH = r"""# shellcheck shell=bash
%(made)s

# A name of a branch may be anything, even what a shell would run.
_tly_commits() {
    local name
    while IFS= read -r name; do
        [[ $name == "$1"* ]] && COMPREPLY+=("$(printf %%q "$name")")
    done < <(%(refs)s)
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
%(options)s    *)
        mapfile -t COMPREPLY < <(compgen -W '%(commands)s --help --version' -- "$word")
        return
        ;;
    esac
    [[ $option == -* ]] || option=''
    case $command:$option in
%(values)s    *)
        if [[ $word == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
            return
        fi
        [[ ' %(commits)s ' == *" $command "* ]] && _tly_commits "$word"
        compopt -o default # where there is no such commit
        ;;
    esac
}
complete -F _tly_report tly-report
"""

ACTIONS = {"none": ":", "file": "compopt -o default", "directory": "compopt -o filenames\n        "
           "mapfile -t COMPREPLY < <(compgen -d -- \"$word\")",
           "commit": "_tly_commits \"$word\""}


def report_bash(found):
    options, actions = "", {}
    for command in found:
        options += "    %s) options='%s' ;;\n" % (command.name, " ".join(n for o in command.options for n in o.names))
        for option in command.options:
            action = ACTIONS.get(kind(option))
            if option.words:
                action = "mapfile -t COMPREPLY < <(compgen -W '%s' -- \"$word\")" % " ".join(option.words)
            if action and option.names:
                actions.update({(command.name, name): action for name in option.names})
    places = {}  # by what is done there; an option that is the same in all commands that have it is told once
    for (command, name), action in actions.items():
        alike = len({each for (_, other), each in actions.items() if other == name}) == 1
        places.setdefault(action, {})["%s:%s" % ("*" if alike else command, name)] = None
    values = "".join("    %s)\n        %s\n        ;;\n" % (" | ".join(where), action) for action, where in places.items())
    return REPORT_BASH % {"made": MADE, "refs": REFS, "options": options, "values": values,
                          "commands": " ".join(command.name for command in found),
                          "commits": " ".join(c.name for c in found if any(kind(o) == "commit" and not o.names for o in c.options))}


# ---- zsh ---------------------------------------------------------------------------------------------------------------------

TLY_ZSH = r"""#compdef tly
%(made)s
# A quote behind the letter of a switch is seen without it, with its blanks behind backslashes: -r"c,h sr is -rc,h\ sr.

_tly() {
    local state
    local -a forms names
    _arguments \
%(specs)s        '*:source:_files' && return
    case $state in
    r) if compset -P '[^\\]#\\ '; then _files -/; else _message 'extensions, a blank, a directory'; fi ;;
%(states)s    esac
}

_tly "$@"
"""


def bracketed(text):
    return "[%s]" % re.sub(r"([]\[\\])", r"\\\1", text)


def tly_zsh(found):
    specs, states = "", ""
    for switch in found:
        letter, argument = switch.form[1], {"file": "file:_files", "": ""}.get(switch.argument, switch.argument + ": ")
        if switch.forms or letter == "r":
            argument = "form:->" + letter
        specs += "        %s \\\n" % quoted("*%s%s%s" % (switch.form, "-" if argument else "", bracketed(switch.help))
                                           + (argument and ":" + argument))
        if not switch.forms:
            continue
        begun = [(parts(form.form), form.help) for form in switch.forms if parts(form.form)]
        states += "    %s)\n" % letter
        for (before, what), _ in begun:
            names = quoted(before.replace(" ", r"\\ "))
            more = "compset -P %s || " % quoted(before.replace(" ", r"\\ ") + r"[^,]#,(\\ )#") if what == "two" else ""
            states += "        if %scompset -P %s; then _files%s; return; fi\n" % (more, names, " -/" if what == "directory" else "")
        if begun:
            states += "        names=(%s)\n" % " ".join(quoted("%s:%s" % (before, text)) for (before, _), text in begun)
            states += "        _describe %s names -S ''\n" % quoted(switch.help)
        states += "        forms=(\n%s        )\n        _describe %s forms\n        ;;\n" % ("".join(
            "            %s\n" % quoted("%s:%s" % (form.form[2:], form.help)) for form in switch.forms if not parts(form.form)),
            quoted(switch.help))
    return TLY_ZSH % {"made": MADE, "specs": specs, "states": states}


REPORT_ZSH = r"""#compdef tly-report
%(made)s

_tly-report-commits() {
    compadd -- ${(f)"$(%(refs)s)"}
}

_tly-report() {
    local state
    local -a commands
    _arguments '(- *)--help[how it is used]' '(- *)--version[its version]' '1:command:->command' '*::argument:->argument' && return
    if [[ $state == command ]]; then
        commands=(
%(commands)s        )
        _describe command commands
        return
    fi
    case $words[1] in
%(options)s    esac
}

_tly-report "$@"
"""

ZSH_ACTIONS = {"": "", "none": " ", "file": "_files", "directory": "_files -/", "commit": "_tly-report-commits"}


def report_zsh(found):
    options = ""
    for command in found:
        options += "    %s)\n        _arguments '--help[how it is used]'" % command.name
        for option in command.options:
            value = "(%s)" % " ".join(option.words) if option.words else ZSH_ACTIONS[kind(option)]
            action = ":%s:%s" % (option.value, value) if kind(option) else ""
            again = "*" if "several times" in option.help else "(%s)" % " ".join(option.names)
            specs = [again + name + "=" * (name.startswith("--") and action != "") + bracketed(option.help) + action
                     for name in option.names] or ["*" * ("..." in option.value) + action]
            options += "".join(" \\\n            " + quoted(spec) for spec in specs)
        options += "\n        ;;\n"
    return REPORT_ZSH % {"made": MADE, "refs": REFS, "options": options, "commands": "".join(
        "            %s\n" % quoted("%s:%s" % (command.name, command.help)) for command in found)}


# ---- fish --------------------------------------------------------------------------------------------------------------------

TLY_FISH = r"""%(made)s

# The files, or with "directory" the directories, that begin with a text; another text stands ahead of each.
function __tly_paths --argument-names what before text
    for path in "$text"*
        if test -d "$path"
            echo "$before$path/"
        else if test $what = file
            echo "$before$path"
        end
    end
end

# What can stand behind the letter of a switch. A quote behind it and backslashes aren't part of its text.
function __tly_forms --argument-names letter
    set -l text (commandline -ct | string sub -s 3 | string replace -r '^["\']' '' | string replace -a '\\' '')
    switch "$letter$text"
        case 'r* *'
            __tly_paths directory (string match -r '^\S* ' -- $text) (string replace -r '^\S* ' '' -- $text)
        case 'wx *,*'
            __tly_paths file (string match -r '^[^,]*, *' -- $text) (string replace -r '^[^,]*, *' '' -- $text)
%(names)s        case 'F*' 'O*'
            __tly_paths file '' "$text"
%(forms)s    end
end

%(switches)s"""


def tly_fish(found):
    names, forms, lines = "", "", ""
    for switch in found:
        letter = switch.form[1]
        called = switch.forms or switch.argument in ("file", "ext,ext directory")
        taken = " -x -a '(__tly_forms %s)'" % letter if called else " -x" if switch.argument else ""
        lines += "complete -c tly -s %s%s -d %s\n" % (letter, taken, quoted(switch.help))
        texts = ""
        for form in switch.forms:
            before, what = parts(form.form) or (form.form[2:], "")
            texts += " \\\n                %s %s" % (quoted(before), quoted(form.help))
            if what:
                names += "        case %s\n            __tly_paths %s %s (string replace %s '' -- $text)\n" % (
                    quoted(letter + before + "*"), what.replace("two", "file"), quoted(before), quoted(before))
        if texts:
            forms += "        case %s\n            printf '%%s\\t%%s\\n'%s\n" % (quoted(letter + "*"), texts)
    return TLY_FISH % {"made": MADE, "names": names, "forms": forms, "switches": lines}


def report_fish(found):
    actions = {"": "", "none": " -x", "file": " -r -F", "directory": " -x -a '(__fish_complete_directories)'",
               "commit": " -x -a \"(%s)\"" % REFS}
    lines = "complete -c tly-report -f\n"
    for name, text in (("help", "how it is used"), ("version", "its version")):
        lines += "complete -c tly-report -n __fish_use_subcommand -l %s -d %s\n" % (name, quoted(text))
    for command in found:
        lines += "complete -c tly-report -n __fish_use_subcommand -a %s -d %s\n" % (command.name, quoted(command.help))
    for command in found:
        told = {}
        for option in command.options:
            what = kind(option)
            taken = " -x -a %s" % quoted(" ".join(option.words)) if option.words else actions[what]
            names = "".join(" -l " + name[2:] if name.startswith("--") else " -s " + name[1:] for name in option.names)
            if names:
                taken += " -d " + quoted(option.help)
            else:
                taken = taken.replace(" -r", "").replace(" -x", "")
            if names or taken:
                told["complete -c tly-report -n '__fish_seen_subcommand_from %s'%s%s\n" % (command.name, names, taken)] = None
        lines += "\n" + "".join(told)
    return MADE + "\n\n" + lines


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tly", required=True)
    parser.add_argument("--check", action="store_true")
    arguments = parser.parse_args()
    of_tly, of_report = switches(arguments.tly), commands(beside(arguments.tly))
    faults = []
    for name, text in {"tly.bash": tly_bash(of_tly), "tly-report.bash": report_bash(of_report),
                       "_tly": tly_zsh(of_tly), "_tly-report": report_zsh(of_report),
                       "tly.fish": tly_fish(of_tly), "tly-report.fish": report_fish(of_report)}.items():
        path = ROOT / name
        if not arguments.check:
            path.write_text(text)
        elif not path.exists() or path.read_text() != text:
            faults.append("%s isn't what the programs say: scripts/completions.py --tly BINARY makes it again" % path)
    print(*faults, sep="\n", end="\n" if faults else "")
    return bool(faults)


sys.exit(main())
