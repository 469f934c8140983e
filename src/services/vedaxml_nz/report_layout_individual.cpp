#include "services/vedaxml_nz/individual_lines.h"
#include "services/vedaxml_nz/report_layout.h"

namespace zr::new_zealand {
namespace {

using namespace lines;

// Whether the details stand in an element of their own or beside the components is the bureau's.
constexpr Line kLicenceLines[] = {
    person_name("Name"),
    text("Licence", "driver-licence-details/driver-licence"),
    text("Licence Status", "driver-licence-details/licence-status | licence-status"),
    text("Active", "driver-licence-details/active-status-flag | active-status-flag"),
};

constexpr Line kLicenceComponentLines[] = {
    text("Type", "component-type"),   text("Description", "component-description"),
    date("Start Date", "start-date"), date("End Date", "end-date"),
    text("Status", "status"),
};

constexpr Line kLicenceMessageLines[] = {
    text("", "."),
};

constexpr Line kFinesBannerLines[] = {
    text("Banner", "."),
};

constexpr Case kLicenceVerified[] = {
    {"", constant("Not supplied")}, {"N", constant("NOT Verified")},
    {"Y", constant("Verified")},    {"X", constant("Verification Service not available")},
    otherwise(constant("Unknown")),
};

constexpr Line kFinesPersonLines[] = {
    person_name("Name"),
    text("Gender", "gender/@type"),
    date("Date of Birth", "date-of-birth"),
    text("Driver Licence Number", "driver-licence-details/licence-number"),
    text("Driver Licence Version", "driver-licence-details/licence-version-number"),
    line("Driver Licence Verified",
         choice_at("driver-licence-details/driver-licence-verified", kLicenceVerified)
             .if_node("driver-licence-details")),
    text("Occupation", "employment/occupation"),
    text("Employer", "employment/employer"),
    text("Veda Reference", "external-transaction-reference"),
    text("Timestamp", "request-timestamp"),
};

constexpr Line kFinesAddressLines[] = {
    line(Pieces{constant("Address "), kRecordPosition}, kAddressText),
};

constexpr Case kFinesMessageTypes[] = {
    {"FSR1", constant("FSR1; Overdue fine balance response sent")},
    {"FSR2", constant("FSR2; No match/no overdue fine balance")},
    {"ERR1", constant("ERR1; Fines data store is not available")},
    {"ERR2", constant("ERR2; Unknown reporting user")},
    {"ERR3", constant("ERR3; Invalid message data detected")},
    otherwise(text_at("moj-message-code")),
};

constexpr Line kFinesMessageLines[] = {
    line("Type", choice_at("moj-message-code", kFinesMessageTypes)),
    text("Text", "message-text"),
};

constexpr Line kFinesBalanceLines[] = {
    text("Indicator", "fines-indicator"),
    money("Amount", "fines-amount"),
    date("As At Date", "asatdate"),
    line_for_each("fines-message", "Message", text_at("fines-message-text")),
};

// Group, word, sub-group, numbering, source, records, lines, identifier: in the order of the
// report. A position of 1 stands where the report has the node once.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kReport, "individual[1]",
     kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kReport, "individual[1]/address",
     kAddressLines},
    {Group::kPerson, "Individual", "Alias", Numbering::kPosition, kReport, "individual[1]/alias",
     kAliasLines},
    {Group::kPerson, "Individual", "Corrections", Numbering::kNone, kReport, "individual[1]",
     kPersonCorrectionsLines},

    {Group::kPrefixed,
     "Verification",
     "Property Ownership",
     Numbering::kNone,
     kReport,
     "identity-verification[1]/property-ownership/property-ownership-verification-result",
     kPropertyOwnershipLines,
     {},
     Runs::kAll},
    {Group::kPrefixed, "Verification", "White Pages", Numbering::kNone, kReport,
     "identity-verification[1]/electronic-white-pages[1]", kWhitePagesLines},
    {Group::kPrefixed, "Verification", "Driver Licence", Numbering::kNone, kReport,
     "identity-verification[1]/driver-licence[1]", kDriverLicenceLines},

