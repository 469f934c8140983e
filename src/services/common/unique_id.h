// The bureau's record identifiers, and runs of records that share one.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "platform/xml_document.h"

namespace zr {

/// The identifier at the path without its leading zeros; "" when it is missing or all zeros.
std::string_view unique_id(XmlNode record, const XmlPath& id);

/// One past the last of the records that follow `first` with its identifier, itself included.
std::size_t end_of_run(std::span<const XmlNode> records, std::size_t first, const XmlPath& id);

}  // namespace zr
