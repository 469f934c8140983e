#include <span>
#include <string_view>

#include "services/vedaxml_nz/codes.h"
#include "services/vedaxml_nz/service.h"
#include "services/vedaxml_nz/street_types.h"

namespace zr::new_zealand {
namespace {

using namespace codes;

// Code tables: code, description.

constexpr auto kIndividualAccountTypes = account_types("Consumer Inquiry");
constexpr auto kCompanyAccountTypes = account_types("Consumer Enquiry");

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

constexpr ProductRow kProducts[] = {
    {"enquiry_individual", true, kIndividualFields, kIndividualOptions, kIndividualTables},
    {"enquiry_company", false, "", {}, {}},
    {"enquiry_company_with_directors", false, "", kDirectorsOptions, kCompanyTables},
};

}  // namespace

constinit const CatalogueRows kCatalogue = {kProducts, kServiceTables};

}  // namespace zr::new_zealand
