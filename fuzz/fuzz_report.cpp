// The readers of tly-report on hostile XML and JSON, in turn with the writers: what was read is written, read again and written
// again, and both texts must be the same; every other form is written too, and those that keep fingerprints are read for them. It
// also becomes a page, beside itself as what was before and as a run of a trend. Sources are not read: an input can't name a file.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "formats.h"
#include "gate.h"
#include "join.h"
#include "known.h"
#include "page.h"
#include "read_compare.h"
#include "read_json.h"
#include "read_xml.h"
#include "top.h"
#include "write_json.h"

namespace {

template <class Write> std::string Written(Write write) {
    char *written = nullptr;
    size_t length = 0;
    std::FILE *out = open_memstream(&written, &length);
    if (!out || !write(out) || fclose(out) != 0) {
        abort();
    }
    std::string text(written, length);
    free(written);
    return text;
}

// An earlier report as it is, and cut: no matter what is in it, it is read or refused.
bool ReadEarlier(const std::string &text, Known &known) {
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    std::string error;
    const bool read = in && ReadKnown(in, "input", known, error);
    if (in && read != error.empty()) {
        abort();
    }
    if (in) {
        fclose(in);
    }
    return read;
}

void WriteAll(const Model &m) {
    const std::string kept[] = {
        Written([&](std::FILE *out) { return WriteJson(m, out); }),
        Written([&](std::FILE *out) { return WriteSarif(m, kMostResults, out); }),
        Written([&](std::FILE *out) { return WriteGitlab(m, out); }),
    };
    for (const std::string &text : kept) {
        Known known;
        if (!ReadEarlier(text, known) || known.fingerprints != KnownOf(m).fingerprints) {
            fprintf(stderr, "fuzz_report: not the fingerprints that were written:\n%s\n", text.c_str());
            abort();
        }
    }
    Allowed none;
    size_t exceeded = 0;
    Written([&](std::FILE *out) { return WriteCheckstyle(m, out) && WriteGithub(m, out) && WriteMarkdown(m, &m, out); });
    Written([&](std::FILE *out) { return WriteTop(m, Rank::kNotices, 3, out) && WriteGate(m, {}, none, exceeded, out); });
    Written([&](std::FILE *out) { return WriteCsv(m, Table::kFunctions, out) && WriteBadge(m, Badge::kLines, true, out); });
}

void MakePage(const Model &m) {
    const PageInput in{m, FiguresOf(m, "now"), FiguresOf(m, "before"), {}, {FiguresOf(m, "a"), FiguresOf(m, "b")}};
    std::FILE *out = fopen("/dev/null", "wb");
    if (!out || !WritePage(in, out)) {
        abort();
    }
    fclose(out);
}

void Compare(const std::string &text) {
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    Comparison comparison;
    std::string error;
    if (!in || (ReadComparison(in, "input", comparison, error) == CompareRead::kFailed) == error.empty()) {
        abort();
    }
    fclose(in);
}

bool ReadAndWrite(const std::string &text, bool several, std::string &json) {
    std::FILE *in = fmemopen(const_cast<char *>(text.data()), text.size(), "rb");
    if (!in) {
        return false;
    }
    Model m;
    std::string error;
    const bool read = text[0] == '{' ? ReadJson(in, "input", m, error) : ReadXml(in, "input", "a/", m, error);
    fclose(in);
    if (read != error.empty()) {
        abort();
    }
    if (!read || !FinishModel(m, several, error)) {
        return false;
    }
    json = Written([&](std::FILE *out) { return WriteJson(m, out); });
    WriteAll(m);
    if (several) {
        MakePage(m);
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    std::string json;
    std::string again;
    if (size == 0) {
        return 0;
    }
    Known known;
    ReadEarlier(text, known);
    Compare(text);
    ReadAndWrite(text, true, json);
    if (ReadAndWrite(text, false, json) && (!ReadAndWrite(json, false, again) || again != json)) {
        fprintf(stderr, "fuzz_report: what was written reads otherwise:\n%s\n%s\n", json.c_str(), again.c_str());
        abort();
    }
    return 0;
}
