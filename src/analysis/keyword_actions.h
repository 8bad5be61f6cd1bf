// What the acting keywords do. Each is called with scan.index on the first letter of its word, which was seen as a keyword; end is
// the index behind it. What a word merely counts, and a flag that it merely sets, stand in its row of keywords.cpp.
#pragma once

struct Globals;
struct Scan;

void OnBreak(Scan &scan, int end, Globals *G);
void OnClass(Scan &scan, int end, Globals *G);
void OnDo(Scan &scan, int end, Globals *G);
void OnElse(Scan &scan, int end, Globals *G);
void OnEnum(Scan &scan, int end, Globals *G);
void OnExtends(Scan &scan, int end, Globals *G);
void OnFor(Scan &scan, int end, Globals *G);
void OnForeach(Scan &scan, int end, Globals *G);
void OnGet(Scan &scan, int end, Globals *G);
void OnGoto(Scan &scan, int end, Globals *G);
void OnIf(Scan &scan, int end, Globals *G);
void OnInterface(Scan &scan, int end, Globals *G);
void OnReturn(Scan &scan, int end, Globals *G);
void OnSet(Scan &scan, int end, Globals *G);
void OnStatic(Scan &scan, int end, Globals *G);
void OnStruct(Scan &scan, int end, Globals *G);
void OnSwitch(Scan &scan, int end, Globals *G);
void OnTemplate(Scan &scan, int end, Globals *G);
void OnVirtual(Scan &scan, int end, Globals *G);
void OnVoid(Scan &scan, int end, Globals *G);
void OnWhile(Scan &scan, int end, Globals *G);

// The macro region of a #define with parameters ends at the first line end without a backslash. Only while macro_flag is set.
void EndMacroRegion(Globals *G);
