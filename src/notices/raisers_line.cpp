// The notices of a line, a character or a keyword, and those of the whole file.
#include "notices/raise.h"

#include <cstring>

#include "notices/catalogue.h"
#include "notices/long_form.h"
#include "run/globals.h"

namespace {

// What a notice is about beside its place: true if it holds here.
bool IsMeant(int n, const Globals *G) {
    switch (n) {
    case kNoticeEllipsis: return G->quality_notices && !G->catch_flag; // catch (...) takes everything, it is no argument list
    case kNoticeTernary: return !G->macro_flag;
    case kNoticeClassPointer: return !G->struct_flag && !G->assignment_flag;
    case kNoticePublicData:
        return !G->struct_flag && !G->enum_flag && !(G->event_flag && G->ignore_public_event) &&
               !(G->const_flag && G->ignore_public_const) && !(G->delegate_flag && G->ignore_public_delegate);
    case kNoticeProtectedData: return !G->struct_flag;
    case kNoticeBreak: return G->switch_depth == 0;
    case kNoticeNoParameters: return strchr(G->funcname, '~') == nullptr;
    default: return true;
    }
}

constexpr LongText<int, int> kLineLength{"Line character length = `%d`.  This width\n"
                                         "           exceeds the standard terminal width of %d characters.\n"};

constexpr const char *kMacroDecrement = "a pre-decrement '`--` operator' identified\n"
                                        "           within a MACRO.  This syntax is non-portable and is\n"
                                        "           NOT recommended within macro definitions.\n";
constexpr const char *kMacroIncrement = "a pre-increment '`++` operator' identified\n"
                                        "           within a MACRO.  This syntax is non-portable and is\n"
                                        "           NOT recommended within macro definitions.\n";

constexpr LongText<const char *, const char *> kBareBody{"The keyword, '`%s`', appears not to be delimited\n"
                                                         "           with scope { .. } operators around its content.  This\n"
                                                         "           could cause a maintenance problem where code falls outside\n"
                                                         "           the intended scope of the '`%s`' statement.\n"};

constexpr LongText<Shown> kCppWord{"An ANSI C++ keyword '`%s`' has been found\n"
                                   "           within a C file.  This will cause a compile error if this file\n"
                                   "           is compiled with a C++ compiler.  It is suggested that this\n"
                                   "           symbol name be changed to a non-conflicting name for C to\n"
                                   "           C++ migration.\n"};

constexpr LongText<int, int> kScopeDepth{"           The depth of scope '`%d`' exceeds the notice limit of `%d`.\n"};

constexpr LongText<double, double> kFileWhite{"File white space percentage, %.1f%% is less than %.1f%%\n",
                                              "File white space percentage, `%.1f%%` is less than `%.1f%%` \n"};
constexpr LongText<double, double> kFileComments{"File comment line percentage, %.1f%% is less than %.1f%%\n",
                                                 "File comment line percentage, `%.1f%%` is less than `%.1f%%` \n"};
constexpr LongText<double, double> kFileBlank{"File blank line percentage, %.1f%% is less than %.1f%%\n",
                                              "File blank line percentage, `%.1f%%` is less than `%.1f%%` \n"};

constexpr LongText<const char *, Shown> kKeyString{"File does not contain the key string specified in the\n"
                                                   "            %s file.\n"
                                                   "            Key String: %s\n\n",
                                                   "File does not contain the key string specified in the\n"
                                                   "            %s file.\n"
                                                   "            Key String: `<i>%s</i>`\n\n"};

// A closer without a partner has a head of its own: the brackets around it say more than a line number.
void WriteStrayHead(const Globals *G) {
    const Shown file{G->file_name};
    const Mode mode = OutputMode(G);
    if (mode == Mode::kHtml) {
        PrintHtml(G,
                  "\n<font color=\"%{notice}\"><b>    Notice</b></font> #12:\n"
                  "           <b>File</b>: %s\n"
                  "           <b>Line</b>: %d\n",
                  file, G->file_line_no);
    } else if (G->reorder_notice_line) {
        PrintOnly<int, Shown>(mode, "\n    Line: %d\n           File: %s\n           Notice: #12\n", G->file_line_no, file);
    } else {
        PrintOnly<Shown, int>(mode, "\n    Notice: #12\n           File: %s\n           Line: %d\n", file, G->file_line_no);
    }
}

} // namespace

