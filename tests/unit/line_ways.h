// The two ways to the lines of a source, the scanner's and the short one, each with every classifier that this machine can run.
#pragma once

#include <string>
#include <string_view>

#include "analysis/entities.h"
#include "analysis/line_counts.h"
#include "analysis/parse_line.h"
#include "analysis/roll_up.h"
#include "run/globals.h"
#include "text_source.h"

struct LineWays {
    int counted = 0; // how often the short way was taken to its end

    // Empty where both agree, else what each of them counted. G's language is that of the text.
    std::string Differ(const char *text, size_t size, Globals *G) {
        const TextSource source(std::string_view(text, size));
        SourceReader *reader = source.reader.get();
        const Classifiers lines = AllClassifiers(MaskUse::kLines);
        const Classifiers code = AllClassifiers(MaskUse::kCode);
        std::string difference;
        for (const auto way : {&Classifiers::plain, &Classifiers::sse2, &Classifiers::avx2}) {
            if (lines.*way && difference.empty() && RewindSource(reader, MaskUse::kCode)) {
                reader->classify = code.*way;
                const std::string scanned = Scan(reader, G);
                RewindSource(reader, MaskUse::kLines);
                reader->classify = lines.*way;
                if (CountLines(reader, G)) {
                    ++counted;
                    const std::string short_way = Take(G);
                    difference = short_way == scanned ? "" : "scanned " + scanned + ", counted " + short_way;
                }
                ForgetMacros(0, G);
            }
        }
        return difference;
    }

  private:
    static std::string Take(Globals *G) {
        std::string all;
        const LineCounts of = LinesOf(*G);
        for (const int figure : {of.loc, of.eloc, of.lloc, of.comments, of.blanks, of.lines, G->open_braces, G->closebrace_count}) {
            all += std::to_string(figure) + " ";
        }
        ResetState(G);
        return all;
    }
    static std::string Scan(SourceReader *reader, Globals *G) {
        ScanSource(reader, G);
        ForgetMacros(0, G);
        return Take(G);
    }
};
