#include "json_text.h"

#include <cstring>

#include "utf8.h"

namespace {

constexpr size_t kPiece = 64 * 1024;

void Flush(JsonWriter &w) {
    fwrite(w.text.data(), 1, w.text.size(), w.out); // Finish tells a failure
    w.text.clear();
}

// What stands ahead of a member or an element: comma, line end and indentation, name.
void Lead(JsonWriter &w, const char *name) {
    if (!w.first) {
        w.text += w.in_line ? ", " : ",";
    }
    if (!w.in_line && w.depth > 0) {
        w.text += '\n';
        w.text.append(static_cast<size_t>(w.depth), ' ');
    }
    if (w.text.size() >= kPiece) {
        Flush(w);
    }
    if (name) {
        AppendJson(w.text, name);
        w.text += ": ";
    }
    w.first = false;
}

void Open(JsonWriter &w, const char *name, char bracket) {
    Lead(w, name);
    w.text += bracket;
    ++w.depth;
    w.first = true;
}

void Close(JsonWriter &w, char bracket) {
    --w.depth;
    if (!w.in_line && !w.first) {
        w.text += '\n';
        w.text.append(static_cast<size_t>(w.depth), ' ');
    }
    w.text += bracket;
    w.first = false;
}

} // namespace

void AppendJson(std::string &out, std::string_view text) {
    static constexpr char kHex[] = "0123456789abcdef";
    out += '"';
    for (size_t i = 0; i < text.size();) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const size_t length = Utf8Length(text.substr(i));
        if (byte == '"' || byte == '\\') {
            out += '\\';
            out += text[i];
        } else if (byte == '\n') {
            out += "\\n";
        } else if (byte == '\t') {
            out += "\\t";
        } else if (byte < ' ') {
            out += "\\u00";
            out += kHex[byte >> 4];
            out += kHex[byte & 15];
        } else if (length == 0) {
            out += "\\ufffd";
        } else {
            out += text.substr(i, length);
        }
        i += length ? length : 1;
    }
    out += '"';
}

void BeginObject(JsonWriter &w, const char *name) {
    Open(w, name, '{');
}

void EndObject(JsonWriter &w) {
    Close(w, '}');
}

void BeginArray(JsonWriter &w, const char *name) {
    Open(w, name, '[');
}

void EndArray(JsonWriter &w) {
    Close(w, ']');
}

void BeginRecord(JsonWriter &w, const char *name) {
    Open(w, name, '{');
    w.in_line = true;
}

void EndRecord(JsonWriter &w) {
    Close(w, '}');
    w.in_line = false;
}

void Member(JsonWriter &w, const char *name, std::string_view text) {
    Lead(w, name);
    AppendJson(w.text, text);
}

void Member(JsonWriter &w, const char *name, const char *text) {
    Member(w, name, std::string_view(text));
}

void Member(JsonWriter &w, const char *name, int64_t value) {
    Lead(w, name);
    w.text += std::to_string(value);
}

void Member(JsonWriter &w, const char *name, int value) {
    Member(w, name, static_cast<int64_t>(value));
}

void Member(JsonWriter &w, const char *name, uint32_t value) {
    Member(w, name, static_cast<int64_t>(value));
}

void Member(JsonWriter &w, const char *name, bool value) {
    Lead(w, name);
    w.text += value ? "true" : "false";
}

bool Finish(JsonWriter &w) {
    w.text += '\n';
    Flush(w);
    return fflush(w.out) == 0 && !ferror(w.out);
}
