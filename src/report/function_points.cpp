// Function points of a line count.
#include "config/languages.h"
#include "report/lines.h"
#include "run/globals.h"

// kind as GetFP has it.
static double PointsOfKind(int lines, int kind, LanguageGroup language, const Globals *G) {
    const int factor = language == kNoLanguage ? 0 : G->fp_per_language[3 * language + kind];
    return factor < 1 ? 0.0 : static_cast<double>(lines) / factor;
}

FunctionPointValues PointsOf(const LineCounts &lines, LanguageGroup language, const Globals *G) {
    return {PointsOfKind(lines.loc, 0, language, G), PointsOfKind(lines.eloc, 1, language, G),
            PointsOfKind(lines.lloc, 2, language, G)};
}

double GetFP(int lines, int kind, const Globals *G) {
    return kind < 0 || kind > 2 ? 0.0 : PointsOfKind(lines, kind, LanguageInHand(G), G);
}
