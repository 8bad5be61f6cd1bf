// The vocabulary of report elements, and the file that chooses among them: one "KEY ON -" per line, comments behind "#".
#include "config/report_cfg.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <strings.h>

#include "config/languages.h"
#include "run/globals.h"
#include "run/program_files.h"
#include "run/read_lines.h"

namespace {

constexpr ElementValue FileName() {
    return {.kind = ElementValue::kFileName};
}
constexpr ElementValue Of(int Globals::*counter) {
    return {.kind = ElementValue::kCounter, .counter = counter};
}
constexpr ElementValue Of(Amount amount) {
    return {.kind = ElementValue::kAmount, .amount = amount};
}
constexpr ElementValue Ratio(Amount part, Amount whole, int decimals) {
    return {.kind = ElementValue::kRatio, .amount = part, .whole = whole, .decimals = decimals};
}
constexpr ElementValue FileOf(int language) {
    return {.kind = ElementValue::kLanguage, .language = language};
}

struct ElementRow {
    const char *key, *label;
    ElementValue value;
};

// clang-format off
constexpr ElementRow kRows[kReportElements] = {
    {"UNKNOWN_DATA_FIELD",                     "Unknown",                 {}},
    // 1: the file
    {"FILE_NAME",                              "File",                    FileName()},
    // 2: lines
    {"LOC_COUNT",                              "LOC",                     Of(kAmountLoc)},
    {"ELOC_COUNT",                             "eLOC",                    Of(kAmountEloc)},
    {"LLOC_COUNT",                             "lLOC",                    Of(kAmountLloc)},
    {"BLANK_LINE_COUNT",                       "Blank",                   Of(kAmountBlanks)},
    {"COMMENT_LINE_COUNT",                     "Comment",                 Of(kAmountComments)},
    {"LOGICAL_LINE_COUNT",                     "Logical",                 Of(kAmountLogical)},
    {"PHYSICAL_LINE_COUNT",                    "Physical",                Of(kAmountPhysical)},
    // 9: literals, directives, declarations
    {"LITERAL_STRING_COUNT",                   "Strings",                 Of(&Globals::string_count)},
    {"LINE_CONTINUATION_COUNT",                "Continuation",            Of(&Globals::continuation_count)},
    {"PREPROCESSOR_COUNT",                     "Preprocessor",            Of(&Globals::preproc_count)},
    {"INCLUDE_COUNT",                          "include",                 Of(&Globals::include_count)},
    {"IMPORT_COUNT",                           "import",                  Of(&Globals::import_count)},
    {"TYPEDEF_COUNT",                          "typedef",                 Of(&Globals::typedef_count)},
    {"CONST_COUNT",                            "const",                   Of(&Globals::const_count)},
    {"ENUM_COUNT",                             "enum",                    Of(&Globals::enum_count)},
    // 17: statements
    {"DO_COUNT",                               "do",                      Of(&Globals::do_count)},
    {"WHILE_COUNT",                            "while",                   Of(&Globals::while_count)},
    {"SWITCH_COUNT",                           "switch",                  Of(&Globals::switch_count)},
    {"DEFAULT_COUNT",                          "default",                 Of(&Globals::default_count)},
    {"FOR_COUNT",                              "for",                     Of(&Globals::for_count)},
    {"CASE_COUNT",                             "case",                    Of(&Globals::case_count)},
    {"BREAK_COUNT",                            "break",                   Of(&Globals::break_count)},
    {"IF_COUNT",                               "if",                      Of(&Globals::if_count)},
    {"ELSE_COUNT",                             "else",                    Of(&Globals::else_count)},
    {"GOTO_COUNT",                             "goto",                    Of(&Globals::goto_count)},
    {"RETURN_COUNT",                           "return",                  Of(&Globals::return_count)},
    {"EXIT_COUNT",                             "exit",                    Of(&Globals::exit_count)},
    {"_EXIT_COUNT",                            "_exit",                   Of(&Globals::_exit_count)},
    {"ABORT_COUNT",                            "abort",                   Of(&Globals::abort_count)},
    {"MACRO_COUNT",                            "macro",                   Of(&Globals::macro_count)},
    // 32: entities
    {"STRUCT_COUNT",                           "struct",                  Of(&Globals::struct_count)},
    {"UNION_COUNT",                            "union",                   Of(&Globals::union_count)},
    {"CLASS_COUNT",                            "class",                   Of(&Globals::class_count)},
    {"INTERFACE_COUNT",                        "interface",               Of(&Globals::interface_count)},
    {"TEMPLATE_COUNT",                         "template",                Of(&Globals::template_count)},
    {"FRIEND_COUNT",                           "friend",                  Of(&Globals::friend_count)},
    {"NAMESPACE_COUNT",                        "namespace",               Of(&Globals::namespace_count)},
    {"PACKAGE_COUNT",                          "package",                 Of(&Globals::package_count)},
    {"FUNCTION_COUNT",                         "functions",               Of(&Globals::function_count)},
    {"VIRTUAL_COUNT",                          "virtual f()",             Of(&Globals::virtual_count)},
    {"INLINE_COUNT",                           "inline",                  Of(&Globals::inline_count)},
    // 43: memory, statements
    {"C_MEMORY_ALLOCATION_COUNT",              "alloc",                   Of(&Globals::alloc_count)},
    {"C_MEMORY_FREE_COUNT",                    "free",                    Of(&Globals::free_count)},
    {"MEMORY_NEW_COUNT",                       "new",                     Of(&Globals::new_count)},
    {"MEMORY_DELETE_COUNT",                    "delete",                  Of(&Globals::delete_count)},
    {"CODE_STATEMENTS_COUNT",                  "statements ;",            Of(&Globals::semicolon_count)},
    {"USING_COUNT",                            "using",                   Of(&Globals::using_count)},
    // 49: brackets
    {"(_COUNT",                                "(",                       Of(&Globals::open_paren)},
    {")_COUNT",                                ")",                       Of(&Globals::close_paren)},
    {"{_COUNT",                                "{",                       Of(&Globals::open_braces)},
    {"}_COUNT",                                "}",                       Of(&Globals::closebrace_count)},
    {"[_COUNT",                                "[",                       Of(&Globals::open_bracket)},
    {"]_COUNT",                                "]",                       Of(&Globals::close_bracket)},
    // 55: quality, ratios
    {"CHARACTERS_PER_NONBLANK_LINE",           "Char/NBL",                Ratio(kAmountVisible, kAmountWritten, 2)},
    {"QUALITY_NOTICE_COUNT",                   "notices",                 Of(kAmountNotices)},
    {"RATIO_LOC_TO_LOGICAL_LINES",             "LOC/Logical",             Ratio(kAmountLoc, kAmountLogical, 4)},
    {"RATIO_ELOC_TO_LOGICAL_LINES",            "eLOC/Logical",            Ratio(kAmountEloc, kAmountLogical, 4)},
    {"RATIO_COMMENTS_TO_LOGICAL_LINES",        "Comments/Logical",        Ratio(kAmountComments, kAmountLogical, 4)},
    {"RATIO_BLANK_LINES_TO_LOGICAL_LINES",     "Blanks/Logical",          Ratio(kAmountBlanks, kAmountLogical, 4)},
    {"RATIO_CHARACTERS_TO_TOTAL_CHARACTERS",   "Characters",              Ratio(kAmountVisible, kAmountChars, 4)},
    {"RATIO_BLANK_LINES_TO_TOTAL_CHARACTERS",  "Whitespace",              Ratio(kAmountWhite, kAmountChars, 4)},
    {"RATIO_COMMENT_LINES_TO_LOC",             "Comments/LOC",            Ratio(kAmountComments, kAmountLoc, 2)},
    {"RATIO_COMMENT_LINES_TO_ELOC",            "Comments/eLOC",           Ratio(kAmountComments, kAmountEloc, 2)},
    {"RATIO_COMMENT_LINES_TO_LLOC",            "Comments_to_lloc",        Ratio(kAmountComments, kAmountLloc, 2)},
    {"RATIO_QUALITY_NOTICES_TO_LOC",           "Notices/LOC",             Ratio(kAmountNotices, kAmountLoc, 2)},
    {"RATIO_QUALITY_NOTICES_TO_ELOC",          "Notices/eLOC",            Ratio(kAmountNotices, kAmountEloc, 2)},
    {"RATIO_QUALITY_NOTICES_TO_LLOC",          "Notices/lLOC",            Ratio(kAmountNotices, kAmountLloc, 2)},
    // 69: files by language
    {"C++_SOURCE_FILE_COUNT",                  "C++ Source",              FileOf(kCpp)},
    {"C_SOURCE_FILE_COUNT",                    "C Source",                FileOf(kC)},
    {"C++_HEADER_FILE_COUNT",                  "C++ Headers",             FileOf(kCppHeader)},
    {"C_HEADER_FILE_COUNT",                    "C Headers",               FileOf(kCHeader)},
    {"JAVA_FILE_COUNT",                        "Java Source",             FileOf(kJava)},
    {"CSHARP_FILE_COUNT",                      "CSharp Source",           FileOf(kCs)},
    {"OTHER_FILE_COUNT",                       "Other Files",             FileOf(kOther)},
    // 76: complexity, difference: nothing that a file has
    {"CYCLOMATIC_COMPLEXITY",                  "Cyclomatic Complexity",   {}},
    {"INTERFACE_COMPLEXITY",                   "Interface Complexity",    {}},
    {"TOTAL_COMPLEXITY",                       "Total Complexity",        {}},
    {"ELOC_PERCENT_DIFF",                      "eLOC %",                  {}},
};
// clang-format on

template <class T> constexpr std::array<T, kReportElements> Column(T ElementRow::*field) {
    std::array<T, kReportElements> column{};
    std::transform(std::begin(kRows), std::end(kRows), column.begin(), [field](const ElementRow &row) { return row.*field; });
    return column;
}

constexpr bool Has(int element, std::string_view key) {
    return kRows[element].key == key;
}
static_assert(Has(kElementLoc, "LOC_COUNT") && Has(kElementLines, "PHYSICAL_LINE_COUNT") &&
              Has(kElementFunctions, "FUNCTION_COUNT") && Has(kElementSemicolons, "CODE_STATEMENTS_COUNT") &&
              Has(kElementNotices, "QUALITY_NOTICE_COUNT") && Has(kElementElocPercent, "ELOC_PERCENT_DIFF"));

} // namespace

