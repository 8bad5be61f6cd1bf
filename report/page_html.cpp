#include "page_html.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "model.h"
#include "utf8.h"
#include "xml_text.h"

namespace {

constexpr const char *kMinus = "−";

// Commas between the thousands of the digits ahead of any point.
std::string Grouped(std::string digits) {
    const size_t point = std::min(digits.find('.'), digits.size());
    for (size_t at = point; at > 3;) {
        at -= 3;
        digits.insert(at, ",");
    }
    return digits;
}

bool IsZero(double value, int decimals) {
    return std::fabs(value) < 0.5 * std::pow(10.0, -decimals);
}

std::string Signed(double value, int decimals) {
    return (IsZero(value, decimals) ? "" : value < 0 ? kMinus : "+") + Fixed(std::fabs(value), decimals);
}

const char *ClassOf(unsigned style) {
    constexpr const char *kClasses[] = {"", " class=\"n\"", " class=\"w\"", " class=\"n w\""};
    return kClasses[style & 3U];
}

} // namespace

std::string Count(int64_t value) {
    return (value < 0 ? kMinus : "") + Grouped(std::to_string(value < 0 ? -value : value));
}

std::string Fixed(double value, int decimals) {
    char text[64];
    snprintf(text, sizeof text, "%.*f", decimals, std::fabs(value));
    return (value < 0 && !IsZero(value, decimals) ? kMinus : "") + Grouped(text);
}

std::string Share(double part, double whole) {
    return whole > 0 ? Fixed(100 * part / whole, 1) + "%" : "–";
}

std::string Change(double now, double before, int decimals) {
    const double difference = now - before;
    if (IsZero(difference, decimals)) {
        return "0";
    }
    std::string text = Signed(difference, decimals);
    if (before > 0) {
        text += " (" + Signed(100 * difference / before, 1) + "%)";
    }
    return text;
}

bool IsTold(double value) {
    return value != static_cast<double>(kUntold);
}

std::string Value(double value, int decimals) {
    return IsTold(value) ? Fixed(value, decimals) : std::string("<span class=\"soft\">") + kUntoldText + "</span>";
}

std::string PlainValue(double value, int decimals) {
    return IsTold(value) ? Fixed(value, decimals) : "-";
}

std::string PlainChange(double now, double before, int decimals) {
    if (!IsTold(now) || !IsTold(before)) {
        return "";
    }
    const std::string size = Fixed(std::abs(now - before), decimals);
    const bool none = size.find_first_not_of("0.") == std::string::npos;
    return (none ? "" : now > before ? "+" : "-") + size;
}

std::string Judged(double now, double before, int decimals, bool less_is_better) {
    if (!IsTold(now) || !IsTold(before)) {
        return "–";
    }
    std::string change = Change(now, before, decimals);
    if (!less_is_better || change == "0") {
        return change;
    }
    return now > before ? "<span class=\"worse\">▲ " + change + "</span>" : "<span class=\"better\">▼ " + change + "</span>";
}

std::string Shown(std::string_view text, size_t most) {
    size_t end = 0;
    size_t before_last = 0;
    size_t characters = 0;
    for (; end < text.size() && characters < most; ++characters) {
        before_last = end;
        end += std::max<size_t>(Utf8Length(text.substr(end)), 1);
    }
    std::string shown;
    AppendXml(shown, end < text.size() ? text.substr(0, before_last) : text);
    return shown + (end < text.size() ? "…" : "");
}

std::string Isolated(std::string_view text) {
    std::string isolated = "<bdi>";
    for (const char c : Shown(text)) {
        isolated += c;
        isolated += c == '/' ? "<wbr/>" : "";
    }
    return isolated + "</bdi>";
}

void AppendParagraph(std::string &out, const std::string &html) {
    out += "<p>" + html + "</p>\n";
}

void AppendNothing(std::string &out, const char *text) {
    out += std::string("<p class=\"soft\">") + text + "</p>\n";
}

void AppendTable(std::string &out, const std::string &caption, const std::vector<Column> &columns,
                 const std::vector<std::vector<std::string>> &rows) {
    out += std::string("<table") + (columns.size() < 3 ? " class=\"slim\"" : "") + ">\n<caption>" + caption +
           "</caption>\n<thead><tr>";
    for (const Column &column : columns) {
        const char *cell = column.head.empty() ? "td" : "th";
        out += std::string("<") + cell + (column.head.empty() ? "" : " scope=\"col\"") + ClassOf(column.style) + ">" + column.head +
               "</" + cell + ">";
    }
    out += "</tr></thead>\n<tbody>\n";
    for (const std::vector<std::string> &row : rows) {
        out += "<tr>";
        for (size_t i = 0; i < row.size(); ++i) {
            out += i == 0 ? "<th scope=\"row\"" : "<td";
            out += std::string(ClassOf(columns[i].style)) + ">" + row[i] + (i == 0 ? "</th>" : "</td>");
        }
        out += "</tr>\n";
    }
    out += "</tbody>\n</table>\n";
}

std::string Bar(double part) {
    char width[16];
    snprintf(width, sizeof width, "%.1f", 100 * std::clamp(part, 0.0, 1.0));
    return std::string("<svg class=\"bar\" viewBox=\"0 0 100 10\" preserveAspectRatio=\"none\" aria-hidden=\"true\">"
                       "<rect width=\"") +
           width + "\" height=\"10\"/></svg>";
}
