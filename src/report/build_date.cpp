// The only file that changes with the day it is compiled on. The compiler takes the day from SOURCE_DATE_EPOCH where that is set.
#include "report/frame.h"

const char *BuildDate() {
    return __DATE__;
}