void NoticeAtLine(int n, Globals *G) {
    if (IsMeant(n, G) && Raise(n, G)) {
        WriteRowText(n, G->file_line_no, G);
    }
}

void EmitLineLengthNotice(int length, Globals *G) {
    if (Raise(kNoticeLineLength, G)) {
        WriteLong(kNoticeLineLength, G->file_line_no, G, kLineLength, length, G->max_line_length);
    }
}

// In a macro the notice prints in its place first; outside, the short form comes first: with -N it is never a long one.
void NoticePreStep(int n, Globals *G) {
    if (!CountNotice(n, G)) {
        return;
    }
    if (G->macro_flag && PrintsInPlace(G)) {
        if (PrintNotice(n, 1, G)) {
            WriteText(n, G->file_line_no, n == kNoticePreDecrement ? kMacroDecrement : kMacroIncrement, nullptr, G);
        }
    } else if (G->notices_by_file) {
        PrintNotice(n, 0, G);
    } else if (PrintNotice(n, PrintsInPlace(G), G)) {
        WriteRowText(n, G->file_line_no, G);
    }
}

void NoticeStray(char closer, Globals *G) {
    const Mode mode = OutputMode(G);
    if (!G->notice_enabled[kNoticeParentheses] || !PrintsInPlace(G) || mode == Mode::kCsv || mode == Mode::kXml) {
        return;
    }
    ++G->notice_count; // also in a skip region: from here on the counts of the file are repaired ones
    ++G->notice_cnt[kNoticeParentheses];
    if (!PrintNotice(kNoticeParentheses, 1, G)) {
        return;
    }
    WriteStrayHead(G);
    Put("%s", closer == ')' ? "           Parenthesis are not balanced.  This may ndicate the\n"
                              "           use of conditional compilation, #ifdef.  TLY processes\n"
                              "           all source code where bracing and parenthesis\n"
                              "           counts in the file must be equal and well formed.  Parenthesis\n"
                              "           count is now force to an equal state\n"
                            : "           Brace scope is not balanced.  This may indicate the\n"
                              "           use of conditional compilation, #ifdef.  TLY processes\n"
                              "           all source code where bracing and parenthesis\n"
                              "           counts in the file must be equal and well formed.  Brace\n"
                              "           and paren counts are now forced to an equal state.  Suggest the\n"
                              "           file be restructured to a more formal state.\n\n");
}

void EmitScopeError(Globals *G) {
    if (G->function_metrics && CountNotice(kNoticeBareBody, G) &&
        PrintNotice(kNoticeBareBody, PrintsInPlace(G) && !G->macro_flag, G)) {
        const char *word = kBodyWords[G->scope_kind];
        WriteLong(kNoticeBareBody, G->scope_line, G, kBareBody, word, word);
    }
    static_cast<BodyWatch &>(*G) = BodyWatch{};
}

void CPP_Symbol(int line, const char *word, Globals *G) {
    if (!G->error_flag && Raise(kNoticeCppWord, G)) { // #error needs a class here
        WriteLong(kNoticeCppWord, line, G, kCppWord, Shown{word});
    }
}

void EmitScopeNotice(Globals *G) {
    if (G->function_metrics && CountNotice(kNoticeScopeDepth, G) &&
        PrintNotice(kNoticeScopeDepth, PrintsInPlace(G) && !G->macro_flag, G)) {
        WriteLong(kNoticeScopeDepth, G->file_line_no, G, kScopeDepth, G->function_scope, G->max_scope_depth);
    }
}

void NoticeFilePercent(int n, float measured, float limit, Globals *G) {
    if (Raise(n, G)) {
        const auto &text = n == kNoticeFileWhite ? kFileWhite : n == kNoticeFileComments ? kFileComments : kFileBlank;
        WriteLong(n, G->file_line_no, G, text, static_cast<double>(measured), static_cast<double>(limit));
    }
}

void NoticeKeyString(Globals *G) {
    if (Raise(kNoticeKeyString, G)) {
        WriteLong(kNoticeKeyString, G->file_line_no, G, kKeyString, "tly.cfg", Shown{G->key_string});
    }
}

void EmitNewDelNotice(Globals *G) {
    if (Raise(kNoticeNewDelete, G)) {
        WriteRowText(kNoticeNewDelete, G->file_line_no, G);
    }
}
