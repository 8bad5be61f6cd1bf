#!/usr/bin/env python3
"""Makes the manual pages of what the programs print: man_page.py --tly BINARY [--check]

Writes docs/tly.1, docs/tly-report.1, docs/tly.cfg.5 and docs/tly_udqn.5. With --check it compares them instead, lints them with mandoc,
and makes sure that each switch of "tly -hs" has its place in the manual and each setting its place on its page."""
import argparse, pathlib, re, subprocess, sys

from mdoc import body, escaped, literal, marked, markdown, page, quoted, sentences
from program_help import beside, commands, said

ROOT = pathlib.Path(__file__).resolve().parents[1]
MARGIN = "  "


def head(name, section, what):
    return ['.\\" Made by scripts/man_page.py, of what the programs print.', ".Dd November 23, 2026",
            ".Dt %s %d" % (name.upper(), section), ".Os", ".Sh NAME", ".Nm " + name, ".Nd " + what]


def see_also(*pages):
    return [".Sh SEE ALSO"] + [".Xr %s%s" % (page, " ," if page != pages[-1] else "") for page in pages]


# ---- tly(1): the manual -----------------------------------------------------------------------------------------------------

def blocks(manual):
    """(kind, title, text) of the sections and of the switches."""
    found = []
    lines = manual.split("\n")
    for number, line in enumerate(lines):
        section = re.fullmatch(r" +~ (.*?) ?~ ?", line)
        rule = number + 1 < len(lines) and re.fullmatch("  -{72}", lines[number + 1])
        if section:
            found.append(("Sh", section[1], []))
        elif rule:
            found.append(("Ss", line[len(MARGIN):].lstrip("* "), []))
        elif found and not re.fullmatch("  -{72}", line):
            found[-1][2].append(line[len(MARGIN):])
    return [(kind, title, "\n".join(rows)) for kind, title, rows in found]


def tly_page(manual):
    out = head("tly", 1, "source code metrics of C, C++, C# and Java")
    out += [".Sh SYNOPSIS", ".Nm", ".Op Ar switches", ".Op Ar"]
    for kind, title, text in blocks(manual):
        if kind == "Ss":  # the letter opens the text
            letter, text = text.strip("\n").split("\n", 1)
            out.append(".Ss %s: %s" % (escaped(letter), escaped(title)))
        else:
            out.append(".Sh " + ("DESCRIPTION" if title == "TLY Help Documentation" else escaped(title.upper())))
        out += body(text)
    return out + see_also("tly-report 1", "tly.cfg 5", "tly_udqn 5")


# ---- tly-report(1): --help of each command, and docs/report.md --------------------------------------------------------------

def report_page(report):
    intro, *parts = re.split(r"^(##+ .*)\n", (ROOT / "docs/report.md").read_text(), flags=re.M)
    told = []  # (title, text) of the headings below the first; those of a heading of three belong to the one above
    for title, text in zip(parts[0::2], parts[1::2]):
        if title.startswith("## "):
            told.append((title[3:], markdown(text)))
        else:
            told[-1][1].extend([".Pp", "\\fB%s\\fP" % escaped(title[4:])] + markdown(text))
    texts = dict(told)
    start, status, rest = re.fullmatch(r".*?\n(.*)Exit status: (.*?\.) (Reports go.*)", intro, flags=re.S).groups()
    found = commands(report)
    out = head("tly-report", 1, "reports on the figures of tly") + [".Sh SYNOPSIS"]
    for command in found:
        out += [".Nm tly-report", ".Cm " + command.name, ".Op Ar option ..."]
        out += [".Op Ar " + option.value for option in command.options if not option.names]
    out += [".Nm tly-report", ".Op Fl \\-help | \\-version", ".Sh DESCRIPTION"] + markdown(start + rest)
    out.append(".Sh COMMANDS")
    for command in found:
        out += [".Ss %s: %s" % (command.name, escaped(command.help)), ".Bl -tag -width Ds"]
        for option in command.options:
            names = " , ".join("Fl " + escaped(name[1:]) for name in option.names)
            out.append(".It " + (names + " Ar " + option.value if names and option.value else names or "Ar " + option.value))
            out += sentences(option.help)
        out += [".El"] + texts.pop(command.name, [])
    for title, text in texts.items():
        out += [".Sh " + escaped(title.upper())] + text
    return out + [".Sh EXIT STATUS"] + marked(sentences(status)) + see_also("tly 1", "tly.cfg 5", "tly_udqn 5")


