#include "text_lines.h"

#include <algorithm>

#include "formats.h"
#include "utf8.h"

namespace {

constexpr size_t kPiece = 64 * 1024;
constexpr size_t kWidestCell = 60; // longer ones push their row to the right

// The code of a valid character of UTF-8.
uint32_t CodeOf(std::string_view character) {
    uint32_t code = static_cast<unsigned char>(character[0]);
    code &= character.size() == 1 ? 0x7FU : 0x7FU >> character.size();
    for (const char tail : character.substr(1)) {
        code = code << 6 | (static_cast<unsigned char>(tail) & 0x3FU);
    }
    return code;
}

bool IsHarmless(uint32_t code) {
    const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool direction = code == 0x61C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
                           (code >= 0x2066 && code <= 0x2069);
    const bool line_end = code == 0x2028 || code == 0x2029;
    return !control && !direction && !line_end;
}

} // namespace

void EndLine(LineWriter &w) {
    w.text += '\n';
    if (w.text.size() >= kPiece) {
        fwrite(w.text.data(), 1, w.text.size(), w.out); // Finish tells a failure
        w.text.clear();
    }
}

bool Finish(LineWriter &w) {
    fwrite(w.text.data(), 1, w.text.size(), w.out);
    w.text.clear();
    return fflush(w.out) == 0 && !ferror(w.out);
}

void AppendShown(std::string &out, std::string_view text) {
    while (!text.empty()) {
        const size_t valid = Utf8Length(text);
        const size_t length = valid ? valid : 1;
        const uint32_t code = valid ? CodeOf(text.substr(0, length)) : static_cast<unsigned char>(text[0]);
        if (valid && IsHarmless(code)) {
            out += text.substr(0, length);
        } else {
            char number[8];
            snprintf(number, sizeof number, code < 0x100 ? "\\x%02x" : "\\u%04x", code);
            out += number;
        }
        text.remove_prefix(length);
    }
}

std::string Plain(std::string_view text) {
    std::string shown;
    AppendShown(shown, text);
    return shown;
}

std::string Place(const Model &m, uint32_t file, int64_t line) {
    std::string place;
    AppendShown(place, m.texts[m.files[file].path]);
    return place + ":" + std::to_string(line);
}

void AppendNotice(std::string &out, const Model &m, const Notice &notice) {
    out += Place(m, notice.file, notice.line) + ": notice " + std::to_string(notice.number) + ": ";
    AppendShown(out, m.texts[notice.text]);
    out += " [" + FingerprintText(notice.fingerprint) + "]";
}

std::string Counted(size_t count, const char *thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

void AppendColumns(LineWriter &w, const std::vector<std::vector<std::string>> &rows, std::string_view alignment,
                   std::string_view indent) {
    const auto characters = [](const std::string &text) {
        return static_cast<size_t>(
            std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
    };
    std::vector<size_t> widths(alignment.size());
    for (const std::vector<std::string> &row : rows) {
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], std::min(characters(row[i]), kWidestCell));
        }
    }
    for (const std::vector<std::string> &row : rows) {
        w.text += indent;
        for (size_t i = 0; i < row.size(); ++i) {
            const size_t pad = widths[i] - std::min(widths[i], characters(row[i]));
            w.text.append(i == 0 ? 0 : 2, ' ');
            w.text.append(alignment[i] == 'r' ? pad : 0, ' ');
            w.text += row[i];
            w.text.append(alignment[i] == 'l' ? pad : 0, ' ');
        }
        w.text.resize(w.text.find_last_not_of(' ') + 1);
        EndLine(w);
    }
}
