// The manual's sections: what is measured, how a run goes, what it reads and writes.
#include "tools/manual.h"

namespace {

constexpr ManualSection kSections[] = {
    {"~ TLY Help Documentation~ ",
     R"(
Tallyline provides a standardized approach to measure the
quantity and quality of source code within a module or a project.  This
program can analyze a C, C++, Java or C# source for metrics and semantic
quality problems that most compilers do not identify.

It reads sources as they are, line by line: nothing is compiled, nothing
has to be on an include path, and code of all platforms is measured,
whatever the #if above it says.  One run can measure a file that is open
in an editor, or millions of lines at night.

Where to go on reading:

    What is LOC, eLOC, lLOC?       Source Code Metrics and Analysis
    How do I begin?                Operation Step by Step
    Where are the settings?        Program Configuration
    What does -Tq do?              Run Time Switch Options, under T
    How do I read a report?        Program Output Modes
)"},
    {"~ Source Code Metrics and Analysis ~",
     R"(
Every figure is defined on what stands in a line.  This function serves
as the example; the letters at its left are told below.

    C     // Adds up what is positive.
    E     #include "sum.h"
    b
    E     int Sum::of(const int *v, int n)
    N     {
    EL        int s = 0;
    ELC       for (int i = 0; i < n; ++i)    // each value
    N         {
    E             if (v[i] > 0 && v[i] < max_)
    N             {
    EL                s += v[i];
    N             }
    N         }
    E         return (
    E             s
    NL        );
    N     }

LOC, lines of code, are the lines that hold code: a printable character
other than "/" outside comments.  Preprocessor lines are code.  Above:
the lines with E or N, 15.

eLOC, effective lines of code, are LOC less the lines of just a brace and
the lines of just a parenthesis, with or without a ";": layout should not
count as work.  Above: the lines with E, 8.  A program that is laid out
with braces on lines of their own has the same eLOC as one that isn't.

lLOC, logical lines of code, are statements: the ";" in code, less one
for each "for" and "foreach", whose head has two of them and closes none.
"a = 1; b = 2;" is one LOC and two lLOC.  Above: L is where a line ends a
statement, and the for head counts its two ";" less one: 4.

Comment lines hold comment text, beside code as well as alone.  Above: 2.
Blank lines hold nothing but white space.  Above: 1.  Lines, or physical
lines, are all lines of the file.  Above: 17.  Total logical lines are
LOC and blank and comment lines together; a line of code with a comment
counts twice in it.  Above: 18.

Try "tly -d FILE" to see how each line of a file is taken.

Cyclomatic complexity (Cyclo Vg) is the number of independent ways
through a function: 1 for the function, and 1 for each while, for, case,
if, goto, "?", "&&" and "||".  Above: 1 + for + if + "&&" = 4.  What is
counted can be chosen in the configuration; -fd shows the parts.

Interface complexity (InCmp) is the number of parameters and of return
points: what a caller must provide and expect.  Above: 2 + 1 = 3.  exit
and abort are return points too, and so is goto unless the configuration
says otherwise; a function with none of them has one, its end.  The total
or functional complexity is both complexities together: 7.

The figures of a function run from its "{" to its "}": lines of its head
that stand above the "{" aren't part of them, but comments right above the
function are.  So do those of a class; in the summaries of the project,
the figures of its member functions are added to it, wherever they are
defined.

Function points are an estimate of size that is independent of the
language: lines divided by the lines that a function point takes in it,
128 in C, 53 in C++, Java and C#.  530 LOC of Java are 10.0 points.  The
factors are settings; where one is 0, as for *.h files, lines make no
points.

Attributes and methods of a class are counted as public, protected and
private.  Of the inheritance tree: the depth is the number of classes
above a class, a base class has depth 0; its children are the classes
derived directly from it.

Quality notices are 58 things that experience counts as risks: an
assignment in a condition, a switch without a default, a function with
too many ways through it.  "tly -hn" lists them.  Notice density is their
number per 1000 LOC, eLOC and lLOC.  Notices of your own are told under
Program Configuration.
)"},
    {"~ Program Operation ~",
     R"text(
A run reads its settings, then the command line, gathers the files, reads
each of them once, and prints reports: those of each file behind its
name, then those of the project.  All headers come first, as other
sources need what they define: each "#define" that was seen is known as a
macro in the files behind it.

    tly -fa main.c util.c util.h

Without a switch that asks for more, each file is shown with its lines,
then the project, then the numbers of files of each language.  A run
changes no source file, but for -D, which is there to do that.

Exit status: the number of quality notices of the run when notices were
asked for (-n, -N, -xUDQNSHOW and all -T), otherwise 0; -p, -D and -E
always end with 0.  A wrong command line ends with 1 (a few of -u and -w
with 0), and so do --help, which is no switch, -xc, and -xUDQNSHOW once it
has shown a file of rules.  A list of -F that can't be read ends with 255.
A script that stops at a status, as under "set -e", goes on with:

    tly -TL main.c || true

A shell sees only 8 bits: 256 notices look like 0, and 257 like 1.  A
script that decides on notices should count them in the report:

    test "$(tly -Nv -Tn -i main.c | grep -c 'Notice #')" -eq 0 || exit 1

Notices are counted in every run that measures, shown or not: "-C -s" has
a column for them.  But a run raises only those of what it looks at: with
-n or -Nv alone they are those of lines and files.  Functions are looked
at with -fa, functions and classes with -o and all -T, the inheritance
tree (notices 40 and 41) with -i and -Tq.  "-Nv -Tn" lists each notice
once, without blocks of functions, and "-Nv -Tn -i" those of the tree too.

Messages stand in the report, where the reader is, and begin with Error,
Warning or Notice.  A file that can't be read is told and passed over.
A report that couldn't be written whole, as on a full disk, is told on
the error output, and the status isn't 0.  A baseline that couldn't be
made, or not whole, ends the run with 1, whatever notices there are.
)text"},
    {"~ Operation Step by Step ~",
     R"(
1. Measure a file that you know.  Compare the figures with its text.

    tly main.c

2. Measure a project: all sources with these extensions below src.

    tly -r"c,h src"

3. Look at functions and classes, the most complex function last.

    tly -fa -o -c -k5 -r"cpp,hpp src"

4. Keep it as a page to open in a browser.

    tly -H -Ta -Oreport.html -r"cpp,hpp src"

5. Read notices in the editor.  -Nv -Tn prints one notice a line, those of
functions and classes too, the way an editor jumps to it:

    main.c(12) : Notice #4    - Assignment '=' within 'if' statement

In Visual Studio add tly -Nv -Tn $(ItemPath) as an external tool that
uses the output window, and double click a notice.  In Vim:

    :set makeprg=tly\ -xNOHEADER\ -Nv\ -Tn\ %
    :set errorformat=%f(%l)\ :\ %m
    :make

In Emacs, tell "M-x compile" the form once:

    (require 'compile)
    (add-to-list 'compilation-error-regexp-alist
                 '("^\\(.+\\)(\\([0-9]+\\)) : Notice" 1 2))

6. Watch a project at night.  CSV goes to a spreadsheet, XML to a program.

    tly -fa -C -s -r"java ." > files.csv
    tly -X -Ta -Tq -r"java ." > project.xml

7. Keep a baseline of each release, and compare releases later without
their sources:

    (cd r1; tly -w"Create ." -wd -w"File dat /base/r1.dat" -r"c,h .")
    (cd r2; tly -w"Create ." -wd -w"File dat /base/r2.dat" -r"c,h .")
    tly -wd -wp -wg -w"x /base/r1.dat, /base/r2.dat"

The report tells of new, removed, changed and equal files, how many lines
were touched in each, and what that makes per hour, week and month.  The
letter w below tells more.
)"},
    {"~ Program Configuration ~",
     R"(
All settings are in the text file tly.cfg.  The first run writes it, with
an explanation of every setting; edit it.  "tly -y" prints the settings
that hold.  A line is a key, a colon and a value; a file of your own needs
no more than the settings that differ, and the line of the version:

    TLY CFG Version: 7.75
    Quality Notice 23: No
    Maximum Line Length: 100

A tly.cfg without that line counts as one of another version: the next run
writes it anew with all settings.  Your values stay, your comments don't.
A value that begins with n or N means no, every other value yes.  Lines
whose key isn't known, such as comments, are passed over.  A switch of
the command line always wins over the file.

Where files are looked for: TLYCFGHOME names the directory of all of the
program's own files; else TLYHOME does.  With neither, a tly that was
started by its path, as in bin/tly, takes the directory of that path.  One
that the shell found on PATH takes the first directory of PATH that holds
a tly.cfg, its own or another, or else the current one: each directory
that you work in then gets a tly.cfg.  Name a home in TLYHOME to keep all
in one place.  A home of more than 1006 characters is told and ignored.
A tly that was installed as a package keeps clear of these directories:
with neither variable it takes $XDG_CONFIG_HOME/tly or else ~/.config/tly,
which it makes.

    tly.cfg           settings
    tly_macro.cfg     words that the parser should pass over, one a line
    tly_udqn.cfg      your own quality notices, if TLYCFGHOME is set and
                      the settings name no other file
    tly_workdiff.cfg  columns of the report on two baselines

tly_macro.cfg is for words in declarations and headings that only a
compiler knows, like __declspec: in "struct __declspec(align(8)) point {"
and "namespace std VISIBLE(default) {" a listed word and its arguments
are passed over.  A word stands in the first column.

Your own quality notices are regular expressions with a text to print.
The setting "TLY user defined quality notice file" names their file:

    UDQN Begin     :
    UDQN Identifier: 101
    Active         : Yes
    Sources        : c, h
    Context        : Code
    Pattern        : \bstrcpy\s*\(
    String         : strcpy(a, b);
    Summary        : strcpy has no bound
    Message        : Use a copy with a bound in place of strcpy
    UDQN End       :

docs/rules.udqn of the program's sources holds ten rules to start from.

Context says where the pattern is searched: in the whole Line, or in its
Code, Comment or String.  Identifiers begin at 100.  With "Set flags",
"Clear flags", "Check flags" and "!Check flags" (numbers from 1 to 1999)
one rule can depend on another; a rule with "Emit EOF flag: Yes" speaks
at the end of the file, and "Silent flag: Yes" only moves flags.
"Include: FILE" reads another file, and REG_ICASE: On in front of a
pattern makes capitals equal.  Test a file with "tly -xUDQNSHOW", which
shows each rule with what its pattern finds in its String.

A pattern like (a+)+$ can take more steps than anybody waits for.  Where
that happens on ten lines of a file, the rule is off for the rest of the
file; after a thousand lines, for the rest of the run.  Each is told once
for a rule.

A second configuration file can be laid over the first with
-u"File CFG name", when the settings allow it.  It is read where the
switch stands: those behind it win over it, but it wins over those in
front, such as -L100 or -xNOWRAP.  Put it first.

Environment: TLYHOME, TLYCFGHOME, PATH as told; TLYCLASSMF lists the
functions of classes as -fm does; TLYDEBUG shows what the run decides,
and waits for a key first.
)"},
    {"~ Source File Requirements ~",
     R"(
A source is text that a compiler would take.  There is no need for it to
be complete: missing headers change nothing.

Lines may have 2046 characters.  A longer one is told, and only what is
left behind its full pieces is measured.  A NUL ends its line.  Line ends
may be LF or CR LF.

All branches of #if and #ifdef are read as code.  When both branches open
a brace that is closed once, braces no longer match, and the end of the
file tells so:

    #ifdef WIDE
    int f(wchar_t *s) {
    #else
    int f(char *s) {
    #endif
    }

Sources in C++ from 11 on, C# and Java are best measured with -xMODERN.
Without it sources are read as ever, so that figures of many years can be
compared: lambdas, tuples, records, annotations with arguments, raw and
verbatim strings may then hide functions.  With it a brace ends what its
partner opened, each branch of a #if begins with what was open at it, and
every statement outside of functions is read as a whole.  A member of Java
and C# stands in the section of its own modifier: without one it is
private, in an interface public.  "if constexpr" counts for complexity, the
"?" of "int?" and the "&&" of a #if don't.  Baselines that are to be
compared need the same reading.

    tly -xMODERN -fa -o -r"cs ."

The line "Modern Source Constructs : Yes" in tly.cfg turns it on for all
runs; the report then says "Reading     : Modern" in its head.  Single
rules are switched on by name, as in -xMODERN:braces,literals; a wrong
name lists them all.  All but literals and conditions need braces beside
them.

What it doesn't see as functions either: methods of classes that stand
inside functions, accessors of properties, lambdas, local functions, and
methods of classes without a name.  Their lines belong to what holds them.
Where one #if opens a brace and another one, not its #else, opens it too,
the function stays open: the end of the file tells so.

Code between the skip tokens TLY_IGNORE_BEGIN and TLY_IGNORE_END isn't
measured, and between TLY_IGNORE_QUALITY_BEGIN and TLY_IGNORE_QUALITY_END
none but your own notices is raised, when the settings activate them:

    // TLY_IGNORE_BEGIN
    ... a generated table ...
    // TLY_IGNORE_END

The language is taken from the extension; the lists of extensions are
settings.  Files of the language Other are counted line by line only.
)"},
    {"~ Switches and Options ~",
     R"(
A switch is a dash and a letter; some take a second letter or a text,
which is attached to them.  A text with blanks is put between quotes:

    tly -c -fa -k2 -S"Release 2" -r"h,cpp /my project"

Each switch is an argument of its own.  Capitals matter: -o measures
classes, -O writes a file.  Switches that end with a report on their own
(-h, -y, -xc, -w"x ...") use what stands in front of them, so the mode
and the filters go first.  A few more look at what stands in front: -s and
-fa make CSV lines only behind -C, -Tq keeps the form of -Nv only behind
it, and -Tp takes back the lists of notices that -N, -Tn or -Tq asked for.
Otherwise the order is free.

Without any argument the program prints its syntax.
)"},
    {"~ Files/Directories Names and Wild Cards ~",
     R"(
Names of files follow the switches.  The shell expands wild cards; the
program takes each name as it is.  A name without an extension is passed
over, and one with an unknown extension is told, unless the setting
"Validate file extensions for processing" is off.  So "tly src" measures
nothing and says nothing: a directory needs -r.

With -r the extensions and the directory are one text between quotes,
parted by one blank; the directory may hold blanks itself:

    tly -r"h,cpp,java /my project"

"." is the current directory.  *.c, .c and c mean the same extension, but
the first one has to begin with a letter.  In a walk, extensions are
compared with regard to case.  The settings can leave out directories and
names that hold a word.
)"},
    {"~ Source Code File Input Modes ~",
     R"(
There are four modes of taking files.  Modes cannot be mixed.

Direct files: each file is an argument.

    tly -s main.c util.c util.h

Wild cards: the shell makes names of them.

    tly -s src/*.c src/*.h

Recursive descent: all files with the given extensions below a directory.

    tly -s -r"c,h /proj"

File list: a text file names files and directories, one a line.  Lines
that begin with # are comments, %NAME% is replaced by the value of an
environment variable, and a line like -r c,h /dir walks a directory.

    tly -s -Flist.txt

    # list.txt
    /proj/main.c
    %SRC%/util.c
    -r c,h /proj/lib

With a list that names directories the project's report sums up each of
them.
)"},
    {"~ Program Output Modes ~",
     R"(
The report goes to the screen, or with -O to a file; progress is then
shown on the error output.  It has a head, the blocks of each file, and
the reports of the project.

The block of a function, with -fa and -c:

    Function: Sum::of
    Parameters: (const int *v, int n)
    Complexity   Param 2       Return 1      Cyclo Vg 4       Total        7
    LOC 13       eLOC 6        lLOC 4        Comment 1        Lines       13

With -n it is framed by "Function Begin Line", the line of its "{", and
"Function End Line", the one of its "}".  The notices that were raised in
the function stand between its name and its figures.

The block of a class, with -o:

    Class: Sum
    Inheritance: Base
    Attributes   Publ 0        Prot 0        Private 1        Total        1
    Methods      Publ 1        Prot 0        Private 0        Total        1
    LOC 6        eLOC 5        lLOC 2        Comment 0        Lines        5

The reports of the project show each entity again in the order of -k,
then totals, averages, maxima and minima over all of them, and an average
per file.  A class there includes its member functions.

The inheritance tree, with -i, shows a base class behind +, and a derived
one behind - below it, with its depth D, its direct children C and its
direct parents P:

    + Base [D0.C1]
      - Sum [D1.C0.P1]

The quality profile shows, for each kind of notice, how often it was
raised and its part of all; the density stands below it.

The keyword report, -v, shows the counters of the parser side by side:
lines, keywords, braces, parentheses, percentages of code, comment, blank
lines and white space.

With -T, -X and -w the blocks of each file are left out, and the letter
behind -T chooses the reports of the project.  -Ta shows them all.
)"},
    {"~ Program Output File Formats ~",
     R"(
Four formats show the same data.

Text, for reading:

    tly -fa -Oreport.txt main.c

HTML (-H), for a browser.  Colors are settings.

    tly -H -fa -Oreport.html main.c

CSV (-C), for a spreadsheet.  Behind it, -s prints one line per file and
-fa one line per function.  Commas in names become blanks, and those in
lists of parameters and base classes become ";".

    tly -C -s -Oreport.csv -r"c,h ."

XML (-X), for programs: reports of the project.  All texts are encoded; a
style sheet can be named with -u"File XSL name".

    tly -X -Ta -Oreport.xml -r"c,h ."

There is a fifth one of your own making, a CSV file with the columns that
you choose: see -x"File csv name".
)"},
    {"~ Run Time Switch Options ~",
     R"(
The options shown with an asterisk '*' can be aggregated together, so
that one run prints all of their reports.
)"},
};

} // namespace

const std::span<const ManualSection> kManualSections = kSections;
