#include "services/shared_procedures.h"

namespace zr {

std::string JoinParts(std::string_view separator, std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += text.empty() || part.empty() ? std::string_view() : separator;
        text += part;
    }
    return text;
}

namespace {

/// As text of a page: what a reply or a file's name holds is no markup there.
std::string as_page_text(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else {
            result += c;
        }
    }
    return result;
}

}  // namespace

std::string TransformToHTML(StyleSheets& style_sheets, std::string_view xml_text,
                            const std::string& xslt_file_name, const SheetParameters& parameters) {
    if (xml_text.empty() || xslt_file_name.empty()) {
        return {};
    }
    try {
        return style_sheets.transform(xml_text, xslt_file_name, parameters);
    } catch (...) {
        return "<html><body><span style='font:bold 10pt Verdana;color:red;'>"
               "Error transforming XML using XSL file '" +
               as_page_text(xslt_file_name) + "'.<BR><BR>" + as_page_text(current_error_text()) +
               "</span></body></html>";
    }
}

}  // namespace zr
