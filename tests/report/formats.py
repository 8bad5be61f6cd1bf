#!/usr/bin/env python3
"""formats.py --report TLY_REPORT: measures sources whose names, functions and rules hold what each format would trip over, has a
parser of that format read every output, and compares the notices in it with those that tly's XML lists.

With --schema FILE: validates SARIF files by this schema instead; 77 if it isn't there, or 1 where CI is set in the environment."""
import argparse, collections, csv, io, json, os, pathlib, re, subprocess, sys, tempfile, urllib.parse
import xml.etree.ElementTree as ET

NAMES = ["plain.c", "dir/a b.c", "q\"u'o<t>&e.c", "li\nne.c", "esc\x1b[31m\x07.c", "\N{RIGHT-TO-LEFT OVERRIDE}c.c", "ä€😀.c", "a,b;c:d%0A.c",
         "::error file=x,line=1::y.c", "`|``\\|.c", "[x](y)@z#1.c", "=1+1.c", "</script>]]>.c", "{0}%s%25.c", "-o.c", "a:b/c.c"]
SOURCE = "int f%d(int a)\n{\n\tif (a) goto e;\n\tstrcpy (a, b);\ne:\n\treturn 1;\n}\n"
CFG = "TLY CFG Version: 7.75\nTLY user defined quality notice file : rules.udqn\n"
RULE = """UDQN Begin     :
UDQN Identifier: 100
active         : on
sources        : c
context        : Code
pattern        : strcpy
string         : strcpy
summary        : Has "{0}", <b>, a|b, `c`, %0A, [x](y), @z & more
message        : x
UDQN End       :
"""
HARMLESS = lambda text: re.sub("[\x00-\x1f\x7f-\x9f\u202e]", lambda m: ("\\x%02x" if ord(m[0]) < 256 else "\\u%04x") % ord(m[0]), text)


class Trial:
    def __init__(self, report, work):
        self.report, self.work = report, work
        self.env = {"PATH": os.environ["PATH"], "TLYHOME": str(work), "LC_ALL": "C", "TMPDIR": str(work)}

    def make(self):
        for number, name in enumerate(NAMES):
            path = self.work / "src" / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(SOURCE % number)
        (self.work / "tly.cfg").write_text(CFG)
        (self.work / "rules.udqn").write_text(RULE)
        self.run("run", "src", "-o", "in.xml", "--classic")

    def run(self, *arguments, status=0):
        done = subprocess.run([self.report, *arguments], cwd=self.work, env=self.env, capture_output=True)
        assert done.returncode == status, (arguments, done)
        return done.stdout.decode("utf-8", "strict")


def listed(root):
    """(path, line, number) of the notices of an XML."""
    return [(os.path.normpath(n.find("file").text), int(n.find("line").text), int(n.find("type").text))
            for n in root.iter("notice") if n.find("file") is not None]


def sarif(text):
    run = json.loads(text)["runs"][0]
    for result in run["results"]:
        place = result["locations"][0]["physicalLocation"]
        uri = place["artifactLocation"]["uri"]
        assert re.fullmatch(r"[A-Za-z0-9%/._~-]+", uri), uri
        assert run["artifacts"][place["artifactLocation"]["index"]]["location"]["uri"] == uri
        rule = run["tool"]["driver"]["rules"][result["ruleIndex"]]
        assert rule["id"] == result["ruleId"] and rule["help"]["text"] and result["level"] in ("note", "warning")
        assert result["message"]["text"] == re.sub("[{}]", r"\g<0>\g<0>", rule["shortDescription"]["text"])
        yield urllib.parse.unquote(uri), place["region"]["startLine"], int(rule["id"][3:])


def gitlab(text):
    issues = json.loads(text)
    assert len({issue["fingerprint"] for issue in issues}) == len(issues)
    return [(i["location"]["path"], i["location"]["lines"]["begin"], int(i["check_name"][3:])) for i in issues]


def checkstyle(text):
    return [(f.get("name"), int(e.get("line")), int(e.get("source")[7:])) for f in ET.fromstring(text) for e in f]


def github(text):
    decode = lambda t: re.sub("%([0-9A-F]{2})", lambda m: chr(int(m[1], 16)), t)
    for line in text.rstrip("\n").split("\n"):
        properties, message = re.fullmatch(r"::warning ([^\r\n]*?)::([^\r\n]+)", line).groups()
        values = dict(p.split("=", 1) for p in properties.split(","))
        assert message and set(values) == {"file", "line", "title"}, line
        yield decode(values["file"]), int(values["line"]), int(values["title"][3:])


def table(text):
    assert re.fullmatch(r'((("([^"]|"")*"|[^",\r\n]*)(,|(?=\r\n)))+\r\n)+', text), text
    return [(row["file"], int(row["line"]), int(row["number"])) for row in csv.DictReader(io.StringIO(text, newline=""))]


