// Tallyline: source code metrics for C, C++, C# and Java.
#include "run/tly.h"

int main(int argc, char **argv) {
    return tly(argc, argv);
}
