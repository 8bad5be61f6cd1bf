// The report stream, messages and the end of the process.
//
// A message may come up before the report has a head: while the settings are read, or at a wrong switch. An HTML or XML document
// can't hold anything ahead of its head, so such messages wait in G until the head is there. How the lines of a report look is not
// here: see forms.h and frame.cpp.
#include "run/mode.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <string>
#include <sys/stat.h>

#include "run/encode.h"
#include "run/globals.h"
#include "run/same_file.h"

FILE *gTLYOUT = stdout;
FILE *gTLYIN = stdin;

Mode OutputMode(const Globals *G) {
    if (G->html_mode) {
        return Mode::kHtml;
    }
    if (G->csv_mode) {
        return Mode::kCsv;
    }
    return G->xml_mode ? Mode::kXml : Mode::kText;
}

Mode ProseMode(const Globals *G) {
    return OutputMode(G) == Mode::kHtml ? Mode::kHtml : Mode::kText;
}

Mode FreeTextMode(const Globals *G) {
    const Mode mode = OutputMode(G);
    return mode == Mode::kCsv ? Mode::kText : mode;
}

void Put(const char *fmt, ...) {
    if (!strchr(fmt, '%')) {
        const size_t bytes = strlen(fmt);
        if (bytes == 1) { // most are a line feed
            putc_unlocked(*fmt, gTLYOUT);
        } else {
            fwrite_unlocked(fmt, 1, bytes, gTLYOUT);
        }
        return;
    }
    va_list args;
    va_start(args, fmt);
    vfprintf(gTLYOUT, fmt, args);
    va_end(args);
}

// An XML comment. It can't hold "--" nor end in "-", so the second of two hyphens and a last one become character references.
static void xml_comment(const char *text, std::string &out) {
    std::string encoded;
    xml_encode(text, encoded);
    out = "<!--";
    for (size_t i = 0; i < encoded.size(); ++i) {
        const bool taken = out.size() > 4 && out.back() == '-';
        const bool last = i + 1 == encoded.size();
        if (encoded[i] == '-' && (taken || last)) {
            out += "&#45;";
        } else {
            out += encoded[i];
        }
    }
    out += "-->\n";
}

// Writes one message. In XML a message that waited, or that comes behind the root, is a comment; without a root there is no
// document and the text stays plain.
static void WriteMessage(const char *text, bool waited, const Globals *G) {
    const Mode mode = OutputMode(G);
    std::string encoded;
    if (mode == Mode::kHtml) {
        HTML_esc(text, encoded);
    } else if (mode == Mode::kXml && (G->document_closed || (waited && G->root_open))) {
        xml_comment(text, encoded);
    } else if (mode == Mode::kXml && G->root_open) {
        xml_encode(text, encoded);
    } else {
        encoded = text;
    }
    fputs(encoded.c_str(), gTLYOUT);
}

void Message(Globals *G, const char *fmt, ...) {
    char *text = nullptr;
    va_list args;
    va_start(args, fmt);
    const int length = vasprintf(&text, fmt, args);
    va_end(args);
    if (length < 0) {
        va_start(args, fmt);
        vfprintf(stderr, fmt, args);
        va_end(args);
        return;
    }
    char *kept = G->head_written ? nullptr : static_cast<char *>(AllocateRecord(static_cast<size_t>(length) + 1));
    if (kept) {
        memcpy(kept, text, static_cast<size_t>(length) + 1);
        LlistAdd(&G->early_messages, kept, nullptr, G);
        free(text);
        return;
    }
    if (G->unnamed_file) {
        Put("\n  File: %s\n", G->unnamed_file);
        G->unnamed_file = nullptr;
    }
    WriteMessage(text, false, G);
    free(text);
}

void FlushEarlyMessages(Globals *G) {
    G->head_written = 1;
    for (const char *text : Records<char>(G->early_messages)) {
        WriteMessage(text, true, G);
    }
    LlistDestroy(&G->early_messages, nullptr);
}

bool StatReport(struct stat *report, const Globals *G) {
    const bool is_file = fstat(fileno(G->csv_rows ? G->csv_rows : gTLYOUT), report) == 0 && S_ISREG(report->st_mode);
    if (!is_file) {
        *report = {};
    }
    return is_file;
}

bool IsReport(const char *path, const Globals *G) {
    struct stat file, report;
    return stat(path, &file) == 0 && StatReport(&report, G) && IsSameFile(file, report);
}

int FinishOutput(int status) {
    errno = 0;
    const bool flushed = fflush(gTLYOUT) == 0;
    const int error = errno;
    if (flushed && !ferror(gTLYOUT)) {
        return status;
    }
    fprintf(stderr, "\n  Error: Could not write the whole report\n         %s\n", error ? strerror(error) : "write error");
    return status ? status : 1;
}

void EndProcess(Globals *G, int status) {
    if (!G) {
        exit(FinishOutput(status));
    }
    FlushEarlyMessages(G);
    if (!G->document_closed) {
        if (OutputMode(G) == Mode::kHtml) {
            Put("</pre></body></html>");
        } else if (G->root_open) {
            Put("</vxtly>\n");
        }
    }
    status = FinishOutput(status);
    G->teardown(G);
    exit(status);
}
