// The settings file: defaults, reader, writer. What settings there are stands in settings_table.cpp; here is how each type of them
// is read and written.
#include "config/settings.h"

#include <algorithm>
#include <cerrno>
#include <strings.h>

#include "config/languages.h"
#include "config/settings_table.h"
#include "run/encode.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/program_files.h"
#include "run/read_lines.h"

namespace {

constexpr const char *kRow = "####################################################################\n";

bool IsYes(const char *value) {
    return *value != 'n' && *value != 'N';
}

// ---- Reading ----------------------------------------------------------------------------------------------------------------

// A value that is longer than its field is cut.
void ReadText(const Setting &row, const char *value, Globals *G) {
    CopyText(row.field.text(*G), value);
}

// "99999999999" is the greatest value of the row, not what is left of it in an int.
int ReadInteger(const Setting &row, const char *value) {
    return static_cast<int>(std::clamp<long>(strtol(value, nullptr, 10), row.minimum, row.maximum));
}

// With TLYCFGHOME set, all side files lie there: a bare name goes behind it, and a value with a path of its own is passed over.
void ReadUdqnFile(const char *value, Globals *G) {
    const bool has_home = strlen(G->TLYCFGHOME) > 1;
    const bool has_name = strlen(value) > 1;
    const bool passed_over = has_home ? has_name && strchr(value, '/') : !has_name;
    if (!passed_over || *G->udqn_file == '\0') { // else the setting that holds is the one of an earlier file
        CopyText(G->udqn_setting, value);
    }
    if (!passed_over) {
        FormatText(G->udqn_file, "%s%s", has_home ? G->TLYCFGHOME : "", has_name ? value : "tly_udqn.cfg");
    }
}

void ReadValue(const Setting &row, const char *value, Globals *G) {
    const char first = *value;
    switch (row.type) {
    case SettingType::kComment: break;
    case SettingType::kFlag: row.field.number(*G) = IsYes(value); break;
    case SettingType::kInvertedFlag: row.field.number(*G) = !IsYes(value); break;
    case SettingType::kInteger:
        if (IsDigit(first)) {
            row.field.number(*G) = ReadInteger(row, value);
        }
        break;
    case SettingType::kScopeLimit:
        if (IsDigit(first)) {
            const int limit = ReadInteger(row, value);
            row.field.number(*G) = limit == 0 ? row.number : limit;
        }
        break;
    case SettingType::kPercent:
        if (IsDigit(first)) {
            row.field.percent(*G) = static_cast<float>(std::clamp<double>(strtod(value, nullptr), row.minimum, row.maximum));
        }
        break;
    case SettingType::kText:
        if (first != '\0') {
            ReadText(row, value, G);
        }
        break;
    case SettingType::kKeyString:
        if (first != '\0') {
            ReadText(row, value, G);
            G->key_string_set = 1;
        }
        break;
    case SettingType::kTitle:
        if (IsLetterOrDigit(first)) {
            ReadText(row, value, G);
        }
        break;
    case SettingType::kColor:
        if (IsLetterOrDigit(first) || first == '#') {
            ReadText(row, value, G);
        }
        break;
    case SettingType::kList:
        if (IsLetterOrDigit(first)) {
            ReadText(row, value, G);
            // The table of languages doesn't exist yet when tly.cfg is read, but it does for a file of -u.
            parseUlpiExtensions(G->ulpi[row.language], value, G);
        }
        break;
    case SettingType::kPlain: ReadText(row, value, G); break;
    case SettingType::kPath: ReadText(row, first == '\r' ? "" : value, G); break;
    case SettingType::kUdqnFile: ReadUdqnFile(value, G); break;
    case SettingType::kDeprecated:
        Message(G,
                "Notice: Using \"include cyclo complexity in work files\"\n        in tly.cfg is deprecated.  Use the %s\n"
                "        file to define the elements of the baseline metrics\n        differential report\n\n",
                "tly_workdiff.cfg");
        break;
    }
}

// "Maximum Line Length       : 80\n": only the first colon counts, "Report Header Text Line: a:b" has the value "a:b". A line
// whose text in front of a colon is no key is passed over. A file has its keys in the order of the table unless its user moved
// them: the search begins at the row next, behind the one of the last line, and goes round.
void ReadLine(char *line, size_t *next, Globals *G) {
    char *colon = *line == '#' ? nullptr : strchr(line, ':');
    if (!colon) {
        return;
    }
    *colon = '\0';
    Rtrim(line);
    Rtrim(colon + 1);
    const std::span<const Setting> rows = SettingsTable();
    for (size_t i = 0; i < rows.size(); ++i) {
        const size_t at = (*next + i) % rows.size();
        const Setting &row = rows[at];
        // a key's first letter differs from most: bit 5 is what upper and lower case differ in
        if (row.key && ((*row.key ^ *line) & ~0x20) == 0 && strcasecmp(row.key, line) == 0) {
            ReadValue(row, Ltrim(colon + 1), G);
            *next = at + 1;
            return;
        }
    }
}

// ---- Writing ----------------------------------------------------------------------------------------------------------------

// A value on one line: an argument or a directory name may hold a line end, which would begin another setting.
std::string OneLine(const char *value) {
    std::string text = value;
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c >= 0 && c < 32 && c != '\t'; }, '?');
    return text;
}

