// The two ways to the count of lines, held against one another: libFuzzer calls this with any source. The first byte chooses the
// language. The short way is taken with every classifier that this machine can run, the long one is the scanner's.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

#include "analysis/entities.h"
#include "analysis/line_counts.h"
#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "config/languages.h"
#include "files/source_reader.h"
#include "run/driver/teardown.h"
#include "run/driver/tly.h"
#include "run/globals.h"
#include "run/mode.h"

namespace {

constexpr const char *kNames[] = {"a.c", "a.h", "a.cpp", "a.java", "a.cs", "a.txt", "a"};

struct Lines {
    LineCounts counts;
    int open_braces, closed_braces;
};

Lines Take(Globals *G) {
    const Lines lines{LinesOf(*G), G->open_braces, G->closebrace_count};
    ResetState(G);
    return lines;
}

Lines LongWay(SourceReader *reader, Globals *G) {
    BeginSource(G);
    SourceLine line;
    for (Piece piece; (piece = NextPiece(reader, &line)) != Piece::kEnd;) {
        if (piece == Piece::kLine) {
            ParseLine(line, ++G->file_line_no, G);
        }
    }
    return Take(G);
}

void Fail(const char *way, const Lines &counted, const Lines &scanned) {
    fprintf(stderr, "fuzz_lines: %s\n", way);
    for (const Lines &l : {counted, scanned}) {
        fprintf(stderr, "  loc %d eloc %d lloc %d comments %d blanks %d lines %d braces %d %d\n", l.counts.loc, l.counts.eloc,
                l.counts.lloc, l.counts.comments, l.counts.blanks, l.counts.lines, l.open_braces, l.closed_braces);
    }
    abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const auto reader = std::make_unique<SourceReader>();
    static FILE *const nowhere = fopen("/dev/null", "w");
    if (size == 0) {
        return 0;
    }
    Globals *G = static_cast<Globals *>(calloc(1, sizeof(Globals)));
    InitGlobals(G);
    AddBuiltInLanguages(G);
    gTLYOUT = nowhere;
    const int fd = memfd_create("source", 0);
    if (fd < 0 || write(fd, data + 1, size - 1) != static_cast<ssize_t>(size - 1)) {
        abort();
    }
    char name[32];
    snprintf(name, sizeof name, "/proc/self/fd/%d", fd);
    WhichFile(kNames[data[0] % (sizeof kNames / sizeof *kNames)], G, 0);
    G->file_name = name;
    const Classifiers all = AllClassifiers(MaskUse::kLines);
    const Classifiers code = AllClassifiers(MaskUse::kCode);
    struct Way {
        const char *name;
        Classifier lines, code;
    };
    for (const Way &way : {Way{"plain", all.plain, code.plain}, {"SSE2", all.sse2, code.sse2}, {"AVX2", all.avx2, code.avx2}}) {
        if (!way.lines) {
            continue;
        }
        if (!OpenSource(reader.get(), name, MaskUse::kCode, 0)) {
            abort();
        }
        reader->classify = way.code;
        const Lines scanned = LongWay(reader.get(), G);
        RewindSource(reader.get(), MaskUse::kLines);
        reader->classify = way.lines;
        ForgetMacros(0, G);
        if (CountLines(reader.get(), G)) {
            const Lines counted = Take(G);
            if (memcmp(&counted, &scanned, sizeof counted) != 0) {
                Fail(way.name, counted, scanned);
            }
        }
        CloseSource(reader.get());
        ForgetMacros(0, G);
    }
    close(fd);
    FreeGlobals(G);
    return 0;
}
