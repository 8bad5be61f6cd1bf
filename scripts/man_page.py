#!/usr/bin/env python3
"""Makes the manual page of what "tly -hf" prints: man_page.py --tly BINARY [--check PAGE]

Writes the page to standard output. With --check it compares it with PAGE instead, lints it with mandoc, and makes sure that every
switch of "tly -hs" has its place in the manual."""
import argparse, os, re, subprocess, sys, tempfile, textwrap

MARGIN = "  "
HEAD = ['.\\" Made by scripts/man_page.py of what "tly -hf" prints.', ".Dd November 23, 2026", ".Dt TLY 1", ".Os", ".Sh NAME", ".Nm tly",
        ".Nd source code metrics of C, C++, C# and Java", ".Sh SYNOPSIS", ".Nm", ".Op Ar switches", ".Op Ar"]


def escaped(line):
    line = line.replace("\\", "\\e").replace("-", "\\-")
    return "\\&" + line if line[:1] in ".'" else line


def body(lines):
    """Prose becomes paragraphs with a line for each sentence, indented lines stay as they are."""
    out = []
    text = "\n".join(line[len(MARGIN):] for line in lines)
    for part in re.findall(r"(?:^ .*\n?|^\n)+|(?:^\S.*\n?)+", text, re.M):
        if part[0] in " \n":
            rows = [escaped(row[2 * len(MARGIN):].rstrip()) for row in part.strip("\n").split("\n")]
            out += [".Bd -literal -offset indent"] + rows + [".Ed"] if part.strip() else []
        else:
            out += [".Pp"] if out else []
            for sentence in re.split(r"(?<=[.?!]) (?=\S)", " ".join(part.split())):
                out += map(escaped, textwrap.wrap(sentence, 70, break_long_words=False, break_on_hyphens=False))
    return out


def blocks(text):
    """(kind, title, lines) of the sections and of the switches."""
    found = []
    lines = text.split("\n")
    for number, line in enumerate(lines):
        section = re.fullmatch(r" +~ (.*?) ?~ ?", line)
        rule = number + 1 < len(lines) and re.fullmatch("  -{72}", lines[number + 1])
        if section:
            found.append(("Sh", section[1], []))
        elif rule:
            found.append(("Ss", line[len(MARGIN):].lstrip("* "), []))
        elif found and not re.fullmatch("  -{72}", line):
            found[-1][2].append(line)
    return found


def page(manual):
    out = list(HEAD)
    for kind, title, lines in blocks(manual):
        if kind == "Ss":  # the letter opens the text
            letter = next(line for line in lines if line.strip())
            lines = lines[lines.index(letter) + 1:]
            out.append(".Ss %s: %s" % (escaped(letter.strip()), escaped(title)))
        else:
            out.append(".Sh " + ("DESCRIPTION" if title == "TLY Help Documentation" else escaped(title.upper())))
        out += body(lines)
    return "\n".join(out) + "\n"


def check(path, made, manual, switches):
    faults = []
    with open(path, encoding="ascii") as stream:
        if stream.read() != made:
            faults.append("%s isn't what the manual says: make it again" % path)
    lint = subprocess.run(["mandoc", "-Tlint", path], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    faults += lint.stdout.splitlines()
    named = re.findall(r'^ +(-(?!switch)[A-Za-z](?:[A-Za-z]+|\d+|"\w+ \w+|"x)?)', switches, re.M)
    if len(named) < 100:
        faults.append("only %d switches found in the switch list" % len(named))
    for switch in named:
        if switch not in manual and not (switch[-1].isdigit() and switch.rstrip("0123456789") in manual):
            faults.append("the manual doesn't tell of " + switch)
    return faults


def main():
    options = argparse.ArgumentParser(description=__doc__)
    options.add_argument("--tly", required=True)
    options.add_argument("--check", metavar="PAGE")
    options = options.parse_args()
    with tempfile.TemporaryDirectory() as home:
        def say(switch):
            return subprocess.run([os.path.abspath(options.tly), switch], env={"TLYHOME": home}, stdout=subprocess.PIPE, text=True,
                                  check=True).stdout
        manual, switches = say("-hf"), say("-hs")
    made = page(manual)
    if not options.check:
        sys.stdout.write(made)
        return 0
    faults = check(options.check, made, manual, switches)
    print("\n".join(faults))
    return bool(faults)


sys.exit(main())
