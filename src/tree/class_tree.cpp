// The first stage of the tree: which class a parent's name means, and a node for every class under every parent.
#include "tree/class_tree.h"

#include <cstring>
#include <vector>

#include "run/globals.h"
#include "run/mode.h"
#include "run/text.h"
#include "tree/lost_children.h"
#include "tree/part_names.h"
#include "tree/tree_nodes.h"

namespace {

// The two texts whose first finder is the parent; 0 for a text that isn't looked for.
struct ParentParts {
    int in_scope, in_any;
};

// Copies the next of "A,B<C,D>": commas between < and the first > divide nothing. Returns what follows, null behind the last.
const char *NextParent(const char *text, LineText &parent) {
    const char *end = text;
    while (*end && *end != ',') {
        if (const char *close = *end == '<' ? strchr(end, '>') : nullptr) {
            end = close;
        } else if (*end == '<') {
            end += strlen(end) - 1;
        }
        ++end;
    }
    CopyPart(parent, text, static_cast<size_t>(end - text));
    return *end ? end + 1 : nullptr;
}

bool HasParents(const ClassData *record) {
    return record->inherit_line && *record->inherit_line > ' ';
}

bool IsClass(const ClassData *record) {
    return record->name && *record->name > ' ';
}

// ns::Base is known by its full name; Base may mean the Base of the child's scope, or of any.
bool IsQualified(const char *parent) {
    return *parent > ' ' && strpbrk(parent, ":.");
}

// The child's name up to its last ":", or else its last ".", in front of the parent's.
bool InScopeOf(const char *child, const char *parent, LineText &text) {
    const char *end = strrchr(child, ':');
    if (!end) {
        end = strrchr(child, '.');
    }
    if (!end) {
        return false;
    }
    CopyPart(text, child, static_cast<size_t>(end + 1 - child));
    return AppendText(text, parent);
}

ParentParts AddParentParts(PartNames &parts, const char *child, const char *parent) {
    ParentParts found{};
    LineText text;
    if (IsQualified(parent)) {
        return found;
    }
    if (InScopeOf(child, parent, text)) {
        found.in_scope = AddPart(parts, text);
    }
    CopyText(text, "::");
    if (AppendText(text, parent)) {
        found.in_any = AddPart(parts, text);
    }
    return found;
}

// The tree needs no look at this stage: it holds no name yet that class_list hasn't.
const char *ResolvedParent(const PartNames &parts, const ParentParts &found, const char *parent) {
    const ClassData *named = ClassWithPart(parts, found.in_scope);
    if (!named) {
        named = ClassWithPart(parts, found.in_any);
    }
    return named ? named->name : parent;
}

void AddBaseClass(const ClassData *record, Globals *G) {
    const char *inherit = record->inherit_line ? record->inherit_line : "";
    if (NodeOfName(&G->tree_names, record->name)) {
        Message(G, "  Error: Duplicate Root Node: %s - Inheritance %s\n", record->name, inherit);
        return;
    }
    AddTreeNodeByName(record->name, inherit, record->file, record->line, record->parents, G);
}

bool EndsInScope(const char *name) {
    const size_t length = strlen(name);
    return length && (name[length - 1] == ':' || name[length - 1] == '.');
}

} // namespace

int AddTreeNodeByName(const char *name, const char *parent, const char *file, int line, int parents, Globals *G) {
    const bool is_root = !parent || !*parent;
    TreeData *above = is_root ? nullptr : NodeOfName(&G->tree_names, parent);
    if (is_root ? NodeOfName(&G->tree_names, name) || EndsInScope(name) : !above && IsLost(name, parent, G)) {
        return 0;
    }
    TreeData *node = NewTreeNode(name, parent, file, line, parents, G);
    if (!node) {
        return 0;
    }
    const bool lost = !is_root && !above;
    HangNode(node, above, lost ? &G->lost_child_list : &G->tree_list, G);
    if (lost) {
        EnterName(&G->lost_names, node, 0);
        return 1;
    }
    EnterTree(node, G);
    if (above) {
        AddNodeToAllParents(node, G);
    }
    return 1;
}

void AddClasses2Tree(Globals *G) {
    PartNames parts;
    std::vector<ParentParts> sought;
    LineText parent;
    for (const ClassData *record : Records<ClassData>(G->class_list)) {
        for (const char *rest = IsClass(record) && HasParents(record) ? record->inherit_line : nullptr; rest;) {
            rest = NextParent(rest, parent);
            sought.push_back(AddParentParts(parts, record->name, parent));
        }
    }
    FindParts(parts, G->class_list);

    const ParentParts *next = sought.data();
    for (const ClassData *record : Records<ClassData>(G->class_list)) {
        if (!IsClass(record)) {
            continue;
        }
        if (!HasParents(record)) {
            AddBaseClass(record, G);
            continue;
        }
        for (const char *rest = record->inherit_line; rest;) {
            rest = NextParent(rest, parent);
            AddTreeNodeByName(record->name, ResolvedParent(parts, *next++, parent), record->file, record->line, record->parents, G);
        }
    }
}

void BuildClassTree(Globals *G) {
    AddClasses2Tree(G);
    LoadTree(G);
    ReAlignBaseClasses(G);
}
