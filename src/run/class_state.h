// Classes, structs and interfaces: the heading in hand and the open body. Cleared behind every file.
#pragma once

#include "run/scope_state.h"
#include "run/text.h"

// The texts of a class, which outlive it.
struct ClassTexts {
    LineText classname;
    LineText class_template; // template heading
    LineText inherit_line;   // inheritance text
    int template_done;       // class_template holds one
};

// Where the figures of a class are measured from.
struct ClassStart {
    int class_start_line, class_start_loc, class_start_lloc, class_start_noneffective, class_start_blank, class_start_comment;
    int class_start_white, class_start_chars;
};

// The open body and what is known of a heading: what the end of the outermost class clears.
struct ClassScope {
    int class_scope; // braces open inside the class
    int cls_pub_data, cls_prot_data, cls_priv_data;
    int cls_pub_methods, cls_prot_methods, cls_priv_methods;
    int access_public, access_protected, access_private; // the access section in hand: exactly one inside a class
    int virtual_class;                                   // a virtual method was seen
    int virtual_dtor;                                    // a virtual destructor was seen
    int interface_class;                                 // the open body is an interface
    int inherit_flag;                                    // inheritance text exists
    int inherit_more;                                    // more of it may follow on the next line
    int template_flag;                                   // a template heading waits for its entity
    int template_beg_flag;                               // it is still being read
    int struct_flag;                                     // the open body is a struct
    int struct_pending;                                  // the pending heading is a struct
};

// What a nested class puts aside: one record of the class stack is a copy of this.
struct ClassBody : ClassTexts, ClassStart, ClassScope {
    int class_loc_max_file, class_loc_min_file; // class LOC of the file
};

// A heading that was read and whose "{" has not come.
struct ClassHead {
    int class_pending;
    int interface_flag; // it is an interface's
};

struct TemplateText {
    LineText template_line; // template heading being gathered
};

struct ClassState : ClassBody, ClassHead {
    int class_flag;                          // inside a body
    int classname_pending;                   // the name is looked for on the next line
    int class_index;                         // nesting depth, 0 in a top-level class
    int method_flag, method_done, attr_flag; // the member in hand
    int attr_line;                           // line of the last function end in notice mode: no data member is counted on it
};

// Kept from file to file.
struct ClassRun {
    ClassBody class_stack[kNestingLimit]; // the enclosing classes, from index 0
    int class_nested_flag;                // a class has nested somewhere in the run
    int class_loc_max, class_loc_min;     // class LOC of the project
    int class_lang_seen;                  // a language with classes was seen
};
