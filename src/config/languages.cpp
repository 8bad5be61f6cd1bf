// The language table. Everything that the program knows about a file's language comes from the extension of its name.
#include "config/languages.h"

#include <algorithm>
#include <strings.h>

#include "run/globals.h"
#include "run/mode.h"

namespace {

constexpr size_t kListLimit = sizeof(ListText) - 1; // bytes of an extension list that count
constexpr size_t kTextLimit = sizeof(LineText) - 1; // bytes of a list of all extensions that count

// The next piece of a list, between blanks, tabs and commas: "cc, cpp" has two. *at goes behind it. False when no more is in
// front of end.
bool NextPiece(const char **at, const char *end, const char **piece, size_t *length) {
    const auto parts = [](char c) { return IsBlankOrTab(c) || c == ','; };
    *piece = std::find_if_not(*at, end, parts);
    *at = std::find_if(*piece, end, parts);
    *length = static_cast<size_t>(*at - *piece);
    return *length > 0;
}

bool SameExtension(const char *a, const char *b, int case_flag) {
    return (case_flag ? strcmp(a, b) : strcasecmp(a, b)) == 0;
}

// Where the extension of a version-extended name begins, "c" in "foo.c@@/main/3"; at stands on its "@@". Null for a name without
// an extension, like "foo@@/main/3" and ".foo@@/main/3".
const char *VersionedExtension(const char *name, const char *at) {
    for (const char *p = at; p - name >= 2; --p) {
        const char c = p[-1];
        if (c == '.') {
            return p;
        }
        if (c == '/' || c == '\\') {
            return nullptr;
        }
    }
    return nullptr;
}

// Sets the flags of a language and counts the file. Only C headers have a flag of their own beside that of a language.
void EnterLanguage(int language, int count, Globals *G) {
    int *flag = &G->is_other;
    int *files = &G->other_files;
    switch (language) {
    case kC:
        flag = &G->is_c;
        files = &G->c_files;
        break;
    case kCHeader:
        G->is_c_header = 1;
        flag = G->treat_c_headers_as_cpp ? &G->is_cpp : &G->is_c;
        files = &G->c_header_files;
        break;
    case kCpp:
        flag = &G->is_cpp;
        files = &G->cpp_files;
        break;
    case kCppHeader:
        flag = &G->is_cpp;
        files = &G->cpp_header_files;
        break;
    case kJava:
        flag = &G->is_java;
        files = &G->java_files;
        break;
    case kCs:
        flag = &G->is_cs;
        files = &G->cs_files;
        break;
    default: break;
    }
    *flag = 1;
    if (count) {
        ++*files;
    }
}

} // namespace

void AddBuiltInLanguages(Globals *G) {
    const struct {
        const char *name;
        const char *extensions;
    } languages[] = {
        // in the order of LanguageIndex
        {"Other", G->other_extensions},
        {"C", G->c_extensions},
        {"C Header", G->c_header_extensions},
        {"C++", G->cpp_extensions},
        {"C++ Header", G->cpp_header_extensions},
        {"Java", G->java_extensions},
        {"C#", G->cs_extensions},
    };
    for (const auto &language : languages) {
        addUlpi(language.name, language.extensions, G);
    }
}

// Files of what is lost will be left out.
static void TellOfLostLanguage(Globals *G) {
    G->baseline_failed = 1;
    Message(G, "\n  Error: ULPI memory allocation error\n");
}

int addUlpi(const char *name, const char *extensions, Globals *G) {
    auto *record = static_cast<Ulpi *>(calloc(1, sizeof(Ulpi)));
    if (!record) {
        TellOfLostLanguage(G);
        return G->ulpi_count;
    }
    if (G->ulpi_count + 1 >= kMaxLanguages) {
        free(record);
        Message(G, "\n  Error: Max Universal Language PlugIn reached\n");
        return G->ulpi_count;
    }
    record->id = ++G->ulpi_count;
    CopyText(record->name, name);
    G->ulpi[record->id] = record;
    parseUlpiExtensions(record, extensions, G);
    G->ulpi_last = record->id;
    return record->id;
}

