// Every switch has its entry in the manual.
#include <doctest/doctest.h>

#include <string>

#include "run/driver/switches.h"
#include "tools/manual.h"

TEST_CASE("each letter of the command line has one entry in the manual") {
    std::string told;
    for (const SwitchEntry &entry : kSwitchEntries) {
        told += entry.letters;
    }
    for (const char *letter = kSwitchLetters; *letter; ++letter) {
        if (*letter != ':') {
            CAPTURE(*letter);
            CHECK(told.find(*letter) != std::string::npos);
            CHECK(told.find(*letter) == told.rfind(*letter));
        }
    }
}
