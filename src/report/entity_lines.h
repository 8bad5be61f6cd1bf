// The lines and blocks of functions, classes, interfaces and namespaces.
#pragma once

struct Globals;
struct NodeData;

void ComplexDetails(int cyclo, const Globals *G);
void DataLine(int public_data, int protected_data, int private_data, const Globals *G);
void MethodLine(int public_methods, int protected_methods, int private_methods, const Globals *G);
void ClassFuncLine(int classes, int functions, const Globals *G);

// The block of one record; a record whose name doesn't begin with a letter, "_" or "~" is passed over.
void FunctionDataShow(NodeData *record, Globals *G);
void ClassDataShow(NodeData *record, Globals *G);
void InterDataShow(NodeData *record, Globals *G);
void NamespaceDataShow(NodeData *record, Globals *G);
