#include <span>
#include <string_view>

#include "services/b2bay/services.h"
#include "services/b2bay/street_types.h"
#include "services/vedaxml_nz/codes.h"

namespace zr::b2bay::version_2 {
namespace {

namespace codes = new_zealand::codes;

constexpr auto kAccountTypes = codes::account_types("Consumer Enquiry");

/// The service's code tables in their order.
constexpr CodeTableRow kServiceTables[] = {
    {"MaritalStatus", codes::kMaritalStatus},
    {"StreetTypes", kStreetTypesOfVersion2},
    {"NotesTypeCodes", codes::kNotesTypes},
    {"ConsumerDefaultRelationshipTypeCodes", codes::kConsumerDefaultRelationships},
    {"CorrectionStatus", codes::kCorrectionStatus},
};

constexpr CodeTableRow kIndividualTables[] = {
    {"Purposes", codes::kPurposes},
    {"AccountTypes", kAccountTypes},
};
constexpr CodeTableRow kDirectorsTables[] = {
    {"Purposes", codes::kPurposes},
};

constexpr OptionRow kIndividualOptions[] = {
    general_option("Purpose"),
    general_option("EnquiryInformation"),
    boolean_option("ewp", "Include Electronic White Pages verification (requires phone number)?"),
    boolean_option("driver-licence",
                   "Include Driver's Licence verification (requires drivers licence number)?"),
    boolean_option("property-ownership", "Include Property Ownership verification?"),
    boolean_option("score", "Include Bureau Score?"),
    boolean_option("summary", "Include Summary?"),
};
constexpr OptionRow kDirectorsOptions[] = {
    general_option("Purpose"),
};

constexpr ProductRow kProducts[] = {
    {"enquiry_individual", true, codes::kIndividualFields, kIndividualOptions, kIndividualTables},
    {"enquiry_company", false, "", {}, {}},
    {"enquiry_company_with_directors", false, "", kDirectorsOptions, kDirectorsTables},
};

}  // namespace

constinit const CatalogueRows kCatalogue = {kProducts, kServiceTables};

}  // namespace zr::b2bay::version_2
