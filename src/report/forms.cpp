// How a text from outside is encoded for each mode.
#include "report/forms.h"

#include "report/names.h"

namespace forms {

Passed<Shown>::Passed(Mode mode, Shown shown) {
    switch (mode) {
    case Mode::kHtml: HTML_esc(shown.text, value); return;
    case Mode::kCsv: csv_field(shown.text, value); return;
    case Mode::kXml: xml_encode(shown.text, value); return;
    case Mode::kText: break;
    }
    value = shown.text ? shown.text : "";
}

} // namespace forms
