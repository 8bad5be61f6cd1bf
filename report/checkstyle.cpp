#include "formats.h"
#include "severity.h"
#include "text_lines.h"
#include "xml_text.h"

namespace {

void Attribute(std::string &out, const char *name, std::string_view value) {
    out += ' ';
    out += name;
    out += "=\"";
    AppendXml(out, value);
    out += '"';
}

} // namespace

bool WriteCheckstyle(const Model &m, std::FILE *out) {
    static constexpr const char *kSeverities[] = {"warning", "warning", "info"};
    LineWriter w{out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<checkstyle version=\"4.3\">\n"};
    for (const FileRow &file : m.files) {
        w.text += "<file";
        Attribute(w.text, "name", m.texts[file.path]);
        w.text += ">";
        EndLine(w);
        for (uint32_t i = file.first_notice; i < file.first_notice + file.notice_count; ++i) {
            const Notice &notice = m.notices[i];
            w.text += "<error";
            Attribute(w.text, "line", std::to_string(notice.line));
            Attribute(w.text, "severity", kSeverities[static_cast<int>(SeverityOf(notice.number))]);
            Attribute(w.text, "message", m.texts[notice.text]);
            Attribute(w.text, "source", "tly." + RuleName(notice.number));
            w.text += "/>";
            EndLine(w);
        }
        w.text += "</file>";
        EndLine(w);
    }
    w.text += "</checkstyle>";
    EndLine(w);
    return Finish(w);
}
