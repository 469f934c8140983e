// The bureau's record identifiers, and runs of records that share one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "xml/xml_document.h"

namespace zr {

/// What makes records one run.
enum class Runs : std::uint8_t {
    kNone,        ///< nothing: each stands for itself
    kById,        ///< identifiers without their leading zeros; none equals none
    kByFilledId,  ///< the same, but a record without an identifier stands for itself
    kByText,      ///< identifiers as they stand; one without stands for itself
    kAll,         ///< all of them, whatever their identifiers: the first is the one that counts
};

/// The identifier at the path without its leading zeros; "" when it is missing or all zeros. With
/// kByText, as it stands.
std::string_view unique_id(XmlNode record, const XmlPath& id, Runs runs = Runs::kById);

/// One past the last of the records that follow `first` in its run, itself included.
std::size_t end_of_run(std::span<const XmlNode> records, std::size_t first, const XmlPath& id,
                       Runs runs);

}  // namespace zr
