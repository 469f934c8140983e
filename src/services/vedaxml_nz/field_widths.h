// The widths of the fields of New Zealand request documents.
#pragma once

#include "services/field_widths.h"

namespace zr::new_zealand {

inline constexpr FieldWidth kFieldWidths[] = {
    {"transaction-reference", 20},
    {"client-reference", 16},
    // A person.
    {"family-name", 25},
    {"first-given-name", 13},
    {"other-given-name", 13},
    {"employer", 30},
    {"occupation", 30},
    // Zeros from the left fill a telephone number, and what is too long loses its first digits.
    {"phone-area-code", 4},
    {"phone-number", 8},
    // An address. Its street number has the unit's where both fit.
    {"street-number", 8},
    {"street-name", 20},
    {"suburb", 20},
    {"city", 20},
    // A company.
    {"registration-number", 7},
    {"company-name", 125},
};

consteval FieldWidth field(std::string_view name) { return find_field(kFieldWidths, name); }

}  // namespace zr::new_zealand
