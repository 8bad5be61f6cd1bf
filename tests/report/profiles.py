#!/usr/bin/env python3
"""profiles.py --tly TLY: with each profile of share/tly/profiles a source raises the notices that the profile keeps, once over its
limits, and none that it leaves out; at its limits it raises none. The profile stays as it is written."""
import argparse, os, pathlib, re, subprocess, tempfile

PROFILES = pathlib.Path(__file__).resolve().parents[2] / "share" / "tly" / "profiles"

# What a profile keeps, and some of what tly raises without it.
KEPT = {
    "c": {1, 4, 8, 10, 11, 12, 17, 18, 27, 28, 29, 55},
    "cpp": {8, 9, 11, 12, 17, 18, 27, 28, 29, 31, 32, 39, 40, 55},
    "java": {11, 12, 17, 18, 27, 28, 29, 31, 39, 40, 55},
    "cs": {11, 12, 18, 27, 28, 31, 39, 40, 55},
    "ratchet": {1, 2, 4, 5, 8, 9, 11, 12, 13, 17, 18, 22, 27, 28, 29, 32, 39, 40, 55},
}
LEFT_OUT = {
    "c": {5, 6, 9, 13, 22, 23, 26, 30, 50},
    "cpp": {4, 5, 6, 13, 16, 22, 23, 26, 30, 37, 38, 50},
    "java": {4, 5, 6, 13, 16, 22, 23, 30, 38, 50},
    "cs": {4, 5, 6, 9, 13, 16, 22, 23, 29, 30, 38, 50},
    "ratchet": {6, 16, 23, 26, 30, 37, 38, 50},
}
LIMIT = {
    "eloc": "Maximum Function eLOC", "cyclo": "Maximum functional cyclomatic complexity",
    "parameters": "Maximum functional interface complexity",
    "returns": "Maximum functional return points", "depth": "Maximum depth of scope", "methods": "Maximum number of methods per class",
    "line": "Maximum Line Length", "name": "Maximum Function Name Length", "loc": "Min. Function LOC for content analysis",
}


def limits(text):
    found = {key: re.search(rf"^{re.escape(name)} *: *(\d+)", text, flags=re.M) for key, name in LIMIT.items()}
    return {key: int(m[1]) if m else 6 for key, m in found.items()}