std::string ValueText(const Setting &row, Globals *G) {
    char number[32] = "";
    switch (row.type) {
    case SettingType::kFlag: return row.field.number(*G) ? "Yes" : "No";
    case SettingType::kInvertedFlag: return row.field.number(*G) ? "No" : "Yes";
    case SettingType::kInteger:
    case SettingType::kScopeLimit: FormatText(number, "%d", row.field.number(*G)); return number;
    case SettingType::kPercent: FormatText(number, "%-6.2f", static_cast<double>(row.field.percent(*G))); return number;
    case SettingType::kUdqnFile: return OneLine(G->udqn_setting); // what its user wrote: read back, it leads to the same file
    case SettingType::kComment:
    case SettingType::kDeprecated: return "";
    default: return OneLine(row.field.text(*G).data());
    }
}

// A text for the stream: escaped where it goes into a page.
std::string Escaped(const std::string &text, bool html) {
    if (!html) {
        return text;
    }
    std::string escaped;
    HTML_esc(text.c_str(), escaped);
    return escaped;
}

std::string RowText(const Setting &row, bool html, const std::string &value) {
    std::string key = row.key;
    key.resize(std::max<size_t>(key.length(), 40), ' ');
    const std::string shown = Escaped(value, html);
    if (html && row.type == SettingType::kColor) {
        return key + ": <font color=\"" + shown + "\">" + shown + "</font>\n";
    }
    if (const size_t padded = key.length() + 2 + value.length() + 1; padded < sizeof(LineText)) {
        return key + ": " + shown + "\n";
    }
    // The padding would push the end of the value out of the line that the reader takes.
    return row.key + (":" + shown) + "\n";
}

std::string HeadText(bool html, bool displayed, const Globals *G) {
    const auto place = [html](const char *label, const char *value) {
        return std::string(label) + ": " + Escaped(OneLine(value), html) + "\n";
    };
    std::string text = "# Tallyline\n# Configuration Data File\n\n"
                       "# This output creates a template for tly.cfg.  TLY uses this file\n"
                       "# for configuring its operation.  This file is a text file and\n"
                       "# must exist in the TLY directory upon the system path or at\n"
                       "# at a location specified by the environment variable TLYHOME.\n"
                       "# The TLY configuration files may also be solely located at a\n"
                       "# location specified by the environment variable TLYCFGHOME.\n"
                       "#\n"
                       "# Lines beginning with the # sign are comments in this file.\n"
                       "# Specific text lines before the colon must appear exactly as\n"
                       "# written.  You may changed the value after the colon to either\n"
                       "# a Yes or No or to a specified value.\n";
    text += place("TLY CFG Version", G->cfg_version) + "\n";
    text += place("# Current Working Dir.", G->start_dir);
    text += place("# Located Config. File", G->cfg_file);
    text += place("# Located Macro File  ", G->macro_file);
    if (G->modern_constructs) { // a row of its user's
        text += displayed ? "# Modern Source Constructs : Yes\n" : "Modern Source Constructs : Yes\n";
    }
    return text + "\n# The following is the current configuration data\n\n";
}

// A settings file of the current values, or what is displayed of it, row by row.
template <class Write> void WriteSettings(bool html, bool displayed, Write write, Globals *G) {
    write(HeadText(html, displayed, G));
    for (const Setting &row : SettingsTable()) {
        if (row.type == SettingType::kComment) {
            write(row.text);
        } else if (!row.read_only) {
            write(RowText(row, html, ValueText(row, G)));
        }
    }
    write(kRow + std::string("# end of tly.cfg\n"));
}

// Writes cfg_file as a file of this version.
int SaveCfg(Globals *G) {
    CopyText(G->cfg_version, G->version);
    return WriteProgramFile(G->cfg_file, ShowCfg, G);
}

} // namespace

void DefaultSettings(Globals *G) {
    static_cast<Settings &>(*G) = Settings{};
    for (const Setting &row : SettingsTable()) {
        if (row.field.number) {
            row.field.number(*G) = row.number;
        } else if (row.field.percent) {
            row.field.percent(*G) = static_cast<float>(row.number);
        } else if (row.field.text) {
            CopyText(row.field.text(*G), row.text);
        }
    }
    G->treat_c_headers_as_cpp = G->notice_enabled[kTreatHeadersAsCpp];
}

int LoadCfg(Globals *G) {
    LineReader reader;
    if (!OpenLines(&reader, G->cfg_file)) {
        // Only a missing file is generated: one that is there but can't be read is its user's.
        if (errno != ENOENT || !SaveCfg(G)) {
            return 0;
        }
        if (!OpenLines(&reader, G->cfg_file)) {
            return 1;
        }
    }
    LineText line;
    size_t row = 0;
    while (NextLine(&reader, line)) {
        ReadLine(line, &row, G);
    }
    const bool read_whole = !ferror(reader.file);
    CloseLines(&reader);
    G->treat_c_headers_as_cpp = G->notice_enabled[kTreatHeadersAsCpp];
    // A file that was read in part only isn't rewritten: the rest of its values would be lost.
    if (read_whole && strcasecmp(G->cfg_version, G->version) != 0) {
        SaveCfg(G);
    }
    return 1;
}

void ShowCfg(FILE *stream, Globals *G) {
    if (stream != gTLYOUT) {
        WriteSettings(
            false, false, [stream](const std::string &text) { fputs(text.c_str(), stream); }, G);
        return;
    }
    const bool html = OutputMode(G) == Mode::kHtml;
    Put("%s", html ? "<html><header><title>\"TLY Configuration\"</title></header><body><pre>" : "");
    FlushEarlyMessages(G); // the display is a report of its own, and has begun here
    WriteSettings(
        html, true, [](const std::string &text) { Put("%s", text.c_str()); }, G);
    Put("%s", html ? "</pre></body></html>" : "");
}
