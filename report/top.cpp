#include "top.h"

#include <algorithm>
#include <numeric>

#include "text_lines.h"

namespace {

constexpr size_t kWidestPlace = 60; // longer ones push their row to the right

std::vector<int64_t> Figures(const Model &m, Rank rank) {
    std::vector<int64_t> figures;
    figures.reserve(m.functions.size());
    for (const FunctionRow &function : m.functions) {
        figures.push_back(rank == Rank::kComplexity   ? function.complexity.cyclomatic
                          : rank == Rank::kLines      ? function.lines.lines
                          : rank == Rank::kParameters ? function.complexity.parameters
                                                      : 0);
    }
    if (rank == Rank::kNotices) {
        for (const Notice &notice : m.notices) {
            if (notice.function != kNone) {
                ++figures[notice.function];
            }
        }
    }
    return figures;
}

} // namespace

std::vector<uint32_t> TopFunctions(const Model &m, Rank rank, size_t most, std::vector<int64_t> &figures) {
    figures = Figures(m, rank);
    std::vector<uint32_t> order(m.functions.size());
    std::iota(order.begin(), order.end(), 0U);
    std::erase_if(order, [&](uint32_t f) { return figures[f] <= 0; });
    const size_t count = std::min(most, order.size());
    std::ranges::partial_sort(order, order.begin() + static_cast<std::ptrdiff_t>(count),
                              [&](uint32_t a, uint32_t b) { return figures[a] != figures[b] ? figures[a] > figures[b] : a < b; });
    order.resize(count);
    return order;
}

bool WriteTop(const Model &m, Rank rank, size_t most, std::FILE *out) {
    std::vector<int64_t> figures;
    const std::vector<uint32_t> order = TopFunctions(m, rank, most, figures);
    LineWriter w{out};
    std::vector<std::string> places;
    size_t width = 5;
    for (const uint32_t f : order) {
        places.push_back(Place(m, m.functions[f].file, m.functions[f].first_line));
        width = std::clamp(places.back().size(), width, kWidestPlace);
    }
    const char *name = kRankNames[static_cast<int>(rank)];
    w.text += std::string(name) + "  place" + std::string(width - 5, ' ') + "  function";
    EndLine(w);
    const size_t figure_width = std::string_view(name).size();
    for (size_t i = 0; i < order.size(); ++i) {
        const std::string figure = std::to_string(figures[order[i]]);
        w.text.append(figure_width - std::min(figure_width, figure.size()), ' ');
        w.text += figure + "  " + places[i];
        w.text.append(width - std::min(width, places[i].size()) + 2, ' ');
        AppendShown(w.text, m.texts[m.functions[order[i]].name]);
        EndLine(w);
    }
    if (order.empty()) {
        w.text += "There is no function to show.";
        EndLine(w);
    }
    return Finish(w);
}
