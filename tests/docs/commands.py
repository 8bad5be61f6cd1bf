#!/usr/bin/env python3
"""commands.py --tly TLY [--update] [PAGE...]: runs the commands of the documents, or of some, in a small project.

A line "    $ command" is followed by what it prints, which has to be what came out; --update writes that there. Any other command that
stands in a block of its own is run as well, and must not fail. The questions of docs/questions.md stand at a number each."""
import argparse, difflib, os, pathlib, re, shutil, subprocess, sys, tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANUAL = "tly -hf"
PAGES = ["README.md", "docs/questions.md", "docs/report.md", "docs/json.md", "docs/install.md", MANUAL]
# What these begin with isn't run, and why.
NOT_RUN = {
    "./scripts/": "installs packages and builds; scripts/fresh.sh runs both in a clean root",
    "scripts/package.sh": "builds the package",
    "cmake ": "builds",
    "apt-get ": "installs the package; scripts/fresh_package.sh does in a clean root",
    "cp build/package/": "there is a package only behind scripts/package.sh",
    "tly -p -L100 main.c | lpr": "prints on paper",
    "vim ": "waits for a person",
    "tly-report gate [": "tells the form of a command",
}
COMMANDS = ("tly ", "tly-report ", "git ", "printf ", "mkdir ", "for ", "test ", "(cd ", "man ", *NOT_RUN)
FILES = {
    "src/parse.cpp": """#include "parse.h"
// Reads a word of the list.
int Parser::Word(const char *text, int length)
{
    if (!text) goto none;
    for (int i = 0; i < length; ++i) {
        switch (text[i]) {
%s        default: break;
        }
    }
none:
    return 0;
}
""" % "".join(f"        case '{c}': ++seen; break;\n" for c in "abcdefghijklm"),
    "src/parse.h": "class Parser {\npublic:\n    int Word(const char *text, int length);\n    int seen;\n};\n",
    "src/Shape.java": "package shapes;\n\n/** What has an area. */\nabstract class Shape {\n    abstract double area(); // in m2\n}\n",
    "vendor/zip.c": "int zip(void)\n{\n\treturn 1;\n}\n",
    "rules/tly.cfg": "TLY CFG Version: 7.75\nTLY user defined quality notice file : rules.udqn\n",
    "rules/rules.udqn": "UDQN Begin     :\nUDQN Identifier: 100\nactive         : on\nsources        : c, cpp\ncontext        : Code\n"
                        "pattern        : \\bgoto\\b\nstring         : goto end;\nsummary        : No jumps in this house\nmessage        : "
                        "_LINE_\nUDQN End       :\n",
}
# What the other documents name besides. Nobody tracks it, so that it counts in no answer of docs/questions.md.
MORE = {
    "main.c": '#include "util.h"\nint main(void) { return util(1); }\n', "util.c": "int util(int a) { return a; }\n",
    "util.h": "int util(int a);\n", "a.cpp": "class A { int Get() { return 1; } };\n", "B.cs": "class B { int c; }\n",
    "src/util.c": "int sum(int a) { return a; }\n", "list.txt": "main.c\n", "my.udqn": FILES["rules/rules.udqn"], "r1/a.c": "int a;\n", "r2/a.c": "int a, b;\n",
    "proj/a.c": "int a;\n", "my project/a.c": "int a;\n", "base/none": "", "old/a.c": "int a;\n",
}
SET_UP = """git init -q . && git config user.email a@b && git config user.name n && git add src vendor rules
export GIT_COMMITTER_DATE='2026-11-23T09:30:07 +0000' GIT_AUTHOR_DATE='2026-11-23T09:30:07 +0000'
for i in $(seq 24); do
    echo "int step$i(int a) { return a; }" >> src/steps.c; git add src; git commit -qm $i
    [ $i != 23 ] || { git tag v1.0; tly-report run | tly-report json -o release.json; }
done
git tag v2.0; cp vendor/zip.c untracked.c; tly-report run -o now.xml"""
MORE_SET_UP = """cp release.json old.json; tly-report run main.c -o a.xml; tly-report run util.c -o b.xml; mkdir runs; cp now.xml runs
for r in r1 r2; do (cd $r; tly -w"Create ." -wd -w"File dat $OLDPWD/$r.dat" -r"c ." > ../made); done; mv r1.dat old.dat; mv r2.dat new.dat
cp -r r1.dat.dif ..; git add B.cs docs; git commit -qm sample"""


