#include "services/vedaxml_au/report_layout.h"

namespace zr::australia {
namespace {

using namespace zr::layout;  // the vocabulary of the tables below

constexpr Pieces kAddressLabel{text_at("@type"), date_at("@create-date").within(" (", ")")};

constexpr Piece kAddressText[] = {
    text_at("unit-number").within("", "/").if_value(),
    text_at("street-number"),
    text_at("property").joined(" "),
    text_at("street-name").joined(" "),
    lookup_at("StreetTypes", "street-type/@code").joined(" "),
    text_at("suburb").joined("\r\n"),
    text_at("state").joined("\r\n"),
    text_at("postcode").joined(" "),
};

// An account type with the subject's role: any role in the consumer file, in the commercial file
// any but the principal's.
constexpr Pieces kConsumerAccountType{text_at("account-type"),
                                      text_at("role/@type").within(" as ").if_node("role")};
constexpr Pieces kCommercialAccountType{
    text_at("account-type"),
    text_at("role/@type").within(" (", ")").unless("role/@type", "PRINCIPAL")};
constexpr Pieces kDefaultAccountType{
    text_at("account-details/account-type"),
    text_at("account-details/role/@type").within(" as ").if_node("account-details/role")};

constexpr Line kPersonLines[] = {
    person_name("Name"),
    text("Gender", "gender/@type"),
    date("Date of Birth", "date-of-birth"),
    text("Driver's Licence Number", "drivers-licence-number"),
};

constexpr Line kAddressLines[] = {
    line(kAddressLabel, kAddressText),
};

constexpr Line kEmploymentLines[] = {
    text(Pieces{constant("Employer"), general_date_at("@create-date").within(" (", ")")},
         "employer"),
    text("Occupation", "occupation"),
};

constexpr Line kCrossReferenceLines[] = {
    date("Created date", "@create-date"),
    text("Bureau Reference", "bureau-reference"),
    person_name("Name"),
};

constexpr Line kDefaultLines[] = {
    line("Account Type", kDefaultAccountType),
    text("Client Reference", "account-details/client-reference"),
    line("Status",
         Pieces{text_at("account-details/default-status"),
                date_at("account-details/default-status/@date").within(" on ").if_value()}),
    date("Date recorded", "original-default/date-recorded"),
    money("Original Amount", "original-default/default-amount"),
    text("Original Reason", "original-default/reason-to-report"),
    text("Original Credit Provider", "original-default/credit-provider"),
    date("Last updated", "current-default/date-recorded"),
    money("Current Amount", "current-default/default-amount"),
    text("Current Reason", "current-default/reason-to-report"),
    text("Current Credit Provider", "current-default/credit-provider"),
};

constexpr Line kNoteLines[] = {
    text(Pieces{constant("On "), date_at("@date-recorded")}, "."),
};

constexpr Line kCurrentProviderLines[] = {
    line(Pieces{constant("On "), date_at("@date-provided")},
         Pieces{text_at("credit-provider"),
                text_at("client-reference").within(" (Reference ", ")").if_value()}),
};

constexpr Line kConsumerEnquiryLines[] = {
    date("Enquiry date", "@enquiry-date"),      text("Enquiry type", "@type"),
    text("Enquirer", "credit-enquirer"),        text("Enquirer Reference", "client-reference"),
    line("Account Type", kConsumerAccountType), money("Enquiry Amount", "enquiry-amount"),
};

constexpr Line kCommercialEnquiryLines[] = {
    date("Enquiry date", "@enquiry-date"),        text("Enquiry type", "@type"),
    text("Enquirer", "credit-enquirer"),          text("Enquirer Reference", "client-reference"),
    line("Account Type", kCommercialAccountType), money("Enquiry Amount", "enquiry-amount"),
};

constexpr Line kMessageLines[] = {
    text("Message", "."),
};

constexpr Line kDirectorshipLines[] = {
    // A current directorship is the ordinary case and says nothing of its type.
    line("Type", text_at("@type").unless_exactly("current")),
    text("Bureau Reference", "organisation/bureau-reference"),
    text("Organisation Name", "organisation/organisation-name"),
    lookup("Organisation Type", "OrganisationTypes", "organisation/organisation-type/@code"),
    text("Organisation Number", "organisation/organisation-number"),
    text("Organisation Status", "organisation/organisation-details/organisation-status"),
    text("Australian Business Number", "organisation/australian-business-number"),
    date("Date Appointed", "date-appointed"),
    date("Date Ceased", "date-ceased"),
    date("Date last known as Director", "date-last-known-as-director"),
};

constexpr Line kDisqualifiedDirectorshipLines[] = {
    date("Date Disqualified", "date-disqualified"),
    date("Date Disqualified Until", "date-disqualified-until"),
};

constexpr Line kProprietorshipLines[] = {
    date("Date Appointed", "date-appointed"),
    text("Bureau Reference", "business/bureau-reference"),
    text("Business Name", "business/business-name"),
    text("Australian Business Number", "business/australian-business-number"),
    line("Business Registration", Pieces{text_at("business/business-registration/@state | "
                                                 "business/business-registration/state"),
                                         text_at("business/business-registration/@number | "
                                                 "business/business-registration/number")
                                             .within(", Number ")
                                             .if_node("business/business-registration")}),
};

constexpr Line kBankruptcyLines[] = {
    text("Type", "bankruptcy-type"),
    date("Date Declared", "date-declared"),
    text("Narrative", "narrative"),
    line("Proceedings (State, Year, Number)",
         Pieces{text_at("proceedings/@state | proceedings/state"),
                text_at("proceedings/@year | proceedings/year").within(", ").if_node("proceedings"),
                text_at("proceedings/@number | proceedings/number")
                    .within(", Number ")
                    .if_node("proceedings")}),
    line("Discharge Status", Pieces{text_at("discharge-status"),
                                    date_at("discharge-status/@date").within(" on ").if_value()}),
    text("Co-Borrower", "co-borrower"),
};

constexpr Line kCourtActionLines[] = {
    text("Type", "@type"),
    date("Action date", "action-date"),
    text("Creditor", "creditor"),
    text("Court Type", "court-type"),
    text("Court Action Id", "plaint-number"),
    money("Court Action Amount", "court-action-amount"),
    line(
        "Court Action Status",
        Pieces{
            text_at("court-action-status"),
            date_at("court-action-status/@date").within(" (", ")").if_node("court-action-status")}),
};

constexpr Case kSummaryValue[] = {
    {"amount", of(Form::kMoneySymbol, ".")},
    {"months", text_at(".").within("", " months").if_value()},
    {"years", text_at(".").within("", " years").if_value()},
    otherwise(text_at(".")),
};

constexpr Line kSummaryLines[] = {
    line(text_at("@name"), choice_at("@type", kSummaryValue)),
};

constexpr Line kScoreLines[] = {
    text("Type", "score/@type"),
    text("Scorecard", "score/scorecard-name"),
    number("Relative Risk", "score/relative-risk"),
    number("Relative Risk Index", "score/relative-risk-index"),
    number("Risk Odds", "score/risk-odds"),
    line_for_each("score/risk-factor", text_at(".").within("", " risk"),
                  Pieces{text_at("@impact-level"), text_at("@impact-effect").within(" ")}),
    line("Population", text_at("score/population/@population-name | "
                               "score/population/population-name")),
    line("Population Odds", of(Form::kNumber,
                               "score/population/@population-odds | "
                               "score/population/population-odds")
                                .if_node("score/population")),
};

constexpr Line kAreaLevelRiskLines[] = {
    text("Area Level Risk", "@indicator"),
};

// Group, word, sub-group, numbering, source, records, lines: in the order of the report.
constexpr Section kSections[] = {
    {Group::kPerson, "Individual", "Details", Numbering::kNone, kMatch, "individual", kPersonLines},
    {Group::kPerson, "Individual", "Addresses", Numbering::kNone, kMatch, "individual/address",
     kAddressLines},
    {Group::kPerson, "Individual", "Employment", Numbering::kPosition, kMatch,
     "individual/employment", kEmploymentLines},

    {Group::kPrefixed, "Consumer Cross References", "Cross Reference", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/individual-cross-reference", kCrossReferenceLines},
    {Group::kPrefixed, "Consumer Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/default", kDefaultLines},
    {Group::kPrefixed, "Consumer Notes", "Note", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/file-note", kNoteLines},
    {Group::kPrefixed, "Consumer Current Credit Providers", "Current Credit Provider",
     Numbering::kPosition, kMatch, "individual-consumer-credit-file/current-credit-provider",
     kCurrentProviderLines},
    {Group::kPrefixed, "Consumer Enquiries", "Consumer Enquiry", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/credit-enquiry", kConsumerEnquiryLines},
    {Group::kPrefixed, "Consumer File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-consumer-credit-file/file-message", kMessageLines},

    {Group::kPrefixed, "Commercial Cross References", "Cross Reference", Numbering::kPosition,
     kMatch, "individual-commercial-credit-file/individual-cross-reference", kCrossReferenceLines},
    {Group::kPrefixed, "Commercial Defaults", "Default", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/default", kDefaultLines},
    {Group::kPrefixed, "Commercial Notes", "Note", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/file-note", kNoteLines},
    {Group::kPrefixed, "Commercial Current Credit Providers", "Current Credit Provider",
     Numbering::kPosition, kMatch, "individual-commercial-credit-file/current-credit-provider",
     kCurrentProviderLines},
    {Group::kPrefixed, "Commercial Enquiries", "Enquiry", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/credit-enquiry", kCommercialEnquiryLines},
    {Group::kPrefixed, "Commercial File Messages", "Message", Numbering::kPosition, kMatch,
     "individual-commercial-credit-file/file-message", kMessageLines},

    {Group::kPrefixed, "Directorships", "Directorship", Numbering::kPosition, kMatch,
     "individual-public-data-file/directorship", kDirectorshipLines},
    {Group::kPrefixed, "Disqualified Directorships", "Disqualified Directorship",
     Numbering::kPosition, kMatch, "individual-public-data-file/disqualified-directorship",
     kDisqualifiedDirectorshipLines},
    {Group::kPrefixed, "Proprietorships", "Proprietorship", Numbering::kPosition, kMatch,
     "individual-public-data-file/proprietorship", kProprietorshipLines},
    {Group::kPrefixed, "Bankruptcies", "Bankruptcy", Numbering::kPosition, kMatch,
     "individual-public-data-file/bankruptcy", kBankruptcyLines},
    {Group::kPrefixed, "Court Actions", "Court Action", Numbering::kPosition, kMatch,
     "individual-public-data-file/court-action", kCourtActionLines},
    {Group::kPrefixed, "Public File Data Messages", "File Message", Numbering::kPosition, kMatch,
     "individual-public-data-file/file-message", kMessageLines},

    // These belong to the report rather than to the match; the score's group has no prefix.
    {Group::kPrefixed, "Summary", "Summary Data", Numbering::kNone, kReport, "summary-data/summary",
     kSummaryLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "score-data", kScoreLines},
    {Group::kPlain, "Score", "Score", Numbering::kNone, kReport, "area-level-risk",
     kAreaLevelRiskLines},
};

constexpr StatisticsCategory kCategories[] = {
    {.family = RecordFamily::kBankruptcy,
     .records = "individual-public-data-file/bankruptcy",
     .event_date = "date-declared",
     .open = Open::kUnlessStatus,
     .status_path = "discharge-status/@type",
     .statuses = {"DISCHARGED", "COMPLETED"}},
    {.family = RecordFamily::kDefault,
     .records = "(individual-consumer-credit-file | individual-commercial-credit-file)/default",
     .event_date = "original-default/date-recorded",
     .loaded = "original-default/default-amount",
     .outstanding = "current-default/default-amount",
     .settled_path = "account-details/default-status/@code",
     .settled_codes = {"P", "S"}},
    {.family = RecordFamily::kEnquiry,
     .records =
         "(individual-consumer-credit-file | individual-commercial-credit-file)/credit-enquiry",
     .event_date = "@enquiry-date"},
    {.family = RecordFamily::kJudgement,
     .records = "individual-public-data-file/court-action",
     .only_path = "@type",
     .only_value = "default-judgement",
     .event_date = "action-date",
     .loaded = "court-action-amount",
     .outstanding = "court-action-amount",
     .settled_path = "court-action-status/@code",
     .settled_codes = {"D", "P", "S"}},
    // Writs and summonses: every other court action.
    {.family = RecordFamily::kCollection,
     .records = "individual-public-data-file/court-action",
     .only_path = "@type",
     .only_value = "default-judgement",
     .only_others = true,
     .event_date = "action-date",
     .loaded = "court-action-amount",
     .outstanding = "court-action-amount",
     .settled_path = "court-action-status/@code",
     .settled_codes = {"D", "P", "S"}},
};

// The blank after the slash is the statistics' own.
constexpr SummaryBlock kQuickSummary[] = {
    {RecordFamily::kEnquiry, "Enquiries", "", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", true},
    {RecordFamily::kCollection, "Court Writs/Summons", "", false},
    {RecordFamily::kJudgement, "Judgements", "", false},
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
};

constexpr SummaryBlock kStatistics[] = {
    {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", false},
    {RecordFamily::kJudgement, "Judgements", "Not Paid", false},
    {RecordFamily::kCollection, "Court Writs/ Summons", "Not Paid", false},
    {RecordFamily::kDefault, "Defaults", "Not Paid", false},
    {RecordFamily::kEnquiry, "Enquiries", "", false},
};

}  // namespace

std::span<const Section> report_sections() { return kSections; }
std::span<const StatisticsCategory> statistics_categories() { return kCategories; }
std::span<const SummaryBlock> quick_summary() { return kQuickSummary; }
std::span<const SummaryBlock> statistics_blocks() { return kStatistics; }

}  // namespace zr::australia
