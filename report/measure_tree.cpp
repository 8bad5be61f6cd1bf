#include "measure_tree.h"

#include <unistd.h>

#include "read_project.h"
#include "run.h"

bool MeasureTree(const Options &options, const Tree &tree, bool listed, Model &m, std::string &error) {
    if (tree.files.empty()) {
        m.total.blanks = 0;
        return true;
    }
    Options measured = options;
    measured.output = tree.place + "figures.xml";
    measured.paths = {RootOf(tree)};
    measured.counts_only = !listed;
    m.lists_notices = listed;
    error.clear();
    const bool done = RunTly(measured) == kFine && (listed ? ReadProject : ReadFigures)({measured.output}, RootOf(tree), m, error);
    unlink(measured.output.c_str());
    return done;
}
