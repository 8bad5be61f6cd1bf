// The manual's entries, one per letter of the command line.
#include "tools/manual.h"

namespace {

constexpr SwitchEntry kEntries[] = {
    {"a", "  * Allocation/De-allocation of Memory Mode\n",
     R"(This mode counts what allocates and releases memory: malloc, calloc and
alloc, free, and in C++, C# and Java new and delete.  A realloc is neither.

    tly -a main.c
)"},
    {"b", "  * Benchmark Mode\n",
     R"(This mode tracks the CPU, User, Wait and elapsed time for the running
process, and tells the lines and characters read per second.  A report
that goes to a file is faster than one that goes to a terminal.

    tly -b -Oreport.txt -r"c,h ."
)"},
    {"CA", "  * CSV File Output Format\n",
     R"(Reports are comma separated variables, for a spreadsheet.  -s and -fa
behind -C print one line per file and one per function:

    tly -C -s -r"c,h ."
    tly -C -fa main.c

Functions and complexity of a file are 0 unless something asks for them:
-fa in front of -C fills these columns, and adds no lines of functions.

    tly -fa -C -s -r"c,h ."

-A is the older name of -C.
)"},
    {"c", "  * Complexity Mode\n",
     R"(Function and class blocks show parameters, return points, cyclomatic
complexity and their sum.

    tly -c -fa main.c
)"},
    {"D", "  De-Character Source Files\n",
     R"(These modes rewrite source files in place.  Nothing is measured.

    -Dt   Tabs outside strings become blanks, as many for each tab as the
          setting "A TAB is equivalent to n space" says.
    -Du   UNIX line ends: the carriage return in front of a line feed is
          removed.
    -Dd   DOS line ends: a carriage return is put in front of each line
          feed that has none.

    tly -Dt -Du main.c util.c

-Dt goes together with -Du or -Dd; those two exclude each other.  The new
text is written to a file beside and takes the place of the source in one
step: a full disk, an error or the end of the process leaves the old text
whole.  When only that last step fails, the new text is left in a file
called after the source, with .tmp behind its name, and a message says so.

What such a file holds when a run begins isn't lost: it comes ahead of the
new text in the source.  So look for main.c.tmp before you run -D on main.c
again.
)"},
    {"d", "  Deterministic Mode\n",
     R"(Each source line is shown with what it was taken for: blank, LOC,
effective or not, logical, comment.  Whoever doubts a figure begins here.

    tly -d main.c
)"},
    {"E", "  Extract Strings or Comments from Source Code\n",
     R"(These modes list text of a source file with its line numbers.

    -Es   Strings, such as the messages of a program.
    -Ec   Comments without their marks.
    -EC   Comments as they stand, between the heads of functions, and with
          -o of classes: a documentation of the code.  A head stands where
          a function begins, and again where it ends.

    tly -Es main.c

With -Es and -Ec, punctuation around a text is left out; a text without a
letter or a digit isn't shown.
)"},
    {"e", "  * Estimation Analysis Based on LOC and Complexity\n",
     R"(Shows how many lines one function, one parameter, one return point and
one unit of complexity cost in this code: a basis for estimating the next
one.  A planned module of 40 functions, where a function costs 22 LOC on
the average, will have about 880 LOC.

    tly -e -r"c,h ."
)"},
    {"F", "  * File List Mode\n",
     R"(Files and directories are named in a text file, one a line; see Source
Code File Input Modes.

    tly -s -Flist.txt
)"},
    {"f", "  * Function Analysis Mode\n",
     R"(    -fa   Functional analysis: a block for each function, a summary of
          each file, and the functions of the project.
    -fd   Function file details: the same with the parts of the
          cyclomatic complexity.
    -fm   Function and attribute detail for classes: each class lists its
          methods and attributes by access.
    -fp   Function points: lines are followed by function points.

    tly -fa -fp main.c
)"},
    {"H", "  * HTML Output Mode\n",
     R"(Reports are an HTML page.  Colors, and links to the sources, are settings.

    tly -H -fa -Oreport.html main.c
)"},
    {"h", "  Help Mode\n",
     R"(    -hs   The list of all switches.
    -hf   This manual.
    -hc   The settings that hold, as -y.
    -hn   The types of quality notices, with their limits, and your own.
    -hp   The short syntax, until a key is pressed.
)"},
    {"i", "  * Inheritance Tree Generation\n",
     R"(The classes of all files as one tree, with the depth, the children and
the parents of each class; see Program Output Modes.  A parent that was
not among the files is shown as a base class.  In XML, -Ti shows it.

    tly -i -r"h,hpp ."
)"},
    {"k", "  * Key for Report Sorting\n",
     R"(Entities and files are sorted by a key; -kd turns the order round.

    -k0   No sort               -k6   Work state of a baseline file
    -k1   Name                  -k7   Functions of a file
    -k2   LOC                   -k8   Quality notices of a file
    -k3   eLOC                  -k9   Date of a file
    -k4   lLOC                  -k10  Size of a file
    -k5   Cyclomatic complexity -kd   Descending order

    tly -fa -k2 -kd -r"c,h ."
)"},
    {"l", "  * List Function Name Mode\n",
     R"(Lists the functions of each file with their parameters, and nothing else.

    tly -l main.c
)"},
    {"m", "  * Macro Mode\n",
     R"(Shows each #define that takes parameters, by its name.  With -n, notices
inside it stand between its begin and its end.

    tly -m util.h
)"},
    {"N", "  * Quality Notice Format Mode\n",
     R"(Quality notices in a short form, file by file.

    -Ns   A single line for each notice.
    -Nv   A single line that begins with file and line, for an editor; see
          Operation Step by Step.

    tly -Nv -Tn main.c

Alone, -N raises no notices of functions and classes; see -n.
)"},
    {"n", "  * Quality Notice Mode\n",
     R"(Quality notices in their long form, where they are raised, and the
quality profile of the project.  With the setting "Reorder notice, line in
quality notices" the line stands in front of the number.  The exit status
is the number of notices; see Program Operation for its limit of 8 bits.

    tly -n -o main.c

Alone, -n raises the notices of lines and files; those of functions need
-fa, those of functions and classes -o, those of the tree -i.
)"},
    {"O", "  * Output Report to a file\n",
     R"(The report is written to a file.  A source file is never overwritten:
a name that is one of an existing source file is refused.

    tly -fa -Oreport.txt main.c
)"},
    {"o", "  * Object Class/Struct Metrics\n",
     R"(A block for each class, struct, interface and namespace or package, with
its attributes and methods, and the summaries of the project.

    tly -o -c -r"java ."
)"},
    {"pBMPL", "  Print Format, Code Listing Mode\n",
     R"(Prints the sources with line numbers, page by page, and measures nothing.
Long lines are folded.  Pages, with numbers and form feeds, need the
setting "Page breaks in code print format"; it is off at first, and in
HTML there are none.

    -B1   Top margin, lines
    -M5   Left margin, columns
    -P55  Page length, lines; -P-1 prints without pages
    -L80  Line length, columns, at least 20

    tly -p -L100 main.c | lpr
)"},
    {"R", "  * Read File Processing Options\n",
     R"(    -Rd   Do not descend into directories below the one of -r.
    -Rl   Only list the files that would be read.
    -Rn   Sort the files by name.

    tly -Rl -Rn -r"c,h ."
)"},
    {"r", "  * Recursive Descent Mode\n",
     R"(All files with the given extensions in a directory and all below it.

    tly -s -r"h,cpp,java /my project"
    tly -s -r"c,h ."
)"},
    {"s", "  * Summary Mode\n",
     R"(The lines of each file and of the project.  This summary is always shown;
behind -C, -s makes one CSV line per file of it; see -C for its columns of
functions.

    tly -C -s -r"c,h ."
)"},
    {"S", "  String Title\n",
     R"(A title in the head of the report.

    tly -S"Release 2" -fa main.c
)"},
    {"T", "  * Totals Only Mode\n",
     R"(Reports of the project without the blocks of each file.  The exit status
is the number of notices, whichever letter it is.

    -Ta   All totals; the notices themselves need -Tq besides
    -Td   A block for each file, with function points and notices
    -Tf   Functions
    -Ti   Inheritance tree
    -Tl   Summaries of functions and classes, without their lists
    -TL   Languages
    -Tn   Quality notices by file
    -TN   No names of files
    -To   Classes, interfaces and namespaces
    -Tp   Quality profile
    -Tq   Summary of the quality notices by file
    -Ts   Lines of the project
    -Tv   Keywords
    -Tw   For -w"x ...": profile and totals without the list of files

    tly -Tf -To -Tl -r"cpp,h ."
)"},
    {"v", "  * Verbose Mode\n",
     R"(Counts of all keywords and constructs of each file and of the project.

    tly -v main.c
)"},
    {"wW", "  Work Analysis Based on Baseline Metric Differentials\n",
     R"(A baseline is a small text file, the work file, with the figures of each
source file.  With -wd, one number per line of code stands beside it, in
the directory with the same name and .dif behind it.  Two baselines are
compared without the sources.

    -w"Create dir"     Make a baseline; dir is the top directory, so that
                       names are kept below it
    -w"File dat name"  The name of the work file
    -wd                With Create: keep the codes of lines.  With x:
                       compare line by line
    -wv                Show the files with the codes of lines
    -wD                Show the codes of lines, make no baseline

    -w"x old, new"     Compare two baselines; switches go in front of it
    -w"File cfg name"  The columns of this report
    -we -wr -wm -wn    Leave out equal, removed, modified, new files
    -ws                With -wd: show the lines that differ
    -wp                Productivity: what was done per hour, week, month
    -wb                How the working time was reckoned
    -wg                A glossary at the end

    tly -w"Create /proj" -wd -w"File dat one.dat" -r"c,h /proj"
    tly -w"Create /proj" -wd -w"File dat two.dat" -r"c,h /proj"
    tly -wd -wg -w"x one.dat, two.dat"

A file is New, Rem (removed), Equ (equal), and changed otherwise.  Without
-wd it is a Mod: its figures are those of the newer file less those of
the older, so that ten lines replaced by ten others don't show.  With -wd
it is a Dif: its figures are the lines that are new or changed, each line
counted once, and its equal lines stand in a line of their own.  The
setting "Add removed older lines as modified" counts removed lines too.

Files of the same name are a pair; of those that are left, names that
differ in case alone are, unless the setting "Source file names are case
sensitive" says Yes.  A file whose codes of lines are lost, cut short or
damaged is told by name: it is a Dif by its figures, and never Equ.  A
baseline without -wd is told once, and its files go by their figures.

Without a name the work file is called after the day, as in
WorkFile_11182026.dat.  The newest baseline is also kept as workfile.dat
in the same directory.  A run that fails leaves the older baseline as it
was.  A baseline can be moved together with its directory.  Both baselines
must be made with the same settings for blank lines and white space.

-ws shows only what the settings "Show equal lines", "Show lines removed
from older file" and "Show lines added (mod) to newer file" ask for: all
three are off at first.  -wp needs an hour of work or more.  The older
switches -wW and -W have become -w"x old, new".
)"},
    {"X", "  * XML File Output Format\n",
     R"(Reports of the project as an XML document.  -Ta lists no notices, -Tq
does; -i shows no tree, -Ti does.

    tly -X -Ta -Tq -Oreport.xml -r"java ."
)"},
    {"x", "  Extended Option Mode\n",
     R"(    -xNOCONFIG    The head of the report without the names of its settings
    -xNOCOMMAND   The head without the command line
    -xNOHEADER    No head; what programs read in CSV and XML stays
    -xNOWRAP      Long names are not wrapped
    -xMODERN      Read today's C++, C#, Java: see Source File Requirements
    -xUDQNSHOW    Show your own quality notices with their sample tests
    -xUDQNKEYS    Show the keys of a file of your own quality notices
    -xDEBUG       Show how each line was read
    -xDIFFDEBUG   Show how two baselines were compared
    -xc           Print a template for a CSV report of your own
    -x"File csv name"  Print the CSV report that the file describes

The CSV report of your own has one line of labels and one line per file,
with the columns that are on in the file.  A line of the file turns its
column on when its first word is the key, in capitals, and its second one
is ON.  Columns stand in the order of these lines:

    FILE_NAME               ON
    QUALITY_NOTICE_COUNT    ON
    LOC_COUNT               ON

-xc prints a template with all keys.  It has a colon as the second word of
each line, so that nothing is on until it is edited; this takes the colons
out, and the last four keys, which have no value for a file:

    tly -xc | sed '/_COMPLEXITY\|_DIFF/d; s/ *: / /' > my.cfg
    tly -x"File csv my.cfg" -r"c,h ." > my.csv

Keys that don't begin with a letter or a digit, as (_COUNT, can't be
chosen.  Messages go to the error output, so that the report holds nothing
but its lines.
)"},
    {"yuq", "  TLY Configuration Parameters\n",
     R"(Prints all settings that hold, in the form of tly.cfg: a template to edit.
Don't send it to the tly.cfg in use, which the shell empties before tly can
read it.

    tly -y > new.cfg

    -u"File CFG name"  Reads a second configuration over the first, when
                       "Enable user defined configuration files" says so
    -u"File XSL name"  Names the style sheet of an XML report

The older switch -q has become the file tly.cfg.
)"},
};

} // namespace

const std::span<const SwitchEntry> kSwitchEntries = kEntries;
