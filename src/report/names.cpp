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
    // the re-entrant call doesn't look the time zone up again for every file; null too for a year that has no place in an int
    if (!when || !localtime_r(when, &parts)) {
        return "";
    }
    if (parts.tm_year < 1000 - 1900 || parts.tm_year > 9999 - 1900) {
        char date[64];
        if (!asctime_r(&parts, date)) {
            return "";
        }
        Rtrim(date);
        return date;
    }
    // asctime_r would take thirty times as long, and there is a date for every file
    char date[] = "Sun Jan  1 00:00:00 1900";
    const auto put = [&date](int at, int number) { // the lower two digits
        date[at] = static_cast<char>('0' + number / 10 % 10);
        date[at + 1] = static_cast<char>('0' + number % 10);
    };
    memcpy(date, &"SunMonTueWedThuFriSat"[3 * parts.tm_wday], 3);
    memcpy(date + 4, &"JanFebMarAprMayJunJulAugSepOctNovDec"[3 * parts.tm_mon], 3);
    put(8, parts.tm_mday);
    if (parts.tm_mday < 10) {
        date[8] = ' ';
    }
    put(11, parts.tm_hour);
    put(14, parts.tm_min);
    put(17, parts.tm_sec);
    put(20, (parts.tm_year + 1900) / 100);
    put(22, parts.tm_year + 1900);
    return date;
}
