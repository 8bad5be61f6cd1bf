// The page from top to bottom: each section is a row of kSections.
#include "page.h"
#include "page_html.h"
#include "page_sections.h"
#include "page_style.h"

namespace {

struct Section {
    const char *id;
    const char *title;
    bool (*is_wanted)(const PageInput &in);
    void (*write)(std::string &out, const PageInput &in);
};

bool Always(const PageInput &) {
    return true;
}

constexpr Section kSections[] = {
    {"summary", "Summary", Always, WriteSummary},
    {"baselines", "Comparison of two baselines", [](const PageInput &in) { return in.comparison.has_value(); }, WriteComparison},
    {"trend", "Trend", [](const PageInput &in) { return !in.trend.empty(); }, WriteTrend},
    {"languages", "Languages", Always, WriteLanguages},
    {"complexity", "Spread of complexity", Always, WriteComplexity},
    {"functions", "Most complex functions", Always, WriteWorst},
    {"files", "Largest files", Always, WriteFiles},
    {"notices", "Notices", Always, WriteKinds},
    {"inheritance", "Inheritance", Always, WriteInheritance},
};

void WriteHead(std::string &out, const PageInput &in) {
    const std::string title = in.m.title ? Shown(in.m.texts[in.m.title]) : "Code metrics";
    out += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src &apos;none&apos;; style-src "
           "&apos;unsafe-inline&apos;\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n"
           "<meta name=\"color-scheme\" content=\"light dark\"/>\n<title>" +
           title + "</title>\n<style>" + kPageStyle + "</style>\n</head>\n<body>\n<header>\n<h1>" + title + "</h1>\n";
    out += "<p class=\"soft\">";
    out += in.now.date.empty() ? "Measured" : "Measured " + Shown(in.now.date);
    out += in.m.version ? " by tly " + Shown(in.m.texts[in.m.version]) : " by tly";
    out += in.now.modern ? ", with today’s constructs <span class=\"nobr\">(-xMODERN)</span>." : ".";
    if (in.before) {
        out +=
            " Compared with " + Isolated(in.before->name) + (in.before->date.empty() ? "" : " of " + Shown(in.before->date)) + ".";
    }
    out += "</p>\n<nav aria-label=\"Sections\"><ul>\n";
    for (const Section &section : kSections) {
        if (section.is_wanted(in)) {
            out += std::string("<li><a href=\"#") + section.id + "\">" + section.title + "</a></li>\n";
        }
    }
    out += "</ul></nav>\n</header>\n<main>\n";
}

void WriteFoot(std::string &out, const PageInput &in) {
    out += "</main>\n<footer>\n<section id=\"terms\" aria-labelledby=\"terms-title\">\n<h2 id=\"terms-title\">What the figures "
           "mean</h2>\n<dl>\n"
           "<dt>Lines of code</dt><dd>lines with more on them than white space and comments</dd>\n"
           "<dt>Effective lines of code</dt><dd>of these, lines with more than a brace or a parenthesis</dd>\n"
           "<dt>Logical lines of code</dt><dd>statements</dd>\n"
           "<dt>Comment lines</dt><dd>lines with comment text, also beside code</dd>\n"
           "<dt>Cyclomatic complexity</dt><dd>ways through a function: one, and one more for each decision</dd>\n"
           "<dt>Notice</dt><dd>a place where the code departs from a rule of good practice</dd>\n"
           "</dl>\n";
    if (in.m.command) {
        AppendParagraph(out, "Command of the run: " + Isolated(in.m.texts[in.m.command]));
    }
    out += "</section>\n</footer>\n</body>\n</html>\n";
}

} // namespace

bool WritePage(const PageInput &in, std::FILE *file) {
    std::string out;
    WriteHead(out, in);
    for (const Section &section : kSections) {
        if (section.is_wanted(in)) {
            const std::string title_id = std::string(section.id) + "-title";
            out.append("<section id=\"").append(section.id).append("\" aria-labelledby=\"").append(title_id).append("\">\n");
            out.append("<h2 id=\"").append(title_id).append("\">").append(section.title).append("</h2>\n");
            section.write(out, in);
            out += "</section>\n";
        }
    }
    WriteFoot(out, in);
    return fwrite(out.data(), 1, out.size(), file) == out.size() && fflush(file) == 0;
}