class Project:
    def __init__(self, place, tly):
        self.work = place / "project"
        self.tly = tly
        self.env = {"PATH": f"{tly.parent}:{os.environ['PATH']}", "HOME": str(place), "LC_ALL": "C", "TZ": "UTC", "TMPDIR": str(place)}
        self.write(FILES)
        (self.work / "build").mkdir()
        (self.work / "build/release").symlink_to(tly.parent)
        self.run(SET_UP)

    def write(self, files):
        for name, text in files.items():
            (self.work / name).parent.mkdir(parents=True, exist_ok=True)
            (self.work / name).write_text(text)

    def add_more(self):
        self.write({**MORE, "docs/sample.cpp": (ROOT / "docs/sample.cpp").read_text()})
        shutil.copy(ROOT / "docs/tly.1", self.work / "docs")
        self.run(MORE_SET_UP)

    def finish(self, command):
        return subprocess.run(["bash", "-c", command], cwd=self.work, env=self.env, capture_output=True, text=True, timeout=300)

    def run(self, command):
        done = self.finish(command)
        text = (done.stdout + done.stderr).replace(str(self.work), "/project")
        return re.sub(r"[A-Z][a-z]{2} [A-Z][a-z]{2} [ \d]\d [\d:]{8} \d{4}", "Mon Nov 23 09:30:07 2026", text)


def replay(text, project):
    """The page with the output of this run, the commands that have one, and the other blocks of indented lines."""
    lines, seen, blocks = [], set(), [[]]
    answer = keep = False  # an output stands here; it is left as it is
    for line in text.split("\n"):
        if not line.startswith("    "):
            keep = False
            answer = answer and not line
            blocks.append([])
        elif line.startswith("    $ "):
            answer = True
            seen.add(line[6:])
            keep = keep or line[6:].startswith(tuple(NOT_RUN))
            lines.append(line)
            if not keep:
                lines += ["    " + row if row else "" for row in project.run(line[6:]).rstrip("\n").split("\n") if row or lines[-1]]
                while not lines[-1]:
                    lines.pop()
            continue
        elif not answer:
            blocks[-1].append(line[4:])
        elif not keep:
            continue
        lines.append(line)
    return re.sub(r"\n{3,}", "\n\n", "\n".join(lines)), seen, [b for b in blocks if b and b[0].startswith(COMMANDS)]


def statements(block):
    """A loop is one, however many lines it has."""
    whole = ""
    for line in block:
        whole += line + "\n"
        if subprocess.run(["bash", "-n", "-c", whole], capture_output=True).returncode == 0:
            yield whole
            whole = ""
    if whole:
        yield whole


def failures(name, block, project):
    """Of the statements of a block, which follow one another in one shell."""
    before = ""
    for statement in statements(block):
        words = statement.strip()
        if words.startswith(("#", *NOT_RUN)):
            continue
        # Places of the examples become some of ours.
        here = re.sub(r"(?<![\w.])/(?=(?:proj|my project|base)\b)", f"{project.work}/", statement)
        done = project.finish(f"{before}{here}exit $?")
        before += re.sub(r"^tly.*", "", here)  # a variable, a directory
        of_tly = re.match(r"(\(cd \S+ )?tly ", words)
        wrong = done.returncode >= 126 or re.search(r"\bError: ", done.stdout + done.stderr) if of_tly else done.returncode == 2
        if wrong or (not done.stdout + done.stderr and not re.search(r">| -o |-O|-D|^(git|mkdir|for|test)", words)):
            yield f"{name}: {words}\nstatus {done.returncode}\n{done.stdout[-800:]}{done.stderr[-800:]}\n"


def questions(text, seen):
    table = [m.replace("\\|", "|") for m in re.findall(r"^\| \d+ \| .* \| `(.*)` \|$", text, flags=re.M)]
    missing = [c for c in table if not any(s.startswith(c) for s in seen)]
    return "" if len(table) == 20 and not missing else f"of {len(table)} questions, these stand at no number: {missing}\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tly", required=True, type=pathlib.Path)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("pages", nargs="*", default=PAGES)
    options = parser.parse_args()
    problems = []
    for name in options.pages:
        with tempfile.TemporaryDirectory(prefix="tly-") as place:
            project = Project(pathlib.Path(place), options.tly.resolve())
            if name != "docs/questions.md":
                project.add_more()
            text = project.finish(MANUAL).stdout.replace("\n  ", "\n") if name == MANUAL else (ROOT / name).read_text()
            actual, seen, blocks = replay(text, project)
            for block in blocks:
                problems += failures(name, block, project)
        if name == "docs/questions.md":
            problems.append(questions(text, seen))
        if options.update and name != MANUAL:
            (ROOT / name).write_text(actual)
        elif actual != text:
            problems += difflib.unified_diff(text.splitlines(True), actual.splitlines(True), name, "what came out")
    sys.stdout.writelines(problems)
    sys.exit(any(problems))


main()
