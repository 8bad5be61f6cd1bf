// Reading a work file. Its lines come from outside: each is read as far as it makes sense, and none can do harm.
#include "baseline/work_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "report/forms.h"
#include "run/compare.h"
#include "run/globals.h"
#include "run/memory.h"
#include "run/read_lines.h"

namespace {

constexpr int kNumbers = 12;

enum { kTitle, kRemark, kVersion, kTime, kBlank, kWhite, kHeadLines };

// The metrics of the second to the twelfth number; the first is the date.
constexpr WorkMetric kInRecord[kNumbers - 1] = {kWorkSize, kWorkLoc,   kWorkEloc,    kWorkComments,  kWorkBlanks,   kWorkLines,
                                                kWorkLloc, kWorkCyclo, kWorkNotices, kWorkInterface, kWorkFunctions};

// Reads twelve numbers, each between white space. Returns what stands behind them; null if they aren't all there: then those that
// are have been read.
const char *ReadNumbers(const char *text, int64_t *numbers) {
    for (int i = 0; i < kNumbers; ++i) {
        const char *begin = SkipSpace(text);
        char *end;
        numbers[i] = ClampToInt(strtol(begin, &end, 10));
        if (begin == text || end == begin || !IsSpace(*end)) {
            return nullptr;
        }
        text = end;
    }
    return SkipSpace(text);
}

// Names may hold bars, and so may the name of the line records: the bar that ends the name is the last one that numbers follow.
// Returns what stands behind the numbers; null for no record.
const char *FindNumbers(const char *line, const char **bar, int64_t *numbers) {
    for (const char *p = line + strlen(line); p > line + 1;) {
        if (*--p != '|') {
            continue;
        }
        if (const char *rest = ReadNumbers(p + 1, numbers)) {
            *bar = p;
            return rest;
        }
    }
    return nullptr;
}

// Up to the bar, without a version behind the last dot: "module.c@@/main/3" is module.c.
bool TakeName(const char *line, const char *bar, LineText &name) {
    CopyPart(name, line, static_cast<size_t>(bar - line));
    char *dot = strrchr(name, '.');
    if (!dot || dot == name) {
        ClearText(name);
        return false;
    }
    char *at = strchr(dot, '@');
    if (at && at[1] == '@') {
        *at = '\0';
    }
    return true;
}

enum class Row { kEnd, kLine, kTooLong };

// Reads a line with its line end. A NUL ends the text of its line; of a line that is longer than the buffer nothing is kept.
Row ReadRow(FILE *file, LineText &line) {
    size_t length = 0;
    int c = getc_unlocked(file);
    if (c == EOF) {
        return Row::kEnd;
    }
    for (; c != EOF; c = getc_unlocked(file)) {
        if (length < sizeof line - 1) {
            line[length] = static_cast<char>(c);
        }
        length += length < sizeof line;
        if (c == '\n') {
            break;
        }
    }
    const bool whole = length < sizeof line;
    line[whole ? length : 0] = '\0';
    // what an editor or an old system left behind the last line is no text
    return c == EOF && static_cast<unsigned char>(*line) < 12 && whole ? Row::kEnd : whole ? Row::kLine : Row::kTooLong;
}

constexpr Forms<Shown, double, const char *, const char *> kOtherVersion{
    .text = "\n  WARNING: Work file version does not match the current version\n"
            "           of TLY .  Reprocess the work file with this version of TLY\n"
            "           Work File: %s\n             Version: %-5.2f\n             Program: %s\n             Version: %s\n\n",
    .html = "\n  WARNING: Work file version does not match the current version\n"
            "           of TLY .  Reprocess the work file with this version of TLY\n"
            "           Work File: %s\n             Version: %-5.2f\n             Program: %s\n             Version: %s\n\n",
    .csv = "\n  WARNING: Work file version does not match the current version\n"
           "           of TLY .  Reprocess the work file with this version of TLY\n"
           "           Work File: %s\n             Version: %-5.2f\n             Program: %s\n             Version: %s\n\n",
    .xml = "<warning>Work file version does not match the current version of TLY</warning>\n"};

void CheckVersion(const char *path, const char *line, Globals *G) {
    constexpr double kMost = 1e6; // a whole part that any int holds
    const double read = strtod(line, nullptr);
    const double version = read > -kMost && read < kMost ? read : 0.0;
    if (static_cast<long>(version) != strtol(G->version, nullptr, 10)) {
        Print(G, kOtherVersion, Shown{path}, version, "TLY", G->version);
    }
}

// "Ignore Blank Lines: 1"; 0 for a line that isn't this one.
int SettingOf(const char *line, const char *key) {
    const size_t length = strlen(key);
    return strncmp(line, key, length) == 0 ? ClampToInt(strtol(line + length, nullptr, 10)) : 0;
}

void ReadHead(FILE *file, const char *path, int64_t *time_out, int *ignore_blank_out, int *ignore_white_out, Globals *G) {
    LineText head[kHeadLines] = {};
    for (LineText &line : head) {
        if (ReadRow(file, line) == Row::kEnd) {
            break;
        }
    }
    CheckVersion(path, head[kVersion], G);
    *time_out = strtol(head[kTime], nullptr, 10);
    *ignore_blank_out = SettingOf(head[kBlank], "Ignore Blank Lines:");
    *ignore_white_out = SettingOf(head[kWhite], "Ignore White Space:");
}

int ReadRecords(FILE *file, const char *path, Llist *list, Globals *G) {
    LineText line;
    WorkRecord record;
    int number = kHeadLines;
    for (Row row; (row = ReadRow(file, line)) != Row::kEnd;) {
        ++number;
        if (row == Row::kTooLong) {
            Message(G, "  Error: Loading Work File: %s\n         Line %d of more than %d characters is left out\n", path, number,
                    static_cast<int>(sizeof line) - 1);
            continue;
        }
        if (*SkipSpace(line) == '\0') {
            continue;
        }
        if (!ParseWorkLine(line, &record)) {
            Message(G,
                    "  Error: Loading Work File: %s\n         Line %d is cut short or damaged, not all of its metrics are there\n",
                    path, number);
        }
        if (!AddWorkNode(record.name, record.date, record.metrics, kStateUnprocessed, 0.0F, false, record.diff_name, list, G)) {
            return 0;
        }
    }
    return LlistSort(list, CompName_NodeData, G->sort_descending);
}

void TellOfLoad(const char *path, int error, Globals *G) {
    Message(G,
            "  Error: Loading Work File: %s\n"
            "         Use the -wc option to create a base work file\n"
            "         %s\n",
            path, strerror(error));
}

} // namespace

