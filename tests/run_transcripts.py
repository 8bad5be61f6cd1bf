#!/usr/bin/env python3
r"""Runs transcripts: run_transcripts.py --tly BINARY [--update] [FILE.run | DIRECTORY]...

A transcript holds small files, commands and the expected answers in one readable text. A line that starts with "=== " opens a
section; what stands ahead of the first is prose.

  === file NAME            a file with the lines that follow. "=== file NAME escaped": \xNN, \t, \r, \n, \0, \\ and the like are
                           read as in C. "=== file NAME noeol": the last line end is left away. Both may be given
  === run ARGUMENTS        runs "tly ARGUMENTS" in bash, followed by the expected standard output
  === sh COMMAND           any bash command instead; "tly" and "$TLY" are the program, "tly-report" the one beside it,
                           "tly-packaged" and "tly-report-packaged" the two as a package has them
  === stderr               behind a run: the expected standard error output. Without it there must be none
  === status N             behind a run: its exit status, 0 if it isn't given
  === check COMMAND        behind a run: must succeed with the run's output as its standard input (e.g. "xmllint --noout -")
  === # REMARK             a remark, with the lines that follow

All sections of a transcript share one fresh directory, which is also the program's home: its settings file is made there by the
first run unless a "=== file tly.cfg" stands ahead; "../docs" is the repository's docs. Files are dated 2001-09-09 01:46:40 UTC and
are there before the next command. TZ, LC_ALL, HOME, PATH, TLYHOME and TLY are all there is in the environment.

In expected output "\xNN" is a byte that isn't printable (CR, high bytes, control bytes), "\=== " stands for "=== " at the start of a line, and
"\ no end of line" a last line without its line end. Masked are: <dir> the directory, <now> the current time, <today> and <built>
the run and the build date, <sec>, <time> and <rate> the values of the timer. Nothing else.

A crash, a sanitizer report and a run of more than a minute are always failures. --update writes what came out into the transcript.
"""
import argparse, codecs, difflib, os, pathlib, re, shlex, shutil, subprocess, sys, tempfile

FILE_TIME = 1000000000
NO_EOL = "\\ no end of line\n"
CTIME = rb"(?:Mon|Tue|Wed|Thu|Fri|Sat|Sun) [A-Z][a-z]{2} [ \d]\d \d\d:\d\d:\d\d \d{4}"
MASKS = [
    (CTIME, lambda m: m[0] if m[0] == b"Sun Sep  9 01:46:40 2001" else b"<now>"),
    (rb"(Run Date(?:</font></b>)?: )[A-Z][a-z]{2} \d\d, \d{4}", rb"\1<today>"),
    (rb"(Build Date(?:</font></b>)?  : (?:<b>)?)[A-Z][a-z]{2} [ \d]\d \d{4}", rb"\1<built>    "),
    (rb"((?:CPU Time|Wait Time|Elapsed Time)(?:</b>)? *(?:: |,))[ \d]{8}\.\d{3} Sec", rb"\1       <sec> Sec"),
    (rb"<value>[ \d]{8}\.\d{3}(</value>\n<units>seconds)", rb"<value>       <sec>\1"),
    (rb" \d+:\d\d:\d\d:\d\d(?=[ ,]Day:Hr:Min:Sec|</value>\n<units>Day:Hr:Min:Sec)", b"     <time>"),
    (rb"\d+(?= (?:Physical Lines Processed|Characters Parsed)/s)", b"<rate>"),
    (rb"((?:Lines|Characters) Processed/s,|_per_Second>)\d+", rb"\1<rate>"),
]


def shown(output, work):
    """Output as it stands in a transcript: masked, printable, line by line."""
    output = output.replace(os.fsencode(work), b"<dir>")
    for pattern, by in MASKS:
        output = re.sub(pattern, by, output)
    text = re.sub(r"[^ -~\n\t]", lambda m: "\\x%02x" % ord(m[0]), output.decode("latin-1"))
    text = re.sub(r"^(?==== )", r"\\", text, flags=re.M)
    return text if not text or text.endswith("\n") else text + "\n" + NO_EOL


def sections(text):
    """(head line without "=== ", body) of every section; the prose ahead of the first one has the head ""."""
    parts = re.split(r"^=== (.*)\n", text if text.endswith("\n") else text + "\n", flags=re.M)
    return [("", parts[0])] + list(zip(parts[1::2], parts[2::2]))


