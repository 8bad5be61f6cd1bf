// Functions: the candidate in hand, the counters of the open one, and the sums of a file. Cleared behind every file.
#pragma once

#include "run/text.h"

// Counters of the open function, set to 0 when it begins. Outside functions they run as well.
struct FunctionCounters {
    int local_while, local_for, local_switch, local_default, local_case, local_break;
    int local_if, local_else, local_inline_if, local_goto, local_or, local_and;
    int local_return;    // return points
    int local_semicolon; // ";"
};

// The head in hand: what the end of its function clears. Its texts stay.
struct FunctionHead {
    int funcname_flag;          // a head was recognised and its body isn't closed
    int param_list_flag;        // inside its parameter list
    int param_capture;          // parameter text is still collected
    int kr_flag;                // a ";" between parameter list and body: old style parameters
    int macro_like_name;        // the name is the line's first token and all upper case
    int func_template;          // func_template_text holds a heading
    int instantiate_colon_flag; // a ":" between head and body: constructor initialisers
};

struct FunctionTexts {
    LineText funcname;           // the candidate, qualified
    LineText params;             // its parameter text
    LineText func_template_text; // its template heading
    LineText func_first_line;    // the line of its "{", outside notice mode
};

struct FunctionState : FunctionHead {
    int param_line;       // the last line collected into params
    int params_loose;     // their white space stands as it was collected
    int inline_flag;      // declared inline
    int local_params;     // parameters of the open function
    int local_void_param; // its parameter list holds void
    // where the open function's figures are measured from
    int func_start_line, func_start_loc, func_start_comment, func_start_blank, func_start_noneffective;
    int func_start_white, func_start_chars;
};

// Sums and extremes over the functions of a file.
struct FunctionSums {
    int file_functions; // functions opened
    int func_loc_sum, func_eloc_sum, func_lloc_sum, func_comment_sum;
    int func_loc_max, func_eloc_max, func_lloc_max;
    int cyclo_total, cyclo_max;
    int intercmp_max; // largest functional complexity
    int returns_total, returns_max, params_total, params_max;
};
