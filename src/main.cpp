// Tallyline: source code metrics for C, C++, C# and Java.
#include <csignal>

#include "run/driver/tly.h"

int main(int argc, char **argv) {
    signal(SIGXFSZ, SIG_IGN); // a limit of the file size is an error of the write like a full disk, and told like one
    return tly(argc, argv, TLY_XDG);
}
