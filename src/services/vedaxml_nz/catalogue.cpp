#include "services/vedaxml_nz/catalogue.h"

#include <array>
#include <span>
#include <string_view>

#include "services/common/catalogue_rows.h"
#include "services/vedaxml_nz/street_types.h"

namespace zr {
namespace {

// Code tables: code, description.

/// The products' account types, which differ in their word for a consumer enquiry.
constexpr auto account_types(std::string_view consumer_enquiry) {
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
        {"LP", "Lending Proposal"},
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
constexpr auto kIndividualAccountTypes = account_types("Consumer Inquiry");
constexpr auto kCompanyAccountTypes = account_types("Consumer Enquiry");

constexpr CodeRow kPurposes[] = {
    {"C1", "Credit Decision"},
    {"C2", "Credit Decision/ Verification"},
};

constexpr CodeRow kMaritalStatus[] = {
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

constexpr CodeRow kConsumerDefaultRelationships[] = {
    {"DF", "Defaulter"},
    {"GU", "Guarantor"},
};

constexpr CodeRow kCorrectionStatus[] = {
    {"CA", "Cancelled"},
    {"CO", "Corrected"},
    {"DS", "Disputed"},
    {"RJ", "Rejected no statement"},
    {"RS", "Rejected with statement"},
};

constexpr CodeRow kInsolvencyCourts[] = {
    {"COR01", "Auckland High Court"},
    {"COR12", "Blenheim High Court"},
    {"COR02", "Christchurch High Court"},
    {"COR05", "Dunedin High Court"},
    {"COR13", "Gisborne High Court"},
    {"COR14", "Greymouth High Court"},
    {"COR11", "Hamilton High Court"},
    {"COR10", "Invercargill High Court"},
    {"COR15", "Masterton High Court"},
    {"COR07", "Napier High Court"},
    {"COR16", "Nelson High Court"},
    {"COR17", "New Plymouth High Court"},
    {"COR20", "No Court"},
    {"COR21", "Not applicable"},
    {"COR22", "Overseas"},
    {"COR18", "Palmerston North High Court"},
    {"COR09", "Rotorua High Court"},
    {"COR06", "Tauranga High Court"},
    {"COR19", "Timaru High Court"},
    {"COR99", "UNKNOWN"},
    {"COR08", "Wanganui High Court"},
    {"COR04", "Wellington High Court"},
    {"COR03", "Whangarei High Court"},
};

constexpr CodeRow kInsolvencyStatus[] = {
    {"STAAN", "Annulled"},
    {"STADA", "Automatically Discharged"},
    {"STACM", "Completed"},
    {"STADC", "Conditionally Discharged"},
    {"STACB", "Current Bankrupt"},
    {"STACN", "Current NAP"},
    {"STACS", "Current SIO"},
    {"STACL", "Currently in Liquidation"},
    {"STACV", "Currently in Voluntary Administration"},
    {"STADD", "Discharged"},
    {"STADE", "Discharged Early"},
    {"STARM", "Receiver Manager Appointed"},
    {"STATD", "Terminated"},
    {"STA99", "UNKNOWN"},
};

constexpr CodeRow kInsolvencyTypes[] = {
    {"TYPCL", "Court Liquidation"},
    {"TYPCP", "Creditor Petition"},
    {"TYPDP", "Debtor Petition"},
    {"TYPID", "Insolvent Deceased Estate"},
    {"TYPIL", "Interim Liquidation"},
    {"TYPNP", "No Asset Procedure"},
    {"TYPPA", "Partnership"},
    {"TYPRM", "Receiver Manager (Bankrupt)"},
    {"TYPSO", "Summary Instalment Order"},
    {"TYP99", "UNKNOWN"},
    {"TYPVA", "Voluntary Administration"},
    {"TYPVL", "Voluntary Liquidation"},
};

/// The service's code tables in their order.
constexpr CodeTableRow kServiceTables[] = {
    {"MaritalStatus", kMaritalStatus},
    {"StreetTypes", kNewZealandStreetTypes},
    {"NotesTypeCodes", kNotesTypes},
    {"ConsumerDefaultRelationshipTypeCodes", kConsumerDefaultRelationships},
    {"CorrectionStatus", kCorrectionStatus},
    {"InsolvencyCourt", kInsolvencyCourts},
    {"InsolvencyStatus", kInsolvencyStatus},
    {"InsolvencyType", kInsolvencyTypes},
};

constexpr CodeTableRow kIndividualTables[] = {
    {"Purposes", kPurposes},
    {"AccountTypes", kIndividualAccountTypes},
};
constexpr CodeTableRow kCompanyTables[] = {
    {"Purposes", kPurposes},
    {"AccountTypes", kCompanyAccountTypes},
};

constexpr OptionRow kPurpose = general_option("Purpose");

constexpr OptionRow kIndividualOptions[] = {
    kPurpose,
    general_option("EnquiryInformation"),
    boolean_option("moj-fines", "Include Ministry of Justice Overdue Fines?"),
    boolean_option("ewp", "Include Electronic White Pages verification (requires phone number)?"),
    boolean_option("driver-licence",
                   "Include Driver's Licence verification (requires drivers licence number)?"),
    boolean_option("property-ownership", "Include Property Ownership verification?"),
    boolean_option("score", "Include Bureau Score?"),
    boolean_option("summary", "Include Summary?"),
    boolean_option("licencecheck",
                   "Include LicenceCheck Report (requires drivers licence number and express "
                   "consent)?"),
};
constexpr OptionRow kDirectorsOptions[] = {kPurpose};

/// The request fields that an individual enquiry uses.
constexpr std::string_view kIndividualFields =
    "[Employer][Occupation][PhoneNumber][DriversLicenceNumber][UnitNumber][StreetNumber]"
    "[StreetName][StreetType][Suburb][City][PrevUnitNumber][PrevStreetNumber][PrevStreetName]"
    "[PrevStreetType][PrevSuburb][PrevCity]";

/// The products in their order: all available, chargeable enquiries. A company is looked up before
/// it is enquired about.
constexpr struct {
    std::string_view id;
    bool individual;
    std::string_view request_options;
    std::span<const OptionRow> options;
    std::span<const CodeTableRow> tables;
} kProducts[] = {
    {"enquiry_individual", true, kIndividualFields, kIndividualOptions, kIndividualTables},
    {"enquiry_company", false, "", {}, {}},
    {"enquiry_company_with_directors", false, "", kDirectorsOptions, kCompanyTables},
};

}  // namespace

void build_new_zealand_catalogue(Products& products, CodeTableCollection& code_tables) {
    for (const auto& row : kProducts) {
        Product& product = products.AddProduct(row.id, true, zreProductType::zreProductTypeEnquiry,
                                               row.individual);
        product.RequestOptions(row.request_options);
        product.Chargeable(true);
        product.Listable(!row.individual);
        add_options(product, row.options);
        add_code_tables(product.code_tables(), row.tables);
    }
    add_code_tables(code_tables, kServiceTables);
}

}  // namespace zr
