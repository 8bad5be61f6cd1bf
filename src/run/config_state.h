// Settings of tly.cfg, by the section of the file they stand in, and the language table. All last for the whole run.
// A comment names the setting's unit and its use; the keys and defaults stand in settings_table.cpp.
#pragma once

#include "run/notice_numbers.h"
#include "run/text.h"

struct Ulpi;

using ListText = char[255]; // extensions of one language, comma separated
using ColorText = char[21]; // an HTML colour, "#RRGGBB" or a name

struct Languages {
    int ulpi_count; // highest index in use; -1 when empty
    int ulpi_last;  // index of the latest language added, later the language of the latest file
    Ulpi *ulpi[1024];
    char extension[255];                                     // result of getExtension
    int is_c, is_cpp, is_java, is_cs, is_c_header, is_other; // of the current file; a header has two flags
    int treat_c_headers_as_cpp;
    int c_files, c_header_files, cpp_files, cpp_header_files, java_files, cs_files, other_files; // files of the run
};

struct OperationalSettings {
    int report_header_active; // the header line opens and closes reports
    LineText header_text;     // for text and CSV reports
    LineText header_html;     // for HTML reports, taken as HTML
    int user_cfg_enabled;     // -u "File CFG" is allowed
    int names_case_sensitive;
    int show_progress;
    int progress_by_name;
    int progress_interval; // files per dot, at least 1
    int show_date_size;
    int validate_extensions;
    ListText c_extensions, c_header_extensions, cpp_extensions, cpp_header_extensions;
    ListText cs_extensions, java_extensions, other_extensions;
    LineText extension_list; // all valid extensions, or those of -r
    int pattern_filter_active;
    LineText pattern_filter; // comma separated words; a name that holds one is left out
    int exclude_dirs_active;
    LineText excluded_dirs;
    int wrap_long_names;
    int modern_constructs; // the modern reading is on without its switch
    char cfg_version[41];  // version of the program that wrote the file
};

struct SkipTokens {
    LineText skip_start_token, skip_end_token;
    LineText quality_skip_start_token, quality_skip_end_token;
    int skip_tokens_active;
};

struct BaselineSettings {
    PathText work_file_path;
    int diff_ignore_blank;
    int diff_ignore_white;
    int max_lcs_file_lines; // lines
    int diff_removed_as_modified;
    int show_equal_lines, show_removed_lines, show_added_lines;
    int relative_work_files;
    int work_seconds_per_hour, work_hours_per_shift, work_shifts_per_day, work_days_per_week;
    int work_hours_per_man_day, work_hours_per_man_week, work_hours_per_man_month, work_hours_per_man_year;
    int force_lla, lla_for_big_files; // kept for older files: lines are always compared by their longest common sequence
};

struct FunctionPointFactors {
    // Lines per function point: Header, C, C++, Java, C#, Other; each LOC, eLOC, lLOC. Below 1: no function points.
    int fp_per_language[18];
};

struct CyclomaticSettings {
    int cyclo_function_call, cyclo_while, cyclo_for, cyclo_switch, cyclo_case, cyclo_if, cyclo_else;
    int cyclo_inline_if, cyclo_goto, cyclo_or, cyclo_and;
};

struct NoticeSettings {
    int notice_enabled[kNoticeSlots]; // entry n for notice n
    PathText udqn_file;               // user defined notices
    PathText udqn_setting;            // the value udqn_file was made of: what a settings file holds
    int reorder_notice_line;
    int max_line_length;   // characters
    int max_func_name_len; // characters
    LineText key_string;
    int key_string_set;
    int default_in_case_break;
    int max_return_points;
    int goto_is_return;
    int max_cyclo;
    int max_interface;
    int ignore_public_event, ignore_public_const, ignore_public_delegate;
    int max_class_methods;
    int max_inheritance_depth;
    int max_derived_children;
    int zero_is_literal;
    int max_scope_depth;
    int min_func_loc_content, min_class_loc_content;                    // LOC
    float min_func_white_pct, min_func_comment_pct, min_func_blank_pct; // percent
    float min_class_comment_pct;
    float min_file_white_pct, min_file_comment_pct, min_file_blank_pct;
    int max_func_eloc;
    int min_func_eloc;
    int tab_width; // blanks per tab
};

struct ListingSettings {
    int print_line_length; // columns
    int print_page_length; // lines
    int print_left_margin; // columns
    int print_top_margin;  // lines
    LineText report_title; // page header, or the title of -S
    int no_page_breaks;
};

struct HtmlSettings {
    int relative_html_links;
    ColorText html_tly_color, html_date_color, html_text_color, html_vlink_color, html_link_color, html_alink_color;
    ColorText html_background_color, html_error_color, html_line_color, html_old_file_diff_color, html_new_file_diff_color;
    ColorText html_file_name_color, html_function_color, html_function_parameter_color, html_template_color, html_macro_color;
    ColorText html_class_color, html_inheritance_color, html_struct_color, html_notice_color, html_header_color;
    ColorText html_new_code_diff_color, html_removed_code_diff_color, html_modified_code_diff_color, html_equal_code_diff_color;
    ColorText html_total_color, html_inheritance_depth_color, html_inheritance_child_color;
};

// All settings of tly.cfg.
struct Settings : OperationalSettings,
                  SkipTokens,
                  BaselineSettings,
                  FunctionPointFactors,
                  CyclomaticSettings,
                  NoticeSettings,
                  ListingSettings,
                  HtmlSettings {};
