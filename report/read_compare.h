// Comparisons of two stored baselines: what "tly -X -w"x OLD, NEW"" writes.
#pragma once

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

// The metrics of a comparison, in the order of its report. A report may leave any of them out.
struct CompareMetric {
    const char *tags[2]; // the XML names; the second may be null
    const char *name;
};
inline constexpr CompareMetric kCompareMetrics[] = {
    {{"files", "file_count"}, "Files"},
    {{"loc", nullptr}, "Lines of code"},
    {{"eloc", nullptr}, "Effective lines of code"},
    {{"lloc", nullptr}, "Logical lines of code"},
    {{"comments", nullptr}, "Comment lines"},
    {{"blanks", nullptr}, "Blank lines"},
    {{"lines", nullptr}, "Physical lines"},
    {{"function_count", nullptr}, "Functions"},
    {{"cyclomatic_complexity", nullptr}, "Cyclomatic complexity"},
    {{"interface_complexity", nullptr}, "Interface complexity"},
    {{"total_complexity", nullptr}, "Total complexity"},
    {{"notices", "quality_notices"}, "Notices"},
};

// Signed: a removed file may count negative. Without a value: not in the input.
using CompareFigures = std::array<std::optional<int64_t>, std::size(kCompareMetrics)>;

struct Baseline {
    std::string name; // of its work file
    std::string date; // when it was made
    CompareFigures totals;
};

// A file that isn't equal.
enum class FileState : uint8_t { kAdded, kChanged, kRemoved };
struct ComparedFile {
    FileState state = FileState::kChanged;
    std::string path;
    CompareFigures figures;
};

struct Comparison {
    Baseline older;
    Baseline newer;
    bool by_lines = false; // changed files were compared line by line: what counts is lines touched, else the change of size
    CompareFigures added;
    CompareFigures removed;
    CompareFigures changed;
    CompareFigures equal;
    std::vector<ComparedFile> files;  // as the report has them
    std::vector<std::string> remarks; // what tly warns of
};

enum class CompareRead { kRead, kOther, kFailed };

// Reads a stream of any size, which isn't closed; name is for messages. kOther: it is something else, and in may stand anywhere;
// what else it is, or what is wrong with it, is for ReadProject to tell. kFailed: a comparison that is cut or tells an error of
// tly's, with a message of whole sentences in error.
CompareRead ReadComparison(std::FILE *in, const std::string &name, Comparison &comparison, std::string &error);
