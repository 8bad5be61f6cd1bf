// Function points of a line count.
#include "report/lines.h"
#include "run/globals.h"

double PointsOf(int lines, int factor) {
    return factor < 1 ? 0.0 : static_cast<double>(lines) / factor;
}

double GetFP(int lines, int kind, const Globals *G) {
    // In the order of fp_per_language. A C header has a second flag, of C or C++: the header factors come first.
    const int languages[] = {G->is_c_header, G->is_c, G->is_cpp, G->is_java, G->is_cs, G->is_other};
    if (kind < 0 || kind > 2) {
        return 0.0;
    }
    for (int language = 0; language < 6; ++language) {
        if (languages[language]) {
            return PointsOf(lines, G->fp_per_language[3 * language + kind]);
        }
    }
    return 0.0;
}