const std::array<const char *, kReportElements> RepCfgStr = Column(&ElementRow::key), RepElemStr = Column(&ElementRow::label);
const std::array<ElementValue, kReportElements> kElementValues = Column(&ElementRow::value);

namespace {

// The next blank-separated word of a line, cut off in place; the empty text when there is none.
const char *NextWord(char **rest) {
    constexpr const char *kBlanks = " \t\n\v\f\r";
    char *word = *rest + strspn(*rest, kBlanks);
    char *end = word + strcspn(word, kBlanks);
    *rest = *end ? end + 1 : end;
    *end = '\0';
    return word;
}

// "LOC_COUNT ON -". Keys are spelled exactly: "loc_count ON -" is none. Returns the line's element, or kElementUnknown.
int TakeLine(char *line, ElementChoice *table) {
    char *rest = line + strspn(line, " \t");
    if (!IsLetterOrDigit(*rest)) {
        return kElementUnknown;
    }
    const char *key = NextWord(&rest);
    for (int element = kElementUnknown + 1; element < kReportElements; ++element) {
        if (strcmp(key, RepCfgStr[element]) == 0) {
            table[element].on = strcasecmp(NextWord(&rest), "ON") == 0;
            table[element].plus = strcmp(NextWord(&rest), "+") == 0;
            return element;
        }
    }
    return kElementUnknown;
}

void WriteDiffCfg(FILE *stream, Globals *) {
    fputs("# Tallyline Version\n"
          "# Work File Differential Configuration File\n"
          "#\n"
          "# Modify the following:\n"
          "# OFF Turns off this item in the report\n"
          "# ON  Turns on this item in the report\n"
          "\n"
          "# When a file is removed from the baseline the following +/- indicate the\n"
          "# behavior to the overall total metric\n"
          "# +   Makes the metrics differential to contribute positively to the total\n"
          "# -   Makes the metrics differential to contribute negatively to the total\n"
          "\n"
          "LOC_COUNT             ON -\n"
          "ELOC_COUNT            ON -\n"
          "LLOC_COUNT            ON -\n"
          "COMMENT_LINE_COUNT    ON -\n"
          "BLANK_LINE_COUNT      ON -\n"
          "PHYSICAL_LINE_COUNT   ON -\n"
          "FUNCTION_COUNT        ON -\n"
          "CYCLOMATIC_COMPLEXITY ON -\n"
          "INTERFACE_COMPLEXITY  ON -\n"
          "TOTAL_COMPLEXITY      ON -\n"
          "QUALITY_NOTICE_COUNT  ON -\n"
          "ELOC_PERCENT_DIFF     ON -\n"
          "\n"
          "# End of file\n",
          stream);
}

} // namespace

