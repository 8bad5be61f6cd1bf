#include "allow.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "formats.h"
#include "text_lines.h"

namespace {

constexpr std::string_view kBlanks = " \t\r";

bool IsMadeOf(std::string_view text, const char *characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool Use(Allowed &allowed, const std::string &key) {
    const auto found = allowed.entries.find(key);
    if (found == allowed.entries.end()) {
        return false;
    }
    found->second.used = true;
    return true;
}

// What a line allows; empty if it isn't understood.
std::string KeyOf(std::string_view line) {
    const size_t end = std::min(line.find_first_of(kBlanks), line.size());
    const std::string_view first = line.substr(0, end);
    if (first.size() == 16 && IsMadeOf(first, "0123456789abcdef")) {
        return std::string(first);
    }
    const size_t path = line.find_first_not_of(kBlanks, end);
    if (path == std::string_view::npos || !(first == "complexity" || first == "lines" || IsMadeOf(first, "0123456789"))) {
        return "";
    }
    return std::string(first) + " " + std::string(line.substr(path));
}

std::string KeyOf(const Model &m, std::string_view what, uint32_t file) {
    std::string key = std::string(what) + " ";
    AppendShown(key, m.texts[m.files[file].path]);
    return key;
}

bool TakeLine(Allowed &allowed, std::string_view line, int number) {
    line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.empty() || line[0] == '#') {
        return true;
    }
    const std::string key = KeyOf(line);
    allowed.entries.try_emplace(key, Allowed::Entry{number});
    return !key.empty();
}

} // namespace

bool ReadAllowed(const std::string &path, Allowed &allowed, std::string &error) {
    std::FILE *in = fopen(path.c_str(), "rbe");
    if (!in) {
        error = path + ": " + strerror(errno) + ".";
        return false;
    }
    std::string line;
    int number = 1;
    bool good = true;
    for (int c = 0; good && c != EOF;) {
        c = fgetc(in);
        if (c != '\n' && c != EOF) {
            line += static_cast<char>(c);
            continue;
        }
        good = TakeLine(allowed, line, number);
        line.clear();
        number += good ? 1 : 0;
    }
    if (!good) {
        error = path + ":" + std::to_string(number) +
                ": this allows nothing. Write a fingerprint of 16 hexadecimal digits, or the number of a notice, \"complexity\" or "
                "\"lines\" and the path of a file; \"#\" begins a remark.";
    } else if (ferror(in)) {
        error = path + ": it can't be read: " + strerror(errno) + ".";
        good = false;
    }
    fclose(in);
    return good;
}

bool IsAllowed(Allowed &allowed, const Model &m, const Notice &notice) {
    if (allowed.entries.empty()) {
        return false;
    }
    const bool single = Use(allowed, FingerprintText(notice.fingerprint));
    return Use(allowed, KeyOf(m, std::to_string(notice.number), notice.file)) || single;
}

bool IsAllowed(Allowed &allowed, const Model &m, const char *limit, uint32_t file) {
    return Use(allowed, KeyOf(m, limit, file));
}
