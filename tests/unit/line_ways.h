// The two ways to the lines of a source, the scanner's and the short one, each with every classifier that this machine can run.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "analysis/entities.h"
#include "analysis/line_counts.h"
#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "files/source_reader.h"
#include "run/globals.h"

struct LineWays {
    int counted = 0; // how often the short way was taken to its end

    // Empty where both agree, else what each of them counted. G's language is that of the text.
    std::string Differ(const char *text, size_t size, Globals *G) {
        const int fd = memfd_create("source", 0);
        if (fd < 0 || write(fd, text, size) != static_cast<ssize_t>(size)) {
            abort();
        }
        const std::string name = "/proc/self/fd/" + std::to_string(fd);
        const Classifiers lines = AllClassifiers(MaskUse::kLines);
        const Classifiers code = AllClassifiers(MaskUse::kCode);
        std::string difference;
        for (const auto way : {&Classifiers::plain, &Classifiers::sse2, &Classifiers::avx2}) {
            if (lines.*way && difference.empty() && OpenSource(reader.get(), name.c_str(), MaskUse::kCode, 0)) {
                reader->classify = code.*way;
                const std::string scanned = Scan(G);
                RewindSource(reader.get(), MaskUse::kLines);
                reader->classify = lines.*way;
                if (CountLines(reader.get(), G)) {
                    ++counted;
                    const std::string short_way = Take(G);
                    difference = short_way == scanned ? "" : "scanned " + scanned + ", counted " + short_way;
                }
                ForgetMacros(0, G);
                CloseSource(reader.get());
            }
        }
        close(fd);
        return difference;
    }

  private:
    std::unique_ptr<SourceReader> reader = std::make_unique<SourceReader>();

    static std::string Take(Globals *G) {
        std::string all;
        const LineCounts of = LinesOf(*G);
        for (const int figure : {of.loc, of.eloc, of.lloc, of.comments, of.blanks, of.lines, G->open_braces, G->closebrace_count}) {
            all += std::to_string(figure) + " ";
        }
        ResetState(G);
        return all;
    }
    std::string Scan(Globals *G) const {
        BeginSource(G);
        SourceLine line;
        for (Piece piece; (piece = NextPiece(reader.get(), &line)) != Piece::kEnd;) {
            if (piece == Piece::kLine) {
                ParseLine(line, ++G->file_line_no, G);
            }
        }
        ForgetMacros(0, G);
        return Take(G);
    }
};
