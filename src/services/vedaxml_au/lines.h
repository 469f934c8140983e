// The lines of an Australian report, section by section, for every service that reads such a
// report. Paths are relative to a record of the section.
#pragma once

#include "reports/layout.h"

namespace zr::australia {

namespace lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Pieces kAddressLabel{text_at("@type"), date_at("@create-date").within(" (", ")")};

inline constexpr Piece kAddressText[] = {
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
inline constexpr Piece kConsumerAccountType[] = {
    text_at("account-type"), text_at("role/@type").within(" as ").if_node("role")};
inline constexpr Piece kCommercialAccountType[] = {
    text_at("account-type"),
    text_at("role/@type").within(" (", ")").unless("role/@type", "PRINCIPAL")};
inline constexpr Piece kDefaultAccountType[] = {
    text_at("account-details/account-type"),
    text_at("account-details/role/@type").within(" as ").if_node("account-details/role")};

inline constexpr Line kPersonLines[] = {
    person_name("Name"),
    text("Gender", "gender/@type"),
    date("Date of Birth", "date-of-birth"),
    text("Driver's Licence Number", "drivers-licence-number"),
};

inline constexpr Line kAddressLines[] = {
    line(kAddressLabel, kAddressText),
};

inline constexpr Line kEmploymentLines[] = {
    text(Pieces{constant("Employer"), general_date_at("@create-date").within(" (", ")")},
         "employer"),
    text("Occupation", "occupation"),
};

inline constexpr Line kCrossReferenceLines[] = {
    date("Created date", "@create-date"),
    text("Bureau Reference", "bureau-reference"),
    person_name("Name"),
};

inline constexpr Line kDefaultLines[] = {
    line("Account Type", all(kDefaultAccountType).if_any_value()),
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

inline constexpr Line kNoteLines[] = {
    text(Pieces{constant("On "), date_at("@date-recorded")}, "."),
};

inline constexpr Pieces kCurrentProvider{
    text_at("credit-provider"), text_at("client-reference").within(" (Reference ", ")").if_value()};

inline constexpr Line kCurrentProviderLines[] = {
    line(Pieces{constant("On "), date_at("@date-provided")}, kCurrentProvider),
};

inline constexpr Line kConsumerEnquiryLines[] = {
    date("Enquiry date", "@enquiry-date"),
    text("Enquiry type", "@type"),
    text("Enquirer", "credit-enquirer"),
    text("Enquirer Reference", "client-reference"),
    line("Account Type", all(kConsumerAccountType).if_any_value()),
    money("Enquiry Amount", "enquiry-amount"),
};

inline constexpr Line kCommercialEnquiryLines[] = {
    date("Enquiry date", "@enquiry-date"),
    text("Enquiry type", "@type"),
    text("Enquirer", "credit-enquirer"),
    text("Enquirer Reference", "client-reference"),
    line("Account Type", all(kCommercialAccountType).if_any_value()),
    money("Enquiry Amount", "enquiry-amount"),
};

inline constexpr Line kMessageLines[] = {
    text("Message", "."),
};

inline constexpr Line kDirectorshipLines[] = {
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

inline constexpr Line kDisqualifiedDirectorshipLines[] = {
    date("Date Disqualified", "date-disqualified"),
    date("Date Disqualified Until", "date-disqualified-until"),
};

inline constexpr Piece kBusinessRegistration[] = {
    text_at("business/business-registration/@state | business/business-registration/state"),
    text_at("business/business-registration/@number | business/business-registration/number")
        .within(", Number "),
};

inline constexpr Line kProprietorshipLines[] = {
    date("Date Appointed", "date-appointed"),
    text("Bureau Reference", "business/bureau-reference"),
    text("Business Name", "business/business-name"),
    text("Australian Business Number", "business/australian-business-number"),
    line("Business Registration", all(kBusinessRegistration).if_any_value()),
};

inline constexpr Piece kProceedings[] = {
    text_at("proceedings/@state | proceedings/state"),
    text_at("proceedings/@year | proceedings/year").within(", "),
    text_at("proceedings/@number | proceedings/number").within(", Number "),
};

inline constexpr Line kBankruptcyLines[] = {
    text("Type", "bankruptcy-type"),
    date("Date Declared", "date-declared"),
    text("Narrative", "narrative"),
    line("Proceedings (State, Year, Number)", all(kProceedings).if_any_value()),
    line("Discharge Status", Pieces{text_at("discharge-status"),
                                    date_at("discharge-status/@date").within(" on ").if_value()}),
    text("Co-Borrower", "co-borrower"),
};

inline constexpr Piece kCourtActionStatus[] = {
    text_at("court-action-status"),
    date_at("court-action-status/@date").within(" (", ")"),
};

inline constexpr Line kCourtActionLines[] = {
    text("Type", "@type"),
    date("Action date", "action-date"),
    text("Creditor", "creditor"),
    text("Court Type", "court-type"),
    text("Court Action Id", "plaint-number"),
    money("Court Action Amount", "court-action-amount"),
    line("Court Action Status", all(kCourtActionStatus).if_any_value()),
};

inline constexpr Case kSummaryValue[] = {
    {"amount", of(Form::kMoneySymbol, ".")},
    {"months", text_at(".").within("", " months").if_value()},
    {"years", text_at(".").within("", " years").if_value()},
    otherwise(text_at(".")),
};

inline constexpr Line kSummaryLines[] = {
    line(text_at("@name"), choice_at("@type", kSummaryValue)),
};

inline constexpr Piece kRiskFactor[] = {
    text_at("@impact-level"),
    text_at("@impact-effect").within(" "),
};

inline constexpr Line kScoreLines[] = {
    text("Type", "score/@type"),
    text("Scorecard", "score/scorecard-name"),
    number("Relative Risk", "score/relative-risk"),
    number("Relative Risk Index", "score/relative-risk-index"),
    number("Risk Odds", "score/risk-odds"),
    line_for_each("score/risk-factor", text_at(".").within("", " risk"),
                  all(kRiskFactor).if_any_value()),
    line("Population", text_at("score/population/@population-name | "
                               "score/population/population-name")),
    line("Population Odds", of(Form::kNumber,
                               "score/population/@population-odds | "
                               "score/population/population-odds")
                                .if_node("score/population")),
};

inline constexpr Line kAreaLevelRiskLines[] = {
    text("Area Level Risk", "@indicator"),
};

}  // namespace lines
}  // namespace zr::australia
