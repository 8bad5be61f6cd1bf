// The rules at work: which of them run on a line, what a match does, and how their notices look.
//
// A rule sees the flags as the rules ahead of it on the same line have left them. The cheap tests come first: which rules fit the
// file's extension is settled once per file, a rule whose flags forbid it never reaches its pattern, and one pass over the line
// tells whose patterns may match it (udqn_sieve.cpp).
#include <algorithm>
#include <cstring>
#include <string>
#include <strings.h>

#include "config/languages.h"
#include "notices/long_form.h"
#include "notices/raise.h"
#include "notices/udqn.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/encode.h"
#include "run/globals.h"

namespace {

// Stopped matches that a rule may have before it is switched off: for the file, and for the run.
constexpr int kFileLimitHits = 10, kRunLimitHits = 1000;
constexpr size_t kMaxEscaped = 1023;

bool FitsExtension(const Udqn *record, const char *extension, const Globals *G) {
    for (const char *source : record->sources) {
        if (!source) {
            return false;
        }
        if ((G->names_case_sensitive ? strcmp(source, extension) : strcasecmp(source, extension)) == 0) {
            return true;
        }
    }
    return false;
}

// Chains the active rules for the current file's extension that may ever match.
void ChooseRules(Globals *G) {
    G->udqn_chosen = 1;
    const char *extension = G->file_name ? getExtension(G->file_name, G) : nullptr;
    Udqn **ends[] = {&G->udqn_first[0], &G->udqn_first[1]};
    if (!G->udqn_list.sieves_made) {
        MakeSieves(&G->udqn_list);
    }
    for (Udqn *record : Records<Udqn>(G->udqn_list)) {
        record->file_limit_hits = 0;
        if (extension && record->active && record->context && record->regex && FitsExtension(record, extension, G)) {
            Udqn **&end = ends[record->emit_eof != 0];
            *end = record;
            end = &record->next_in_file;
            G->udqn_split |= record->context > kUdqnLine;
        }
    }
    *ends[0] = *ends[1] = nullptr;
}

// True if all flags of a list are set (wanted 1) or clear (wanted 0). A hole asks for nothing.
bool FlagsAre(int wanted, const int *numbers, int count, const Globals *G) {
    return std::all_of(numbers, numbers + count, [=](int n) { return n == 0 || G->udqn_flags[n] == wanted; });
}

bool MayRun(const Udqn *record, const Globals *G) {
    return FlagsAre(1, record->check_flags, record->check_count, G) &&
           FlagsAre(0, record->not_check_flags, record->not_check_count, G) && record->file_limit_hits < kFileLimitHits &&
           record->limit_hits < kRunLimitHits;
}

// The part of the line that a rule looks at.
const char *Subject(const Udqn *record, const char *text, const Globals *G) {
    switch (record->context) {
    case kUdqnCode: return G->line_code;
    case kUdqnComment: return G->line_comment;
    case kUdqnString: return G->line_string;
    default: return text;
    }
}

// Flag 0 is nobody's: a hole may set it.
void MoveFlags(const Udqn *record, Globals *G) {
    for (int i = 0; i < record->set_count; ++i) {
        G->udqn_flags[record->set_flags[i]] = 1;
    }
    for (int i = 0; i < record->clear_count; ++i) {
        G->udqn_flags[record->clear_flags[i]] = 0;
    }
}

void StripCommas(char *text) {
    if (text) {
        std::replace(text, text + strlen(text), ',', ' ');
    }
}

// The HTML form of a text, cut to what its place holds, in front of an entity rather than within.
std::string Escaped(const char *text) {
    std::string out;
    HTML_esc(text, out);
    if (out.size() > kMaxEscaped) {
        const size_t entity = out.rfind('&', kMaxEscaped - 1);
        const size_t close = entity == std::string::npos ? 0 : out.find(';', entity);
        out.resize(close >= kMaxEscaped ? entity : kMaxEscaped);
    }
    return out;
}

std::string LineWithoutEnd(const Globals *G) {
    LineText line;
    CopyText(line, G->line_text);
    line[strcspn(line, "\r\n")] = '\0';
    return line;
}

// clang-format off
const Placeholder kPlaceholders[] = {
    {"_FILE_", "ExampleFileName.c", "the name of the file",
     [](const Globals *G) { return std::string(G->file_name ? G->file_name : ""); }},
    {"_LINE_", "Some Example Source Code Line;", "the text of the line",
     LineWithoutEnd},
    {"_LINE#_", "127", "its number",
     [](const Globals *G) { return std::to_string(G->file_line_no); }},
    {"_FUNC_", "SomeExampleFunction", "the function open at the line's end; nothing without -fa or -o",
     [](const Globals *G) { return std::string(G->funcname_flag ? G->funcname : ""); }},
    {"_CLASS_", "SomeExampleClass", "the class open there, or nothing",
     [](const Globals *G) { return std::string(G->class_flag ? G->classname : ""); }},
};
// clang-format on

const Placeholder *PlaceholderAt(const char *text) {
    for (const Placeholder &each : kPlaceholders) {
        if (*text == '_' && strncmp(text, each.word, strlen(each.word)) == 0) {
            return &each;
        }
    }
    return nullptr;
}

void Insert(const Placeholder &placeholder, const Globals *G) {
    const std::string text = G->udqn_show ? placeholder.example : placeholder.text(G);
    const Mode mode = FreeTextMode(G);
    if (mode == Mode::kHtml && !G->udqn_show && !text.empty()) {
        PrintOnly<Shown>(mode, "<b>%s</b>", Shown{text.c_str()});
    } else {
        PrintOnly<Shown>(mode, "%s", Shown{text.c_str()});
    }
}

// encoded: the template is HTML already, what is inserted isn't.
void Expand(const char *text, bool encoded, const Globals *G) {
    while (*text) {
        size_t plain = 0;
        const Placeholder *placeholder = nullptr;
        bool line_feed = false;
        for (; text[plain]; ++plain) {
            placeholder = PlaceholderAt(text + plain);
            line_feed = text[plain] == '\\' && text[plain + 1] == 'n';
            if (placeholder || line_feed) {
                break;
            }
        }
        const std::string piece(text, plain);
        PrintOnly<Shown>(encoded ? Mode::kText : FreeTextMode(G), "%s", Shown{piece.c_str()});
        text += plain;
        if (placeholder) {
            Insert(*placeholder, G);
            text += strlen(placeholder->word);
        } else if (line_feed) {
            Put("\n           ");
            text += strlen("\\n");
        }
    }
    Put("\n");
}

void LongForm(Udqn *record, Globals *G) {
    const Mode mode = OutputMode(G);
    if (mode != Mode::kHtml) {
        Put("\n    Notice #%d: ", record->id);
        if (mode == Mode::kCsv) {
            StripCommas(record->message);
        }
        emit_message(record->message, G);
        return;
    }
    PrintHtml(G, "\n    <font color=\"%{notice}\"><b>Notice</b></font> #%d: ", record->id);
    if (record->message) {
        Expand(Escaped(record->message).c_str(), true, G);
    }
}

// A pattern that is stopped again and again would cost more than the rest of the run. Which files a rule is off for is told once.
void SwitchOff(Udqn *record, Globals *G) {
    const char *file = G->file_name ? G->file_name : "";
    if (record->limit_hits == kRunLimitHits) {
        Message(G,
                "\n  Error: The pattern of UDQN %d took too many steps on %d lines\n"
                "         The rule is off for the rest of the run from File: %s\n"
                "         Line: %d\n\n",
                record->id, kRunLimitHits, file, G->file_line_no);
    } else if (record->file_limit_hits == kFileLimitHits && !record->limit_told) {
        record->limit_told = 1;
        Message(G,
                "\n  Error: The pattern of UDQN %d takes too many steps\n"
                "         The rule is off for the rest of File: %s\n"
                "         Line: %d\n"
                "         The same in other files is not reported again\n\n",
                record->id, file, G->file_line_no);
    }
}

bool Matches(Udqn *record, const char *subject, Globals *G) {
    const int hits = record->limit_hits;
    const bool found = pcre_match(subject, record, G) == 0;
    if (record->limit_hits > hits) {
        ++record->file_limit_hits;
        SwitchOff(record, G);
    }
    return found;
}

} // namespace

