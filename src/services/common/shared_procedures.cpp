#include "services/common/shared_procedures.h"

namespace zr {

void join_part(std::string& text, std::string_view separator, std::string_view part) {
    if (part.empty()) {
        return;
    }
    if (!text.empty()) {
        text += separator;
    }
    text += part;
}

std::string JoinParts(std::string_view separator, std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        join_part(text, separator, part);
    }
    return text;
}

std::string TransformToHTML(StyleSheets& style_sheets, std::string_view xml_text,
                            const std::string& xslt_file_name, const SheetParameters& parameters) {
    if (xml_text.empty() || xslt_file_name.empty()) {
        return {};
    }
    try {
        return style_sheets.transform(xml_text, xslt_file_name, parameters);
    } catch (const std::exception& error) {
        return "<html><body><span style='font:bold 10pt Verdana;color:red;'>"
               "Error transforming XML using XSL file '" +
               xslt_file_name + "'.<BR><BR>" + error_text(error) + "</span></body></html>";
    }
}

}  // namespace zr
