"""Text as lines of a manual page in mdoc: every line that begins with a dot is a macro."""
import re, textwrap


def escaped(line):
    line = re.sub(r"[^ -~]", lambda m: "\\[u%04X]" % ord(m[0]), line.replace("\\", "\\e").replace("-", "\\-"))
    return "\\&" + line if line[:1] in (".", "'") else line


def quoted(line):
    """An escaped line as one argument of a macro."""
    return '"%s"' % line.replace('"', '\\(dq')


def unbroken(text):
    """With the mark that keeps names in one piece: longer words with a capital or a sign inside them."""
    return re.sub(r"(?<!\S)(?=\S{7})(?=[^\s]*[a-z0-9.][-_./=#\\]+\w|[^\s]*\w[A-Z_]|-\S)", r"\\%", text)


def sentences(text):
    """A paragraph, each sentence on lines of its own."""
    out = []
    for sentence in re.split(r"(?<=[.?!])(?:  +|\s*\n| (?=[A-Z`\"(]))(?=\S)", text.strip()):
        lines = textwrap.wrap(" ".join(sentence.split()), 70, break_long_words=False, break_on_hyphens=False)
        out += [unbroken(escaped(line)) for line in lines]
    return out


def literal(rows):
    return [".Bd -literal -offset indent"] + [escaped(row.rstrip()) or "\\&" for row in rows] + [".Ed"]


def body(text):
    """Prose becomes paragraphs, indented lines stay as they are, four blanks to the left."""
    out = []
    for part in re.findall(r"(?:^ .*\n?|^\n)+|(?:^\S.*\n?)+", text, re.M):
        if part[0] in " \n":
            out += literal(row[4:] for row in part.strip("\n").split("\n")) if part.strip() else []
        else:
            out += [".Pp"] if out else []
            out += sentences(part)
    return out


def marked(lines):
    """Bold and `code` of Markdown, in lines that are escaped already; either may go over a line end."""
    text = re.sub(r"\*\*(.+?)\*\*|`(.+?)`", lambda m: "\\fB%s\\fP" % (m[1] or m[2]), "\n".join(lines), flags=re.S)
    return text.split("\n")


def narrow(rows):
    """A sample of pages that are wider: remarks go above their commands, long usages on several lines."""
    rows = list(rows)
    if max(map(len, rows)) <= 69:
        return rows
    out = []
    for row in rows:
        command, remark = re.fullmatch(r"(.*?)(?: +(# .*))?", row).groups()
        out += textwrap.wrap(remark or "", 69, subsequent_indent="# ")
        out += textwrap.wrap(command, 69, subsequent_indent="    ", break_on_hyphens=False) if "[--" in row else [command]
    return out


def markdown(text):
    """The text below a heading of a page of docs: paragraphs, lists, samples, tables of two columns. Pictures are left out."""
    out = []
    for part in re.findall(r"(?:^    .*\n?|^\n)+|(?:^- .*\n?(?:^  .*\n?)*)+|(?:^\|.*\n?)+|(?:^(?![-|] ?|    ).+\n?)+", text, re.M):
        if not part.strip() or part.startswith("!["):
            continue
        if part[0] in " \n":
            out += literal(narrow(row[4:] for row in part.strip("\n").split("\n")))
        elif part[0] == "-":
            out += [".Bl -bullet"]
            for item in re.split(r"^- ", part, flags=re.M)[1:]:
                out += [".It"] + marked(sentences(item))
            out += [".El"]
        elif part[0] == "|":
            out += [".Bl -tag -width Ds"]
            for row in part.strip().split("\n")[2:]:
                cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", row)[1:-1]]
                out += [".It " + quoted(marked([escaped(cells[0])])[0])] + marked(sentences("; ".join(cells[1:])))
            out += [".El"]
        else:
            out += [".Pp"] + marked(sentences(part))
    return out


def page(lines):
    """The text of a page: no paragraph begins right behind a heading."""
    kept = [line for before, line in zip([""] + lines, lines) if line != ".Pp" or before[:3] not in (".Sh", ".Ss", ".Pp")]
    return "\n".join(kept) + "\n"
