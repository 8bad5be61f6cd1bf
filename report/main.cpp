#include <cstring>

#include "options.h"

int main(int argc, char **argv) {
    Options options;
    options.config_home = TLY_XDG;
    int status = kFine;
    if (!ReadCommandLine(argc, argv, options, status)) {
        return status;
    }
    for (const Command *command = kCommands; command->name; ++command) {
        if (options.command == command->name) {
            return command->run(options);
        }
    }
    return kBad;
}
