// The macro file: one word per line. A missing file is generated, and counts from the next run on.
#include "config/macros.h"

#include <cerrno>

#include "run/globals.h"
#include "run/memory.h"
#include "run/program_files.h"
#include "run/read_lines.h"

namespace {

void WriteDefaultMacros(FILE *stream, Globals *G) {
    fprintf(stream,
            "# Tallyline Version %s\n# Predefined Language Macro File\n# Place each macro on a single line followed by a carriage "
            "return\n# Each line starting with a # sign denotes a comment line\n",
            G->version);
    fputs("\n# Win32 macros effecting data and functions\n", stream);
    fputs("__declspec\nDECLSPEC_UUID\nDECLARE_MESSAGE_MAP\nafx_msg\nATL_NO_VTABLE\n", stream);
    fputs("\n# gcc language extension macros effecting data and functions\n", stream);
    fputs("__attribute__\n", stream);
    fputs("\n# End of File\n", stream);
}

} // namespace

int LoadMacros(Globals *G) {
    LineReader reader;
    if (!OpenLines(&reader, G->macro_file)) {
        if (errno == ENOENT) {
            WriteProgramFile(G->macro_file, WriteDefaultMacros, G);
        }
        return 0;
    }
    int loaded = 0;
    LineText line;
    while (NextLine(&reader, line)) {
        // A name begins in the first column: an indented one, "  __declspec", is left out as a comment is.
        if (line[0] <= ' ' || line[0] == '#') {
            continue;
        }
        Rtrim(line);
        if (!AddNameNode(line, 0, 1, &G->macro_list, G)) {
            MemoryError(G);
            break;
        }
        ++loaded;
    }
    CloseLines(&reader);
    return loaded;
}
