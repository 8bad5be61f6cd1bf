#include "formats.h"
#include "json_text.h"
#include "text_lines.h"

namespace {

struct Content {
    const char *label;
    std::string message;
    const char *color; // as badge services name it
    const char *shade; // the same in numbers, dark enough for white text
};

constexpr const char *kBlue = "#0969a2";
constexpr const char *kGreen = "#2f7d32";
constexpr const char *kYellow = "#8a6d00";
constexpr const char *kRed = "#b3261e";

// "987", "12.3k", "4.5M": rounded down, so that no limit looks reached that isn't.
std::string Short(int64_t number) {
    static constexpr const char *kUnits[] = {"", "k", "M", "G"};
    size_t unit = 0;
    int64_t tenths = number * 10;
    for (; tenths >= 10000 && unit < 3; ++unit) {
        tenths /= 1000;
    }
    std::string text = std::to_string(tenths / 10);
    if (unit > 0 && tenths < 1000) {
        text += "." + std::to_string(tenths % 10);
    }
    return text + kUnits[unit];
}

Content ContentOf(const Model &m, Badge badge) {
    const int64_t complexity = m.function_sums.max.cyclomatic;
    const auto notices = static_cast<int64_t>(m.notices.size());
    switch (badge) {
    case Badge::kComplexity:
        return complexity <= 10   ? Content{"max complexity", Short(complexity), "green", kGreen}
               : complexity <= 20 ? Content{"max complexity", Short(complexity), "yellow", kYellow}
                                  : Content{"max complexity", Short(complexity), "red", kRed};
    case Badge::kNotices:
        return notices == 0 ? Content{"notices", "0", "green", kGreen} : Content{"notices", Short(notices), "blue", kBlue};
    case Badge::kLines: break;
    }
    return {"lines of code", Short(m.total.loc), "blue", kBlue};
}

bool WriteEndpoint(const Content &content, std::FILE *out) {
    JsonWriter w{out};
    BeginRecord(w);
    Member(w, "schemaVersion", 1);
    Member(w, "label", content.label);
    Member(w, "message", content.message);
    Member(w, "color", content.color);
    EndRecord(w);
    return Finish(w);
}

// The text is stretched to its width, whatever font there is.
void Side(LineWriter &w, std::string_view text, size_t left, size_t width, const char *shade) {
    w.text +=
        "<rect x=\"" + std::to_string(left) + "\" width=\"" + std::to_string(width) + "\" height=\"20\" fill=\"" + shade + "\"/>";
    w.text += "<text x=\"" + std::to_string(left + 6) + "\" y=\"14\" textLength=\"" + std::to_string(width - 12) + "\">";
    w.text += text;
    w.text += "</text>";
    EndLine(w);
}

bool WriteSvg(const Content &content, std::FILE *out) {
    constexpr size_t kCharacter = 7; // pixels
    const std::string_view label = content.label;
    const size_t left = label.size() * kCharacter + 12;
    const size_t right = content.message.size() * kCharacter + 12;
    const std::string width = std::to_string(left + right);
    const std::string title = std::string(label) + ": " + content.message;
    LineWriter w{out};
    w.text += "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"20\" role=\"img\" aria-label=\"" + title +
              "\"><title>" + title + "</title>";
    EndLine(w);
    w.text += "<clipPath id=\"r\"><rect width=\"" + width + "\" height=\"20\" rx=\"3\"/></clipPath>";
    EndLine(w);
    w.text += "<g clip-path=\"url(#r)\" fill=\"#fff\" font-family=\"Verdana,DejaVu Sans,sans-serif\" font-size=\"11\">";
    EndLine(w);
    Side(w, label, 0, left, "#444");
    Side(w, content.message, left, right, content.shade);
    w.text += "</g></svg>";
    EndLine(w);
    return Finish(w);
}

} // namespace

bool WriteBadge(const Model &m, Badge badge, bool svg, std::FILE *out) {
    const Content content = ContentOf(m, badge);
    return svg ? WriteSvg(content, out) : WriteEndpoint(content, out);
}
