// Writing a baseline: the work file with its head and records, and the end of the run, where it takes its place.
#include "baseline/work_file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <ctime>
#include <string>
#include <unistd.h>

#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"
#include "run/program_files.h"
#include "run/same_file.h"

namespace {

constexpr const char *kLatest = "workfile.dat"; // a copy of the baseline made last
constexpr int kNameWidth = 52;                  // of the work file's name in the report, and where it goes on
constexpr int kNameIndent = 22;

// A path of the settings: one that begins like a path. Anything else means the current directory.
bool IsPath(const char *path) {
    return IsLetterOrDigit(*path) || *path == '.' || *path == '/';
}

// WorkFile_11182026.dat: one a day.
void NameByDate(Globals *G) {
    const time_t now = time(nullptr);
    struct tm day {};
    char date[32] = "";
    if (localtime_r(&now, &day)) {
        strftime(date, sizeof date, "%m%d%Y", &day);
    }
    ClearText(G->work_file_name);
    if (IsPath(G->work_file_path) || *G->work_file_path == '\\') {
        CopyText(G->work_file_name, G->work_file_path);
        EndWithSlash(G->work_file_name);
    }
    char name[64];
    FormatText(name, "WorkFile_%s.dat", date);
    AppendText(G->work_file_name, name);
}

void TellOfWorkFile(Globals *G) {
    LineText name;
    AdjNameLength(G->work_file_name, name, kNameWidth, kNameIndent, G);
    switch (OutputMode(G)) {
    case Mode::kHtml: PrintHtml(G, "  <b><font color=\"%{header}\">Creating Work File</font></b>: %s\n", Shown{name}); break;
    case Mode::kCsv: break;
    default: Message(G, "\n  Creating Work File: %s\n", name);
    }
}

void WriteHead(FILE *stream, const Globals *G) {
    fprintf(stream, "Tallyline Work File\nDO NOT EDIT - This is a Generated File\n%s\n%ld\n", G->version,
            static_cast<long>(time(nullptr)));
    fprintf(stream, "Ignore Blank Lines: %d\nIgnore White Space: %d\n", G->diff_ignore_blank, G->diff_ignore_white);
}

// Tells once that the work file can't be written.
void FailWorkFile(int error, Globals *G) {
    if (!G->baseline_failed) {
        Message(G, "\n  Write File Error: %s - %s\n", G->work_file_name, strerror(error));
    }
    G->baseline_failed = 1;
}

// The name as the record holds it: below the top directory of the baseline, if the file is there.
const char *RecordName(const Globals *G) {
    const char *name = G->file_name;
    const size_t length = strlen(G->top_dir);
    if (!G->relative_work_files || length == 0 || strcmp(G->top_dir, ".") == 0 || strncmp(name, G->top_dir, length) != 0) {
        return name;
    }
    name += length;
    name += *name == '/' || *name == '\\';
    return *name ? name : G->file_name;
}

// Line records and work file, one right behind the other: all that can fail or takes time has been done before.
bool PutInPlace(Globals *G) {
    FILE *stream = G->work_file;
    if (fflush(stream) != 0 || fsync(fileno(stream)) != 0) {
        FailWorkFile(errno, G);
        return false;
    }
    const int exchange = G->diff_beside.has_beside;
    if (exchange && !ExchangeDirectory(&G->diff_beside)) {
        Message(G, "\n  Write File Error: %s - %s\n", G->diff_data_path, strerror(errno));
        return false;
    }
    G->work_file = nullptr;
    if (CommitReplacement(&G->work_beside, 0)) {
        return true;
    }
    FailWorkFile(errno, G);
    if (exchange) {
        ExchangeDirectory(&G->diff_beside);
    }
    return false;
}

void CopyLatest(Globals *G) {
    PathText latest = "";
    if (IsPath(G->work_file_path)) {
        CopyText(latest, G->work_file_path);
        EndWithSlash(latest);
    }
    AppendText(latest, kLatest);
    if (IsReport(latest, G)) {
        Message(G, "\n  Error: Failed to create/open the file %s\n         %s\n", latest, strerror(EBUSY));
        G->baseline_lacking = 1;
    } else if (!IsSameFile(latest, G->work_file_name)) { // "File dat base/workfile.dat" is the latest one itself
        G->baseline_lacking |= FileCopy(latest, G->work_file_name, G) < 0;
    }
}

} // namespace

int ClampToInt(int64_t number) {
    return static_cast<int>(std::clamp<int64_t>(number, INT_MIN, INT_MAX));
}

// The metrics that are lines; the others are 0.
static WorkMetrics LineMetrics(const LineCounts &lines) {
    WorkMetrics metrics{};
    metrics.of[kWorkLoc] = lines.loc;
    metrics.of[kWorkEloc] = lines.eloc;
    metrics.of[kWorkLloc] = lines.lloc;
    metrics.of[kWorkComments] = lines.comments;
    metrics.of[kWorkBlanks] = lines.blanks;
    metrics.of[kWorkLines] = lines.lines;
    return metrics;
}

