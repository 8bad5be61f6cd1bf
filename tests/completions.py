#!/usr/bin/env python3
"""completions.py SHELL: types command lines into bash, zsh or fish, with the tab key at their ends, and looks at the arguments that a
program of that name then gets. Ends with 77 where there is no such shell, or no terminal to type into."""
import os, pathlib, pty, select, shutil, subprocess, sys, tempfile

SHARE = pathlib.Path(__file__).resolve().parents[1] / "share/completions"
FILES = ["main.c", "my source.c", "one.dat", "two.dat", "my.cfg", "so me/inner/deep.c", "soup.c", "sly$(touch gotcha).c"]
TAGS = ["release-1", "shy$(touch${IFS}gotcha)"]

# What is typed, and the argument that it becomes. A directory can be gone into: its quote stays open.
ROWS = [
    ("tly -xNOH", "-xNOHEADER"),
    ("tly -xMOD", "-xMODERN"),
    ('tly -w"Create so', "-wCreate so me/"),
    ("tly -w'Create so me/in", "-wCreate so me/inner/"),
    ('tly -w"File da', "-wFile dat "),
    ('tly -w"x one.dat, tw', "-wx one.dat, two.dat"),
    ("tly -w'x one.dat,tw", "-wx one.dat,two.dat"),
    ('tly -u"File CFG my.', "-uFile CFG my.cfg"),
    ('tly -x"File csv my.', "-xFile csv my.cfg"),
    ('tly -r"c,h so', "-rc,h so me/"),
    ("tly -O\"my s", "-Omy source.c"),
    ("tly -Omy\\ s", "-Omy source.c"),
    ("tly -Fone", "-Fone.dat"),
    ("tly my\\ s", "my source.c"),
    ('tly -S"a b" -r"c,h ." ma', "main.c"),
    ("tly-report bad", "badge"),
    ("tly-report badge --of l", "lines"),
    ("tly-report csv --table=k", "--table=kinds"),
    ("tly-report csv -o out --root so", "so me/"),
    ("tly-report gate --max-c", "--max-complexity"),
    ("tly-report new --since rel", "release-1"),
    ("tly-report json on", "one.dat"),
    # names that a shell could run
    ("tly-report new --since shy", TAGS[1]),
    ("tly sly", "sly$(touch gotcha).c"),
    ('tly -w"File dat sly', "-wFile dat sly$(touch gotcha).c"),
    ("tly -Osly", "-Osly$(touch gotcha).c"),
]
# What is told where there are several.
SEVERAL = [("tly -N", ["Short Single Line Format", "Visual Studio Format"], ["-Ns", "-Nv"]),
           ("tly-report c", ["notices as the XML of Checkstyle", "a table of figures"], ["checkstyle  csv"])]
SETUP = {
    "bash": ". %s/tly.bash; . %s/tly-report.bash; PS1='> '" % (SHARE, SHARE),
    "zsh": "fpath=(%s $fpath); autoload -U compinit; compinit -u -d $HOME/.known; PS1='> '" % SHARE,
}


class Session:
    """A shell at a terminal of its own."""

    def __init__(self, shell, where):
        self.shell = shell
        try:
            self.pid, self.terminal = pty.fork()
        except OSError as error: # a root without /dev/pts
            print(error)
            sys.exit(77)
        if self.pid == 0:
            os.chdir(where)
            environment = {"PATH": os.environ["PATH"], "TERM": "dumb", "HOME": where, "LC_ALL": "C.UTF-8"}
            os.execvpe(shell, [shell] + {"bash": ["--norc", "--noprofile", "-i"], "zsh": ["-f", "-i"]}[shell], environment)
        self.type(SETUP[shell] + "; tly() { printf '<%s>' \"$@\"; echo ': end'; }; tly-report() { tly \"$@\"; }\ntly READY\n", "<READY>: end")

    def type(self, text, until):
        """What is shown then, up to a mark; None if it doesn't come."""
        os.write(self.terminal, text.encode())
        shown = ""
        while until not in shown:
            if not select.select([self.terminal], [], [], 20)[0]:
                return None
            shown += os.read(self.terminal, 65536).decode(errors="replace")
        return shown

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.pid, 0)


def completed(shell, where, line, wanted):
    """The last argument of the line when its end is completed."""
    if shell == "fish":
        source = "; ".join("source %s" % path for path in sorted(SHARE.glob("*.fish")))
        done = subprocess.run(["fish", "--no-config", "-c", source + "; complete -C $argv[1]", line], cwd=where, stdout=subprocess.PIPE,
                              env={"PATH": os.environ["PATH"], "HOME": where, "LC_ALL": "C.UTF-8"}, text=True, check=True)
        return done.stdout.split("\n")[0].split("\t")[0] if done.stdout.count("\n") == 1 else done.stdout or line.split()[-1]
    session = Session(shell, where)
    opened = [quote for quote in "\"'" if line.count(quote) % 2]
    close = opened[0] if opened and shell == "bash" and wanted[-1] in "/ " else ""
    shown = session.type(line + "\t" + close + "\n", ": end")
    session.close()
    return shown and shown[shown.rindex("<") + 1:shown.rindex(">: end")]


def told(shell, where, line):
    if shell == "fish":
        return completed(shell, where, line, "")
    session = Session(shell, where)
    shown = session.type(line + "\t\t\n", ": end")
    session.close()
    return shown


def main():
    shell = sys.argv[1]
    if not shutil.which(shell):
        sys.exit(77)
    faults = []
    for path in SHARE.iterdir():
        if path.suffix == "." + shell or shell == "zsh" and not path.suffix:
            subprocess.run([shell, "-n", path], check=True)
    with tempfile.TemporaryDirectory() as where:
        for name in FILES:
            pathlib.Path(where, name).parent.mkdir(parents=True, exist_ok=True)
            pathlib.Path(where, name).touch()
        for arguments in [["init", "-q"], ["commit", "-q", "--allow-empty", "-m", "1"], *(["tag", tag] for tag in TAGS)]:
            subprocess.run(["git", "-c", "user.name=n", "-c", "user.email=a@b", *arguments], cwd=where, check=True,
                           env={"PATH": os.environ["PATH"], "HOME": where})
        for line, wanted in ROWS:
            got = completed(shell, where, line, wanted)
            if got is None or got.rstrip("/") != wanted.rstrip("/"):
                faults.append("%s<tab> gives %r, not %r" % (line, got, wanted))
        for line, explained, listed in SEVERAL:
            shown = told(shell, where, line)
            faults += ["%s<tab> doesn't tell of %r: %r" % (line, text, shown)
                       for text in (listed if shell == "bash" else explained) if not shown or text not in shown]
        if pathlib.Path(where, "gotcha").exists():
            faults.append("a name was run")
    print(*faults, sep="\n", end="\n" if faults else "")
    return bool(faults)


sys.exit(main())
