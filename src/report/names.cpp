// Names and texts made ready to be shown.
#include "report/names.h"

#include <algorithm>
#include <climits>

#include "run/globals.h"
#include "run/mode.h"

static constexpr size_t kMaxWrapped = 2046; // characters of a wrapped name

void AdjNameLength(const char *name, std::span<char> out, int width, int indent, const Globals *G) {
    ClearText(out);
    if (!name) {
        return;
    }
    if (!G->wrap_long_names || width < 1 || strlen(name) <= static_cast<size_t>(width)) {
        CopyText(out, name);
        return;
    }
    const size_t room = std::min(out.size() - 1, kMaxWrapped);
    const auto full = static_cast<size_t>(width), blanks = static_cast<size_t>(std::max(indent, 0));
    size_t used = 0;
    while (*name && used < room) {
        const size_t row = std::min(strnlen(name, full), room - used);
        memcpy(&out[used], name, row);
        name += row;
        used += row;
        if (row == full && used + 1 + blanks <= room) {
            out[used++] = '\n';
            memset(&out[used], ' ', blanks);
            used += blanks;
        }
    }
    out[used] = '\0';
}

void AdjNameLength(const char *name, std::span<char> out, Wrap wrap, const Globals *G) {
    AdjNameLength(name, out, wrap.width, wrap.indent, G);
}

const char *Wrapped(const char *name, std::span<char> room, Wrap wrap, const Globals *G) {
    const size_t widest = std::min(room.size() - 1, static_cast<size_t>(G->wrap_long_names ? wrap.width : INT_MAX));
    if (!name || strlen(name) <= widest) {
        return name;
    }
    AdjNameLength(name, room, wrap, G);
    return room.data();
}

const char *OnPage(const char *name, std::span<char> room, Wrap wrap, const Globals *G) {
    return IsPage(OutputMode(G)) ? Wrapped(name, room, wrap, G) : name;
}

static bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// What stands in name behind start_dir and one separator; null when name doesn't hold the directory. "/home/me2" doesn't hold
// "/home/me".
static const char *BehindStartDir(const char *name, const Globals *G) {
    const size_t length = strlen(G->start_dir);
    for (const char *at = name; length > 0 && (at = strstr(at, G->start_dir)); ++at) {
        if (at[length] == '\0') {
            return at + length;
        }
        if (IsSeparator(at[length])) {
            return at + length + 1;
        }
    }
    return nullptr;
}

const char *PathFile(const char *name, const Globals *G) {
    LineText path;
    CopyText(path, name);
    const size_t length = strlen(path);
    if (length > 1 && IsSeparator(path[length - 1])) {
        path[length - 1] = '\0';
    }
    const char *behind = G->relative_html_links ? BehindStartDir(path, G) : nullptr;
    if (path[0] == '/') {
        CopyText(G->link_text, path);
    } else if (behind) {
        CopyText(G->link_text, behind);
    } else if ((path[0] && path[1] == ':') || G->relative_html_links) {
        CopyText(G->link_text, path);
    } else if (path[0] == '.' && IsSeparator(path[1])) {
        FormatText(G->link_text, "%s%s", G->start_dir, path + 1);
    } else {
        FormatText(G->link_text, "%s/%s", G->start_dir, path);
    }
    return G->link_text;
}

const char *HTMLPathFile(const char *name, const Globals *G) {
    PathFile(name, G);
    if (!G->relative_html_links) {
        LineText path;
        CopyText(path, G->link_text);
        FormatText(G->link_text, "file://%s", path);
    }
    return G->link_text;
}

std::string get_date(const time_t *when) {
    struct tm parts;
    char date[64];
    // the re-entrant call doesn't look the time zone up again for every file; null too for a year that has no place in an int
    if (!when || !localtime_r(when, &parts) || !asctime_r(&parts, date)) {
        return "";
    }
    Rtrim(date);
    return date;
}