int ReadReportCfg(FILE *file, ElementChoice *table, int *order) {
    std::fill_n(table, kReportElements, ElementChoice{});
    bool seen[kReportElements] = {};
    int count = 0;
    LineText line;
    for (bool at_start = true; fgets(line, sizeof line, file);) {
        const bool whole = strchr(line, '\n') != nullptr;
        const int element = at_start ? TakeLine(line, table) : kElementUnknown;
        at_start = whole; // the tail of a line too long for the buffer is no line of its own
        if (element != kElementUnknown && !seen[element]) {
            seen[element] = true;
            order[count++] = element;
        }
    }
    return count;
}

int LoadReportCfg(const char *path, ElementChoice *table, Globals *G) {
    FILE *file = OpenRegularFile(path);
    if (file) {
        int order[kReportElements];
        ReadReportCfg(file, table, order);
        fclose(file);
        return 1;
    }
    const bool missing = errno == ENOENT;
    std::fill_n(table, kReportElements, ElementChoice{.on = 1, .plus = 0});
    table[kElementUnknown] = {};
    if (missing && *path) { // what stands there and can't be read may be the user's
        MakeDiffCfgFile(path, G);
    }
    return 0;
}

void MakeDiffCfgFile(const char *path, Globals *G) {
    WriteProgramFile(path, WriteDiffCfg, G);
}
