// Namespaces and packages.
#pragma once

struct Globals;
struct ClassData;
struct Scan;

// The keywords; end is the index behind the word. When a record can't be made: a message, and scan.aborted is set.
void OnNamespace(Scan &scan, int end, Globals *G);
void OnPackage(Scan &scan, int end, Globals *G);
// A namespace of this name begins inside the one in hand.
void OpenNamespace(const char *name, Scan &scan, Globals *G);
// The line that tells that the scope in hand begins, or with 0 ends.
void EmitNamespace(Globals *G, int begin);
// The "}" in hand ends the open namespace.
void CloseNamespace(Globals *G);
// Adds a class record's figures to the innermost namespace in its name; with only_count just raises its class count.
void Add_Class2namespace(const ClassData *record, int only_count, Globals *G);
