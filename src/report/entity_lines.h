// The lines and blocks of functions, classes, interfaces and namespaces.
#pragma once

struct Globals;

void ComplexDetails(int cyclo, const Globals *G);
void DataLine(int public_data, int protected_data, int private_data, const Globals *G);
void MethodLine(int public_methods, int protected_methods, int private_methods, const Globals *G);
void ClassFuncLine(int classes, int functions, const Globals *G);

// The block of one record, a FunctionData or a ClassData; one whose name doesn't begin with a letter, "_" or "~" is passed over.
void FunctionDataShow(void *record, Globals *G);
void ClassDataShow(void *record, Globals *G);
void InterDataShow(void *record, Globals *G);
void NamespaceDataShow(void *record, Globals *G);
