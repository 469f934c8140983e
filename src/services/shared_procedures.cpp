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

std::string TransformToHTML(StyleSheets& style_sheets, std::string_view xml_text,
                            const std::string& xslt_file_name) {
    if (xml_text.empty() || xslt_file_name.empty()) {
        return {};
    }
    try {
        return style_sheets.transform(xml_text, xslt_file_name);
    } catch (...) {
        return "<html><body><span style='font:bold 10pt Verdana;color:red;'>"
               "Error transforming XML using XSL file '" +
               xslt_file_name + "'.<BR><BR>" + current_error_text() + "</span></body></html>";
    }
}

}  // namespace zr