# ---- tly.cfg(5): the settings as they are written, their ranges as they are taken -------------------------------------------

# What is understood, but no setting of a file that tly writes. --check holds the names against the table of settings.
UNWRITTEN = {
    "TLY CFG Version": "The version that wrote the file: 7.75.",
    "HTML ALink Color": "The color of a link that is being followed.",
    "Force use of linear lookahead algorithm": "Changes nothing: lines are compared by their longest common sequence.",
    "Use LLA for files > LCS file size": "Changes nothing.",
    "Allowable source code extensions": "In a second configuration file behind -r: extensions in place of those of -r.",
    "Modern Source Constructs": "Yes reads today's C++, C# and Java as -xMODERN does.  A file with this line keeps it.",
    "Quality Notice 25": "The older name of \"Treat C headers as C++\".",
    "Include cyclo complexity in work files": "Says that tly_workdiff.cfg has taken its place.",
}


def values(settings):
    return dict(re.findall(r"^(?!#)([^:\n]+?) *: ?(.*?) *$", settings, re.M))


def taken(tly, defaults):
    """What the settings become when each has this value."""
    return lambda value: values(said(tly, "-y", settings="".join("%s: %s\n" % (key, value) for key in defaults)))


def settings_page(tly, manual):
    written = said(tly, "-y")
    defaults = values(written)
    of = taken(tly, defaults)
    least, one, most = of("0"), of("1"), of("99999999999")

    def row(key):
        text = "%-40s: %-5s" % (key, defaults[key])
        if not re.fullmatch(r"\d+(\.\d\d)?", defaults[key]):
            return text
        lowest = min(least[key], one[key], key=float)  # where 0 is no value, it stands for the default
        return text + " (%s to %s)" % (lowest.removesuffix(".00"), most[key].removesuffix(".00"))

    about = next(text for kind, title, text in blocks(manual) if title == "Program Configuration")
    files, rest = about.split("Your own quality notices are", 1)
    out = head("tly.cfg", 5, "settings of tly") + [".Sh DESCRIPTION"] + body(files)
    out += [".Pp"] + body(rest[rest.index("A second configuration file"):])
    out += [".Pp"] + sentences(
        "The settings below are shown with their defaults.  A number has its range behind it: what is above is cut to it, and what "
        "doesn't begin with a digit is passed over, as is an empty text.  A color is a name or a number like #0000FF.")
    text = written.split("# The following is the current configuration data\n\n")[1]
    for part in re.findall(r"(?:^#.*\n)+|(?:^[^#\n].*\n)+", text, re.M):
        lines = part.strip("\n").split("\n")
        if not lines[0].startswith("#"):
            out += literal(row(line.split(":")[0].rstrip()) for line in lines)
            continue
        if re.fullmatch(r"#{68}", lines[0]):  # the last one has only the end of the file below it
            out += [".Sh " + escaped(title(lines[1]).upper())] if "end of" not in lines[1] else []
            lines = lines[2:]
        if lines and re.fullmatch(r"# .* #+", lines[0]):
            out += [".Ss " + escaped(title(lines.pop(0)))]
        out += comment(lines)
    out += [".Sh OTHER KEYS", "These are understood, but aren't among the settings of a new file.", ".Bl -tag -width Ds"]
    for key, text in UNWRITTEN.items():
        out += [".It " + quoted(key)] + sentences(text)
    return out + [".El"] + see_also("tly 1", "tly_udqn 5")


def title(line):
    return line.strip("# ").removeprefix("TLY ")


