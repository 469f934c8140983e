// The reports of the New Zealand gateway as data: their sections.
#pragma once

#include <span>

#include "reports/layout.h"

namespace zr::new_zealand {

/// The nodes that an individual's sections start from, in the order in which the writer takes them.
enum IndividualSource : std::uint8_t {
    kReport = 0,   ///< the enquiry report, or one director's report
    kLicence = 1,  ///< the LicenceCheck report
    kFines = 2,    ///< the report on court fines
};

std::span<const layout::Section> individual_sections();

/// All start from the company.
std::span<const layout::Section> company_sections();

}  // namespace zr::new_zealand
