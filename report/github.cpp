#include "formats.h"
#include "severity.h"
#include "text_lines.h"

namespace {

// A command ends with its line, and a property with "," or ":": what would end them is encoded.
void AppendEncoded(std::string &out, std::string_view text, std::string_view encoded) {
    for (const char c : text) {
        if (encoded.find(c) == std::string_view::npos) {
            out += c;
            continue;
        }
        char code[4];
        snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
        out += code;
    }
}

} // namespace

bool WriteGithub(const Model &m, std::FILE *out) {
    LineWriter w{out};
    for (const uint32_t i : WorstFirst(m)) {
        const Notice &notice = m.notices[i];
        w.text += "::warning file=";
        AppendEncoded(w.text, m.texts[m.files[notice.file].path], "%\r\n:,");
        w.text += ",line=" + std::to_string(notice.line) + ",title=" + RuleName(notice.number) + "::";
        AppendEncoded(w.text, m.texts[notice.text], "%\r\n");
        EndLine(w);
    }
    return Finish(w);
}