int parseUlpiExtensions(Ulpi *record, const char *extensions, Globals *G) {
    if (!record || !extensions) {
        return -1;
    }
    int last = -1;
    const char *end = extensions + strnlen(extensions, kListLimit);
    const char *piece;
    size_t length;
    while (NextPiece(&extensions, end, &piece, &length)) {
        if (last + 1 >= kMaxExtensions) {
            Message(G, "\n  Error: Max ULPI extensions reached\n");
            continue;
        }
        char *copy = strndup(piece, length);
        if (!copy) {
            TellOfLostLanguage(G);
            break;
        }
        ++last;
        free(record->extensions[last]);
        record->extensions[last] = copy;
    }
    return last;
}

void clearUlpi(Globals *G) {
    for (Ulpi *&record : G->ulpi) {
        if (record) {
            for (char *extension : record->extensions) {
                free(extension);
            }
            free(record);
            record = nullptr;
        }
    }
    G->ulpi_count = -1;
    G->ulpi_last = -1;
}

void buildExtensions(Globals *G) {
    ClearText(G->extension_list);
    for (const Ulpi *record : G->ulpi) {
        if (!record) {
            break;
        }
        for (const char *extension : record->extensions) {
            if (!extension) {
                break;
            }
            char more[sizeof(ListText) + 1];
            FormatText(more, "%s,", extension);
            AppendText(G->extension_list, more);
        }
    }
    const size_t length = strlen(G->extension_list);
    if (length > 0) {
        G->extension_list[length - 1] = '\0';
    }
}

const char *getExtension(const char *name, Globals *G) {
    ClearText(G->extension);
    const char *at = strrchr(name, '@');
    const char *found;
    if (at && at > name && at[-1] == '@') {
        found = VersionedExtension(name, at - 1);
        if (found) {
            CopyPart(G->extension, found, static_cast<size_t>(at - 1 - found));
        }
    } else {
        // The last "." counts wherever it stands: "path.d/foo" has the extension "d/foo".
        found = strrchr(name, '.');
        if (found) {
            CopyText(G->extension, found + 1);
        }
    }
    if (G->debug) {
        Message(G, "*** Debug: File Extension: %s\n\n", G->extension);
    }
    return found ? G->extension : nullptr;
}

int WhichFile(const char *name, Globals *G, int count) {
    G->is_c = G->is_cpp = G->is_java = G->is_cs = G->is_c_header = G->is_other = 0;
    const char *extension = getExtension(name, G);
    if (!extension) {
        return G->ulpi_last;
    }
    G->ulpi_last = findUlpi(extension, G);
    if (G->ulpi_last >= 0) {
        EnterLanguage(G->ulpi_last, count, G);
    }
    return G->ulpi_last;
}

LanguageGroup LanguageInHand(const Globals *G) {
    return G->is_c_header ? kHeaderGroup
           : G->is_c      ? kCGroup
           : G->is_cpp    ? kCppGroup
           : G->is_java   ? kJavaGroup
           : G->is_cs     ? kCsGroup
           : G->is_other  ? kOtherGroup
                          : kNoLanguage;
}

int findUlpi(const char *extension, const Globals *G) {
    for (const Ulpi *record : G->ulpi) {
        if (!record) {
            break;
        }
        for (const char *known : record->extensions) {
            if (!known) {
                break;
            }
            if (SameExtension(known, extension, G->names_case_sensitive)) {
                return record->id;
            }
        }
    }
    return -1;
}

bool valid_ext(const char *extension, const char *list, int case_flag, const Globals *G) {
    if (!G->validate_extensions) {
        return true;
    }
    if (!extension || !list) {
        return false;
    }
    const char *end = list + strnlen(list, kTextLimit);
    const size_t wanted = strlen(extension);
    const char *piece;
    size_t length;
    while (NextPiece(&list, end, &piece, &length)) {
        if (length == wanted && (case_flag ? strncmp(piece, extension, length) : strncasecmp(piece, extension, length)) == 0) {
            return true;
        }
    }
    return false;
}
