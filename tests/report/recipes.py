#!/usr/bin/env python3
"""recipes.py --tly TLY: runs what the recipes in share/tly run, in a repository of git, and has the expression of each matcher find
the same (file, line, number) in what tly prints as its XML lists."""
import argparse, collections, json, os, pathlib, re, shutil, subprocess, tempfile
import xml.etree.ElementTree as ET

SHARE = pathlib.Path(__file__).resolve().parents[2] / "share" / "tly"
SOURCES = {
    "a.c": "int f(int a)\n{\n\tif (a) goto e;\ne:\n\treturn 1;\n}\n",
    "dir x/b (2) c.cpp": "class B { public: int q; virtual ~B(); };\n" + "".join(f"class D{n} : public B {{}};\n" for n in range(12)),
    "C.cs": "class C : Lost { void f() { while (a) b++; } }\n" + "".join(f"class E{n} : Lost {{}}\n" for n in range(12)),
}


def shell(command, work, env, status=(0,)):
    done = subprocess.run(["bash", "-c", command], cwd=work, env=env, capture_output=True, text=True, errors="surrogateescape")
    assert done.returncode in status, f"{command}: {done.returncode}\n{done.stdout[-2000:]}{done.stderr[-2000:]}"
    return done.stdout + done.stderr


def json_file(name):
    return json.loads(re.sub(r"^ *//.*$", "", (SHARE / name).read_text(), flags=re.M))


def by_regex(expression, output):
    return [(m[1], int(m[2]), int(m[3])) for m in filter(None, map(re.compile(expression).match, output.split("\n")))]


def editor_regex():
    """The expression of Emacs in Python's notation, with a group for the number, which Emacs leaves alone."""
    text = re.search(r"'\(tly \"(.*?)\" 1 2", (SHARE / "tly.el").read_text())[1].replace("\\\\", "\\")
    swap = re.sub(r"\\?[()]", lambda m: m[0][-1] if len(m[0]) == 2 else "\\" + m[0], text)
    return swap.replace("#[0-9]+", "#([0-9]+)")


def vim_regex():
    """The first of Vim's formats: a file's name goes to the next character that it names."""
    text = re.search(r"errorformat=(.*),%-G", (SHARE / "tly.vim").read_text())[1].replace("\\ ", " ")
    names = {"%f": "(.+?)", "%l": r"(\d+)", "%n": r"(\d+)", "%m": ".+", "%*[ ]": " *"}
    parts = re.split(r"(%\*\[ \]|%\w)", text)
    return "^" + "".join(names[p] if p in names else re.escape(p) for p in parts) + "$"


def by_vim(work, env):
    script = ("let @x = ''\nset nomore\nsource %s\ncgetfile nv.txt\n"
              "call writefile(map(filter(getqflist(), 'v:val.valid'), 'fnamemodify(bufname(v:val.bufnr), \":p\") . \"\\t\" . "
              "v:val.lnum . \"\\t\" . v:val.nr'), 'vim.txt')\nqa!\n") % str(SHARE / "tly.vim").replace(" ", "\\ ")
    (work / "script.vim").write_text("command! -nargs=* CompilerSet setlocal <args>\n" + script)
    subprocess.run(["vim", "-Nu", "NONE", "-i", "NONE", "-n", "-es", "-S", "script.vim"], cwd=work, env=env, timeout=60, capture_output=True)
    rows = (line.split("\t") for line in (work / "vim.txt").read_text().splitlines())
    return [(path, int(line), int(number)) for path, line, number in rows]


def check_matchers(work, env):
    args = " ".join(f"'{a}'" for a in json_file("vscode-tasks.json")["tasks"][0]["args"])
    for name in ("tly.vim", "tly.el"):  # all run the same command
        assert args.replace("'", "") in re.sub(r"[\\\"]", "", (SHARE / name).read_text()), name
    output = shell(f"tly {args} 2> /dev/null", work, env, range(256))
    (work / "nv.txt").write_text(output, errors="surrogateescape")
    xml = shell("tly -xMODERN -X -Ta -Tq '-rc,h,cc,cpp,cxx,hh,hxx,hpp,java,cs .' 2> /dev/null", work, env, range(256))
    expected = collections.Counter((n.find("file").text, int(n.find("line").text), int(n.find("type").text))
                                   for n in ET.fromstring(xml).iter("notice") if n.find("file") is not None)
    assert {os.path.relpath(f, work) for f, _, _ in expected} == set(SOURCES) and {n for _, _, n in expected} >= {9, 22, 30, 35, 41}
    matchers = {
        "github": json_file("github-matcher.json")["problemMatcher"][0]["pattern"][0],
        "vscode": json_file("vscode-tasks.json")["tasks"][0]["problemMatcher"]["pattern"],
    }
    for name, pattern in matchers.items():
        assert (pattern["file"], pattern["line"], pattern["code"]) == (1, 2, 3)
        assert collections.Counter(by_regex(pattern["regexp"], output)) == expected, name
    assert collections.Counter(by_regex(editor_regex(), output)) == expected
    assert collections.Counter(by_regex(vim_regex(), output)) == expected
    if shutil.which("vim") and "+eval" in shell("vim --version", work, env, (0, 1)):
        assert collections.Counter(by_vim(work, env)) == expected, "vim"


def check_commands(work, env):
    """Every command of the recipes for services. The limits are kept by these sources, except that the last change brings notices."""
    for name in ("github-workflow.yml", "gitlab-ci.yml", "Jenkinsfile"):
        commands = re.findall(r"^ *(?:- |sh ')?(tly-report [^'\n]*)", (SHARE / name).read_text(), flags=re.M)
        assert len(commands) >= 3, name
        for command in commands:
            shell(command, work, env, (1,) if "--since" in command else (0,))
    assert json.loads((work / "tly.sarif").read_text()) and json.loads((work / "gl-code-quality-report.json").read_text())


def check_hook(work, env):
    shutil.copy(SHARE / "pre-commit", work / ".git/hooks/pre-commit")
    assert "new notice" in shell("git commit -qam three", work, env, (1,))
    shell("git checkout -q HEAD -- . && sed -i '1i // a comment\\n' a.c && cd 'dir x' && git commit -qam three", work, env)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--tly", required=True, type=pathlib.Path)
    tly = parser.parse_args().tly.resolve()
    with tempfile.TemporaryDirectory(prefix="tly-") as place:
        work = pathlib.Path(place) / "work"
        env = {"PATH": f"{tly.parent}:{os.environ['PATH']}", "TLYHOME": place, "TMPDIR": place, "HOME": place, "LC_ALL": "C.UTF-8",
               "GITHUB_STEP_SUMMARY": f"{place}/summary.md", "GITHUB_BASE_REF": "main"}
        for name, text in SOURCES.items():
            (work / name).parent.mkdir(parents=True, exist_ok=True)
            (work / name).write_text(text)
        check_matchers(work, env)
        shell("git init -q . && git config user.email a@b && git config user.name n && git add '*.c*' && git commit -qm one && "
              "git update-ref refs/remotes/origin/main HEAD && echo 'int g(void) { goto e; e: return 1; }' >> a.c", work, env)
        check_commands(work, env)
        check_hook(work, env)


main()
