// What a page is made of is read here: one project in full, of other runs their figures.
#include "page.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>

#include "output.h"
#include "read_project.h"
#include "tell.h"

namespace {

// Remarks go to stderr.
bool Load(const std::vector<std::string> &inputs, const Options &options, Model &m) {
    std::string error;
    if (!ReadFigures(inputs, options.root, m, error)) {
        Tell(error);
        return false;
    }
    for (const std::string &remark : m.remarks) {
        Tell(remark);
    }
    return true;
}

// The file's name without directory and extension.
std::string NameOf(const std::string &path) {
    return std::filesystem::path(path).stem().string();
}

// --before is a comparison of baselines, or any other input.
bool LoadBefore(const Options &options, PageInput &in) {
    if (options.before != "-") {
        std::FILE *file = fopen(options.before.c_str(), "rb");
        if (!file) {
            Tell(options.before + ": " + strerror(errno) + ". Name an earlier XML or JSON, or a comparison of baselines.");
            return false;
        }
        Comparison comparison;
        std::string error;
        const CompareRead read = ReadComparison(file, options.before, comparison, error);
        fclose(file);
        if (read == CompareRead::kFailed) {
            Tell(error);
            return false;
        }
        if (read == CompareRead::kRead) {
            for (const std::string &remark : comparison.remarks) {
                Tell(options.before + ": " + remark);
            }
            in.comparison = std::move(comparison);
            return true;
        }
    }
    Model m;
    if (!Load({options.before}, options, m)) {
        return false;
    }
    in.before = FiguresOf(m, NameOf(options.before));
    return true;
}

// The XML and JSON files right in a directory, by name.
bool ListRuns(const std::string &directory, std::vector<std::string> &paths) {
    std::error_code failure;
    for (std::filesystem::directory_iterator at(directory, failure), end; !failure && at != end; at.increment(failure)) {
        const std::string extension = at->path().extension().string();
        std::error_code ignored;
        if ((extension == ".xml" || extension == ".json") && at->is_regular_file(ignored)) {
            paths.push_back(at->path().string());
        }
    }
    if (failure) {
        Tell(directory + ": " + failure.message() + ". Name a directory with the XML or JSON of several runs.");
        return false;
    }
    if (paths.empty()) {
        Tell(directory + ": it has no .xml or .json file. Keep the XML or JSON of each run there.");
        return false;
    }
    std::ranges::sort(paths);
    return true;
}

// A run that is kept in the directory as well, or was copied there.
bool IsSame(const RunFigures &a, const RunFigures &b) {
    return a.order != 0 && a.date == b.date && a.files == b.files && a.lines.loc == b.lines.loc && a.lines.lines == b.lines.lines &&
           a.notices == b.notices;
}

// The runs of the directory, and the one that the page is about unless it is among them.
bool LoadTrend(const Options &options, PageInput &in) {
    std::vector<std::string> paths;
    if (!ListRuns(options.trend, paths)) {
        return false;
    }
    for (const std::string &path : paths) {
        Model m;
        if (!Load({path}, options, m)) {
            return false;
        }
        in.trend.push_back(FiguresOf(m, NameOf(path)));
    }
    if (std::ranges::none_of(in.trend, [&in](const RunFigures &run) { return IsSame(run, in.now); })) {
        in.trend.push_back(in.now);
    }
    std::ranges::stable_sort(in.trend, {}, &RunFigures::order);
    return true;
}

} // namespace

int RunPage(const Options &options) {
    Model m;
    if (!Load(options.inputs, options, m)) {
        return kBad;
    }
    PageInput in{m, FiguresOf(m, "now"), {}, {}, {}};
    if ((!options.before.empty() && !LoadBefore(options, in)) || (!options.trend.empty() && !LoadTrend(options, in))) {
        return kBad;
    }
    return WriteOutput(options.output, [&in](std::FILE *out) { return WritePage(in, out); });
}
