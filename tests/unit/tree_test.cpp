// The class tree: where classes find their place, whatever their order, and that no shape of a project is too much.
#include "bench.h"

#include <algorithm>

#include "analysis/entities.h"
#include "tree/class_tree.h"
#include "tree/tree_nodes.h"

namespace {

struct Bench : StateBench {
    void Add(const std::string &name, const std::string &parents) {
        AddClassRecord(name.c_str(), parents.empty() ? nullptr : parents.c_str(), nullptr, 1, 0, 0, 0, G);
    }
    // "B:A C:A,B": classes and their parents, in the order of the sources. "=" stands for ":" inside a name.
    explicit Bench(const std::string &classes = "") {
        ResetState(G);
        G->file_name = "bench";
        for (size_t begin = 0; begin < classes.size();) {
            const size_t end = std::min(classes.find(' ', begin), classes.size());
            std::string name = classes.substr(begin, end - begin), parents;
            if (const size_t colon = name.find(':'); colon != std::string::npos) {
                parents = name.substr(colon + 1);
                name.resize(colon);
            }
            std::replace(name.begin(), name.end(), '=', ':');
            std::replace(parents.begin(), parents.end(), '=', ':');
            Add(name, parents);
            begin = end + 1;
        }
    }
    // "A0 B1 C2": names and depths, as the report shows them; the lost ones behind "|".
    std::string Tree() {
        BuildClassTree(G);
        std::string shown;
        for (TreeData *node = G->tree_list.head ? Record<TreeData>(G->tree_list.head) : nullptr; node;
             node = NextNode(node, nullptr)) {
            shown += shown.empty() ? "" : " ";
            shown += node->name + std::to_string(node->depth);
        }
        for (const TreeData *node : Records<TreeData>(G->lost_child_list)) {
            shown += "|" + std::string(node->name) + "<" + node->parent;
        }
        return shown;
    }
};

} // namespace

TEST_CASE("every class finds its place") {
    static constexpr struct {
        const char *classes, *tree;
    } kCases[] = {
        {"A", "A0"},
        {"C:B B:A A", "A0 B1 C2"},             // the wrong order
        {"A:Lib B:A", "Lib0 A1 B2"},           // a parent that no file holds
        {"b:x a:x x", "x0 a1 b1"},             // siblings by name
        {"A B C:A,B D:C", "A0 C1 D2 B0 C1"},   // two nodes; children go below the first
        {"B:A,Z A D:B", "A0 B1 D2 Z0 B1"},     // both lost, then found one by one
        {"A B:A,Z D:B", "A0 B1 D2 Z0 B1 D2"},  // a lost node of the parent gets its copy
        {"A:B B:C C:D", "D0 C1 B2 A3"},        // roots made for lost ones are removed
        {"n==C:B n==B B", "B0 n==B0 n==C1"},   // the parent of the own scope
        {"C:B n==Base", "n::Base0 C1"},        // the first name with the text in it
        {"p.C:B p.Bx p.B", "p.B0 p.Bx0 p.C1"}, // also ahead of the exact one
        {"D:T<A,B>,C", "C0 D1 T<A,B>0 D1"},    // no parent ends inside < >
        {"D:T<A,B", "T<A,B0 D1"},              // nor behind one that stays open
        {"A:Z= B:Z.", "|A<Z:|B<Z."},           // no name of a class
        {"A:A", "A0 A1"},                      // below itself
        {"A:B B:A", "B0 A1 B2 A3"},            // a circle ends
        {"A:B B:A,Z", "Z0 B1 A2 B3 A4"},
        // a parent below its own name takes nobody
        {"B:A C:F D:C A:A,D", "F0 C1 D2 A3 A4 B4"},
    };
    for (const auto &c : kCases) {
        CAPTURE(c.classes);
        std::string expected = c.tree;
        std::replace(expected.begin(), expected.end(), '=', ':');
        CHECK(Bench(c.classes).Tree() == expected);
    }
}

// Long chains, wide families, diamonds over diamonds: each builds at once and breaks no stack.
TEST_CASE("large and hostile trees") {
    constexpr int kClasses = 20000;
    static constexpr const char *kShapes[] = {"up", "down", "circle", "wide", "both", "diamond"};
    for (const std::string shape : kShapes) {
        CAPTURE(shape);
        Bench bench("R");
        for (int i = 0; i < (shape == "diamond" ? 200 : kClasses); ++i) {
            const int next = shape == "up" ? i + 1 : shape == "circle" ? (i + 1) % kClasses : i - 1;
            std::string parents = shape == "wide" ? "R" : "C" + std::to_string(next);
            if (shape == "diamond") {
                bench.Add("D" + std::to_string(i), i ? parents + ",D" + std::to_string(next) : "R,Z");
                parents = i ? parents + ",D" + std::to_string(next) : "R,Z";
            } else if (shape == "both") {
                parents += ",R";
            }
            bench.Add("C" + std::to_string(i), parents);
        }
        BuildClassTree(bench.G);
        CHECK(bench.G->lost_child_list.count == 0);
        int base = 0, derived = 0, total = 0;
        UniqueClassesInTree(&base, &derived, &total, bench.G);
        CHECK(total >= (shape == "diamond" ? 400 : kClasses));
    }
}
