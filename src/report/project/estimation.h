// What one function, parameter, return point and unit of complexity cost in lines, over all functions of a run.
#pragma once

struct Globals;

// Prints the report of -e in HTML, or plain in every other mode. Nothing without functions; 0.00 for a divisor of 0.
void ShowEstimation(Globals *G);
