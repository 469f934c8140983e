// Small procedures that every service uses.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/style_sheet.h"
#include "zrcreditbureau/error.h"

namespace zr {

/// The parts that are not empty, in order, with the separator between two of them.
std::string JoinParts(std::string_view separator, std::initializer_list<std::string_view> parts);

/// A reply rendered through a style sheet file; "" when either argument is empty. Never fails: a
/// failure gives a small page that names the file and the reason.
std::string TransformToHTML(StyleSheets& style_sheets, std::string_view xml_text,
                            const std::string& xslt_file_name,
                            const SheetParameters& parameters = {});

}  // namespace zr
