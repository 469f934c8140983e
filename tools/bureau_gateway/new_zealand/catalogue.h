// The bureau's own tables of codes.
#pragma once

#include <span>
#include <string_view>

#include "bureau_gateway/code_row.h"

namespace zr::gateway::new_zealand {

/// The account types that an enquiry may be for.
std::span<const CodeRow> account_types();
std::span<const std::string_view> account_type_codes();

std::span<const std::string_view> street_type_codes();

std::span<const std::string_view> note_types();
std::span<const std::string_view> correction_statuses();
std::span<const std::string_view> insolvency_types();
std::span<const std::string_view> insolvency_statuses();
std::span<const std::string_view> insolvency_courts();

}  // namespace zr::gateway::new_zealand
