#include "run/memory.h"

#include <cerrno>
#include <new>

#include "run/globals.h"
#include "run/mode.h"

static constexpr const char *kMemoryError = "  Memory Error: %s\n";

void MemoryError(Globals *G) {
    G->baseline_failed = 1;
    Message(G, kMemoryError, strerror(ENOMEM));
}

// A message would need memory itself.
[[noreturn]] static void EndOfMemory() {
    fprintf(gTLYOUT, kMemoryError, strerror(ENOMEM));
    exit(FinishOutput(1));
}

void TellWhenContainersFail() {
    std::set_new_handler(EndOfMemory);
}
