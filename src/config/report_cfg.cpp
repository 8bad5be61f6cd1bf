// The vocabulary of report elements, and the file that chooses among them: one "KEY ON -" per line, comments behind "#".
#include "config/report_cfg.h"

#include <cerrno>
#include <strings.h>

#include "run/globals.h"
#include "run/program_files.h"
#include "run/read_lines.h"

// clang-format off
const char *const RepCfgStr[kReportElements] = {
    "UNKNOWN_DATA_FIELD", "FILE_NAME",
    // 2: lines
    "LOC_COUNT", "ELOC_COUNT", "LLOC_COUNT", "BLANK_LINE_COUNT", "COMMENT_LINE_COUNT", "LOGICAL_LINE_COUNT", "PHYSICAL_LINE_COUNT",
    // 9: literals, directives, declarations
    "LITERAL_STRING_COUNT", "LINE_CONTINUATION_COUNT", "PREPROCESSOR_COUNT", "INCLUDE_COUNT", "IMPORT_COUNT", "TYPEDEF_COUNT",
    "CONST_COUNT", "ENUM_COUNT",
    // 17: statements
    "DO_COUNT", "WHILE_COUNT", "SWITCH_COUNT", "DEFAULT_COUNT", "FOR_COUNT", "CASE_COUNT", "BREAK_COUNT", "IF_COUNT", "ELSE_COUNT",
    "GOTO_COUNT", "RETURN_COUNT", "EXIT_COUNT", "_EXIT_COUNT", "ABORT_COUNT", "MACRO_COUNT",
    // 32: entities
    "STRUCT_COUNT", "UNION_COUNT", "CLASS_COUNT", "INTERFACE_COUNT", "TEMPLATE_COUNT", "FRIEND_COUNT", "NAMESPACE_COUNT",
    "PACKAGE_COUNT", "FUNCTION_COUNT", "VIRTUAL_COUNT", "INLINE_COUNT",
    // 43: memory, statements
    "C_MEMORY_ALLOCATION_COUNT", "C_MEMORY_FREE_COUNT", "MEMORY_NEW_COUNT", "MEMORY_DELETE_COUNT", "CODE_STATEMENTS_COUNT",
    "USING_COUNT",
    // 49: brackets
    "(_COUNT", ")_COUNT", "{_COUNT", "}_COUNT", "[_COUNT", "]_COUNT",
    // 55: quality, ratios
    "CHARACTERS_PER_NONBLANK_LINE", "QUALITY_NOTICE_COUNT",
    "RATIO_LOC_TO_LOGICAL_LINES", "RATIO_ELOC_TO_LOGICAL_LINES", "RATIO_COMMENTS_TO_LOGICAL_LINES",
    "RATIO_BLANK_LINES_TO_LOGICAL_LINES", "RATIO_CHARACTERS_TO_TOTAL_CHARACTERS", "RATIO_BLANK_LINES_TO_TOTAL_CHARACTERS",
    "RATIO_COMMENT_LINES_TO_LOC", "RATIO_COMMENT_LINES_TO_ELOC", "RATIO_COMMENT_LINES_TO_LLOC",
    "RATIO_QUALITY_NOTICES_TO_LOC", "RATIO_QUALITY_NOTICES_TO_ELOC", "RATIO_QUALITY_NOTICES_TO_LLOC",
    // 69: files by language
    "C++_SOURCE_FILE_COUNT", "C_SOURCE_FILE_COUNT", "C++_HEADER_FILE_COUNT", "C_HEADER_FILE_COUNT", "JAVA_FILE_COUNT",
    "CSHARP_FILE_COUNT", "OTHER_FILE_COUNT",
    // 76: complexity, difference
    "CYCLOMATIC_COMPLEXITY", "INTERFACE_COMPLEXITY", "TOTAL_COMPLEXITY", "ELOC_PERCENT_DIFF",
};

const char *const RepElemStr[kReportElements] = {
    "Unknown", "File",
    "LOC", "eLOC", "lLOC", "Blank", "Comment", "Logical", "Physical",
    "Strings", "Continuation", "Preprocessor", "include", "import", "typedef",
    "const", "enum",
    "do", "while", "switch", "default", "for", "case", "break", "if", "else",
    "goto", "return", "exit", "_exit", "abort", "macro",
    "struct", "union", "class", "interface", "template", "friend", "namespace",
    "package", "functions", "virtual f()", "inline",
    "alloc", "free", "new", "delete", "statements ;",
    "using",
    "(", ")", "{", "}", "[", "]",
    "Char/NBL", "notices",
    "LOC/Logical", "eLOC/Logical", "Comments/Logical",
    "Blanks/Logical", "Characters", "Whitespace",
    "Comments/LOC", "Comments/eLOC", "Comments_to_lloc",
    "Notices/LOC", "Notices/eLOC", "Notices/lLOC",
    "C++ Source", "C Source", "C++ Headers", "C Headers", "Java Source",
    "CSharp Source", "Other Files",
    "Cyclomatic Complexity", "Interface Complexity", "Total Complexity", "eLOC %",
};
// clang-format on

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
