// Every switch has its entry in the manual, and the manual fits its page.
#include <doctest/doctest.h>

#include <cstring>
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

TEST_CASE("no line of the manual is wider than its page") {
    const auto check = [](const char *text) {
        for (const char *line = text; *line; line += strcspn(line, "\n") + 1) {
            CAPTURE(std::string(line, strcspn(line, "\n")));
            CHECK(strcspn(line, "\n") <= 76);
        }
    };
    for (const ManualSection &section : kManualSections) {
        check(section.text);
    }
    for (const SwitchEntry &entry : kSwitchEntries) {
        check(entry.text);
    }
}