bool udqn_needs_split(Globals *G) {
    if (!G->udqn_list.count) {
        return false;
    }
    if (!G->udqn_chosen) {
        ChooseRules(G);
    }
    return G->udqn_split;
}

void udqn_process(const char *text, int eof, Globals *G) {
    if (!G->udqn_list.count) {
        return;
    }
    if (!G->udqn_chosen) {
        ChooseRules(G);
    }
    ++G->udqn_line;
    for (Udqn *record = G->udqn_first[eof != 0]; record; record = record->next_in_file) {
        if (!MayRun(record, G)) {
            continue;
        }
        const char *const subject = Subject(record, text, G);
        if (MayMatch(record, subject, G) && Matches(record, subject, G)) {
            emit_udqn(record, G);
        }
    }
}

int pcre_match(const char *text, Udqn *record, Globals *G) {
    if (!record->regex) {
        return -1;
    }
    const UdqnMatch match = pcre_exec(record->regex, text, G->udqn_exec_flags);
    record->limit_hits += match.limit_hit;
    return match.code;
}

int pcre_match_test(const char *text, const Udqn *record, const Globals *G, std::span<char> result) {
    ClearText(result);
    if (!record->regex) {
        CopyText(result, "Pattern Compile Error");
        return -1;
    }
    if (!text) {
        return -1;
    }
    const UdqnMatch match = pcre_exec(record->regex, text, G->udqn_exec_flags);
    if (match.code == 0) {
        FormatText(result, "Expression Match: Start[%d] End[%d] Span[%d]", match.start + 1, match.end, match.end - match.start);
    } else {
        CopyText(result, "No Match");
    }
    return match.code;
}

