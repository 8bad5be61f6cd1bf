// The complexity of a function: cyclomatic by the switches of the settings, interface (parameters and returns), functional (both).
#include "analysis/function.h"

#include <algorithm>

#include "notices/raise.h"
#include "run/branches.h"
#include "run/globals.h"

int GetCycloComplexity(const Globals *G) {
    int cyclo = G->cyclo_function_call ? 1 : 0;
    for (const Branch &branch : kBranches) {
        cyclo += G->*branch.included ? G->*branch.counter : 0;
    }
    return cyclo;
}

int CountComplexity(Globals *G) {
    const int cyclo = GetCycloComplexity(G);
    if (cyclo > G->max_cyclo) {
        Notice_Logical_Limit(cyclo, G);
    }
    const int functional = cyclo + G->local_params + G->local_return;
    G->cyclo_total += cyclo;
    G->cyclo_max = G->cyclo_max == 0 ? cyclo : std::max(G->cyclo_max, cyclo);
    G->returns_total += G->local_return;
    G->params_total += G->local_params;
    G->intercmp_max = G->intercmp_max == 0 ? functional : std::max(G->intercmp_max, functional);
    return cyclo;
}
