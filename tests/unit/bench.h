// What the unit tests share: a state record, the text that a report writes, a directory of its own, a few questions to a text.
#pragma once

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "config/languages.h"
#include "files/source_reader.h"
#include "run/driver/teardown.h"
#include "run/globals.h"
#include "run/mode.h"
#include "text_source.h"

// A state record, 0 all over, and all that hangs on it.
struct StateBench {
    std::unique_ptr<Globals, void (*)(Globals *)> owner{static_cast<Globals *>(calloc(1, sizeof(Globals))), FreeGlobals};
    Globals *G = owner.get();

    StateBench() { G->teardown = FreeGlobals; }
    void SetMode(Mode mode) const {
        G->html_mode = mode == Mode::kHtml;
        G->csv_mode = mode == Mode::kCsv;
        G->xml_mode = mode == Mode::kXml;
    }
};

inline constexpr Mode kModes[] = {Mode::kText, Mode::kHtml, Mode::kCsv, Mode::kXml};

// What act writes to the report.
template <class Act> std::string Written(Act act) {
    char *text = nullptr;
    size_t size = 0;
    FILE *const before = gTLYOUT;
    gTLYOUT = open_memstream(&text, &size);
    act();
    fclose(gTLYOUT);
    gTLYOUT = before;
    const std::unique_ptr<char, void (*)(void *)> buffer(text, free);
    return {text, size};
}

inline void WriteText(const std::string &path, const std::string &text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadText(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct TempDir {
    char path[32] = "/tmp/tly_test_XXXXXX";
    TempDir() { REQUIRE(mkdtemp(path)); }
    ~TempDir() {
        std::error_code error;
        std::filesystem::remove_all(path, error);
        CHECK(!error);
    }
    TempDir(const TempDir &) = delete;
    std::string operator/(const std::string &name) const { return std::string(path) + "/" + name; }
};

inline bool Has(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

// A line that stands in no file, as the reader would hand it out.
struct TextLine {
    std::string room;
    std::vector<ByteMasks> masks;
    SourceLine line;

    explicit TextLine(const std::string &text)
        : room(std::string(2, '\0') + text + std::string(2 * kMaskBytes + kBytesBehind, '\0')),
          masks(text.size() / kMaskBytes + 2) {
        BestClassifier(MaskUse::kCode)(room.data() + 1, text.size() + 1, masks.data());
        const int length = static_cast<int>(text.size());
        line = {room.data() + 2, length, length, 1, masks.data()};
    }
};

constexpr int kNone = -1; // no language at all

// A state record at the head of a source, functions and classes wanted, reports as short as they can be.
struct SourceBench : StateBench {
    static inline std::string letters;

    explicit SourceBench(int language = kCpp) {
        G->file_name = "bench";
        G->tab_width = 2;
        G->head_written = G->totals_only = 1;
        G->function_metrics = G->object_metrics = 1;
        G->cyclo_function_call = G->cyclo_if = G->cyclo_case = 1;
        G->max_line_length = kMaxPiece;
        G->max_cyclo = G->max_interface = G->max_return_points = G->max_scope_depth = 100;
        Begin(language);
    }

    // Behind the source in hand: the next one.
    void Begin(int language) const {
        ResetState(G);
        G->record_line = [](char letter, const char *, Globals *g) {
            letters.resize(g->file_line_no - 1, '.');
            letters += letter;
        };
        G->is_c = language == kC;
        G->is_cpp = language == kCpp;
        G->is_java = language == kJava;
        G->is_cs = language == kCs;
        G->is_other = language == kOther;
    }

    // Scans the text, as a run does a file. Returns one letter per line, that of its type; "." for a line without one.
    std::string Feed(const std::string &text) const {
        const TextSource source(text);
        letters.clear();
        ScanSource(source.reader.get(), G);
        letters.resize(G->file_line_no, '.');
        return letters;
    }

    // One line per function: "f(int a) template<T> l3".
    std::string Functions() const {
        std::string dump;
        for (const FunctionData *f : Records<FunctionData>(G->function_list)) {
            dump += f->name + std::string(f->parameters ? f->parameters : "") +
                    (f->template_line ? std::string(" ") + f->template_line : "") + " l" + std::to_string(f->loc) + "\n";
        }
        return dump;
    }

    // One line per class and interface: "struct nested A::B template<T> : C,D 2 d123 m001 l3": parents, data and methods (public,
    // protected, private), lines of code.
    std::string Classes() const {
        std::string dump;
        for (const Llist *list : {&G->class_list, &G->interface_list}) {
            for (const ClassData *node : Records<ClassData>(*list)) {
                const auto behind = [](const char *lead, const char *text) { return text ? lead + std::string(text) : ""; };
                char figures[128];
                snprintf(figures, sizeof figures, "%.0d d%d%d%d m%d%d%d l%d\n", node->parents, node->public_data,
                         node->protected_data, node->private_data, node->public_methods, node->protected_methods,
                         node->private_methods, node->loc);
                dump += std::string(node->is_struct ? "struct " : "") + (node->nesting ? "nested " : "") + node->name +
                        behind(" ", node->template_line) + behind(" : ", node->inherit_line) + (node->parents ? " " : "") + figures;
            }
        }
        return dump;
    }
};
