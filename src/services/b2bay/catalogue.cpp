#include <span>
#include <string_view>

#include "services/b2bay/services.h"
#include "services/b2bay/street_types.h"
#include "services/vedaxml_nz/codes.h"

namespace zr::b2bay {
namespace {

// Code tables: code, description. The spellings are the tables' own.

constexpr auto kAccountTypes =
    new_zealand::codes::account_types("Consumer Enquiry", "Lending Propasal");

constexpr CodeRow kMaritalStatus[] = {
    {"single", "Single"},     {"married", "Married"}, {"seprated", "Separated"},
    {"divorced", "Divorced"}, {"widowed", "Widowed"}, {"de facto", "De Facto"},
    {"unknown", "Unknown"},
};

constexpr CodeRow kNotesTypes[] = {
    {"200", "General"},
    {"201", "Default - Dispute"},
    {"202", "Judgement - Dispute"},
    {"203", "Collection - Dispute"},
    {"204", "Public Notice - Dispute"},
    {"205", "Bankruptcy - Dispute"},
    {"206", "Cross Reference - Dispute"},
    {"207", "Security - Dispute"},
    {"208", "Company Officer - Dispute"},
    {"209", "Inquiry Dispute"},
    {"210", "Default - General"},
    {"211", "Judgement- General"},
    {"212", "Public Notice- General"},
    {"213", "Collection - General"},
    {"214", "Bankruptcy- General"},
    {"215", "Company Officer - General"},
    {"216", "Cross Reference - General"},
    {"217", "Inquiry - General"},
    {"218", "Security - General"},
};

constexpr CodeRow kDefaultStatus[] = {
    {"01", "Written Off"},
    {"02", "Repossession"},
    {"03", "Gone No Address"},
    {"04", "Property Law Act Notice"},
    {"05", "Collection Dept/Agency"},
    {"06", "Paid"},
    {"07", "Paying By Instalments"},
    {"08", "Dishonoured Cheque"},
    {"09", "Overdrawn Account"},
    {"10", "Payment Default"},
    {"11", "Voluntary"},
    {"12", "Settled"},
    {"13", "Bankrupt"},
    {"14", "Deed Of Compromise"},
    {"15", "Scheme Of Arrangement"},
};

/// The service's code tables in their order.
constexpr CodeTableRow kServiceTables[] = {
    {"MaritalStatus", kMaritalStatus},
    {"StreetTypes", kStreetTypes, true},
    {"NotesTypeCodes", kNotesTypes},
    {"DefaultStatusCodes", kDefaultStatus},
};

constexpr CodeTableRow kPersonTables[] = {
    {"AccountTypes", kAccountTypes},
};

constexpr OptionRow kPersonOptions[] = {
    general_option("EnquiryInformation"),
    boolean_option("ewp", "Include Electronic White Pages verification (requires phone number)?"),
    boolean_option("quotable-values", "Include Quotable Values verification?"),
    boolean_option("score", "Include Bureau Score?"),
    boolean_option("summary", "Include Summary?"),
};

constexpr OptionRow kCompanyOptions[] = {
    boolean_option("director-checks", "Include Director Checks?"),
};

constexpr ProductRow kProducts[] = {
    {"enquiry_individual", true,
     "[MaritalStatus][Employer][Occupation][UnitNumber][StreetNumber][StreetName][StreetType]"
     "[Suburb][City][PhoneNumber][PrevUnitNumber][PrevStreetNumber][PrevStreetName]"
     "[PrevStreetType][PrevSuburb][PrevCity]",
     kPersonOptions, kPersonTables},
    {"enquiry_spouse", true,
     "[MaritalStatus][Employer][Occupation][UnitNumber][StreetNumber][StreetName][StreetType]"
     "[Suburb][City][PhoneNumber]",
     kPersonOptions, kPersonTables,
     "WARNING. A Spouse Enquiry MUST be preceeded by a standard Individual Consumer Enquiry."},
    {"enquiry_company", false, "", kCompanyOptions, {}},
};

}  // namespace

constinit const CatalogueRows kCatalogue = {kProducts, kServiceTables};

}  // namespace zr::b2bay
