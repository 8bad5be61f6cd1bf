// The file's counters into the project's sums, and back.
#include "analysis/roll_up.h"

#include <array>
#include <bit>
#include <climits>
#include <type_traits>

#include "config/languages.h"
#include "run/globals.h"

namespace {

static_assert(std::has_unique_object_representations_v<FileCounters>, "FileCounters holds ints only: it is summed cell by cell");
using CounterCells = std::array<int, sizeof(FileCounters) / sizeof(int)>;

void AddCounters(FileCounters &sum, const FileCounters &file) {
    CounterCells cells = std::bit_cast<CounterCells>(sum);
    const CounterCells more = std::bit_cast<CounterCells>(file);
    for (size_t i = 0; i < cells.size(); ++i) {
        if (__builtin_add_overflow(cells[i], more[i], &cells[i])) {
            cells[i] = INT_MAX; // characters of a very large project
        }
    }
    sum = std::bit_cast<FileCounters>(cells);
}

} // namespace

void ResetState(Globals *G) {
    static_cast<PerFile &>(*G) = PerFile{};
    static_assert(sizeof(PerFileTexts) % sizeof(LineText) == 0);
    char *texts = reinterpret_cast<char *>(static_cast<PerFileTexts *>(G));
    for (size_t text = 0; text < sizeof(PerFileTexts); text += sizeof(LineText)) {
        texts[text] = '\0';
    }
    if (G->udqn_chosen) {
        static_cast<UdqnFileState &>(*G) = UdqnFileState{};
    }
    G->comment_star_index = -1;
    G->access_private = 1;
}

void AddTotal(Globals *G) {
    AddCounters(G->total, *G);
    G->total_points.fp_loc += G->fp_loc;
    G->total_points.fp_eloc += G->fp_eloc;
    G->total_points.fp_lloc += G->fp_lloc;

    const LanguageGroup language = LanguageInHand(G);
    Add(G->language_sums[language == kNoLanguage ? kOtherGroup : language], LinesOf(*G));
}

void SetTotal(Globals *G) {
    static_cast<FileCounters &>(*G) = G->total;
    static_cast<FunctionPointValues &>(*G) = G->total_points;
    G->project_files =
        G->c_files + G->c_header_files + G->cpp_files + G->cpp_header_files + G->java_files + G->cs_files + G->other_files;
}
