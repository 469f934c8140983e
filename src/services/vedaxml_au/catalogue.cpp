#include <span>
#include <string_view>

#include "services/vedaxml_au/service.h"
#include "services/vedaxml_au/street_types.h"

namespace zr::australia {
namespace {

// Account types by product: code, description.

constexpr CodeRow kConsumerAccountTypes[] = {
    {"CM", "Chattel Mortgage"},
    {"CC", "Continuing Credit Contract"},
    {"DB", "Deferred Payment Debit Card"},
    {"R", "Equipment Hire or Rental"},
    {"LC", "Loan Contract"},
    {"OD", "Overdraft"},
    {"RM", "Real Property Mortgage"},
    {"TC", "Telecommunication services"},
    {"T", "Terms"},
    {"UA", "Utilities"},
};

constexpr CodeRow kConsumerPlusCommercialAccountTypes[] = {
    {"CM", "Chattel Mortgage"},
    {"CH", "Cheque Account (valid for defaults only)"},
    {"CC", "Continuing Credit Contract"},
    {"DB", "Deferred Payment Debit Card"},
    {"R", "Equipment Hire or Rental"},
    {"LC", "Loan Contract"},
    {"OD", "Overdraft"},
    {"RM", "Real Property Mortgage"},
    {"TC", "Telecommunication services"},
    {"T", "Terms"},
    {"UA", "Utilities"},
};

constexpr CodeRow kCommercialAccountTypes[] = {
    {"7", "7 Day Account"},
    {"30", "30 Day Account"},
    {"60", "60 Day Account"},
    {"90", "90 Day Account"},
    {"OD", "Bank Overdraft"},
    {"BS", "Bill of Sale"},
    {"BF", "Bridging Finance"},
    {"CD", "Cash On Delivery"},
    {"CH", "Cheque"},
    {"CR", "Commercial Rental"},
    {"CP", "Credit Card"},
    {"D", "Dealership"},
    {"DB", "Deferred Payment Debit Card"},
    {"F", "Factored Account"},
    {"HC", "Hire Purchase"},
    {"L", "Leasing"},
    {"LP", "Lending Propasal"},
    {"PL", "Personal Loan"},
    {"PF", "Premium Finance"},
    {"RM", "Real Property Mortgage"},
    {"SR", "Search Request"},
    {"TC", "Telecommunication services"},
    {"TF", "Trade Finance"},
    {"UA", "Utilities"},
    {"WF", "Wholesale Finance"},
};

constexpr CodeRow kMaritalStatus[] = {
    {"unknown", "Unknown"},
};

constexpr CodeRow kOrganisationTypes[] = {
    {"PTY", "Proprietary"},  {"P/L", "Proprietary Limited"}, {"N/L", "No Liability"},
    {"INC", "Incorporated"}, {"LTD", "Limited Liability"},   {"R/B", "Registered Body"},
};

/// The service's code tables in their order.
constexpr CodeTableRow kServiceTables[] = {
    {"MaritalStatus", kMaritalStatus},
    {"OrganisationTypes", kOrganisationTypes},
    {"StreetTypes", kAustralianStreetTypes},
};

constexpr OptionRow kEnquiryInformation = general_option("EnquiryInformation");
constexpr OptionRow kScore = boolean_option("score", "Include Bureau Score?");
constexpr OptionRow kScoreAlr =
    boolean_option("scorealr", "Include Bureau Score (enhanced by geographical location)?");
constexpr OptionRow kSummary = boolean_option("summary", "Include Summary?");

constexpr OptionRow kConsumerOptions[] = {kEnquiryInformation, kScore, kScoreAlr, kSummary};
constexpr OptionRow kConsumerPlusCommercialOptions[] = {kEnquiryInformation, kSummary};
constexpr OptionRow kCommercialOptions[] = {kEnquiryInformation, kScore, kSummary};

// The request fields that a product uses.
constexpr std::string_view kConsumerFields =
    "[BureauFileId][Employer][DriversLicenceNumber][UnitNumber][StreetNumber]"
    "[Property][StreetName][StreetType][Suburb][State][Postcode][PrevUnitNumber]"
    "[PrevStreetNumber][PrevProperty][PrevStreetName][PrevStreetType][PrevSuburb]"
    "[PrevState][PrevPostcode]";
constexpr std::string_view kConsumerPlusCommercialFields =
    "[BureauFileId][Employer][DriversLicenceNumber][UnitNumber][StreetNumber]"
    "[Property][StreetName][StreetType][Suburb][State][Postcode]";
constexpr std::string_view kCommercialFields =
    "[BureauFileId][Employer][Occupation][DriversLicenceNumber][UnitNumber]"
    "[StreetNumber][Property][StreetName][StreetType][Suburb][State][Postcode]";

constexpr CodeTableRow kConsumerTables[] = {{"AccountTypes", kConsumerAccountTypes}};
constexpr CodeTableRow kConsumerPlusCommercialTables[] = {
    {"AccountTypes", kConsumerPlusCommercialAccountTypes}};
constexpr CodeTableRow kCommercialTables[] = {{"AccountTypes", kCommercialAccountTypes}};

/// The products in their order.
constexpr ProductRow kProducts[] = {
    {"consumer-enquiry", true, kConsumerFields, kConsumerOptions, kConsumerTables},
    {"consumer-plus-commercial-enquiry", true, kConsumerPlusCommercialFields,
     kConsumerPlusCommercialOptions, kConsumerPlusCommercialTables},
    {"commercial-enquiry", true, kCommercialFields, kCommercialOptions, kCommercialTables},
    {"commercial-plus-consumer-enquiry", true, kCommercialFields, kCommercialOptions,
     kCommercialTables},
};

}  // namespace

constinit const CatalogueRows kCatalogue = {kProducts, kServiceTables};

}  // namespace zr::australia