    {Group::kPrefixed, "Notes", "Note", Numbering::kId, kReport, "note-file/note", kNoteLines,
     "@unique-id"},
    {Group::kPrefixed, "Enquiries", "Enquiry", Numbering::kPosition, kReport,
     "credit-file/credit-enquiry", kEnquiryLines},
    {Group::kPrefixed, "Defaults", "Default", Numbering::kId, kReport, "default-file/default",
     kDefaultLines, "@defaulter-detail-number"},
    {Group::kPrefixed, "Defaults (Collection Agency)", "Default", Numbering::kId, kReport,
     "default-collection-agency-file/default", kDefaultLines, "@defaulter-detail-number"},
    {Group::kPrefixed, "Judgements", "Judgement", Numbering::kId, kReport,
     "judgement-file/judgement", kJudgementLines, "@unique-id"},
    {Group::kPrefixed, "Insolvencies", "Insolvency", Numbering::kId, kReport,
     "insolvency-file/insolvency", kInsolvencyLines, "@unique-id"},
    {Group::kPrefixed, "Bankruptcies", "Bankruptcy", Numbering::kId, kReport,
     "bankruptcy-file/bankruptcy", kBankruptcyLines, "@unique-id"},
    {Group::kPrefixed, "Public Notices", "Public Notice", Numbering::kId, kReport,
     "public-notice-file/public-notice", kPublicNoticeLines, "@unique-id"},
    {Group::kPrefixed, "Lost/Stolen Identification", "Lost/Stolen Id", Numbering::kPosition,
     kReport, "lost-stolen-id-file/lost-stolen-id", kLostOrStolenIdLines},
    {Group::kPrefixed, "Company Officers", "Company Officer", Numbering::kPosition, kReport,
     "company-officer-details/company-officer", kCompanyOfficeLines},
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     kSummaryLines},
    // The applicant's and the directors' alike.
    {Group::kPlain, "Negative Block", "Characteristic", Numbering::kNone, kReport,
     "negative-block/characteristic", kCharacteristicLines},
    {Group::kPrefixed, "Score", "Score", Numbering::kNone, kReport, "score-data[1]", kScoreLines},

    // A message stands in place of the licence's details.
    {.group = Group::kPrefixed,
     .word = "LicenceCheck",
     .sub_group = "LicenceCheck",
     .numbering = Numbering::kNone,
     .source = kLicence,
     .records = ".",
     .lines = kLicenceLines,
     .without = "licencecheck-message"},
    {.group = Group::kPrefixed,
     .word = "LicenceCheck",
     .sub_group = "Licence Component Details",
     .numbering = Numbering::kPosition,
     .source = kLicence,
     .records = "driver-licence-component-details/driver-licence-component | "
                "driver-licence-details/driver-licence-component-details/driver-licence-component",
     .lines = kLicenceComponentLines,
     .without = "licencecheck-message"},
    {Group::kPrefixed, "LicenceCheck", "LicenceCheck", Numbering::kNone, kLicence,
     "licencecheck-message[1]", kLicenceMessageLines},

    {Group::kPrefixed, "MOJ Fines", "MOJ Fines", Numbering::kNone, kFines,
     "moj-fines-balance-banner[1]", kFinesBannerLines},
    {Group::kPrefixed, "MOJ Fines", "Individual", Numbering::kNone, kFines,
     "moj-fines-individual-details-confirmation[1]", kFinesPersonLines},
    {Group::kPrefixed, "MOJ Fines", "Individual", Numbering::kNone, kFines,
     "moj-fines-address-details-confirmation/address", kFinesAddressLines},
    {Group::kPrefixed, "MOJ Fines", "Message", Numbering::kPosition, kFines,
     "moj-messages/moj-message", kFinesMessageLines},
    {Group::kPrefixed, "MOJ Fines", "Overdue Fines Balance", Numbering::kNone, kFines,
     "moj-overdue-fines-balance[1]", kFinesBalanceLines},
};

}  // namespace

std::span<const Section> individual_sections() { return kSections; }

}  // namespace zr::new_zealand