int ParseWorkLine(const char *line, WorkRecord *out) {
    ClearText(out->name);
    ClearText(out->diff_name);
    out->date = 0;
    out->metrics = {};
    int64_t numbers[kNumbers] = {};
    const char *bar;
    const char *const rest = FindNumbers(line, &bar, numbers);
    if (!rest) {
        bar = strrchr(line, '|');
        std::fill(std::begin(numbers), std::end(numbers), 0);
        ReadNumbers(bar ? bar + 1 : "", numbers);
    }
    if (!bar || !TakeName(line, bar, out->name)) {
        return 0;
    }
    out->date = numbers[0];
    for (int i = 1; i < kNumbers; ++i) {
        out->metrics.of[kInRecord[i - 1]] = numbers[i];
    }
    out->metrics.of[kWorkTotalComplexity] = ClampToInt(out->metrics.of[kWorkCyclo] + out->metrics.of[kWorkInterface]);
    if (rest) {
        CopyPart(out->diff_name, rest, strcspn(rest, "\r\n"));
    }
    return rest != nullptr;
}

int LoadWorkFile(const char *path, int64_t *time_out, Llist *list, int *ignore_blank_out, int *ignore_white_out, Globals *G) {
    *time_out = 0;
    *ignore_blank_out = *ignore_white_out = 0;
    FILE *file = OpenRegularFile(path);
    if (!file) {
        TellOfLoad(path, errno, G);
        return 0;
    }
    ReadHead(file, path, time_out, ignore_blank_out, ignore_white_out, G);
    errno = 0;
    const int loaded = ReadRecords(file, path, list, G);
    if (!loaded) {
        MemoryError(G);
    }
    const int failed = ferror(file);
    fclose(file);
    if (failed) {
        TellOfLoad(path, EIO, G);
    }
    return loaded && !failed;
}