def functions(at, over):
    """Functions that are over limits by so much; a body has a call a line."""
    call, head = ["    g(a);"], "int %s(int a)\n{"
    many = ", ".join(f"int a{n}" for n in range(at["parameters"] + over))
    bodies = {
        "wide": ["    return 1;"],
        "n" * (at["name"] + over): ["    return 1;"],
        "branches": ["    if (a) { g(a); }"] * (at["cyclo"] - 1 + over),
        "returns": ["    return 1;"] * (at["returns"] + over),
        "deep": ["    " + "if (a) { " * (at["depth"] - 1 + over) + "g(a);" + " }" * (at["depth"] - 1 + over)],
        "lines": call * (at["eloc"] + over),
        "silent": call * (at["loc"] - 2 + over),
        "far": ["    g(a); " + " " * (at["line"] - 11 + over) + ";"],
    }
    for name, body in bodies.items():
        text = (head % name).replace("int a", many) if name == "wide" else head % name
        remark = [] if name == "silent" else ["    // a remark"] * (len(body) // 20 + 1)
        yield "\n".join([text, *remark, *body, "}"])


STYLE = """int style(int a)
{
\tif (a = 5) g(a);
    while (a = g(1)) g(--a);
    switch (a) { case 1: g(1); break; }
    a = a ? 5 : 6; g("%d"); goto out; out:
    try { g(1); } catch (E e) { }
}
"""
FOR_C = "void *p = realloc(q, 1);\nint old(a)\nint a;\n{\n    return 1;\n}\n"
FOR_CPP = "using namespace std;\nclass V { virtual int v(int a); };\n"
CLASSES = "class D0 { };\n" + "".join(f"class D{n} %s D{n - 1} {{ }};\n" for n in range(1, 7))


def sources(profile, at, over):
    """The texts of some files. What isn't balanced has a file to itself."""
    body = "\n".join(functions(at, over)) + "\n"
    if not over:
        return [body]
    c = profile in ("c", "cpp", "ratchet")
    methods = "class Many {\n" + "".join(f"    int m{n}(int a) {{ return {n}; }}\n" for n in range(at["methods"] + 1)) + "};\n"
    mute = "class Mute {\n" + "".join(f"    int m{n};\n" for n in range(250)) + "};\n"
    style = STYLE if profile != "c" else STYLE.replace("    try { g(1); } catch (E e) { }\n", "")
    style = style if profile != "java" else style.replace(" goto out; out:", "")
    texts = [body + style + (FOR_C if c else "")]
    if profile != "c":
        texts += [methods + mute + CLASSES % ((("extends" if profile == "java" else ":"),) * 6) + (FOR_CPP if c else "")]
    return texts + ["int open(int a)\n{\n    b = a[1;\n}\n", "int call(int a)\n{\n    g((a);\n}\n"]


def numbers(tly, place, env, profile, texts):
    extension = {"ratchet": "cpp"}.get(profile, profile)
    wrap = extension in ("java", "cs")
    for n, text in enumerate(texts):
        text = f"class S{n} {{\n{text}}}\n" if wrap and "class" not in text else text
        (place / f"S{n}.{extension}").write_text("// remark\n" + text)
    command = [tly, "-xMODERN", "-X", "-Ta", "-Tq", *(f"S{n}.{extension}" for n in range(len(texts)))]
    done = subprocess.run(command, cwd=place, env=env, capture_output=True, text=True, timeout=60)
    return {int(n) for n in re.findall(r"<type>(\d+)</type>", done.stdout)}


def check_ratchet(tly, place):
    """What was there stays unsaid, over its limits or not; what comes is said."""
    at = limits((place / ".tly" / "tly.cfg").read_text())
    path = place / "a.cpp"
    path.write_text("\n".join(functions(at, 1)) + "\n" + STYLE)
    env = {**os.environ, "TLYCFGHOME": ".tly", "HOME": str(place)}
    for command in ("init -q", "add -A", "-c user.name=a -c user.email=a@b commit -qm1"):
        subprocess.run(["git", *command.split()], cwd=place, env=env, check=True)
    grown = path.read_text().replace("    if (a) { g(a); }", "    if (a) { g(a); }\n" * 2)
    path.write_text(grown + "int one(int a)\n{\n    if (a) goto x;\n}\n")
    command = [tly.with_name("tly-report"), "new", "--since", "HEAD", "--max", "0"]
    done = subprocess.run(command, cwd=place, env=env, capture_output=True, text=True)
    assert done.returncode == 1 and re.findall(r": notice (\d+):", done.stdout) == ["9", "22"], done.stdout + done.stderr


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--tly", required=True)
    program = pathlib.Path(parser.parse_args().tly).resolve()
    tly = str(program)
    assert {path.stem for path in PROFILES.glob("*.cfg")} == set(KEPT)
    for profile, kept in KEPT.items():
        text = (PROFILES / f"{profile}.cfg").read_text()
        at = limits(text)
        with tempfile.TemporaryDirectory() as name:
            place = pathlib.Path(name)
            (place / ".tly").mkdir()
            (place / ".tly" / "tly.cfg").write_text(text)
            calm = {"TLYCFGHOME": ".tly"}
            over = sources(profile, at, 1)
            assert numbers(tly, place, calm, profile, over) == kept, profile
            missing = LEFT_OUT[profile] - numbers(tly, place, {"TLYHOME": name}, profile, over)
            assert not missing, (profile, missing)
            within = numbers(tly, place, calm, profile, sources(profile, at, 0))
            assert not within, (profile, within)
            assert (place / ".tly" / "tly.cfg").read_text() == text, profile
            if profile == "ratchet":
                check_ratchet(program, place)


if __name__ == "__main__":
    main()
