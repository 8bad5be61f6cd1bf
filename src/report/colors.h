// The colours of an HTML report, by the names that forms call them: "%{function}" is html_function_color.
#pragma once

#include <iterator>
#include <string_view>

#include "run/config_state.h"

struct NamedColor {
    std::string_view name;
    ColorText HtmlSettings::*field;
};

// The colours of long lists come first: they are found by a walk.
inline constexpr NamedColor kColors[] = {
    {"function", &HtmlSettings::html_function_color},
    {"function_parameter", &HtmlSettings::html_function_parameter_color},
    {"notice", &HtmlSettings::html_notice_color},
    {"class", &HtmlSettings::html_class_color},
    {"inheritance_depth", &HtmlSettings::html_inheritance_depth_color},
    {"inheritance_child", &HtmlSettings::html_inheritance_child_color},
    {"struct", &HtmlSettings::html_struct_color},
    {"template", &HtmlSettings::html_template_color},
    {"header", &HtmlSettings::html_header_color},
    {"tly", &HtmlSettings::html_tly_color},
    {"date", &HtmlSettings::html_date_color},
    {"text", &HtmlSettings::html_text_color},
    {"vlink", &HtmlSettings::html_vlink_color},
    {"link", &HtmlSettings::html_link_color},
    {"alink", &HtmlSettings::html_alink_color},
    {"background", &HtmlSettings::html_background_color},
    {"line", &HtmlSettings::html_line_color},
    {"old_file_diff", &HtmlSettings::html_old_file_diff_color},
    {"new_file_diff", &HtmlSettings::html_new_file_diff_color},
    {"file_name", &HtmlSettings::html_file_name_color},
    {"macro", &HtmlSettings::html_macro_color},
    {"inheritance", &HtmlSettings::html_inheritance_color},
    {"error", &HtmlSettings::html_error_color},
    {"new_code_diff", &HtmlSettings::html_new_code_diff_color},
    {"removed_code_diff", &HtmlSettings::html_removed_code_diff_color},
    {"modified_code_diff", &HtmlSettings::html_modified_code_diff_color},
    {"equal_code_diff", &HtmlSettings::html_equal_code_diff_color},
    {"total", &HtmlSettings::html_total_color},
};

// The index of the colour of that name, or -1.
constexpr int FindColor(std::string_view name) {
    for (int i = 0; i < static_cast<int>(std::size(kColors)); ++i) {
        const std::string_view known = kColors[i].name;
        if (known.size() == name.size() && known[0] == name[0] && known == name) {
            return i;
        }
    }
    return -1;
}
