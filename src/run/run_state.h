// The run's own fields: who was called, where its files are, and one flag for every switch of the command line.
// All of them last for the whole run. Flags are 0 or 1.
#pragma once

#include "run/text.h"

struct Globals;

struct RunSwitches {
    void (*teardown)(Globals *G); // frees everything in G, and G itself; the driver sets it
    int debug;                    // -xDEBUG or the environment: shows how each line was read
    int diff_debug;               // -xDIFFDEBUG
    int show_class_methods;       // -fm or the environment
    int argc;
    char **argv;
    int sort_descending; // -kd
};

struct CommandText {
    char command_line[4096];   // the arguments joined by blanks
    LineText prog_name;        // argv[0]
    LineText top_dir;          // top directory of -r or of a baseline
    LineText start_dir;        // working directory at the start
    PathText file_list_name;   // the list file of -F
    PathText output_file_name; // the report file of -O; empty for stdout
    PathText csv_report_file;  // configuration of a configurable CSV report
    PathText xsl_file;         // style sheet of an XML report
    int report_file_type;      // 2 for a configurable CSV report
    char version[21];
};

struct ProgramPaths {
    PathText cfg_file;      // tly.cfg
    PathText macro_file;    // tly_macro.cfg
    PathText diff_cfg_file; // tly_workdiff.cfg
    PathText PROGPATH;      // directory of argv[0], with its trailing "/"; empty when it names none
    PathText TLYHOME;       // home directory with a trailing "/"
    PathText TLYCFGHOME;    // where all side files are; overrides everything else
    const char *SYSTEMPATH; // value of PATH; null when unset
};

// Files that the dots on stderr stand for.
struct FileProgress {
    int counter;   // since the latest percentage
    int processed; // told by that percentage
};

struct OutputModes {
    int html_mode;          // -H
    int csv_mode;           // -C, -A
    int csv_mode_c;         // the same
    int xml_mode;           // -X
    int output_to_file;     // -O
    int no_config;          // -xNOCONFIG: no configuration lines in the head
    int no_command;         // -xNOCOMMAND: no command line in the head
    int no_header;          // -xNOHEADER: no head
    int title_set;          // -S
    int xsl_file_set;       // -u File XSL
    int csv_file_lines;     // -s or -fa behind -C: one CSV line per file
    int csv_function_lines; // -fa behind -C: one CSV line per function
};

struct ReportSwitches {
    int report_switch_given;      // a report was asked for by name
    int memory_metrics;           // -a
    int complexity_metrics;       // -c and others
    int complexity_detail;        // -fd
    int determine_source;         // -d
    int estimate_mode;            // -e
    int function_metrics;         // -fa and others
    int function_metrics_implied; // functions are measured for the class reports only
    int function_points;          // -fp and others
    int functions_unlisted;       // nothing that is printed walks the list of functions: it isn't filled
    int object_metrics;           // -o and others
    int inheritance_report;       // -i and others
    int list_functions;           // -l
    int macro_metrics;            // -m
    int quality_notices;          // -n and others
    int notices_by_file;          // -N, -Tn, -Tq
    int notices_by_file_tn;       // -Tn
    int notice_short_format;      // -Ns
    int notice_vs_format;         // -Nv
    int udqn_show;                // -xUDQNSHOW
    int file_summary;             // always on once the command line is read
    int verbose_metrics;          // -v, -Tv
    int benchmark_mode;           // -b
    int template_ident;           // -EC
    int sort_key;                 // -k; 0 for none
    int sort_active;              // -k with a number was given
};

struct TotalsSwitches {
    int totals_only; // -T, -X, -w: no per-file reports
    int totals_all;
    int totals_files_detail;
    int totals_functions;
    int tree_only;
    int totals_summaries_only;
    int totals_language;
    int totals_no_file_names;
    int totals_classes;
    int totals_interfaces;
    int totals_namespaces;
    int totals_quality_profile;
    int totals_notice_summary;
    int totals_summary;
    int verbose_totals;
    int totals_work;
};

struct FileSwitches {
    int recursive_mode;     // -r
    int no_recursion;       // -Rd
    int file_list_mode;     // -F
    int list_files_only;    // -Rl
    int sort_input_by_name; // -Rn
    int have_files;         // file arguments were given, or files were found
    int file_arg_count;     // file arguments; later the number of listed files
};

struct ToolSwitches {
    int decharacter_mode; // -D
    int decharacter_tabs; // -Dt
    int decharacter_unix; // -Du
    int decharacter_dos;  // -Dd
    int extract_mode;     // -Es, -Ec
    int extract_strings;  // -Es
    int extract_comments; // -Ec, -EC
    int comment_doc_mode; // -EC
    int print_mode;       // -p
    int syntax_pause;     // -hp: the short syntax waits for a key
};

struct WorkSwitches {
    int work_file_create;   // -w"Create dir"
    int work_deterministic; // -wD
    int diff_code_lines;    // -wd
    int skip_equal;         // -we
    int skip_removed;       // -wr
    int skip_modified;      // -wm
    int skip_new;           // -wn
    int show_glossary;      // -wg
    int show_work_basis;    // -wb
    int show_productivity;  // -wp
    int diff_show_details;  // -ws
    int work_verbose;       // -wv
    PathText work_file_name;
    PathText older_work_name; // the first file of -wx
    PathText newer_work_name; // the second
};
