"""What the programs say of themselves: the switches of tly, the commands and options of tly-report. Manual pages and completions are
made of it."""
import collections, os, pathlib, re, subprocess, tempfile

# form: "-Ta", '-w"Create dir"'; of a switch with an argument of its own "-F", and argument is "file"; forms are those of its letters.
Switch = collections.namedtuple("Switch", "form argument help forms")
# names: ["-o", "--output"], none for what stands behind the options; value: "FILE", "" for none; words: what else isn't taken, or [].
Option = collections.namedtuple("Option", "names value help words")
Command = collections.namedtuple("Command", "name help options")

FORM = r'(-\w(?:"[^"]*"|\w*))'


def said(program, *arguments, status=0, settings=""):
    """What a program prints, in a home of its own with these settings."""
    with tempfile.TemporaryDirectory() as home:
        pathlib.Path(home, "tly.cfg").write_text("TLY CFG Version: 7.75\n" + settings)
        done = subprocess.run([os.path.abspath(program), *arguments], env={"TLYHOME": home}, stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT if status else None)
    if done.returncode != status:
        raise SystemExit("%s %s ends with %d" % (program, " ".join(arguments), done.returncode))
    return done.stdout


def switches(tly):
    """All switches but those that are there to say that they aren't supported."""
    found = []
    for line in said(tly, "-hs").splitlines():
        switch = re.fullmatch(r" {10}(-\w)(?:\[(.*?)\])? (\S.*)", line)
        form = re.fullmatch(r" {13}%s +(\S.*)" % FORM, line)
        if "No longer supported" in line:
            continue
        if switch:
            found.append(Switch(switch[1], (switch[2] or "").strip('"'), switch[3], []))
        elif form and form[1][:2] != found[-1].form:  # -B, -M, -P, -L stand below -p
            found.append(Switch(form[1][:2], "number", form[2], []))
        elif form and found[-1].argument in ("", "number"):  # below -r stand examples
            found[-1].forms.append(Switch(form[1], "", form[2], []))
    by_letter = {switch.form: switch for switch in found}
    for form, text in re.findall(r"^ {6}%s  +(\S.*)" % FORM, said(tly, "-hf"), re.M):
        switch = by_letter.get(form[:2])
        if switch and switch.forms and form not in [each.form for each in switch.forms]:
            switch.forms.append(Switch(form, "", text, []))
    return found


def rows(text):
    """{section: [(what stands at its left, its text)]} of a --help."""
    found = {}
    for line in re.sub(r",\s+(?=-)", ",", text).splitlines():
        title = re.fullmatch(r"\[?(\w+)\]?:", line)
        row = re.fullmatch(r"  (\S+(?: \S+)*)(?:  +(\S.*))?", line)
        if title:
            section = found.setdefault(title[1].lower(), [])
        elif row and found:
            section.append((row[1], row[2] or ""))
        elif line.strip() and found:
            section[-1] = (section[-1][0], (section[-1][1] + " " + line.strip()).strip())
    return found


def commands(report):
    """The commands of tly-report with their options, what stands behind the options last; --help is left out."""
    found = []
    for name, text in rows(said(report, "--help"))["subcommands"]:
        told = rows(said(report, name, "--help"))
        options = []
        for left, help_text in told["options"] + told.get("positionals", []):
            names = left.split()[0].split(",") if left[0] == "-" else []
            value = " ".join(left.split()[1:]) if names else re.match(r"\S+( \.\.\.)?", left)[0]  # a type may stand behind it
            if "--help" in names:
                continue
            words = None
            if value in ("WHAT", "FORM"):
                words = re.search(r"it takes (.*)\.", said(report, name, names[-1], "?", status=2))
            options.append(Option(names, value, help_text, re.split(", | or ", words[1]) if words else []))
        found.append(Command(name, text, options))
    return found


def beside(tly):
    """The tly-report of a tly."""
    return pathlib.Path(tly).resolve().with_name("tly-report")
