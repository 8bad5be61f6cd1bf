// Names as tly qualifies them.
#pragma once

#include <string_view>

// "N::A" of "N::A::f", "p.q.C" of "p.q.C.m"; empty if nothing stands ahead of the name itself. What stands in "<...>" or "(...)"
// divides nothing, nor does the name of an operator.
std::string_view ScopeOf(std::string_view name);
