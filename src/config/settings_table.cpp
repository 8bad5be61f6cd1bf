// The table of settings. Its comments are the user's manual of tly.cfg: they are written into the file as they stand here.
#include "config/settings_table.h"

#include <type_traits>

#include "config/languages.h"

namespace {

// What is above these is a typing error; nothing that is computed from a setting can overflow below them.
constexpr int kMostLines = 1000000;
constexpr int kMostHours = 100000;

template <auto Member> constexpr SettingField FieldOf() {
    using T = std::remove_reference_t<decltype(std::declval<Settings &>().*Member)>;
    if constexpr (std::is_same_v<T, int>) {
        return {.number = [](Settings &s) -> int & { return s.*Member; }};
    } else if constexpr (std::is_same_v<T, float>) {
        return {.percent = [](Settings &s) -> float & { return s.*Member; }};
    } else {
        return {.text = [](Settings &s) -> std::span<char> { return s.*Member; }};
    }
}

template <auto Member> constexpr SettingField at = FieldOf<Member>();
template <int N> constexpr SettingField notice = {.number = [](Settings &s) -> int & { return s.notice_enabled[N]; }};
template <int N> constexpr SettingField factor = {.number = [](Settings &s) -> int & { return s.fp_per_language[N]; }};

constexpr int kNo = 0;
constexpr int kYes = 1;

constexpr Setting Comment(const char *lines) {
    return {.type = SettingType::kComment, .text = lines};
}
constexpr Setting Number(SettingType type, const char *key, SettingField field, int value, int minimum, int maximum) {
    return {.type = type, .key = key, .field = field, .number = value, .minimum = minimum, .maximum = maximum};
}
constexpr Setting Flag(const char *key, SettingField field, int value) {
    return Number(SettingType::kFlag, key, field, value, 0, 1);
}
constexpr Setting Integer(const char *key, SettingField field, int value, int minimum, int maximum) {
    return Number(SettingType::kInteger, key, field, value, minimum, maximum);
}
constexpr Setting Hours(const char *key, SettingField field, int value) {
    return Integer(key, field, value, 0, kMostHours);
}
constexpr Setting Limit(const char *key, SettingField field, int value) {
    return Integer(key, field, value, 0, kMostLines);
}
constexpr Setting Percent(const char *key, SettingField field) {
    return Number(SettingType::kPercent, key, field, 10, 0, 999);
}
constexpr Setting TypedText(SettingType type, const char *key, SettingField field, const char *value) {
    return {.type = type, .key = key, .field = field, .text = value};
}
constexpr Setting Text(const char *key, SettingField field, const char *value) {
    return TypedText(SettingType::kText, key, field, value);
}
constexpr Setting Plain(const char *key, SettingField field, const char *value) {
    return TypedText(SettingType::kPlain, key, field, value);
}
constexpr Setting Color(const char *key, SettingField field, const char *value) {
    return TypedText(SettingType::kColor, key, field, value);
}
constexpr Setting List(const char *key, SettingField field, const char *value, int language) {
    Setting row = TypedText(SettingType::kList, key, field, value);
    row.language = language;
    return row;
}
constexpr Setting ReadOnly(Setting row) {
    row.read_only = true;
    return row;
}

using S = Settings;

#define ROW_68 "####################################################################\n"

// clang-format off
constexpr Setting kSettings[] = {
    Comment(ROW_68
            "# TLY Operational Configuration ####################################\n"
            "\n# Write the report header line at the begin and the end of each\n"
            "# report.  Text and CSV reports show the text line, HTML reports show\n"
            "# the HTML line, which may hold HTML tags.\n"),
    Flag("Report Header Active",                     at<&S::report_header_active>, kNo),
    Text("Report Header Text Line",                  at<&S::header_text>, ""),
    Text("Report Header HTML Line",                  at<&S::header_html>, ""),
    Comment("\n# Allow a second configuration file, which is read after this file\n"
            "# and whose values take the place of the values given here.\n"
            "# This option is enabled by the\n"
            "# end user with the -u \"File cfg path\\file\" option\n"),
    Flag("Enable user defined configuration files",  at<&S::user_cfg_enabled>, kNo),
    Comment("\n# Compare file extensions, directory names and filter patterns with\n"
            "# regard to upper and lower case.  With No, .C is the same as .c.\n"),
    Flag("Source file names are case sensitive",     at<&S::names_case_sensitive>, kNo),
    Comment("\n# Show the progress of the run upon the error output.  Progress is\n"
            "# always shown when the report is written to a file with the -O\n"
            "# option, and is never shown otherwise.\n"),
    Flag("Show progress indicator",                  at<&S::show_progress>, kNo),
    Comment("\n# Show the name of each processed file as the progress of the run\n"
            "# in place of one dot per number of files.\n"),
    Flag("Detailed Progress Showing File Names",     at<&S::progress_by_name>, kNo),
    Comment("\n# Number of processed files for each dot of the progress indicator.\n"),
    Integer("Progress status interval number of files", at<&S::progress_interval>, 10, 1, kMostLines),
    Comment("\n# Show the date and the size of each source file in the file reports.\n"),
    Flag("Show file date and size",                  at<&S::show_date_size>, kYes),
    Comment("\n# Process only files which have one of the extensions listed below.\n"
            "# With No, any file named on the command line is processed.\n"),
    Flag("Validate file extensions for processing",  at<&S::validate_extensions>, kYes),
    Comment("\n"
            "# Specify the extensions for each type of supported language.\n"
            "# Files extensions are separated by commas and are case sensitive\n"
            "# if case sensitivity is specified in this file (comma separated,no spaces).\n"),
    List("C File Extensions",                        at<&S::c_extensions>, "c", kC),
    List("C Header File Extensions",                 at<&S::c_header_extensions>, "h", kCHeader),
    List("C++ File Extensions",                      at<&S::cpp_extensions>, "cc,cpp,cxx,CC", kCpp),
    List("C++ Header File Extensions",               at<&S::cpp_header_extensions>, "h,hh,H,hxx,hpp", kCppHeader),
    List("C# File Extensions",                       at<&S::cs_extensions>, "cs", kCs),
    List("Java File Extensions",                     at<&S::java_extensions>, "java", kJava),
    Comment("\n"
            "# Other files are not officially supported by TLY\n"
            "# but lines will be counted as LOC\n"),
    List("Other File Extensions",                    at<&S::other_extensions>, "", kOther),
    Comment("\n# When analyzing *.h files, treat header files as\n"
            "# both C and C++.  If you use separate extensions for C++ and\n"
            "# C header files, then set this option to No.\n"),
    Flag("Treat C headers as C++",                   notice<kTreatHeadersAsCpp>, kYes),
    Comment("\n# Do not process files whose path contains one of the words of the\n"
            "# pattern filter.  The words are separated by commas and are not\n"
            "# wild cards.\n"),
    Flag("Pattern Filter Active",                    at<&S::pattern_filter_active>, kNo),
    Text("Pattern Filter",                           at<&S::pattern_filter>, ""),
    Comment("\n# TLY Code skip strings allow the TLY parser to skip\n"
            "# processing of all code between the start and stop\n"
            "# tokens.  This is useful for machine generated code.\n"
            "# Code tokens are unique in the could base and if\n"
            "# found on a code line the tly processing will be effected.\n"
            "# Start and stop tokens must match within a file and\n"
            "# cannot span files.  A token cannot contain spaces and\n"
            "# must be alphnumeric and can contain the underscore.\n"
            "# Quality skip tokens turn off just quality notice checking.\n"
            "# i.e.  // TLY_IGNORE_BEGIN\n"
            "#       some code ....\n"
            "#       // TLY_IGNORE_END\n"),
    Text("TLY Code Skip Start Token",                at<&S::skip_start_token>, "TLY_IGNORE_BEGIN"),
    Text("TLY Code Skip End Token",                  at<&S::skip_end_token>, "TLY_IGNORE_END"),
    Text("TLY Code Quality Skip Start Token",        at<&S::quality_skip_start_token>, "TLY_IGNORE_QUALITY_BEGIN"),
    Text("TLY Code Quality Skip End Token",          at<&S::quality_skip_end_token>, "TLY_IGNORE_QUALITY_END"),
    Flag("Activate TLY code skip tokens",            at<&S::skip_tokens_active>, kNo),
    Comment("\n# Leave the named directories out when directories are processed\n"
            "# recursively.  A name is compared with the path of a directory as\n"
            "# the recursion builds it.  Names are separated by commas.\n"),
    Flag("Do not process these local directories",   at<&S::exclude_dirs_active>, kNo),
    Plain("Local directory names not processed",     at<&S::excluded_dirs>, "sccs,cvs,rcs,svn"),
    Comment("\n# Wrap names which are longer than the width of a report to more\n"
            "# lines.  With No, a name is written on one line.\n"),
    Flag("Wrap long names in reports",               at<&S::wrap_long_names>, kYes),

    Comment("\n" ROW_68
            "# TLY Configuration for Baseline Metrics Differentials #############\n"
            "\n# Directory where the latest work file is copied to, under the name\n"
            "# workfile.dat.  Leave it empty to use the current directory.\n"),
    TypedText(SettingType::kPath, "Work file location path", at<&S::work_file_path>, ""),
    Comment("\n# Do not record blank lines for the code differential.\n"),
    Flag("Ignore code differential blank lines",     at<&S::diff_ignore_blank>, kYes),
    Comment("\n# Do not regard blanks within a line for the code differential: lines\n"
            "# which differ only in blanks are equal.\n"),
    Flag("Ignore code differential white space",     at<&S::diff_ignore_white>, kYes),
    Comment("\n# Maximum number of lines in a file when using Longest Common Sequence\n"
            "# differential algorithm.  This value establishes the line to line\n"
            "# comparison matrix size.  This value has been set to the maximum allowed\n"
            "# under 32 bit operating systems.  It is not advised to make this value >\n"
            "# than 10000.  If you have a machine with very low physical memory you may\n"
            "# want to use a value of 6000 to 7000 where 10000 should be a maximum.\n"
            "# When file lengths exceed the matrix limits, the file is segmented to fit\n"
            "# the matrix size.\n"),
    Integer("Maximum LCS file size, number of lines", at<&S::max_lcs_file_lines>, 7000, 1, 20000),
    Comment("\n# Count the lines which were removed from the older baseline as\n"
            "# modified lines.\n"),
    Flag("Add removed older lines as modified",      at<&S::diff_removed_as_modified>, kNo),
    Comment("\n# Select the lines which the detailed line differential shows.\n"),
    Flag("Show equal lines",                         at<&S::show_equal_lines>, kNo),
    Flag("Show lines removed from older file",       at<&S::show_removed_lines>, kNo),
    Flag("Show lines added (mod) to newer file",     at<&S::show_added_lines>, kNo),
    Comment("\n# The following parameter, when set to Yes will cause\n"
            "# the files stored into work files to be relative to the\n"
            "# location specified by the -w\"create top_dir\", baseline\n"
            "# top directory.\n"),
    Flag("Relative Work Files",                      at<&S::relative_work_files>, kYes),
    Comment("\n# Working time between two baselines.  The time between the older and\n"
            "# the newer work file is converted with these values to work days, man\n"
            "# hours, days, weeks, months and years for the productivity report.\n"),
    Hours("Work Seconds per Hour",                   at<&S::work_seconds_per_hour>, 3600),
    Hours("Work Hours per Shift",                    at<&S::work_hours_per_shift>, 8),
    Hours("Work Shifts per Day",                     at<&S::work_shifts_per_day>, 1),
    Hours("Work Days per Week",                      at<&S::work_days_per_week>, 5),
    Hours("Work Hours per Man Day",                  at<&S::work_hours_per_man_day>, 8),
    Hours("Work Hours per Man Week",                 at<&S::work_hours_per_man_week>, 40),
    Hours("Work Hours per Man Month",                at<&S::work_hours_per_man_month>, 160),
    Hours("Work Hours per Man Year",                 at<&S::work_hours_per_man_year>, 1960),

    Comment("\n" ROW_68
            "# Function point conversion factors for LOC metrics\n"
            "\n# Number of lines of code per function point, for each language and\n"
            "# each kind of line count.  A language with a factor of 0 has no\n"
            "# function points.\n"),
    Limit("Header File Function Points per LOC",     factor<0>, 0),
    Limit("Header File Function Points per eLOC",    factor<1>, 0),
    Limit("Header File Function Points per lLOC",    factor<2>, 0),
    Limit("C File Function Points per LOC",          factor<3>, 128),
    Limit("C File Function Points per eLOC",         factor<4>, 128),
    Limit("C File Function Points per lLOC",         factor<5>, 128),
    Limit("C++ File Function Points per LOC",        factor<6>, 53),
    Limit("C++ File Function Points per eLOC",       factor<7>, 53),
    Limit("C++ File Function Points per lLOC",       factor<8>, 53),
    Limit("Java File Function Points per LOC",       factor<9>, 53),
    Limit("Java File Function Points per eLOC",      factor<10>, 53),
    Limit("Java File Function Points per lLOC",      factor<11>, 53),
    Limit("C# File Function Points per LOC",         factor<12>, 53),
    Limit("C# File Function Points per eLOC",        factor<13>, 53),
    Limit("C# File Function Points per lLOC",        factor<14>, 53),
    Limit("Other File Function Points per LOC",      factor<15>, 0),
    Limit("Other File Function Points per eLOC",     factor<16>, 0),
    Limit("Other File Function Points per lLOC",     factor<17>, 0),

    Comment("\n" ROW_68
            "# TLY Configuration for cyclomatic complexity ######################\n"
            "# McCabe Cyclomatic Complexity includes the following constructs in\n"
            "# the calculation.\n"
            "#   function call + if + inline if + while + for + foreach\n"
            "#   case + goto + logical or + Logical and\n"
            "#\n"
            "# You may tailor the cyclomatic complexity calculation to meet your\n"
            "# specific requirements.\n\n"),
    Flag("Include 'function call' in cyclomatic complexity",       at<&S::cyclo_function_call>, kYes),
    Flag("Include 'while' in cyclomatic complexity",               at<&S::cyclo_while>, kYes),
    Flag("Include 'for' in cyclomatic complexity",                 at<&S::cyclo_for>, kYes),
    Flag("Include 'switch' in cyclomatic complexity",              at<&S::cyclo_switch>, kNo),
    Flag("Include 'case' in cyclomatic complexity",                at<&S::cyclo_case>, kYes),
    Flag("Include 'if' in cyclomatic complexity",                  at<&S::cyclo_if>, kYes),
    Flag("Include 'else' in cyclomatic complexity",                at<&S::cyclo_else>, kNo),
    Flag("Include '?' inlined if in cyclomatic complexity",        at<&S::cyclo_inline_if>, kYes),
    Flag("Include 'goto' in cyclomatic complexity",                at<&S::cyclo_goto>, kYes),
    Flag("Include '||' or 'or' in cyclomatic complexity",          at<&S::cyclo_or>, kYes),
    Flag("Include '&&' or 'and' in cyclomatic complexity",         at<&S::cyclo_and>, kYes),

    Comment("\n" ROW_68
            "# TLY Quality Notices Configuration ################################\n"
            "\n# File with the user defined quality notices.  When the environment\n"
            "# variable TLYCFGHOME is set, the file lies there and its name stands\n"
            "# here without a path; without a name it is tly_udqn.cfg.\n"),
    TypedText(SettingType::kUdqnFile, "TLY user defined quality notice file", at<&S::udqn_file>, ""),
    Comment("\n# Write the line number of a quality notice in front of its number.\n"),
    Flag("Reorder notice, line in quality notices",  at<&S::reorder_notice_line>, kNo),

    Comment("\n# TLY Quality Notices For Code Style ###################################\n"
            "\n# Quality Notice No. 1\n"
            "# Emit a quality notice when the physical line length\n"
            "# is greater than the specified number of characters.\n"),
    Flag("Quality Notice 1",                         notice<1>, kYes),
    Limit("Maximum Line Length",                     at<&S::max_line_length>, 80),
    Comment("\n# Quality Notice No. 2\n"
            "# Emit a quality notice when the function name length\n"
            "# is greater than the specified number of characters.\n"),
    Flag("Quality Notice 2",                         notice<2>, kYes),
    Limit("Maximum Function Name Length",            at<&S::max_func_name_len>, 32),
    Comment("\n# Quality Notice No. 21\n"
            "# Emit a quality notice when a file does not contain the key string,\n"
            "# such as the text of a copyright or of a version control system.\n"),
    Flag("Quality Notice 21",                        notice<21>, kNo),
    TypedText(SettingType::kKeyString, "TLY KEY String", at<&S::key_string>, ""),

    Comment("\n# TLY Quality Notices For Stability and Maintainability ################\n"
            "\n# Quality Notice No. 3\n"
            "# Emit a quality notice when an ellipsis '...' is identified as\n"
            "# a function parameter.\n"),
    Flag("Quality Notice 3",                         notice<3>, kYes),
    Comment("\n# Quality Notice No. 4\n"
            "# Emit a quality notice when an assignment '=' is identified\n"
            "# within an 'if' statement.\n"),
    Flag("Quality Notice 4",                         notice<4>, kYes),
    Comment("\n# Quality Notice No. 5\n"
            "# Emit a quality notice when an assignment '=' is identified\n"
            "# within a 'while' statement.\n"),
    Flag("Quality Notice 5",                         notice<5>, kYes),
    Comment("\n# Quality Notice No. 6\n"
            "# Emit a quality notice when a pre-decrement operator '--'\n"
            "# is identified.\n"),
    Flag("Quality Notice 6",                         notice<6>, kYes),
    Comment("\n# Quality Notice No. 7\n"
            "# Emit a quality notice when a pre-increment operator '++'\n"
            "# is identified.\n"),
    Flag("Quality Notice 7",                         notice<7>, kYes),
    Comment("\n# Quality Notice No. 8\n"
            "# Emit a quality notice when the 'realloc' function is identified.\n"),
    Flag("Quality Notice 8",                         notice<8>, kYes),
    Comment("\n# Quality Notice No. 9\n"
            "# Emit a quality notice when the 'goto' keyword is identified.\n"),
    Flag("Quality Notice 9",                         notice<9>, kYes),
    Comment("\n# Quality Notice No. 10\n"
            "# Emit a quality notice when a Non-ANSI function prototype\n"
            "# is identified.\n"),
    Flag("Quality Notice 10",                        notice<10>, kYes),
    Comment("\n# Quality Notice No. 11\n"
            "# Emit a quality notice when the counts of open and closed\n"
            "# brackets '[]' are not equal.\n"),
    Flag("Quality Notice 11",                        notice<11>, kYes),
    Comment("\n# Quality Notice No. 12\n"
            "# Emit a quality notice when the counts of open and closed\n"
            "# parenthesis '()' are not equal.\n"),
    Flag("Quality Notice 12",                        notice<12>, kYes),
    Comment("\n# Quality Notice No. 13\n"
            "# Emit a quality notice when a 'switch' statement does not\n"
            "# have a 'default'.\n"),
    Flag("Quality Notice 13",                        notice<13>, kYes),
    Comment("\n# Quality Notice No. 14\n"
            "# Emit a quality notice when the number of 'case' conditions in a\n"
            "# function does not equal the number of 'break' keywords and\n"
            "# 'fall through' comments.  The second parameter counts each\n"
            "# 'default' as one of the conditions.\n"),
    Flag("Quality Notice 14",                        notice<14>, kYes),
    Flag("Use default in case/break comparison",     at<&S::default_in_case_break>, kNo),
    Comment("\n# Quality Notice No. 15\n"
            "# Emit a quality notice when a friend class is identified.\n"),
    Flag("Quality Notice 15",                        notice<15>, kYes),
    Comment("\n# Quality Notice No. 22\n"
            "# Emit a quality notice when an if, else, for, do or while is not\n"
            "# bound by scope braces.  This needs the function metrics.\n"),
    Flag("Quality Notice 22",                        notice<22>, kYes),
    Comment("\n# Quality Notice No. 23\n"
            "# Emit a quality notice when the '?' ternary operator is identified.\n"),
    Flag("Quality Notice 23",                        notice<23>, kYes),
    Comment("\n# Quality Notice No. 24\n"
            "# Emit a quality notice when an ANSI C++ keyword is identified\n"
            "# within a C file.\n"),
    Flag("Quality Notice 24",                        notice<24>, kYes),
    Comment("\n# Quality Notice No. 25\n"
            "# Deprecated in Version 6.70\n"
            "# See settings under language extensions.\n"),
    Comment("\n# Quality Notice No. 26\n"
            "# Emit a quality notice when the generic type void * is identified.\n"),
    Flag("Quality Notice 26",                        notice<26>, kYes),
    Comment("\n# Quality Notice No. 27\n"
            "# Emit a quality notice when the number of return points of a\n"
            "# function is greater than the specified number.  Each goto may\n"
            "# be counted as a return point.\n"),
    Flag("Quality Notice 27",                        notice<27>, kYes),
    Limit("Maximum functional return points",        at<&S::max_return_points>, 1),
    Flag("Count goto as a function return point",    at<&S::goto_is_return>, kYes),
    Comment("\n# Quality Notice No. 28\n"
            "# Emit a quality notice when the cyclomatic complexity of a\n"
            "# function is greater than the specified number.\n"),
    Flag("Quality Notice 28",                        notice<28>, kYes),
    Limit("Maximum functional cyclomatic complexity", at<&S::max_cyclo>, 10),
    Comment("\n# Quality Notice No. 29\n"
            "# Emit a quality notice when the number of parameters of a\n"
            "# function is greater than the specified number.\n"),
    Flag("Quality Notice 29",                        notice<29>, kYes),
    Limit("Maximum functional interface complexity", at<&S::max_interface>, 6),
    Comment("\n# Quality Notice No. 49\n"
            "# Emit a quality notice when a function has null or blank\n"
            "# parameters, neither a parameter nor void.\n"),
    Flag("Quality Notice 49",                        notice<49>, kYes),
    Comment("\n# Quality Notice No. 30\n"
            "# Emit a quality notice when a TAB character is identified\n"
            "# outside a string.\n"),
    Flag("Quality Notice 30",                        notice<30>, kYes),
    Comment("\n# Quality Notice No. 32\n"
            "# Emit a quality notice when the 'using namespace' construct\n"
            "# is identified.\n"),
    Flag("Quality Notice 32",                        notice<32>, kYes),
    Comment("\n# Quality Notice No. 33\n"
            "# Emit a quality notice when a class or struct is defined within\n"
            "# a function definition.\n"),
    Flag("Quality Notice 33",                        notice<33>, kYes),
    Comment("\n# Quality Notice No. 34\n"
            "# Emit a quality notice when a class specification contains\n"
            "# a pointer to data.\n"),
    Flag("Quality Notice 34",                        notice<34>, kYes),
    Comment("\n# Quality Notice No. 35\n"
            "# Emit a quality notice when a class specification contains public\n"
            "# data.  Public events, constants (const or final) and delegates\n"
            "# may be ignored.\n"),
    Flag("Quality Notice 35",                        notice<35>, kYes),
    Flag("Ignore public event data",                 at<&S::ignore_public_event>, kYes),
    Flag("Ignore public const data",                 at<&S::ignore_public_const>, kYes),
    Flag("Ignore public delegate data",              at<&S::ignore_public_delegate>, kYes),
    Comment("\n# Quality Notice No. 36\n"
            "# Emit a quality notice when a class specification contains\n"
            "# protected data.\n"),
    Flag("Quality Notice 36",                        notice<36>, kYes),
    Comment("\n# Quality Notice No. 37\n"
            "# Emit a quality notice when a base class which defines a virtual\n"
            "# method does not contain a virtual destructor.\n"),
    Flag("Quality Notice 37",                        notice<37>, kYes),
    Comment("\n# Quality Notice No. 38\n"
            "# Emit a quality notice when exception handling, 'try' - 'catch',\n"
            "# is identified.\n"),
    Flag("Quality Notice 38",                        notice<38>, kYes),
    Comment("\n# Quality Notice No. 39\n"
            "# Emit a quality notice when the number of methods of a class or\n"
            "# struct (public, protected and private) is greater than the\n"
            "# specified number.\n"),
    Flag("Quality Notice 39",                        notice<39>, kYes),
    Limit("Maximum number of methods per class",     at<&S::max_class_methods>, 100),
    Comment("\n# Quality Notice No. 40\n"
            "# Emit a quality notice when the depth of the inheritance tree\n"
            "# is greater than the specified number.\n"),
    Flag("Quality Notice 40",                        notice<40>, kYes),
    Limit("Maximum depth of inheritance tree",       at<&S::max_inheritance_depth>, 4),
    Comment("\n# Quality Notice No. 41\n"
            "# Emit a quality notice when the number of classes derived directly\n"
            "# from one class is greater than the specified number.\n"),
    Flag("Quality Notice 41",                        notice<41>, kYes),
    Limit("Maximum number of derived child classes", at<&S::max_derived_children>, 10),
    Comment("\n# Quality Notice No. 42\n"
            "# Emit a quality notice when multiple inheritance is identified.\n"),
    Flag("Quality Notice 42",                        notice<42>, kYes),
    Comment("\n# Quality Notice No. 43\n"
            "# Emit a quality notice when the keyword 'continue' is identified.\n"),
    Flag("Quality Notice 43",                        notice<43>, kYes),
    Comment("\n# Quality Notice No. 44\n"
            "# Emit a quality notice when the keyword 'break' is identified\n"
            "# outside a 'switch' structure.\n"),
    Flag("Quality Notice 44",                        notice<44>, kYes),
    Comment("\n# Quality Notice No. 45\n"
            "# Emit a quality notice when the counts of new and delete\n"
            "# are not equal for a file.\n"),
    Flag("Quality Notice 45",                        notice<45>, kYes),
    Comment("\n# Quality Notice No. 50\n"
            "# Emit a quality notice when a variable is assigned to a literal\n"
            "# number.  The assignment of zero may be included.\n"),
    Flag("Quality Notice 50",                        notice<50>, kYes),
    Flag("Include zero (0) as literal assignment",   at<&S::zero_is_literal>, kNo),
    Comment("\n# Quality Notice No. 55\n"
            "# Emit a quality notice when the depth of scope within a function\n"
            "# is greater than the specified number.  0 stands for 7.\n"),
    Flag("Quality Notice 55",                        notice<55>, kYes),
    Number(SettingType::kScopeLimit, "Maximum depth of scope", at<&S::max_scope_depth>, 7, 0, kMostLines),
    Comment("\n# Quality Notice No. 56\n"
            "# Emit a quality notice when sequential breaks are identified\n"
            "# without a case between them.\n"),
    Flag("Quality Notice 56",                        notice<56>, kYes),

    Comment("\n# TLY Quality Notices for Functional/Struct and Class Content ##########\n"
            "\n# Functions, and classes and structs, of so many LOC or less are not\n"
            "# checked for their content of comments, white space and blank lines.\n"),
    Limit("Min. Function LOC for content analysis",  at<&S::min_func_loc_content>, 0),
    Limit("Min. Class/Struct LOC content analysis",  at<&S::min_class_loc_content>, 0),
    Comment("\n# Quality Notice No. 16\n"
            "# Emit a quality notice when the white space of a function, class,\n"
            "# struct or interface is less than the specified percent.\n"),
    Flag("Quality Notice 16",                        notice<16>, kYes),
    Percent("Minimum Function Whitespace Percent",   at<&S::min_func_white_pct>),
    Comment("\n# Quality Notice No. 17\n"
            "# Emit a quality notice when the comment content of a function\n"
            "# is less than the specified percent.\n"),
    Flag("Quality Notice 17",                        notice<17>, kYes),
    Percent("Minimum Function Comment Line Percent", at<&S::min_func_comment_pct>),
    Comment("\n# Quality Notice No. 18\n"
            "# Emit a quality notice when the eLOC of a function is greater\n"
            "# than the specified maximum.\n"),
    Flag("Quality Notice 18",                        notice<18>, kYes),
    Limit("Maximum Function eLOC",                   at<&S::max_func_eloc>, 200),
    Comment("\n# Quality Notice No. 48\n"
            "# Emit a quality notice when the lLOC of a function is less than\n"
            "# or equal to the specified minimum: a non-operational function.\n"),
    Flag("Quality Notice 48",                        notice<48>, kYes),
    Limit("Minimum Function lLOC",                   at<&S::min_func_eloc>, 0),
    Comment("\n# Quality Notice No. 31\n"
            "# Emit a quality notice when the comments of a class or struct\n"
            "# are less than the specified percent.\n"),
    Flag("Quality Notice 31",                        notice<31>, kYes),
    Percent("Minimum Class/Struct Comment Percent",  at<&S::min_class_comment_pct>),
    Comment("\n# Quality Notice No. 46\n"
            "# Emit a quality notice when the blank lines of a function, class\n"
            "# or struct are less than the specified percent.\n"),
    Flag("Quality Notice 46",                        notice<46>, kNo),
    Percent("Minimum Function Blank Line Percent",   at<&S::min_func_blank_pct>),
    Comment("\n# Quality Notice No. 51\n"
            "# Emit a quality notice when no comment precedes a function block.\n"),
    Flag("Quality Notice 51",                        notice<51>, kNo),
    Comment("\n# Quality Notice No. 52\n"
            "# Emit a quality notice when no comment precedes a class block.\n"),
    Flag("Quality Notice 52",                        notice<52>, kNo),
    Comment("\n# Quality Notice No. 53\n"
            "# Emit a quality notice when no comment precedes a struct block.\n"),
    Flag("Quality Notice 53",                        notice<53>, kNo),
    Comment("\n# Quality Notice No. 54\n"
            "# Emit a quality notice when no comment precedes an interface block.\n"),
    Flag("Quality Notice 54",                        notice<54>, kNo),

    Comment("\n# TLY Quality Notices for File Content #\n"
            "\n# Quality Notice No. 19\n"
            "# Emit a quality notice when the white space of a file is less\n"
            "# than the specified percent.\n"),
    Flag("Quality Notice 19",                        notice<19>, kYes),
    Percent("Minimum File Whitespace Percent",       at<&S::min_file_white_pct>),
    Comment("\n# Number of spaces which a TAB character stands for, in the white\n"
            "# space percent and when tabs are replaced with the -Dt option.\n"),
    Integer("A TAB is equivalent to n space",        at<&S::tab_width>, 2, 0, 64),
    Comment("\n# Quality Notice No. 20\n"
            "# Emit a quality notice when the comment content of a file is less\n"
            "# than the specified percent.\n"),
    Flag("Quality Notice 20",                        notice<20>, kYes),
    Percent("Minimum File Comment Line Percent",     at<&S::min_file_comment_pct>),
    Comment("\n# Quality Notice No. 47\n"
            "# Emit a quality notice when the blank line content of a file is\n"
            "# less than the specified percent.\n"),
    Flag("Quality Notice 47",                        notice<47>, kNo),
    Percent("Minimum File Blank Line Percent",       at<&S::min_file_blank_pct>),

    Comment("\n# TLY Quality Notices Miscellaneous ####################################\n"
            "\n# Quality Notice No. 57\n"
            "# Emit a quality notice when a TLY skip lines token matches: TLY\n"
            "# ignores the lines up to the end token.\n"),
    Flag("Quality Notice 57",                        notice<57>, kNo),
    Comment("\n# Quality Notice No. 58\n"
            "# Emit a quality notice when a TLY skip quality notices token\n"
            "# matches: quality notices are ignored up to the end token.\n"),
    Flag("Quality Notice 58",                        notice<58>, kNo),

    Comment("\n" ROW_68
            "# Code Listing Report Configuration ################################\n"
            "\n# Width of a printed line in characters, from 20 to 2000.  Longer\n"
            "# source lines are folded.\n"),
    Integer("Printed Line Length",                   at<&S::print_line_length>, 80, 20, 2000),
    Comment("\n# Number of lines of a printed page, its margins included.\n"),
    Integer("Printed Page Length",                   at<&S::print_page_length>, 55, 0, 10000),
    Comment("\n# Number of blanks in front of each printed line, at most 43.\n"),
    Integer("Printed Left Margin",                   at<&S::print_left_margin>, 5, 0, 43),
    Comment("\n# Number of empty lines at the top of each page, at most 200.\n"),
    Integer("Printed Top Margin",                    at<&S::print_top_margin>, 1, 0, 200),
    Comment("\n# Title of each page.  It must begin with a letter or a digit and must\n"
            "# not be longer than a printed line.  The -S option replaces it.\n"),
    TypedText(SettingType::kTitle, "Printed Page Header", at<&S::report_title>, "TLY Code Listing"),
    Comment("\n# Break the listing into pages with form feeds.  HTML listings have\n"
            "# no page breaks.\n"),
    Number(SettingType::kInvertedFlag, "Page breaks in code print format", at<&S::no_page_breaks>, 1, 0, 1),

    Comment("\n" ROW_68
            "# HTML Report and Color Configuration ##############################\n"
            "\n# Write the links of HTML reports relative to the directory where TLY\n"
            "# was started.  With No, links are complete file addresses.\n"),
    Flag("Relative HTML Links",                      at<&S::relative_html_links>, kYes),
    Comment("\n"
            "# The following color parameters modify the HTML report\n"
            "# output.  Colors can be specified as Hex or Name.\n"
            "# Blank color parameters will result to the browser default.\n"),
    Color("HTML TLY Color",                          at<&S::html_tly_color>, "#0000FF"),
    Color("HTML Date Color",                         at<&S::html_date_color>, "#0000FF"),
    Color("HTML Text Color",                         at<&S::html_text_color>, "#000000"),
    Color("HTML VLink Color",                        at<&S::html_vlink_color>, "#660099"),
    Color("HTML Link Color",                         at<&S::html_link_color>, "#0000EE"),
    Color("HTML Background Color",                   at<&S::html_background_color>, "#F8F8F8"),
    Color("HTML Error Color",                        at<&S::html_error_color>, "#FF0000"),
    Color("HTML Line Color",                         at<&S::html_line_color>, "#003399"),
    Color("HTML Old File Differential Color",        at<&S::html_old_file_diff_color>, "#CC0033"),
    Color("HTML New File Differential Color",        at<&S::html_new_file_diff_color>, "#336666"),
    Color("HTML File Name Color",                    at<&S::html_file_name_color>, "#0000FF"),
    Color("HTML Function Color",                     at<&S::html_function_color>, "#0000FF"),
    Color("HTML Function Parameter Color",           at<&S::html_function_parameter_color>, "#006600"),
    Color("HTML Template Color",                     at<&S::html_template_color>, "#006699"),
    Color("HTML Macro Color",                        at<&S::html_macro_color>, "#33CCFF"),
    Color("HTML Class Color",                        at<&S::html_class_color>, "#663300"),
    Color("HTML Inheritance Color",                  at<&S::html_inheritance_color>, "#FF3300"),
    Color("HTML Struct Color",                       at<&S::html_struct_color>, "#990000"),
    Color("HTML Notice Color",                       at<&S::html_notice_color>, "#CC0000"),
    Color("HTML Header Color",                       at<&S::html_header_color>, "#993300"),
    Color("HTML New Code Differential Color",        at<&S::html_new_code_diff_color>, "#3366CC"),
    Color("HTML Removed Code Differential Color",    at<&S::html_removed_code_diff_color>, "#FF0000"),
    Color("HTML Modified Code Differential Color",   at<&S::html_modified_code_diff_color>, "#993300"),
    Color("HTML Equal Code Differential Color",      at<&S::html_equal_code_diff_color>, "#00CC00"),
    Color("HTML Total Color",                        at<&S::html_total_color>, "#993300"),
    Color("HTML Inheritance Depth Color",            at<&S::html_inheritance_depth_color>, "#333300"),
    Color("HTML Inheritance Child Color",            at<&S::html_inheritance_child_color>, "#CC6600"),

    // The writer puts the version into the head of the file.
    ReadOnly(TypedText(SettingType::kTitle, "TLY CFG Version", at<&S::cfg_version>, "")),
    // Still understood, but no part of a new file.
    ReadOnly(Color("HTML ALink Color",               at<&S::html_alink_color>, "#CCCCCC")),
    ReadOnly(Flag("Force use of linear lookahead algorithm", at<&S::force_lla>, kNo)),
    ReadOnly(Flag("Use LLA for files > LCS file size", at<&S::lla_for_big_files>, kNo)),
    ReadOnly(Plain("Allowable source code extensions", at<&S::extension_list>, "c,cc,cpp,cxx,C,CC,h,hh,H,hxx,java,jav,cs")),
    ReadOnly(Flag("Modern Source Constructs",        at<&S::modern_constructs>, kNo)),
    ReadOnly(Flag("Quality Notice 25",               notice<kTreatHeadersAsCpp>, kYes)),
    ReadOnly(TypedText(SettingType::kDeprecated, "Include cyclo complexity in work files", {}, "")),
};
// clang-format on

#undef ROW_68

} // namespace

std::span<const Setting> SettingsTable() {
    return kSettings;
}
