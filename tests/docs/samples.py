#!/usr/bin/env python3
"""samples.py --tly TLY [--update]: holds docs/notices.md and docs/metrics.md against the program; --update writes what it says there.

docs/notices.md has an entry per notice: its heading is the program's short text; the line below tells whether it is on, which of the
switches -fa, -o and -i bring it up, and settings with their defaults. A bad sample raises it at the lines named ahead of it, and nowhere
else, a good one doesn't. Both run with the notice on, and with the settings that stand ahead of the bad one.

docs/metrics.md has files, each in a block behind a line with nothing but its name, and commands that print what stands below them.
All run in one directory.
"""
import argparse, difflib, os, pathlib, re, subprocess, sys, tempfile

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"
SWITCHES = ("-fa", "-o", "-i")
ENTRY = re.compile(r"^## (\d+): .*\n\n(.*)\n((?:(?!^## ).*\n?)*)", re.M)
SETTING = re.compile(r"`([^`:]+) : ?([^`]*)`")
SAMPLES = re.compile(r"^Bad(.*), line.*:\n\n```(\w+)\n(.*?)```\n\nGood:\n\n```(\w+)\n(.*?)```\n", re.M | re.S)
COMMAND = re.compile(r"^    \$ (.*)\n((?:    (?!\$ ).*\n|\n(?=    (?!\$ )))*)", re.M)


class Place:
    """A directory for the samples, which is the program's home too. Without changes to them, all settings are the defaults."""

    def __init__(self, directory, tly):
        self.directory = directory
        self.env = {"PATH": f"{tly.parent}:{os.environ['PATH']}", "HOME": directory, "TLYHOME": directory, "LC_ALL": "C", "TZ": "UTC"}
        self.settings = self.run("tly -y")

    def run(self, command):
        done = subprocess.run(["bash", "-c", command], cwd=self.directory, env=self.env, capture_output=True, text=True, timeout=60)
        if done.stderr or done.returncode < 0:
            sys.exit(f"{command}: ended with {done.returncode}\n{done.stderr}")
        return done.stdout

    def write(self, name, text):
        path = pathlib.Path(self.directory, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def default(self, key):
        found = re.search(rf"^{re.escape(key)} *: *(.*?) *$", self.settings, re.M)
        return found[1] if found else sys.exit(f"no setting is called {key}")

    def change(self, settings):
        """Writes the settings file with these values in place of the defaults."""
        text = self.settings
        for key, value in settings:
            self.default(key)
            text = re.sub(rf"^({re.escape(key)} *:).*", lambda m: f"{m[1]} {value}", text, flags=re.M)
        self.write("tly.cfg", text)


def raised(place, number, language, text, switches=SWITCHES):
    """The lines at which a sample raises a notice. Tabs stand as \\t in the page, where they would not be seen."""
    place.write(f"sample.{language}", text.replace("\\t", "\t"))
    shown = place.run(f"tly -Ns {' '.join(switches)} -xNOHEADER sample.{language}")
    return sorted({int(line) for line in re.findall(rf"^  Notice # *{number}: Line +(\d+),", shown, re.M)})


def notice_entry(place, number, about, rest, faults):
    """The line below the heading, and the rest of the entry, as the program has them."""
    settings = SETTING.findall(about)
    switched = (f"Quality Notice {number}", "Yes")
    samples = SAMPLES.search(rest)
    needed = []
    if samples:
        bad_settings, language, bad, good_language, good = samples.groups()
        place.change([switched] + SETTING.findall(bad_settings))
        lines = raised(place, number, language, bad)
        if not lines or raised(place, number, good_language, good):
            faults.append(f"{number}: raised at {lines} of the bad sample, {raised(place, number, good_language, good)} of the good one")
        if not raised(place, number, language, bad, ()):
            needed = [s for s in SWITCHES if raised(place, number, language, bad, (s,))]
        named = f"line{'s' * (len(lines) > 1)} {' and '.join(map(str, lines))}"
        rest = re.sub(r"^(Bad.*), line.*:$", rf"\1, {named}:", rest, count=1, flags=re.M)
    elif number != 25:
        faults.append(f"{number}: no samples")
    place.write("tly.cfg", place.settings)
    parts = [place.run("tly -hn").split(f"Notice {number:<4}: [")[1][:3].strip()]
    parts += ["with " + " or ".join(f"`{s}`" for s in needed)] if needed else []
    parts += [f"`{key} : {place.default(key)}`" for key, value in settings]
    return ", ".join(parts) + ".", rest


def notices(text, place, faults):
    titles = dict(re.findall(r"^  Notice (\d+) *: \[.*?\] (.*?) *$", place.run("tly -hn"), re.M))
    if [number for number, _, _ in ENTRY.findall(text)] != list(titles):
        faults.append("not an entry per notice, in order")

    def entry(found):
        number = int(found[1])
        about, rest = notice_entry(place, number, found[2], found[3], faults)
        return f"## {number}: {titles[found[1]]}\n\n{about}\n{rest}"

    return ENTRY.sub(entry, text)


def metrics(text, place, faults):
    for name, sample in re.findall(r"^`([\w./]+)`:\n\n```\w+\n(.*?)```\n", text, re.M | re.S):
        place.write(name, sample)
    place.write("tly.cfg", place.settings)

    def command(found):
        shown = place.run(found[1]).splitlines()
        return f"    $ {found[1]}\n" + "".join(f"    {line}".rstrip() + "\n" for line in shown)

    return COMMAND.sub(command, text)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--tly", required=True, type=pathlib.Path)
    parser.add_argument("--update", action="store_true")
    options = parser.parse_args()
    faults = []
    for name, replay in (("notices.md", notices), ("metrics.md", metrics)):
        text = (DOCS / name).read_text()
        with tempfile.TemporaryDirectory(prefix="tly-") as directory:
            actual = replay(text, Place(directory, options.tly.resolve()), faults)
        if options.update:
            (DOCS / name).write_text(actual)
        elif actual != text:
            faults.append("".join(difflib.unified_diff(text.splitlines(True), actual.splitlines(True), name, "what the program says")))
    sys.exit("\n".join(faults) or 0)


main()
