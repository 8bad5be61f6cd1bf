#!/usr/bin/env python3
"""questions.py --tly TLY [--update]: runs the commands of docs/questions.md in a small project and compares what they print with what
stands below them there; --update writes it there. Every command of the table has to stand at one of the numbers."""
import argparse, difflib, os, pathlib, re, subprocess, sys, tempfile

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs" / "questions.md"
UNTESTED = ("vim ",)  # commands that wait for a person
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


class Project:
    def __init__(self, place, tly):
        self.work = place / "project"
        self.env = {"PATH": f"{tly.parent}:{os.environ['PATH']}", "HOME": str(place), "LC_ALL": "C", "TZ": "UTC", "TMPDIR": str(place)}
        for name, text in FILES.items():
            (self.work / name).parent.mkdir(parents=True, exist_ok=True)
            (self.work / name).write_text(text)
        (self.work / "build").mkdir()
        (self.work / "build/release").symlink_to(tly.parent)
        self.run("git init -q . && git config user.email a@b && git config user.name n && git add src vendor rules && mkdir ../trend; "
                 "for i in $(seq 24); do echo \"int step$i(int a) { return a; }\" >> src/steps.c; git add src; git commit -qm $i; "
                 "[ $i != 23 ] || { git tag v1.0; tly-report run | tly-report json -o release.json; }; done; "
                 "cp vendor/zip.c untracked.c; tly-report run -o now.xml")

    def run(self, command):
        done = subprocess.run(["bash", "-c", command], cwd=self.work, env=self.env, capture_output=True, text=True, timeout=300)
        text = (done.stdout + done.stderr).replace(str(self.work), "/project")
        return re.sub(r"[A-Z][a-z]{2} [A-Z][a-z]{2} [ \d]\d [\d:]{8} \d{4}", "Mon Nov 23 09:30:07 2026", text)


def replay(text, project):
    """The page with the output of this run. Commands for which there is nobody, or no such command, keep theirs."""
    there = project.run("tly-report --help")
    lines, seen, keep = [], set(), False
    for line in text.split("\n"):
        if not line.startswith("    "):
            keep = False
        elif line.startswith("    $ "):
            command = line[6:]
            seen.add(command)
            page = "tly-report page" in command and not re.search(r"^ +page ", there, flags=re.M)
            keep = keep or page or command.startswith(UNTESTED)
            lines.append(line)
            if not keep:
                lines += ["    " + row if row else "" for row in project.run(command).rstrip("\n").split("\n") if row or lines[-1]]
                while not lines[-1]:
                    lines.pop()
            continue
        elif not keep:
            continue
        lines.append(line)
    return re.sub(r"\n{3,}", "\n\n", "\n".join(lines)), seen


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tly", required=True, type=pathlib.Path)
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    text = PAGE.read_text()
    table = [m.replace("\\|", "|") for m in re.findall(r"^\| \d+ \| .* \| `(.*)` \|$", text, flags=re.M)]
    with tempfile.TemporaryDirectory(prefix="tly-") as place:
        actual, seen = replay(text, Project(pathlib.Path(place), options.tly.resolve()))
    missing = [c for c in table if not any(s.startswith(c) for s in seen)]
    if len(table) != 20 or missing:
        sys.exit(f"the table has {len(table)} commands; these stand at no number: {missing}")
    if options.update:
        PAGE.write_text(actual)
    elif actual != text:
        sys.stdout.writelines(difflib.unified_diff(text.splitlines(True), actual.splitlines(True), str(PAGE), "what came out"))
        sys.exit(1)


main()
