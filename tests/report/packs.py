#!/usr/bin/env python3
"""packs.py --tly TLY: every rule of share/tly/rules finds its sample in a source and lets pass what it is to let pass; tly-report
has nothing to tell of the packs, one by one or together; and no rule is stopped, or is slow, on long lines that are built against it."""
import argparse, pathlib, re, subprocess, tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKS = sorted((ROOT / "share" / "tly" / "rules").glob("*.udqn"))
LINE = 2046  # characters of a line that tly takes in one piece
SECONDS = 120  # for the long lines of all rules; they take about one


def rules_of(path):
    """Per rule: its number, the extension of a source, its sample, and what it lets pass."""
    for text in re.findall(r"^UDQN Begin(.*?)^UDQN End", path.read_text(), flags=re.M | re.S):
        one = lambda key: re.search(rf"^{key} *: (.*)$", text, flags=re.M)[1]
        passes = re.findall("^# passes *: (.*)$", text, flags=re.M)
        yield int(one("UDQN Identifier")), re.split("[ ,]+", one("sources"))[0], one("string"), passes


def against(sample):
    """Long lines that repeat a piece of the sample from each of its places on, and end in what fits nothing."""
    lines = {c * LINE for c in " (a0\"*.=<,{\\_"} | {sample * LINE}
    for start in range(len(sample)):
        for size in (1, 2):
            lines.add(sample[:start] + sample[start:start + size] * LINE)
    return "".join(line[:LINE - 1] + "\x01\n" for line in sorted(lines))


def notices(tly, home, rules, sources):
    """(file, number) of the rules' notices on the sources, texts by name."""
    off = "".join(f"Quality Notice {n} : No\n" for n in range(1, 59))
    (home / "tly.cfg").write_text("TLY CFG Version : 7.75\nTLY user defined quality notice file : rules.udqn\n" + off)
    (home / "rules.udqn").write_text(rules)
    for name, text in sources.items():
        (home / name).write_text(text)
    done = subprocess.run([tly, "-Nv", "-Tn", "-xMODERN", *sources], cwd=home, env={"TLYCFGHOME": str(home)}, timeout=SECONDS,
                          capture_output=True, text=True, errors="replace")
    assert "Error" not in done.stdout, done.stdout[-1000:]  # such as too many steps
    return {(m[1], int(m[2])) for m in re.finditer(r"^(.*)\(1\) : Notice #(\d+)", done.stdout, flags=re.M)}


def check_pack(tly, path, home):
    rules = list(rules_of(path))
    assert 10 <= len(rules) <= 25 and all(passes for *_, passes in rules), path.name
    hits = {f"hit{number}.{extension}": sample for number, extension, sample, _ in rules}
    others = {f"pass{number}_{n}.{extension}": text for number, extension, _, passes in rules for n, text in enumerate(passes)}
    found = notices(tly, home, path.read_text(), {name: text + "\n" for name, text in (hits | others).items()})
    lost = {number for number, extension, *_ in rules if (f"hit{number}.{extension}", number) not in found}
    wrong = {name for name, number in found if name.startswith(f"pass{number}_")}
    assert not lost and not wrong, (path.name, lost, wrong)
    notices(tly, home, path.read_text(), {f"long{number}.{extension}": against(sample) for number, extension, sample, _ in rules})


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--tly", required=True)
    tly = pathlib.Path(parser.parse_args().tly).resolve()
    for path in PACKS:
        with tempfile.TemporaryDirectory() as home:
            check_pack(str(tly), path, pathlib.Path(home))
    for set_of_rules in [[path] for path in PACKS] + [[*PACKS, ROOT / "docs" / "rules.udqn"]]:
        done = subprocess.run([tly.with_name("tly-report"), "rules", *set_of_rules], capture_output=True, text=True, timeout=SECONDS)
        assert done.returncode == 0 and done.stdout.endswith(" rules, nothing to tell\n"), done.stdout + done.stderr


if __name__ == "__main__":
    main()