WorkMetrics MetricsOf(const WorkData *file) {
    WorkMetrics metrics = LineMetrics(*file);
    metrics.of[kWorkFunctions] = file->functions;
    metrics.of[kWorkCyclo] = file->cyclo;
    metrics.of[kWorkInterface] = file->interface;
    metrics.of[kWorkTotalComplexity] = file->complexity;
    metrics.of[kWorkNotices] = file->notices;
    metrics.of[kWorkSize] = file->params;
    return metrics;
}

int AddWorkNode(const char *name, int64_t date, const WorkMetrics &metrics, int state, float diff_pct, bool hidden,
                const char *diff_file, Llist *list, Globals *G) {
    int of[kWorkMetrics];
    std::transform(std::begin(metrics.of), std::end(metrics.of), of, ClampToInt);
    constexpr int kSortNot = 0;
    WorkData record{};
    static_cast<LineCounts &>(record) = {of[kWorkLoc],      of[kWorkEloc],   of[kWorkLloc],
                                         of[kWorkComments], of[kWorkBlanks], of[kWorkLines]};
    record.name = const_cast<char *>(name); // texts are copied
    record.diff_file = const_cast<char *>(diff_file);
    record.date = date;
    record.params = metrics.of[kWorkSize];
    record.cyclo = of[kWorkCyclo];
    record.returns = state;
    record.notices = of[kWorkNotices];
    record.interface = of[kWorkInterface];
    record.complexity = of[kWorkTotalComplexity];
    record.functions = of[kWorkFunctions];
    record.hidden = hidden;
    record.percent = diff_pct;
    return AddListNode(kSortNot, record, list, G);
}

FILE *CreateWorkFile(Globals *G) {
    if (*G->work_file_name == '\0' || strcmp(G->work_file_name, kLatest) == 0) {
        NameByDate(G);
    }
    const bool report = IsReport(G->work_file_name, G); // the report of -O can't be the baseline too
    if (report || !BeginReplacement(G->work_file_name, &G->work_beside)) {
        Message(G, "\n  Create File Error: %s - %s\n", G->work_file_name, strerror(report ? EBUSY : errno));
        return nullptr;
    }
    TellOfWorkFile(G);
    WriteHead(G->work_beside.stream, G);
    return G->work_beside.stream;
}

void WorkLine(FILE *stream, const char *name, long date, const WorkMetrics &metrics, const char *diff_name) {
    const auto in_one_line = [](std::string text) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    };
    const auto of = [&metrics](WorkMetric metric) { return ClampToInt(metrics.of[metric]); };
    fprintf(stream, "%s| %ld %d %d %d %d %d %d %d %d %d %d %d %s\n", in_one_line(name).c_str(), date, of(kWorkSize), of(kWorkLoc),
            of(kWorkEloc), of(kWorkComments), of(kWorkBlanks), of(kWorkLines), of(kWorkLloc), of(kWorkCyclo), of(kWorkNotices),
            of(kWorkInterface), of(kWorkFunctions), in_one_line(diff_name ? diff_name : "").c_str());
}

void WriteWorkRecord(const FileData *file, Globals *G) {
    constexpr size_t kNumbers = 12 * 12; // a date may take more digits, the others don't
    const char *name = RecordName(G);
    const char *diff_name = G->record_line ? G->diff_file_rel : "";
    if (strlen(name) + strlen(diff_name) + kNumbers >= sizeof(LineText)) {
        Message(G, "\n  Error: File name too long for the work file: %s\n", name);
        G->baseline_lacking = 1;
        return;
    }
    WorkMetrics metrics = LineMetrics(*file);
    metrics.of[kWorkFunctions] = file->functions;
    metrics.of[kWorkCyclo] = file->cyclo;
    metrics.of[kWorkInterface] = int64_t{file->params} + file->returns;
    metrics.of[kWorkNotices] = G->notice_count;
    metrics.of[kWorkSize] = file->size;
    WorkLine(G->work_file, name, static_cast<long>(file->date), metrics, diff_name);
    if (ferror(G->work_file)) {
        FailWorkFile(errno, G);
    }
}

void CloseWorkFile(Globals *G) {
    if (!G->work_file) {
        return;
    }
    const bool placed = !G->baseline_failed && PutInPlace(G);
    if (!placed) {
        Message(G,
                "\n  Error: The work file could not be written whole and is not kept: %s\n"
                "         A work file that was there before stands as it was\n",
                G->work_file_name);
        AbandonReplacement(&G->work_beside);
        G->work_file = nullptr;
        G->baseline_lacking = 1;
    }
    // what stands beside now: the line records of the baseline before, or those of this one if it failed
    if (!RemoveBeside(&G->diff_beside, ".dif")) {
        Message(G, "\n  Error: Files had to stay in the directory %s\n         %s\n", G->diff_beside.beside, strerror(errno));
    }
    if (placed) {
        CopyLatest(G);
    }
}
