// A class or struct that is defined inside a function.
#pragma once

struct Globals;

// Raises notice 33 if the text behind the keyword class or struct opens a definition inside the body of a function. A heading that
// the line leaves open is waited for in local_heading.
void FindLocalDefinition(int is_struct, const char *rest, Globals *G);
// The heading that an earlier line left open goes on with this one. Called at the head of the line, while local_heading.line is
// set.
void ContinueLocalHeading(const char *line, Globals *G);
