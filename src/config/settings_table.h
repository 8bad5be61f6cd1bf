// The settings of tly.cfg as one table: a row per key, in the order of the file, with the comments that stand between the rows.
//
// The table drives the defaults, the reader, the writer and the display. To add a setting: a field in config_state.h and a row
// here.
#pragma once

#include <span>

#include "run/config_state.h"

enum class SettingType {
    kComment,      // text only, no key
    kFlag,         // "Yes" or "No"; an empty value is Yes
    kInvertedFlag, // a Flag whose field is 1 for No
    kInteger,      // decimal, clipped to the row's range; anything that doesn't begin with a digit is ignored
    kScopeLimit,   // an Integer of which 0 means the default
    kPercent,      // as kInteger, with decimals
    kText,         // an empty value is ignored
    kTitle,        // a Text that begins with a letter or a digit, or is ignored; the version too
    kKeyString,    // a Text that also sets key_string_set
    kColor,        // begins with a letter, a digit or "#", or is ignored
    kList,         // extensions of a language; begins with a letter or a digit, or is ignored
    kPlain,        // taken as it stands, the empty value too
    kPath,         // as kPlain, but a carriage return at the front counts as the empty value
    kUdqnFile,     // a file that lies in TLYCFGHOME, where there is one
    kDeprecated    // a message and nothing else
};

// How a row reaches its field: one of the three, the others null.
struct SettingField {
    int &(*number)(Settings &) = nullptr;
    float &(*percent)(Settings &) = nullptr;
    std::span<char> (*text)(Settings &) = nullptr;
};

struct Setting {
    SettingType type;
    const char *key = nullptr; // as the file spells it; compared without case; null for a comment
    SettingField field = {};   // empty for a comment and a deprecated key
    int number = 0;            // default of a Flag, an Integer or a Percent
    const char *text = "";     // default of a text; of a comment: its lines, as they are written
    int minimum = 0;           // range of an Integer or a Percent
    int maximum = 0;
    int language = 0;       // index of a List's language
    bool read_only = false; // understood, but not written row by row
};

// All rows, in file order.
std::span<const Setting> SettingsTable();