def gate(text):
    for line in text.split("\n")[1:-2]:
        place, number, mark = re.fullmatch(r"(.*): notice (\d+): .* \[([0-9a-f]{16})\]", line).groups()
        path, line_number = place.rsplit(":", 1)
        yield path, int(line_number), int(number)


def cells(row):
    """Of a Markdown table: "|" parts them unless a "\\" stands in front, in code too."""
    return re.split(r"(?<!\\)\|", row.strip())[1:-1]


def check_markdown(text):
    for block in text.strip("\n").split("\n\n"):
        rows = block.split("\n")
        assert len({len(cells(row)) for row in rows}) == 1, block
        assert not re.search("[\x00-\x09\x0b-\x1f\u202e]|<(?!!-- -->)|(?<!\\\\)[@#](?!<!--)|\\]\\(", re.sub("`.*`", "", re.sub(r"\\.", "", block))), block


def check_formats(report):
    with tempfile.TemporaryDirectory(prefix="tly-") as place:
        trial = Trial(report, pathlib.Path(place))
        trial.make()
        expected = collections.Counter(listed(ET.parse(trial.work / "in.xml").getroot()))
        assert {p for p, _, _ in expected} >= {"src/" + n for n in NAMES if "\x1b" not in n}, expected
        assert {n for _, _, n in expected} >= {9, 30, 100}
        for command, read in [("sarif", sarif), ("gitlab", gitlab), ("checkstyle", checkstyle), ("github", github)]:
            assert collections.Counter(read(trial.run(command, "in.xml"))) == expected, command
        for kind in ("files", "functions", "classes", "languages", "kinds"):
            table_rows = list(csv.reader(io.StringIO(trial.run("csv", "--table", kind, "in.xml"), newline="")))
            assert len({len(row) for row in table_rows}) == 1, kind
        assert collections.Counter(table(trial.run("csv", "--table", "notices", "in.xml"))) == expected
        shown = collections.Counter({(HARMLESS(p), line, n): count for (p, line, n), count in expected.items()})
        assert collections.Counter(gate(trial.run("gate", "in.xml", status=1))) == shown
        assert len(trial.run("top", "-n", "99", "in.xml").split("\n")) == len(NAMES) + 2
        for before in ([], ["--before", "in.xml"]):
            check_markdown(trial.run("markdown", *before, "in.xml"))
        for what in ("lines", "complexity", "notices"):
            assert set(json.loads(trial.run("badge", "--of", what, "in.xml"))) == {"schemaVersion", "label", "message", "color"}
            ET.fromstring(trial.run("badge", "--svg", "--of", what, "in.xml"))
        # What is known by any of the three is not new; a line for every path allows all.
        for command in ("json", "sarif", "gitlab"):
            trial.run(command, "in.xml", "-o", "old")
            assert trial.run("new", "old", "in.xml").startswith("0 new notices, 0 gone")
        (trial.work / "allow").write_text("".join(f"{n} {HARMLESS(p)}\n" for p, _, n in expected))
        assert trial.run("gate", "--allow", "allow", "in.xml") == "the limit is kept\n"


def check_schema(report, schema):
    if not schema.is_file():
        print(f"{schema} isn't there")
        return 1 if os.environ.get("CI") else 77
    import jsonschema
    rules = json.loads(schema.read_text())
    validator = jsonschema.validators.validator_for(rules)(rules)
    with tempfile.TemporaryDirectory(prefix="tly-") as place:
        trial = Trial(report, pathlib.Path(place))
        trial.make()
        trial.run("run", str(trial.work / "src"), "-o", "full.xml")
        # One name is beyond an XML. Below a root, from another where no source is, and below none.
        for source, root, unread, start in [("in.xml", ".", 1, "src/"), ("in.xml", "/nowhere", len(NAMES), "src/"),
                                            ("full.xml", "/nowhere", 1, f"file://{trial.work}/src/")]:
            document = json.loads(trial.run("sarif", source, "--root", root))
            validator.validate(document)
            run = document["runs"][0]
            for location in (a["location"] for a in run["artifacts"]):
                assert location["uri"].startswith(start) and ("uriBaseId" in location) == (start == "src/"), location
            assert [bool(a.get("properties")) for a in run["artifacts"]].count(True) == unread
            assert f"{unread} source" in run["invocations"][0]["toolExecutionNotifications"][0]["message"]["text"]
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--report", required=True, type=lambda p: str(pathlib.Path(p).resolve()))
    parser.add_argument("--schema", type=pathlib.Path)
    options = parser.parse_args()
    sys.exit(check_schema(options.report, options.schema) if options.schema else check_formats(options.report))


main()
