// JSON as text, for writers that don't hold their document in memory.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

// Appends text with its quotes. Control characters are escaped, bytes that aren't UTF-8 become U+FFFD.
void AppendJson(std::string &out, std::string_view text);

// Writes one document to a stream: members and elements in the order of the calls, commas and line ends set here. A record that
// begins with Record stands on one line, as does all in it.
//
//   JsonWriter w{stdout};
//   BeginObject(w);  Member(w, "version", 1);  BeginArray(w, "files");  BeginRecord(w);  Member(w, "loc", 3);  EndRecord(w);  ...
struct JsonWriter {
    std::FILE *out;
    std::string text{}; // not written yet
    int depth = 0;
    bool first = true;    // of what is open
    bool in_line = false; // within a record
};

// Without a name: an element of an array, or the document.
void BeginObject(JsonWriter &w, const char *name = nullptr);
void EndObject(JsonWriter &w);
void BeginArray(JsonWriter &w, const char *name);
void EndArray(JsonWriter &w);
void BeginRecord(JsonWriter &w, const char *name = nullptr);
void EndRecord(JsonWriter &w);
void Member(JsonWriter &w, const char *name, std::string_view text);
void Member(JsonWriter &w, const char *name, const char *text);
void Member(JsonWriter &w, const char *name, int64_t value);
void Member(JsonWriter &w, const char *name, int value);
void Member(JsonWriter &w, const char *name, uint32_t value);
void Member(JsonWriter &w, const char *name, bool value);
// The last line end, and everything to the stream. False with errno if the stream refused anything.
bool Finish(JsonWriter &w);
