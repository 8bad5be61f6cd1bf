// The main of the unit tests. Every room's tests are in its own <room>_test.cpp beside this file.
#define DOCTEST_CONFIG_IMPLEMENT_WITH_MAIN
#include <doctest/doctest.h>
