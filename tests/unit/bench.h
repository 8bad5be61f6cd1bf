// What the unit tests share: a state record, the text that a report writes, a directory of its own, a few questions to a text.
#pragma once

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include "run/driver/teardown.h"
#include "run/globals.h"
#include "run/mode.h"

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

// Every opened element is closed in its order, and no "&" stands raw.
inline bool WellFormed(const std::string &xml) {
    std::string open;
    for (size_t i = 0; (i = xml.find_first_of("<&", i)) != std::string::npos; ++i) {
        const size_t begin = i;
        i = xml.find(xml[begin] == '<' ? '>' : ';', begin);
        const std::string tag = xml.substr(begin, i - begin);
        if (i == std::string::npos || (tag.starts_with("</") && !open.ends_with("<" + tag.substr(2)))) {
            return false;
        }
        if (tag.starts_with("</")) {
            open.resize(open.size() - tag.size() + 1);
        } else if (tag[0] == '<') {
            open += tag;
        } else {
            i = begin;
        }
    }
    return open.empty();
}