def write_file(head, body, work):
    _, name, *options = shlex.split(head)
    content = body.encode("latin-1")
    if "noeol" in options:
        content = content.removesuffix(b"\n")
    if "escaped" in options:
        content = codecs.escape_decode(content)[0]
    path = work / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)
    os.utime(path, (FILE_TIME, FILE_TIME))


def execute(command, work, tly, stdin=b""):
    env = {"TZ": "UTC", "LC_ALL": "C", "HOME": str(work), "PATH": f"{work.parent}/bin:/usr/local/bin:/usr/bin:/bin",
           "TLYHOME": str(work), "TLY": str(tly), "UBSAN_OPTIONS": "print_stacktrace=1"}
    try:
        done = subprocess.run(["bash", "-c", command], cwd=work, env=env, input=stdin, capture_output=True, timeout=60)
    except subprocess.TimeoutExpired:
        return b"", b"", None
    return done.stdout, done.stderr, done.returncode


def trouble(command, err, status):
    """What no transcript may expect: a hang, a signal, a sanitizer report. A status tells nothing: it is a number of notices."""
    if status is None:
        return f"no end after a minute: {command}\n"
    if status < 0 or re.search(rb"Sanitizer|runtime error:|Segmentation fault|Aborted", err):
        return f"crash, status {status}: {command}\n{err.decode('latin-1')}"
    return ""


def replay(text, work, tly):
    """Runs a transcript. Returns it with what came out, and the list of troubles and failed checks."""
    result, problems, output = [], [], b""
    for head, body in sections(text):
        kind, _, rest = head.partition(" ")
        if kind in ("run", "sh"):
            command = "tly " + rest if kind == "run" else rest
            output, err, status = execute(command, work, tly)
            problems += filter(None, [trouble(command, err, status)])
            result.append(f"=== {head}\n{shown(output, work)}")
            if err:
                result.append(f"=== stderr\n{shown(err, work)}")
            if status:
                result.append(f"=== status {status}\n")
        elif kind == "check":
            out, err, status = execute(rest, work, tly, output)
            if status != 0:
                problems.append(f"check failed: {rest}\n{shown(out + err, work)}")
            result.append(f"=== {head}\n{body}")
        elif kind in ("", "#", "file"):
            if kind == "file":
                write_file(head, body, work)
            result.append((f"=== {head}\n" if kind else "") + body)
        elif kind not in ("stderr", "status"):
            problems.append(f"unknown section: === {head}\n")
    return "".join(result), problems


def run(path, tly, update):
    expected = path.read_bytes().decode("latin-1")
    place = pathlib.Path(tempfile.mkdtemp(prefix="tly-", dir="/tmp"))  # names that the program wraps need one length everywhere
    try:
        (place / "bin").mkdir()
        (place / "bin" / "tly").symlink_to(tly)
        for other in ("tly-report", "tly-packaged", "tly-report-packaged"):
            (place / "bin" / other).symlink_to(tly.parent / other)
        (place / "docs").symlink_to(pathlib.Path(__file__).resolve().parent.parent / "docs")
        (place / "w").mkdir()
        actual, problems = replay(expected, place / "w", tly)
    finally:
        subprocess.run(["chmod", "-R", "u+rwX", place], check=False)
        shutil.rmtree(place)
    if update and not problems:
        path.write_bytes(actual.encode("latin-1"))
        return True
    if actual != expected:
        sys.stdout.writelines(difflib.unified_diff(expected.splitlines(True), actual.splitlines(True), str(path), "what came out"))
    for problem in problems:
        print(f"{path}: {problem}")
    return actual == expected and not problems


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--tly", required=True, type=pathlib.Path)
    parser.add_argument("--update", action="store_true")
    parser.add_argument("paths", nargs="*", type=pathlib.Path, default=[pathlib.Path(__file__).parent / "runs"])
    options = parser.parse_args()
    sys.stdout.reconfigure(errors="backslashreplace")
    transcripts = [t for p in options.paths for t in ([p] if p.is_file() else sorted(p.rglob("*.run")))]
    failed = [t for t in transcripts if not run(t, options.tly.resolve(), options.update)]
    print(f"{len(transcripts) - len(failed)} of {len(transcripts)} transcripts passed")
    sys.exit(1 if failed or not transcripts else 0)


main()
