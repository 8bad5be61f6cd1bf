// The report on two baselines, from loading them to its end.
#pragma once

struct Globals;

// Reports the differences of two work files; the caller ends the process. Differently made baselines end it here with status 1.
void ExtractWork(const char *older_name, const char *newer_name, Globals *G, int full_head);
