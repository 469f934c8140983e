// The widths of the fields of Australian request documents.
#pragma once

#include "services/field_widths.h"

namespace zr::australia {

inline constexpr FieldWidth kFieldWidths[] = {
    {"transaction-reference", 13},
    {"bureau-reference", 10},
    {"client-reference", 15},
    // A person.
    {"family-name", 25},
    {"first-given-name", 15},
    {"other-given-name", 15},
    {"employer", 35},
    {"occupation", 22},
    {"drivers-licence-number", 9},
    // An address.
    {"unit-number", 5},
    {"street-number", 8},
    {"property", 15},
    {"street-name", 25},
    {"suburb", 22},
    {"city", 20},
    {"state", 3},
    {"postcode", 4},
    {"country", 2},
    // An organisation. Its numbers are told from each other by their length.
    {"org-name", 72},
    {"organisation-number", 9},
    {"australian-business-number", 11},
};

consteval FieldWidth field(std::string_view name) { return find_field(kFieldWidths, name); }

}  // namespace zr::australia
