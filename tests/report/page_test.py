#!/usr/bin/env python3
"""Pages of tly-report as a whole: page_test.py TLY TLY_REPORT.

Every page that is made here is parsed, and looked through for what must not be in one. Its figures are held against the JSON of
the same input. The input is as hostile as names can be.
"""
import json, math, os, re, shutil, subprocess, sys, tempfile, unittest
import xml.etree.ElementTree as ET

TLY, REPORT = (os.path.realpath(path) for path in sys.argv[1:3])
HOSTILE = "</title></style><script>alert(1)</script><img src=x onerror=alert(2)> ]]> <!-- & &amp; \" ' \u202e\u0007\n\t\u00e4" + "x" * 3000


def number(text):
    return float(text.replace("\u2212", "-").replace(",", "").rstrip("%"))


def text_of(element):
    return "".join(element.itertext()).strip()


class Page:
    def __init__(self, path):
        with open(path, encoding="utf-8") as file:
            self.source = file.read()
        self.root = ET.fromstring(self.source)

    def section(self, name):
        return next((s for s in self.root.iter("section") if s.get("id") == name), None)

    def rows(self, name, table=0):
        """The rows of a section's table: {column: text} with the first column as "name"."""
        found = list(self.section(name).iter("table"))[table]
        heads = ["name"] + [text_of(th) for th in found.findall("thead/tr/*")][1:]
        return [dict(zip(heads, map(text_of, row))) for row in found.findall("tbody/tr")]

    def tiles(self, css_class):
        """The treemap: (x, y, width, height, title, tint) of each tile, and the size of all."""
        svg = next(s for s in self.section("files").iter("svg") if s.get("class") == css_class)
        size = list(map(float, svg.get("viewBox").split()))[2:]
        return [(*(float(t.get(k)) for k in ("x", "y", "width", "height")), t.find("title").text, int(t.find("rect").get("class")[-1]))
                for t in svg.findall("svg")], size


