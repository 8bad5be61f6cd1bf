#include "fingerprint.h"

#include <cstdio>
#include <cstring>
#include <memory>
#include <span>
#include <sys/stat.h>
#include <unordered_map>
#include <vector>
#include <xxhash.h>

namespace {

constexpr size_t kPiece = 64 * 1024;

// One source on its way past its notices.
struct Walk {
    std::span<Notice> notices;  // by line
    std::vector<uint64_t> text; // a hash for each of the notices
    size_t next = 0;            // the first notice whose line has not been passed
    uint32_t line = 1;
    XXH3_state_t *hash;
};

void EndLine(Walk &walk) {
    if (walk.next < walk.notices.size() && walk.notices[walk.next].line == walk.line) {
        const uint64_t hash = XXH3_64bits_digest(walk.hash);
        XXH3_64bits_reset(walk.hash);
        for (; walk.next < walk.notices.size() && walk.notices[walk.next].line == walk.line; ++walk.next) {
            walk.text[walk.next] = hash;
        }
    }
    ++walk.line;
}

// Hashes what of the line is no white space.
void AddToLine(Walk &walk, const char *text, size_t length) {
    char kept[512];
    size_t used = 0;
    for (size_t i = 0; i < length; ++i) {
        kept[used] = text[i];
        used += text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r') ? 0 : 1;
        if (used == sizeof kept) {
            XXH3_64bits_update(walk.hash, kept, used);
            used = 0;
        }
    }
    XXH3_64bits_update(walk.hash, kept, used);
}

void WalkPiece(Walk &walk, const char *piece, size_t length) {
    while (length > 0 && walk.next < walk.notices.size()) {
        const auto *end = static_cast<const char *>(memchr(piece, '\n', length));
        const size_t part = end ? static_cast<size_t>(end - piece) : length;
        if (walk.notices[walk.next].line == walk.line) {
            AddToLine(walk, piece, part);
        }
        if (!end) {
            return;
        }
        EndLine(walk);
        piece += part + 1;
        length -= part + 1;
    }
}

bool IsAsMeasured(std::FILE *source, int64_t bytes) {
    struct stat status;
    return fstat(fileno(source), &status) == 0 && S_ISREG(status.st_mode) && status.st_size == bytes;
}

// Fills walk.text. False if the source isn't there as it was.
bool HashLines(Walk &walk, const char *path, int64_t bytes, std::span<char> piece) {
    struct stat status;
    // A path that leads to a pipe or a device by now is not opened: that may wait for ever.
    if (stat(path, &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    std::FILE *source = fopen(path, "rbe");
    if (!source) {
        return false;
    }
    setvbuf(source, nullptr, _IONBF, 0);
    bool good = IsAsMeasured(source, bytes);
    while (good && walk.next < walk.notices.size()) {
        const size_t length = fread(piece.data(), 1, piece.size(), source);
        WalkPiece(walk, piece.data(), length);
        good = !ferror(source);
        if (length < piece.size()) {
            break;
        }
    }
    fclose(source);
    EndLine(walk); // the last one, if no line feed ends it
    return good;
}

// The values that a fingerprint is the hash of, side by side and without gaps.
struct Recognised {
    uint64_t path;
    uint64_t text;
    uint64_t number;
    uint64_t above;
};

void Fingerprint(std::span<Notice> notices, const std::vector<uint64_t> &text, uint64_t path) {
    std::unordered_map<uint64_t, uint64_t> above;
    for (size_t i = 0; i < notices.size(); ++i) {
        Recognised what{path, notices[i].has_line ? text[i] : 0, static_cast<uint64_t>(notices[i].number), 0};
        what.above = above[XXH3_64bits(&what, sizeof what)]++;
        notices[i].fingerprint = XXH3_64bits(&what, sizeof what);
    }
}

} // namespace

void TakeFingerprints(Model &m, const std::string &root) {
    const auto piece = std::make_unique_for_overwrite<char[]>(kPiece);
    Walk walk{};
    walk.hash = XXH3_createState();
    size_t unread = 0;
    TextId example = 0;
    for (FileRow &file : m.files) {
        if (file.notice_count == 0 || !file.opened) {
            continue;
        }
        walk.notices = std::span(m.notices).subspan(file.first_notice, file.notice_count);
        walk.text.assign(file.notice_count, 0);
        walk.next = 0;
        walk.line = 1;
        XXH3_64bits_reset(walk.hash);
        const std::string_view path = m.texts[file.path];
        const std::string_view opened = m.texts[file.opened];
        const std::string source = (opened.starts_with('/') ? "" : root) + std::string(opened);
        file.by_line = !HashLines(walk, source.c_str(), file.bytes, {piece.get(), kPiece});
        if (file.by_line) {
            for (size_t i = 0; i < walk.notices.size(); ++i) {
                walk.text[i] = walk.notices[i].line;
            }
            example = unread++ == 0 ? file.path : example;
        }
        Fingerprint(walk.notices, walk.text, XXH3_64bits(path.data(), path.size()));
    }
    XXH3_freeState(walk.hash);
    if (unread > 0) {
        m.remarks.push_back(std::to_string(unread) + (unread == 1 ? " source" : " sources") + " couldn't be read as measured (" +
                            std::string(m.texts[example]) +
                            "): fingerprints of notices there rest on line numbers, and change when lines move.");
    }
}
