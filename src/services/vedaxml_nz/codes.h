// What several services of the New Zealand bureau publish alike: code tables (code, description)
// and request fields.
#pragma once

#include <array>
#include <string_view>

#include "records/component.h"

namespace zr::new_zealand::codes {

/// Account types, whose word for a consumer enquiry and spelling of a lending proposal differ.
constexpr auto account_types(std::string_view consumer_enquiry,
                             std::string_view lending_proposal = "Lending Proposal") {
    return std::to_array<CodeRow>({
        {"30", "30 Day Account"},
        {"60", "60 Day Account"},
        {"7", "7 Day Account"},
        {"90", "90 Day Account"},
        {"B", "Budget Account"},
        {"BF", "Bridging Finance"},
        {"BS", "Bill Of Sale"},
        {"CC", "Credit Card"},
        {"CD", "Cash On Delivery"},
        {"CE", consumer_enquiry},
        {"CF", "Consumer Finance"},
        {"CM", "Chattel Mortgage"},
        {"CQ", "Cheque (Personal)"},
        {"CS", "Credit Sale Contract"},
        {"DC", "Damages Claim"},
        {"DE", "Director Enquiry"},
        {"F", "Factored Account"},
        {"HB", "Hire Purchase (Boat)"},
        {"HC", "Hire Purchase (Commercial)"},
        {"HH", "Hire Purchase (Household)"},
        {"HM", "Hire Purchase (Vehicle)"},
        {"L", "Leasing"},
        {"LC", "Loan Contract"},
        {"LP", lending_proposal},
        {"M", "Monthly Account"},
        {"NS", "Not Stated"},
        {"O", "Optional"},
        {"OD", "Bank Overdraft"},
        {"PE", "Professional Enquiry"},
        {"PL", "Personal Loan"},
        {"R", "Rental"},
        {"RM", "Real Estate Mortgage"},
        {"SV", "Savings Account"},
        {"T", "Term Account"},
        {"TC", "Title Check"},
    });
}
inline constexpr CodeRow kPurposes[] = {
    {"C1", "Credit Decision"},
    {"C2", "Credit Decision/ Verification"},
};

inline constexpr CodeRow kMaritalStatus[] = {
    {"unknown", "Unknown"},
};

inline constexpr CodeRow kNotesTypes[] = {
    {"200", "General"},
    {"201", "Default - Dispute"},
    {"202", "Judgement - Dispute"},
    {"203", "Collection - Dispute"},
    {"204", "Public Notice - Dispute"},
    {"205", "Bankruptcy - Dispute"},
    {"206", "Cross Reference - Dispute"},
    {"207", "Security - Dispute"},
    {"208", "Company Officer - Dispute"},
    {"209", "Inquiry - Dispute"},
    {"210", "Default - General"},
    {"211", "Judgement - General"},
    {"212", "Public Notice - General"},
    {"213", "Collection - General"},
    {"214", "Bankruptcy - General"},
    {"215", "Company Officer - General"},
    {"216", "Cross Reference - General"},
    {"217", "Inquiry - General"},
    {"218", "Security - General"},
};

inline constexpr CodeRow kConsumerDefaultRelationships[] = {
    {"DF", "Defaulter"},
    {"GU", "Guarantor"},
};

inline constexpr CodeRow kCorrectionStatus[] = {
    {"CA", "Cancelled"},
    {"CO", "Corrected"},
    {"DS", "Disputed"},
    {"RJ", "Rejected no statement"},
    {"RS", "Rejected with statement"},
};

/// The request fields that an individual enquiry uses.
inline constexpr std::string_view kIndividualFields =
    "[Employer][Occupation][PhoneNumber][DriversLicenceNumber][UnitNumber][StreetNumber]"
    "[StreetName][StreetType][Suburb][City][PrevUnitNumber][PrevStreetNumber][PrevStreetName]"
    "[PrevStreetType][PrevSuburb][PrevCity]";

}  // namespace zr::new_zealand::codes