def comment(lines):
    """The comment above a setting. What is indented in it is a sample."""
    out, prose = [], []
    for line in lines:
        if re.match(r"#(  +|$)|# i\.e\.", line):
            out += prose and [".Pp"] + sentences("\n".join(prose))
            prose = []
            out.append(line)
        else:
            prose.append(re.sub(r"^(# Quality Notice No\. \d+)$", r"\1.", line)[2:])
    out += prose and [".Pp"] + sentences("\n".join(prose))
    result = []
    for line in out:  # samples that follow one another are one
        if line.startswith("#"):
            result = result[:-1] if result[-1:] == [".Ed"] else result + [".Bd -literal -offset indent"]
            result += [escaped(line[2:])] + [".Ed"]
        else:
            result.append(line)
    return result


# ---- tly_udqn(5): the keys of -xUDQNKEYS, and an example that is a test ------------------------------------------------------

def rules_page(tly, manual):
    about = next(text for kind, title, text in blocks(manual) if title == "Program Configuration")
    rules = about[about.index("Your own quality notices are"):about.index("A second configuration file")]
    out = head("tly_udqn", 5, "quality notices of your own for tly") + [".Sh DESCRIPTION"] + body(rules)
    out += [".Sh KEYS", "A line is a key, a colon and a value.", ".Bl -tag -width Ds"]
    for key, value, text in re.findall(r"^  (\S.*?):(.*)\n((?: {6}(?: {4})?\S.*\n)+)", said(tly, "-xUDQNKEYS"), re.M):
        out += [".It " + quoted(escaped(key) + " :" + value)] + body(re.sub(r"^ {6}", "", text, flags=re.M))
    out += [".El", ".Sh EXAMPLE"]
    play = (ROOT / "tests/runs/rules/page.run").read_text()
    for name, text in re.findall(r"^=== (?:file|sh) (.*)\n((?:(?!===).*\n)*)", play, re.M):
        if name.startswith("tly "):
            return out + [".Pp", "The file that keeps its lock is told:"] + literal(["$ " + name] + text.splitlines()) + \
                see_also("tly 1", "pcre2pattern 3", "tly.cfg 5")
        out += [".Pp", ".Pa " + name] + literal(text.splitlines())


# ---- All of them -------------------------------------------------------------------------------------------------------------

def untold(tly, manual):
    """Switches that the manual leaves out, settings that tly.cfg(5) does."""
    faults = []
    named = re.findall(r'^ +(-(?!switch)[A-Za-z](?:[A-Za-z]+|\d+|"\w+ \w+|"x)?)', said(tly, "-hs"), re.M)
    if len(named) < 100:
        faults.append("only %d switches found in the switch list" % len(named))
    for switch in named:
        if switch not in manual and not (switch[-1].isdigit() and switch.rstrip("0123456789") in manual):
            faults.append("the manual doesn't tell of " + switch)
    table = (ROOT / "src/config/settings_table.cpp").read_text()
    unwritten = re.findall(r'^ +ReadOnly\([^"\n]*"(.*?)"', table, re.M)
    if sorted(unwritten) != sorted(UNWRITTEN):
        faults.append("UNWRITTEN isn't what the table has: %s" % set(unwritten).symmetric_difference(UNWRITTEN))
    return faults


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("--tly", required=True)
    options.add_argument("--check", action="store_true")
    options = options.parse_args()
    manual = said(options.tly, "-hf")
    faults = untold(options.tly, manual)
    for name, lines in {"tly.1": tly_page(manual), "tly-report.1": report_page(beside(options.tly)),
                        "tly.cfg.5": settings_page(options.tly, manual), "tly_udqn.5": rules_page(options.tly, manual)}.items():
        path, text = ROOT / "docs" / name, page(lines)
        if not options.check:
            path.write_text(text, encoding="ascii")
        elif not path.exists() or path.read_text() != text:
            faults.append("docs/%s isn't what the programs say: scripts/man_page.py --tly BINARY makes it again" % name)
        lint = subprocess.run(["mandoc", "-Tlint", "-Wwarning", path], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        faults += lint.stdout.splitlines()
    print(*faults, sep="\n", end="\n" if faults else "")
    return bool(faults)


sys.exit(main())
