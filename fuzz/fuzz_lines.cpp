// The two ways to the lines of a source, held against one another: libFuzzer calls this with any source. The first byte chooses the
// language.
#include <cstdint>
#include <cstdio>

#include "../tests/unit/line_ways.h"
#include "config/languages.h"
#include "run/driver/teardown.h"
#include "run/driver/tly.h"
#include "run/mode.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    constexpr const char *kNames[] = {"a.c", "a.h", "a.cpp", "a.java", "a.cs", "a.txt", "a"};
    static LineWays ways;
    static FILE *const nowhere = fopen("/dev/null", "w");
    if (size == 0) {
        return 0;
    }
    Globals *G = static_cast<Globals *>(calloc(1, sizeof(Globals)));
    InitGlobals(G);
    AddBuiltInLanguages(G);
    gTLYOUT = nowhere;
    WhichFile(kNames[data[0] % (sizeof kNames / sizeof *kNames)], G, 0);
    G->file_name = "source";
    const std::string difference = ways.Differ(reinterpret_cast<const char *>(data) + 1, size - 1, G);
    if (!difference.empty()) {
        fprintf(stderr, "fuzz_lines: %s\n", difference.c_str());
        abort();
    }
    FreeGlobals(G);
    return 0;
}
