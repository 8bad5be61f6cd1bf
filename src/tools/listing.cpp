// Pages of a listing. A page is print_page_length lines long:
//
//   top margin | title | File: ...  Page: 1 | Date: ... | rule | empty line | source lines | rule
//
// Page breaks are off unless the settings ask for them; a browser has no use for them, and XML can't hold a form feed.
#include "tools/listing.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <string>
#include <sys/stat.h>

#include "files/source_reader.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

namespace {

constexpr int kMaxLeftMargin = 43; // blanks that left_margin holds
constexpr int kNumberColumns = 7;  // "    1| " in front of a line
constexpr int kFrameLines = 6;     // a page's head and its closing rule, without the margin

void PutListed(const std::string &text, const Globals *G) {
    PrintOnly(FreeTextMode(G), "%s", Shown{text.c_str()});
}

// A margin wider than its field is clipped, for all that is measured by it too.
void SetLeftMargin(Globals *G) {
    G->print_left_margin = std::clamp(G->print_left_margin, 0, kMaxLeftMargin);
    FormatText(G->left_margin, "%*s", G->print_left_margin, "");
}

void PutPageHead(const char *name, int page, const Globals *G) {
    PutTopMargin(G);
    SetHeaderLine(name, page, G);
}

// The next line as it stands in the file, or a piece of one that is longer than the text. NULs become blanks, so that nothing
// behind them is lost. 0 at the end of the file: a control byte that some systems leave behind the last line is no line.
int NextListedLine(SourceReader *reader, LineText &line) {
    int count;
    const int found = NextBytes(reader, line, &count);
    if (!found || (count < kMaxPiece && line[count - 1] != '\n' && *line >= 0 && *line < 12 && *line != '\t')) {
        return 0;
    }
    std::replace(line, line + count, '\0', ' ');
    line[count] = '\0';
    return 1;
}

} // namespace

void SetBars(Globals *G) {
    const auto length = static_cast<int>(strlen(G->report_title));
    if (length > G->print_line_length) {
        Message(G,
                "\n  Error: The Specified header length (%d) exceeds\n         the available line length (%d). \n"
                "         Header: %s\n",
                length, G->print_line_length, G->report_title);
        EndProcess(G, 1);
    }
    SetLeftMargin(G);
    const int room = static_cast<int>(sizeof G->bar_dash) - 3 - G->print_left_margin; // for the rule, ahead of two line feeds
    const std::string rule(static_cast<size_t>(std::clamp(G->print_line_length, 0, room)), '_');
    FormatText(G->bar_dash, "%s%s\n\n", G->left_margin, rule.c_str());
    FormatText(G->bar_page, "%s%s\n", G->left_margin, rule.c_str());
    const int header_room = static_cast<int>(sizeof G->bar_header) - 2; // ahead of the line feed
    const double middle = G->print_left_margin + G->print_line_length / 2.0 - length / 2.0;
    const int blanks = static_cast<int>(std::clamp(std::ceil(middle), 0.0, static_cast<double>(std::max(header_room - length, 0))));
    FormatText(G->bar_header, "%*s%.*s\n", blanks, "", header_room - blanks, G->report_title);
}

void PutTopMargin(const Globals *G) {
    for (int i = 0; i < G->print_top_margin; ++i) {
        Put("\n");
    }
}

// The page number ends at the right margin, unless the name leaves it no room.
void SetHeaderLine(const char *name, int page, const Globals *G) {
    const std::string number = std::to_string(page);
    std::string line = std::string(G->left_margin) + "File: " + name;
    const auto width = static_cast<size_t>(std::max(G->print_line_length, 0));
    for (size_t blanks = 0; width > line.size() + 2 * blanks; ++blanks) {
        line += ' ';
    }
    const size_t end = width + static_cast<size_t>(std::max(G->print_left_margin, 0));
    const size_t behind = strlen("Page: ") + number.size();
    if (end > line.size() + behind) {
        line.append(end - line.size() - behind, ' ');
    }
    PutListed(G->bar_header, G);
    PutListed(line, G);
    Put("%s%s\n%s", G->no_page_breaks ? "" : "Page: ", G->no_page_breaks ? "" : number.c_str(), G->left_margin);
    struct stat about;
    if (stat(name, &about) == 0) {
        Put("Date: %s", get_date(&about.st_mtime).c_str());
    }
    Put("\n%s", G->bar_dash);
}

int PutLine(const char *line, int number, const Globals *G) {
    const size_t width = static_cast<size_t>(std::max(G->print_line_length - kNumberColumns, 1));
    size_t length = strnlen(line, sizeof(LineText) - 1);
    const bool ended = length > 0 && line[length - 1] == '\n';
    length -= ended;
    const bool carriage = ended && length > 0 && line[length - 1] == '\r';
    length -= carriage;
    char prefix[16];
    FormatText(prefix, "%5d| ", number);

    std::string text = std::string(G->left_margin) + prefix;
    text.append(line, std::min(width, length));
    int rows = 1;
    for (size_t at = width; at < length; at += width) {
        text += '\n';
        text += G->left_margin;
        text += "     | ";
        text.append(line + at, std::min(width, length - at));
        ++rows;
    }
    text += carriage ? "\r\n" : "\n";
    PutListed(text, G);
    return rows;
}

int PrintCode(SourceReader *reader, const char *name, Globals *G) {
    if (const Mode mode = OutputMode(G); mode == Mode::kHtml || mode == Mode::kXml) {
        G->no_page_breaks = 1;
    }
    const int first = G->print_top_margin + 1;
    const int last = G->print_page_length - kFrameLines;
    int used = first;
    int page = 1;
    int number = 0;
    PutPageHead(name, page, G);
    LineText line;
    while (NextListedLine(reader, line)) {
        used += PutLine(line, ++number, G);
        if (!G->no_page_breaks && used > last) {
            Put("%s\f\n", G->bar_page);
            PutPageHead(name, ++page, G);
            used = first;
        }
    }
    for (; !G->no_page_breaks && used <= last; ++used) {
        Put("\n");
    }
    Put("%s\n", G->bar_page);
    return number;
}