class PageTest(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.mkdtemp(prefix="tly-page-")
        self.addCleanup(shutil.rmtree, self.place)

    def run_in_place(self, *arguments, status=0):
        environment = dict(os.environ, TLYHOME=self.place, LC_ALL="C", TZ="UTC")
        done = subprocess.run(arguments, cwd=self.place, env=environment, capture_output=True)
        self.assertNotRegex(done.stderr, b"Sanitizer|runtime error")
        if status is not None:
            self.assertEqual(done.returncode, status, done.stderr)
        return done

    def write(self, name, content):
        path = os.path.join(os.fsencode(self.place), name if isinstance(name, bytes) else os.fsencode(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as out:
            out.write(content if isinstance(content, bytes) else content.encode())

    def page(self, *arguments):
        """Makes a page, checks what holds for all of them, and returns it."""
        self.run_in_place(REPORT, "page", *arguments, "-o", "page.html")
        path = os.path.join(self.place, "page.html")
        for checker in (["xmllint", "--noout"], ["tidy", "-e", "-q"]):
            done = subprocess.run([*checker, path], capture_output=True, text=True)
            # HTML has svg within svg; the checker doesn't know of it.
            said = [line for line in done.stderr.splitlines() if "<svg> proprietary attribute" not in line]
            self.assertEqual(said, [])
        page = Page(path)
        self.check_harmless(page)
        self.check_accessible(page)
        return page

    def check_harmless(self, page):
        allowed = {"html", "head", "meta", "title", "style", "body", "header", "main", "footer", "nav", "section", "h1", "h2", "p", "a",
                   "ul", "li", "dl", "dt", "dd", "strong", "span", "bdi", "wbr", "table", "caption", "thead", "tbody", "tr", "th", "td",
                   "div", "figure", "figcaption", "details", "summary", "svg", "g", "rect", "circle", "polyline", "text"}
        self.assertLessEqual({e.tag for e in page.root.iter()}, allowed)
        ids = [e.get("id") for e in page.root.iter() if e.get("id")]
        self.assertEqual(len(ids), len(set(ids)))
        for element in page.root.iter():
            for name, value in element.attrib.items():
                self.assertFalse(name.startswith("on") or name in ("src", "style", "action"), name)
                if name == "href":
                    self.assertIn(value[1:], ids)
                if name == "aria-labelledby":
                    self.assertIn(value, ids)
        self.assertNotRegex(page.source, r"url\(|@import|https?:|nan\b|-?\binf\b")
        self.assertNotRegex(page.source, "[\0-\x08\x0b-\x1f]")

    def check_accessible(self, page):
        levels = [int(e.tag[1]) for e in page.root.iter() if re.fullmatch("h[1-6]", e.tag)]
        self.assertEqual(levels[0], 1)
        self.assertEqual(levels.count(1), 1)
        self.assertTrue(all(b - a <= 1 for a, b in zip(levels, levels[1:])))
        for table in page.root.iter("table"):
            self.assertTrue(text_of(table.find("caption")))
            widths = {len(row) for row in table.iter("tr")}
            self.assertEqual(len(widths), 1)
            self.assertTrue(all(th.get("scope") and text_of(th) for th in table.iter("th")))
        inner = {id(svg) for outer in page.root.iter("svg") for svg in outer.findall("svg")}
        for svg in page.root.iter("svg"):
            label = svg.get("role") == "img" and svg.get("aria-label")
            self.assertTrue(label or svg.get("aria-hidden") == "true" or id(svg) in inner)
        for svg in page.root.iter("svg"):
            if id(svg) not in inner:
                self.check_drawing(svg)
        for css_class in ("wide", "narrow"):
            if any(svg.get("class") == css_class for svg in page.section("files").iter("svg")):
                self.check_treemap(page, css_class)

    def check_drawing(self, svg):
        """Nothing leaves a drawing, and its columns are as high as their figures."""
        width, height = map(float, svg.get("viewBox").split()[2:])
        points = [tuple(map(float, pair.split(","))) for line in svg.iter("polyline") for pair in line.get("points").split()]
        for e in svg.findall("rect") + svg.findall("g/rect") + svg.findall("text") + svg.findall("g/text"):
            x, y = float(e.get("x", 0)), float(e.get("y", 0))
            points += [(x, y), (x + float(e.get("width", 0)), y + float(e.get("height", 0)))]
        self.assertTrue(all(-0.1 <= x <= width + 0.1 and -0.1 <= y <= height + 0.1 for x, y in points), points)
        columns = [(float(g.find("rect").get("height")), number(g.find("text").text)) for g in svg.findall("g")]
        highest = max(columns, default=(0, 0))
        for drawn, value in columns:
            if value and highest[1]:
                self.assertAlmostEqual(drawn, max(value / highest[1] * highest[0], 1), delta=0.1)

    def check_treemap(self, page, css_class):
        tiles, (width, height) = page.tiles(css_class)
        loc = [number(re.search(r": ([\d,]+) lines of code, ", title)[1]) for *_, title, _ in tiles]
        self.assertEqual(loc, sorted(loc, reverse=True))
        self.assertAlmostEqual(sum(w * h for _, _, w, h, *_ in tiles), width * height, delta=1)
        rows = {row["name"]: number(row["Now"]) for row in page.rows("summary") if row["Now"] != "not in the input"}
        for (x, y, w, h, title, tint), lines in zip(tiles, loc):
            part = number(re.search(r"([\d,.]+) per 1,000", title)[1]) / max(rows["Notices per 1,000 lines of code"], 0.1)
            self.assertTrue([0, 0.5, 1, 2][tint - 1] * 0.99 <= part <= [0.5, 1, 2, 1e9][tint - 1] * 1.01, title)
            self.assertTrue(min(x, y, w, h) >= 0 and x + w <= width + 0.01 and y + h <= height + 0.01)
            self.assertAlmostEqual(w * h, lines / sum(loc) * width * height, delta=0.1 * (w + h) + 0.1)

    def check_figures(self, page, figures):
        """The figures of a page are those of the JSON, and its tables add up."""
        totals, summary = figures["totals"], page.rows("summary")
        now = {row["name"]: number(row["Now"]) for row in summary if row["Now"] != "not in the input"}
        for name, part, member in [("Files", "files", "count"), ("Lines of code", "files", "loc"), ("Comment lines", "files", "comments"),
                                   ("Blank lines", "files", "blanks"), ("Physical lines", "files", "lines"),
                                   ("Functions", "functions", "count"), ("Notices", "notices", "count")]:
            self.assertEqual(now[name], totals[part][member], name)
        languages = page.rows("languages")
        self.assertEqual(sum(number(row["Lines of code"]) for row in languages), totals["files"]["loc"])
        self.assertEqual(sum(number(row["Physical lines"]) for row in languages), totals["files"]["lines"])
        spread = page.rows("complexity")
        self.assertEqual(sum(number(row["Functions"]) for row in spread), totals["functions"]["count"])
        for row in spread:
            first, *last = map(int, re.findall(r"\d+", row["name"]))
            first, last = (101, 10**12) if row["name"] == "over 100" else (first, (last or [first])[0])
            self.assertEqual(number(row["Functions"]), sum(first <= f["cyclomatic_complexity"] <= last for f in figures["functions"]))
        worst = sorted((f["cyclomatic_complexity"] for f in figures["functions"]), reverse=True)[:10]
        self.assertEqual([number(row["Complexity"]) for row in page.rows("functions")], worst)
        sorted_complexity = sorted(f["cyclomatic_complexity"] for f in figures["functions"])
        half, most = (sorted_complexity[math.ceil(len(sorted_complexity) * part) - 1] for part in (0.5, 0.9))
        self.assertIn(f"at most {half}, nine of ten of at most {most};", text_of(page.section("complexity")))
        for row in page.rows("functions"):
            name = re.match(r"(.*?)(src/|$)", row["name"])[1]
            self.assertEqual(number(row["Notices within"]), sum(n.get("function") == name for n in figures["notices"]), name)
        kinds = {row["No."]: number(row["Count"]) for row in page.rows("notices")}
        self.assertEqual({n: c for n, c in kinds.items() if c}, {str(k["number"]): k["count"] for k in figures["kinds"]})
        depths = {}
        for node in figures["tree"]:
            depths[node["name"]] = max(depths.get(node["name"], 0), node["depth"])
        self.assertEqual([number(row["Classes"]) for row in page.rows("inheritance")],
                         [sum(d == depth for d in depths.values()) for depth in range(max(depths.values()) + 1)])

    def measure(self, name, *paths):
        self.run_in_place(TLY, "-xMODERN", "-xNOWRAP", "-X", "-Ta", "-Tq", "-O", name + ".xml", *paths, status=None)
        self.run_in_place(REPORT, "json", name + ".xml", "-o", name + ".json")
        with open(os.path.join(self.place, name + ".json"), encoding="utf-8") as file:
            return json.load(file)

    def sources(self):
        self.write("src/a.cpp", "struct A { int x; };\nstruct B : A {};\nstruct C : B, A {};\n"
                   "int f(int a)\n{\n" + "\tif (a) a++;\n" * 24 + "\treturn a;\n}\n" +
                   "".join(f"int g{i}(int a)\n{{\n" + "\tif (a) a++;\n" * i + "\treturn a;\n}\n" for i in range(21)))
        for i in range(1, 40):
            self.write(f"src/{i}.java", f"class J{i} {{\n" + "int x;\n" * i + "}\n\n")
        return [f"src/{name}" for name in sorted(os.listdir(os.path.join(self.place, "src")))]

    def test_figures_are_those_of_the_input(self):
        figures = self.measure("now", *self.sources())
        page = self.page("now.xml")
        self.check_figures(page, figures)
        self.assertIn("src/a.cpp:5–31", text_of(page.section("functions")))
        self.check_figures(self.page("now.json"), figures)
        self.assertIsNone(page.section("trend"))
        self.assertIsNone(page.section("baselines"))

    def test_before_now_and_change(self):
        sources = self.sources()
        old = self.measure("old", *sources[:20], "src/a.cpp")
        self.write("src/a.cpp", "int f(int a)\n{\n\tgoto x;\nx:\n\treturn a;\n}\n")
        self.measure("new", *sources)
        for before in ("old.xml", "old.json"):
            page = self.page("new.xml", "--before", before)
            for row in page.rows("summary"):
                if "not in the input" not in (row["Now"], row["Before"]):
                    change = row["Change"].lstrip("▲▼ ").split(" ")[0]
                    self.assertAlmostEqual(number(row["Now"]) - number(row["Before"]), number(change), delta=0.1, msg=row)
                    self.assertEqual(row["Change"][0] == "▲", row["name"] in ("Notices",) and number(change) > 0, row)
            kinds = {row["No."]: row["Change"] for row in page.rows("notices")}
            self.assertEqual(kinds["9"], "▲ +1")
            self.assertTrue(any(c.startswith("▼") and "100.0%" in c for c in kinds.values()))
            self.assertNotIn("xMODERN): a part", page.source)
            earlier = [number(row["Before"]) for row in page.rows("complexity")]
            self.assertEqual(sum(earlier), old["totals"]["functions"]["count"])
        old["kinds"][0]["text"] += " of 99"
        self.write("other.json", json.dumps({**old, "modern": False}))
        page = self.page("new.xml", "--before", "other.json")
        self.assertIn("before: " + old["kinds"][0]["text"], text_of(page.section("notices")))
        self.assertIn("Only one of the two runs reads", text_of(page.section("summary")))

    def test_trend_is_by_date_then_name(self):
        figures = self.measure("now", *self.sources())
        dates = {"b": "Sun Nov  1 10:00:00 2026", "a": "Sun Nov  1 10:00:00 2026", "c": "Fri Dec 31 23:59:59 1999", "d": "no date",
                 "e\u0007<": "Mon Feb  2 10:00:00 2026", "f": "Sat Jan 31 10:00:00 2026"}
        for i, (name, date) in enumerate(dates.items()):
            figures["files"][0]["loc"] += 5 - i
            self.write(f"runs/{name}.json", json.dumps({**figures, "date": date}))
        self.write("runs/notes.txt", "no run")
        shutil.copy(os.path.join(self.place, "now.xml"), os.path.join(self.place, "runs/now.xml"))
        page = self.page("now.xml", "--trend", "runs")
        names = [row["name"] for row in page.rows("trend")]
        self.assertEqual([re.sub(r"(Sun|Mon|Tue|Wed|Thu|Fri|Sat|no date).*", "", name) for name in names],
                         ["d", "c", "f", "e\ufffd<", "a", "b", "now"])
        self.assertTrue(all(len(svg.findall("circle")) == 7 for svg in page.section("trend").iter("svg")))
        os.unlink(os.path.join(self.place, "runs/now.xml"))
        self.assertEqual(len(self.page("now.xml", "--trend", "runs").rows("trend")), 7)  # the page's own run joins

    def test_comparison_of_baselines(self):
        self.sources()
        for name in ("old", "new"):
            self.run_in_place(TLY, "-wCreate .", "-wFile dat " + name + ".dat", "src/a.cpp", *(["src/2.java"] if name == "new" else []),
                              status=None)
            self.write("src/a.cpp", "int f(void)\n{\n\treturn 1;\n}\n")
        with open(os.path.join(self.place, "both.xml"), "wb") as out:
            out.write(self.run_in_place(TLY, "-X", "-wx old.dat, new.dat", status=None).stdout)
        self.measure("now", "src/a.cpp")
        page = self.page("now.xml", "--before", "both.xml")
        files = page.rows("baselines")[0]
        self.assertEqual([files[state] for state in ("New", "Mod", "Rem", "Equ")], ["1", "1", "0", "0"])
        total = {row["name"]: row for row in page.rows("baselines", 1)}
        for row in page.rows("baselines"):
            parts = sum(number(row[state]) for state in ("New", "Mod", "Rem"))
            if row["name"] != "Files":
                self.assertEqual(parts, number(total[row["name"]]["Newer"]) - number(total[row["name"]]["Older"]), row)

    def test_hostile_names(self):
        names = [b"q\"'<&>.c", b"\xe4\xff.c", b"\x01\x1b[31m.c", "\u202e\U0001f600.c".encode(), b"a\nb.c", b"<script>.cpp"]
        for name in names:
            self.write(b"src/" + name, b"int f(int a)\n{\n\treturn a;\n}\n")
        self.measure("now", "-S<b>&\"title", *[b"src/" + name for name in names])
        page = self.page("now.xml")
        self.assertEqual(text_of(page.root.find("head/title")), "<b>&\"title")
        self.assertIn("q\"'<&>.c", text_of(page.section("files")))
        # tly can't have such names, a JSON can.
        figures = self.measure("now", *[b"src/" + name for name in names])
        figures.update(title=HOSTILE, date=HOSTILE, command=HOSTILE, tly=HOSTILE)
        figures["languages"][0]["name"] = figures["functions"][0]["name"] = figures["kinds"][0]["text"] = HOSTILE
        figures["tree"] = [{"name": HOSTILE, "depth": 10**9, "children": 10**9, "parents": 1}]
        figures["files"][0]["loc"] = 10**11
        self.write("hostile.json", json.dumps(figures))
        for arguments in ([], ["--before", "now.xml"], ["--before", "hostile.json"]):
            page = self.page("hostile.json", *arguments)
            self.assertTrue(text_of(page.root.find("head/title")).startswith("</title></style><script>alert(1)</script>"))

    def test_what_is_not_there_is_not_0(self):
        self.write("src/empty.h", "// nothing\n")
        self.measure("now", "src/empty.h")
        page = self.page("now.xml")
        rows = {row["name"]: row["Now"] for row in page.rows("summary")}
        self.assertEqual(rows["Average complexity of a function"], "not in the input")
        self.assertEqual(rows["Highest complexity of a function"], "not in the input")
        self.assertEqual(rows["Notices per 1,000 lines of code"], "not in the input")
        for name, text in [("complexity", "no functions"), ("functions", "no functions"), ("inheritance", "no inheritance tree"),
                           ("files", "no files with code")]:
            self.assertIn("The input has " + text, text_of(page.section(name)))
            self.assertEqual(list(page.section(name).iter("svg")), [])

    def test_texts_stand_out_in_every_scheme(self):
        self.write("src/a.c", "int f(int a)\n{\n\treturn a;\n}\n")
        self.measure("now", "src/a.c")
        style = self.page("now.xml").root.find("head/style").text
        schemes = [dict(re.findall(r"--([\w-]+): (#\w+);", block)) for block in re.findall(r":root \{(.*?)\}", style, re.S)]
        self.assertEqual(len(schemes), 3)

        def luminance(colour):
            digits = colour[1:] if len(colour) == 7 else "".join(2 * c for c in colour[1:])
            parts = [int(digits[i:i + 2], 16) / 255 for i in (0, 2, 4)]
            red, green, blue = (p / 12.92 if p <= 0.03928 else ((p + 0.055) / 1.055) ** 2.4 for p in parts)
            return 0.2126 * red + 0.7152 * green + 0.0722 * blue

        for scheme in schemes:
            pairs = [(name, "paper") for name in ("ink", "soft", "accent", "worse", "better")] + [("ink", f"t{i}") for i in range(1, 5)]
            for text, ground in pairs:
                low, high = sorted(map(luminance, (scheme[text], scheme[ground])))
                self.assertGreaterEqual((high + 0.05) / (low + 0.05), 4.5, (text, ground))
            self.assertEqual(set(re.findall(r"var\(--([\w-]+)\)", style)), set(schemes[0]))

    def test_bad_input_makes_no_page(self):
        self.measure("now", *self.sources())
        self.write("cut/a.xml", "<vxtly><file>")
        self.write("none/a.txt", "")
        self.write("both.xml", "<vxtly><report><name>baseline_differential_metrics</name>\n  Error: Failed\n</report></vxtly>")
        for arguments, told in [(["--before", "gone.xml"], "gone.xml: No such file"), (["--trend", "gone"], "gone: No such file"),
                                (["--trend", "none"], "it has no .xml or .json file"), (["--trend", "cut"], "cut/a.xml: line 1: it ends"),
                                (["--before", "cut/a.xml"], "cut/a.xml: line 1: it ends"),
                                (["--before", "both.xml"], "tly met an error when it made this: Error: Failed - See")]:
            done = self.run_in_place(REPORT, "page", "now.xml", *arguments, "-o", "page.html", status=2)
            self.assertIn(told, done.stderr.decode())
            self.assertFalse(os.path.exists(os.path.join(self.place, "page.html")))


unittest.main(argv=sys.argv[:1])
