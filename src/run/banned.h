// Force-included into every source of this project: text functions that know no bounds don't compile here.
// Use the verbs of run/text.h instead.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>

#pragma GCC poison strcpy strcat sprintf vsprintf strncpy strncat strtok gets
