// The bureau's own tables: enquiry names, account types, street types, organisation types.
#pragma once

#include <span>
#include <string_view>

#include "bureau_gateway/code_row.h"

namespace zr::gateway::australia {

/// An enquiry that can be made on an individual.
struct EnquiryRow {
    std::string_view name;
    std::string_view service_code;
    std::string_view enquiry_type;
    bool consumer_file;
    bool commercial_file;
    bool scored;
    bool area_level_risk;
    std::span<const CodeRow> account_types;
};

/// The row of an enquiry name; null when it is not known.
const EnquiryRow* find_enquiry(std::string_view name);

std::span<const EnquiryRow> enquiry_rows();
std::span<const CodeRow> consumer_account_types();
std::span<const CodeRow> commercial_account_types();
std::span<const CodeRow> organisation_types();

/// The codes of street types.
std::span<const std::string_view> street_type_codes();

}  // namespace zr::gateway::australia
