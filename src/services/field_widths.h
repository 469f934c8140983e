// How much of a text the bureau has room for. Each country has the table of its request documents
// in a field_widths.h of its own; what is longer is cut to its first characters.
#pragma once

#include <cstddef>
#include <span>
#include <stdexcept>
#include <string_view>

namespace zr {

/// An element or attribute of a request document, and the characters it holds.
struct FieldWidth {
    std::string_view name;
    std::size_t width;
};

/// The row of a field; one that the table does not have does not compile.
consteval FieldWidth find_field(std::span<const FieldWidth> table, std::string_view name) {
    for (const FieldWidth& row : table) {
        if (row.name == name) {
            return row;
        }
    }
    throw std::invalid_argument("no such field");
}

/// The host's reference in the envelope of every country.
inline constexpr FieldWidth kClientReference{"BCAservice-client-ref", 16};

}  // namespace zr