void emit_udqn(Udqn *record, Globals *G) {
    MoveFlags(record, G);
    if (record->silent) {
        return;
    }
    ++record->count;
    ++G->notice_count;
    if (PrintsInPlace(G) && !G->notice_vs_format && !G->notice_short_format) {
        LongForm(record, G);
    } else if (PrintsInPlace(G) || G->notices_by_file) {
        emit_udqn_lite(record, G);
    }
}

void emit_udqn_lite(Udqn *record, Globals *G) {
    const Mode mode = OutputMode(G);
    if (!G->notices_by_file && !G->notices_by_file_tn) {
        // only remembered
    } else if (G->notice_vs_format) {
        PrintOnly<Shown, int, int, Shown>(mode, "%s(%d) : Notice #%-4d - %s\n", Shown{G->file_name}, G->file_line_no, record->id,
                                          Shown{record->summary});
    } else if (mode == Mode::kHtml) {
        PrintHtml(G, "  <font color=%{notice}>Notice</font> <b>#%4d</b>: Line <b>%d</b>, %s\n", record->id, G->file_line_no,
                  Escaped(record->summary).c_str());
    } else if (mode == Mode::kCsv) {
        StripCommas(record->summary);
        PrintOnly<int, int, Shown>(mode, "Notice #,%4d,Line,%d,%s\n", record->id, G->file_line_no, Shown{record->summary});
    } else if (mode == Mode::kText) {
        PrintOnly<int, int, Shown>(mode, "  Notice #%4d: Line %d, %s\n", record->id, G->file_line_no, Shown{record->summary});
    } else if (!G->totals_no_file_names) {
        std::string summary = record->summary ? record->summary : "";
        StripCommas(summary.data());
        PrintOnly<int, int, Shown>(mode, "<notice>\n<type>%d</type>\n<line>%d</line>\n<description>%s</description></notice>\n",
                                   record->id, G->file_line_no, Shown{summary.c_str()});
    }
    RememberNotice(G->file_name, G->file_line_no, record->id, G);
}

std::span<const Placeholder> Placeholders() {
    return kPlaceholders;
}

void emit_message(const char *text, Globals *G) {
    if (text) {
        Expand(text, false, G);
    }
}

int udqn_notice_total_count(const Globals *G) {
    int total = 0;
    for (const Udqn *record : Records<Udqn>(G->udqn_list)) {
        total += record->active ? record->count : 0;
    }
    return total;
}

void udqn_profile(int total, const Globals *G) {
    static constexpr Forms<int, int, double, Shown> kRow{.text = "  %-4d %6d  %6.2f  %s\n",
                                                         .html = "  <b><font color=\"%{notice}\">%-4d</font></b> "
                                                                 "<b><font color=\"%{function}\">%6d</font></b>  "
                                                                 "<b><font color=\"%{class}\">%6.2f</font></b>  <b>%s</b>\n",
                                                         .csv = "%4d,%6d,%6.2f,%s\n",
                                                         .xml = "<notice>\n<type>%d</type>\n<count>%d</count>\n"
                                                                "<percent>%.2f</percent>\n<description>%s</description>\n"
                                                                "</notice>\n"};
    for (const Udqn *record : Records<Udqn>(G->udqn_list)) {
        if (!record->active || record->silent || record->count <= 0) {
            continue;
        }
        const double percent = total > 0 ? static_cast<double>(record->count) / total * 100.0 : 0.0;
        Print(G, kRow, record->id, record->count, percent, Shown{record->summary});
    }
}
