// The readers of tly-report on hostile XML and JSON, in turn with the writer: what was read is written, read again and written
// again, and both texts must be the same. It also becomes a page, beside itself as what was before and as a run of a trend. Sources
// are not read: an input can't name a file.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "join.h"
#include "page.h"
#include "read_compare.h"
#include "read_json.h"
#include "read_xml.h"
#include "write_json.h"

namespace {

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
    if (several) {
        MakePage(m);
    }
    char *written = nullptr;
    size_t length = 0;
    std::FILE *out = open_memstream(&written, &length);
    if (!out || !WriteJson(m, out) || fclose(out) != 0) {
        abort();
    }
    json.assign(written, length);
    free(written);
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
    Compare(text);
    ReadAndWrite(text, true, json);
    if (ReadAndWrite(text, false, json) && (!ReadAndWrite(json, false, again) || again != json)) {
        fprintf(stderr, "fuzz_report: what was written reads otherwise:\n%s\n%s\n", json.c_str(), again.c_str());
        abort();
    }
    return 0;
}
