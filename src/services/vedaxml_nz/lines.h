// Sections' lines, and pieces of lines, that several New Zealand reports have.
#pragma once

#include "reports/layout.h"

namespace zr::new_zealand {

// Of a person's report.

layout::Lines person_lines();
layout::Lines address_lines();
layout::Lines property_ownership_lines(std::string_view verified);
layout::Lines white_pages_lines();
layout::Lines driver_licence_lines();
layout::Lines company_office_lines();
layout::Lines score_lines();
layout::Lines note_lines(std::string_view created);
layout::Lines enquiry_lines(layout::Piece corrections);
layout::Lines default_lines(layout::Line joint_liability, layout::Line company_loan,
                            layout::Line account_balance);
layout::Lines judgement_lines(std::string_view date_paid);
layout::Lines bankruptcy_lines(std::string_view first_address, std::string_view second_address,
                               std::string_view narrative_id);
layout::Lines notice_lines(std::string_view first_address, std::string_view second_address);
layout::Lines lost_or_stolen_lines(layout::Of<layout::Each> corrections);

layout::Text address_text();

/// A record's corrections with an empty line between two; the same indented by four blanks; and
/// the line of them.
layout::Of<layout::Each> corrections();
layout::Of<layout::Each> indented_corrections();
layout::Line corrections_line();

// Of a company's report.

layout::Lines company_lines();
layout::Lines company_address_lines();
layout::Lines share_lines();
layout::Lines shareholder_lines();
layout::Lines company_notice_lines();
layout::Lines company_enquiry_lines();
layout::Lines company_judgement_lines();
layout::Lines affiliation_lines();
layout::Lines previous_name_lines();
layout::Lines officer_lines();
layout::Lines credit_reference_lines();

/// The lines of a free address.
layout::Of<layout::Each> free_address();

}  // namespace zr::new_zealand
