// The addresses of request documents.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "services/field_widths.h"
#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr {

/// Which of a request's two addresses.
enum class RequestAddress : std::uint8_t { kCurrent, kPrevious };

using TextProperty = Writable<kind::Text> Request::*;

/// A street type, which is sent as its code.
inline constexpr FieldWidth kStreetType{"street-type", 0};

/// An element of an address: where the current and the previous address have the value, and whether
/// a blank value is left out.
struct AddressField {
    FieldWidth field;
    TextProperty current;
    TextProperty previous;
    bool omitted_when_blank;
    /// Makes the text of an element that no single property holds; null for all others.
    std::string (*compose)(const Request& request, RequestAddress which) = nullptr;
};

/// Writes the request's current address, and its previous one where that has a street, under their
/// types, with these fields in this order.
void write_addresses(ZRXMLBuilder& builder, const Request& request, std::string_view current_type,
                     std::string_view previous_type, std::span<const AddressField> fields,
                     const CodeTableItems& street_types);

}  // namespace zr
