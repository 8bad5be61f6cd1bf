// The two commits are measured one after the other in one place, so that every path is the same on both sides.
#include "between.h"

#include <cstdio>
#include <xxhash.h>

#include "measure_tree.h"
#include "output.h"
#include "page.h"
#include "run.h"
#include "scratch.h"
#include "tell.h"
#include "text_lines.h"

namespace {

bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// What of a source is no white space, and where in it each line begins; one more for the end.
struct Packed {
    std::string text;
    std::vector<size_t> lines{0};
};

bool Pack(const std::string &path, Packed &packed) {
    std::FILE *in = fopen(path.c_str(), "rbe");
    if (!in) {
        return false;
    }
    char piece[64 * 1024];
    for (size_t length; (length = fread(piece, 1, sizeof piece, in)) > 0;) {
        for (size_t i = 0; i < length; ++i) {
            if (piece[i] == '\n') {
                packed.lines.push_back(packed.text.size());
            } else if (!IsBlank(piece[i])) {
                packed.text += piece[i];
            }
        }
    }
    packed.lines.push_back(packed.text.size());
    const bool whole = !ferror(in);
    fclose(in);
    return whole;
}

std::vector<uint64_t> HashBodies(const Model &m, const std::string &root) {
    std::vector<uint64_t> bodies(m.functions.size());
    Packed source;
    bool readable = false;
    for (size_t f = 0; f < m.functions.size(); ++f) {
        const FunctionRow &function = m.functions[f];
        if (f == 0 || function.file != m.functions[f - 1].file) {
            source = {};
            readable = Pack(root + std::string(m.texts[m.files[function.file].path]), source);
        }
        const auto end = static_cast<size_t>(function.end_line);
        if (readable && end < source.lines.size()) {
            const size_t from = source.lines[static_cast<size_t>(function.first_line) - 1];
            bodies[f] = XXH3_64bits(source.text.data() + from, source.lines[end] - from);
        }
    }
    return bodies;
}

// What a tree hasn't although its commit has.
void TellLeftOut(const Commit &commit, const Tree &tree) {
    if (tree.files.empty()) {
        Tell(commit.name + ": it has no sources of C, C++, C# or Java there.");
    }
    if (tree.links > 0) {
        Tell(commit.name + ": " + Counted(tree.links, "symbolic link") + " passed over.");
    }
    if (!tree.submodules.empty()) {
        std::string first;
        AppendShown(first, tree.submodules.front());
        Tell(commit.name + ": " + Counted(tree.submodules.size(), "submodule") + " left out (" + first + "): run it there.");
    }
}

bool Measure(const Options &options, const Repository &repository, const char *baseline, Tree &tree, Side &side) {
    std::string error;
    if (!CheckOut(repository, side.commit, tree, error)) {
        return Tell(error);
    }
    TellLeftOut(side.commit, tree);
    if (!MeasureTree(options, tree, true, side.m, error)) {
        return !error.empty() && Tell(error);
    }
    for (const std::string &remark : side.m.remarks) {
        Tell(side.commit.name + ": " + remark);
    }
    side.m.date = side.m.texts.Intern(side.commit.date);
    side.m.command = side.m.texts.Intern("tly-report between " + options.since + " " + options.until);
    side.bodies = HashBodies(side.m, RootOf(tree));
    return MakeBaseline(options, RootOf(tree), tree.place, baseline) == kFine;
}

bool ReadCompared(const std::string &path, const Tree &tree, Between &b) {
    std::FILE *in = fopen(path.c_str(), "rbe");
    std::string error = "tly didn't compare the two.";
    const bool read = in && ReadComparison(in, "the comparison", b.comparison, error) == CompareRead::kRead;
    if (in) {
        fclose(in);
    }
    b.comparison.older.name = b.older.commit.name;
    b.comparison.older.date = b.older.commit.date;
    b.comparison.newer.name = b.newer.commit.name;
    b.comparison.newer.date = b.newer.commit.date;
    for (ComparedFile &file : b.comparison.files) {
        if (file.path.starts_with(RootOf(tree))) { // by the settings, names in baselines are whole
            file.path.erase(0, RootOf(tree).size());
        }
    }
    return read || Tell(error);
}

int WritePages(const Options &options, const Between &b) {
    if (!options.page.empty()) {
        const PageInput in{
            b.newer.m, FiguresOf(b.newer.m, b.newer.commit.name), FiguresOf(b.older.m, b.older.commit.name), b.comparison, {}};
        const int written = WriteOutput(options.page, [&in](std::FILE *out) { return WritePage(in, out); });
        if (written != kFine) {
            return written;
        }
    }
    return WriteOutput(options.output, [&](std::FILE *out) { return WriteBetween(b, static_cast<size_t>(options.count), out); });
}

} // namespace

int RunBetween(const Options &options) {
    if (options.since.empty()) {
        Tell("Name two commits: tly-report between OLD NEW.");
        return kBad;
    }
    return InScratch([&options](const std::string &place) {
        Repository repository;
        Between b;
        Tree tree{place};
        std::string error;
        if (!OpenRepository(options.paths, repository, error) || !FindCommit(repository, options.since, b.older.commit, error) ||
            !FindCommit(repository, options.until, b.newer.commit, error)) {
            Tell(error);
            return kBad;
        }
        const std::string compared = place + "compared.xml";
        if (!Measure(options, repository, "older.dat", tree, b.older) ||
            !Measure(options, repository, "newer.dat", tree, b.newer) ||
            CompareBaselines(options, place, "older.dat", "newer.dat", compared) != kFine || !ReadCompared(compared, tree, b)) {
            return kBad;
        }
        if (b.older.m.files.empty() && b.newer.m.files.empty()) {
            return kBad; // which was told
        }
        return WritePages(options, b);
    });
}
