// One row per command.
#include <cstdio>

#include "formats.h"
#include "options.h"
#include "output.h"
#include "read_project.h"
#include "run.h"
#include "write_json.h"

namespace {

// What every report begins with. Remarks go to stderr.
bool Load(const Options &options, Model &m) {
    std::string error;
    if (!ReadProject(options.inputs, options.root, m, error)) {
        fprintf(stderr, "tly-report: %s\n", error.c_str());
        return false;
    }
    for (const std::string &remark : m.remarks) {
        fprintf(stderr, "tly-report: %s\n", remark.c_str());
    }
    return true;
}

int RunJson(const Options &options) {
    Model m;
    if (!Load(options, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&m](std::FILE *out) { return WriteJson(m, out); });
}

int RunSarif(const Options &options) {
    Model m;
    if (!Load(options, m)) {
        return kBad;
    }
    return WriteOutput(options.output, [&m](std::FILE *out) { return WriteSarif(m, kMostResults, out); });
}

} // namespace

const Command kCommands[] = {
    {"run", "measure sources with tly, several at once, into one XML", RunTly},
    {"json", "all figures as JSON, for programs and for later comparison", RunJson},
    {"sarif", "notices as SARIF 2.1.0, for code scanning services and editors", RunSarif},
    {nullptr, nullptr, nullptr},
};
