// Paths as a report shows them.
#pragma once

#include <string>
#include <string_view>

// Without "./" at the start and in the middle, without doubled "/", and without root (ending in "/") at the start. ".." stays: what
// it leads to depends on links.
std::string ShownPath(std::string_view path, std::string_view root);

// The current directory with a "/" behind it; empty if it can't be told.
std::string CurrentDirectory();
