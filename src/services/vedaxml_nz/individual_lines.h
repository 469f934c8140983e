// The lines of a New Zealand report on one person, section by section, for every service that reads
// such a report. Paths are relative to a record of the section.
#pragma once

#include "reports/layout.h"

namespace zr::new_zealand {

namespace lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Piece kCorrectionText[] = {text_at(".").within("\r\n")};
inline constexpr Piece kIndentedCorrectionText[] = {text_at(".").within("\r\n    ")};

inline constexpr Piece kCorrection[] = {
    text_at("correction-reference").within("Reference: "),
    lookup_at("CorrectionStatus", "correction-status/@code").within("\r\nStatus: "),
    date_at("correction-status/@date").within(", last changed on ").if_value(),
    each_at("correction-text-detail/correction-text", kCorrectionText, ""),
};
inline constexpr Piece kIndentedCorrection[] = {
    text_at("correction-reference").within("    Reference: "),
    lookup_at("CorrectionStatus", "correction-status/@code").within("\r\n    Status: "),
    date_at("correction-status/@date").within(", last changed on ").if_value(),
    each_at("correction-text-detail/correction-text", kIndentedCorrectionText, ""),
};

/// A record's corrections with an empty line between two; the same indented by four blanks.
inline constexpr Piece kCorrections = each_at("corrections/correction", kCorrection, "\r\n\r\n");
inline constexpr Piece kIndentedCorrections =
    each_at("corrections/correction", kIndentedCorrection, "\r\n\r\n");

inline constexpr Line kCorrectionsLine = line("Corrections", kCorrections);

inline constexpr Pieces kOnCreateDate{constant("On "), date_at("@create-date")};

inline constexpr Piece kAddressText[] = {
    text_at("street-number"),
    text_at("street-name").joined(" "),
    lookup_at("StreetTypes", "street-type/@code").joined(" "),
    text_at("suburb").joined("\r\n"),
    text_at("city").joined("\r\n"),
};

inline constexpr Line kPersonLines[] = {
    person_name("Name"),
    text("Gender", "gender/@type"),
    date("Date of Birth", "date-of-birth"),
};

inline constexpr Line kAddressLines[] = {
    line(Pieces{text_at("@type"), date_at("@create-date").within(" (", ")")}, kAddressText),
};

inline constexpr Line kAliasLines[] = {
    line(Pieces{constant("Name"), date_at("@create-date").within(" (", ")")},
         Pieces{of(Form::kPersonName, "."),
                date_at("date-of-birth").within(" (Date of Birth ", ")").if_other_birth()}),
};

inline constexpr Line kPersonCorrectionsLines[] = {kCorrectionsLine};

inline constexpr Line kPropertyOwnershipLines[] = {
    text("Verified", "@verified"),
    text("Owner", "property-owner"),
    line("Street Number", Pieces{text_at("street-number-from"),
                                 text_at("street-number-to").within(" to ").if_value()}),
    text("Street Name", "street-name"),
    text("City/ District", "city-district"),
    text("Region", "region-description"),
    text("Reference", "property-reference"),
};

inline constexpr Line kWhitePagesLines[] = {
    text("Status", "electronic-white-pages-result-status"),
    text("Displayed Data", "displayed-data"),
    text("Phone Type", "phone-type"),
    text("Narrative", "narrative"),
};

inline constexpr Line kDriverLicenceLines[] = {
    text("Licence Number", "driver-licence-indicator/@match"),
    text("Family Name", "family-name-indicator/@match"),
    text("First Given Name", "first-given-name-indicator/@match"),
    text("Other Given Name", "other-given-name-indicator/@match"),
    text("Date of Birth", "date-of-birth/@match"),
    text("Narrative", "general-message"),
};

inline constexpr Pieces kNoteText{lookup_at("NotesTypeCodes", "@type"), text_at(".").within(": ")};

inline constexpr Line kNoteLines[] = {
    line(kOnCreateDate, kNoteText),
};

// What was asked for: the account type, "for" an amount, and the enquirer's reference.
inline constexpr Piece kEnquiryAmount[] = {of(Form::kMoneySymbol, "enquiry-amount").if_amount()};
inline constexpr Piece kEnquiryReference[] = {
    text_at("client-reference").within("Client Reference \"", "\"").if_value()};
inline constexpr Piece kEnquiryDetail[] = {
    text_at("account-type"),
    all(kEnquiryAmount).joined(" for "),
    all(kEnquiryReference).joined("; "),
};
inline constexpr Piece kEnquiryText[] = {
    text_at("credit-enquirer"),
    all(kEnquiryDetail).within("\r\n    ").if_value(),
    kIndentedCorrections.within("\r\nCorrections:\r\n").if_value(),
};

inline constexpr Line kEnquiryLines[] = {
    line(kOnCreateDate, kEnquiryText),
};

inline constexpr Line kDefaultLines[] = {
    text("Detail Number", "@defaulter-detail-number"),
    line("Joint Liability", constant("Yes").if_equal("@joint-liability", "Y")),
    line("Company Loan", constant("Yes").if_equal("@company-loan", "Y")),
    date("Load Date", "load-date"),
    date("Default Date", "default-date"),
    text("Credit Provider", "credit-provider"),
    text("Credit Provider ANZSIC", "ANZSIC-industry"),
    money("Default Amount", "default-original-amount"),
    money("Default Balance", "default-balance-amount"),
    line("Account Balance", of(Form::kMoney, "total-loan-amount").if_amount()),
    lookup("Account Type", "AccountTypes", "account-type/@code"),
    date("Account Opened Date", "account-opened-date"),
    text("Default Status", "default-status/@code"),
    date("Default Status changed date", "default-status/@date"),
    text("Client Reference", "client-account-reference-id"),
    person_name("Client Name"),
    date("Client Date of Birth", "date-of-birth"),
    lookup("Client Relationship", "ConsumerDefaultRelationshipTypeCodes",
           "consumer-default-relationship/@type"),
    kCorrectionsLine,
};

inline constexpr Line kJudgementLines[] = {
    date("Load Date", "load-date"),
    text("Creditor", "creditor"),
    money("Judgement Amount", "judgement-amount"),
    text("Court Type", "court-type"),
    text("Judgement Status", "judgement-status"),
    date("Date Paid", "date-paid"),
    person_name("Name"),
    text("Narrative", "narrative"),
    kCorrectionsLine,
};

inline constexpr Line kInsolvencyLines[] = {
    text("Insolvency Number", "insolvency-number"),
    lookup("Type", "InsolvencyType", "insolvency-type/@code"),
    lookup("Status", "InsolvencyStatus", "insolvency-status/@code | insolvency-status/code"),
    date("Adjudication Date", "adjudication-date"),
    lookup("Adjudication Court", "InsolvencyCourt",
           "adjudication-court/@code | adjudication-court/code"),
    date("Discharged Date", "discharged-date"),
    text("Conditions", "conditions"),
    text("Partnership Number", "partnership-group-number"),
    text("Partnership Name", "partnership-group-name"),
    kCorrectionsLine,
};

inline constexpr Piece kNarrativeOfBankruptcy[] = {text_at("unique-id").within("", ": "),
                                                   text_at(".")};

inline constexpr Line kBankruptcyLines[] = {
    date("Load Date", "load-date"),
    text("Source", "source"),
    date("Discharged date", "date-discharged"),
    person_name("Name"),
    line("Address", lines_at("free-format-address[1]")),
    line("Address 2", lines_at("free-format-address[2]")),
    line("Narrative", each_at("narrative", kNarrativeOfBankruptcy, "\r\n")),
    kCorrectionsLine,
};

inline constexpr Line kPublicNoticeLines[] = {
    date("Load Date", "load-date"),
    text("Notice Type", "notice-type"),
    person_name("Name"),
    line("Address", lines_at("free-format-address[1]")),
    line("Address 2", lines_at("free-format-address[2]")),
    text("Narrative", "narrative"),
    kCorrectionsLine,
};

inline constexpr Case kLostOrStolen[] = {{"L", constant("Lost ")}, {"S", constant("Stolen ")}};
inline constexpr Case kReportedToPolice[] = {
    {"Y", constant(" - Reported to Police")},
    otherwise(constant(" - NOT REPORTED TO POLICE")),
};
inline constexpr Piece kLostOrStolenIdText[] = {
    choice_at("@lost-or-stolen", kLostOrStolen),
    text_at("id-type"),
    text_at("id-type/@id-detail").within(" (", ")").if_value(),
    choice_at("@reported-to-police", kReportedToPolice),
    text_at("issuer").within("\r\n    Issuer: ").if_value(),
    text_at("narrative").within("\r\n    ").if_value(),
    kIndentedCorrections.within("\r\nCorrections:\r\n").if_value(),
};

inline constexpr Line kLostOrStolenIdLines[] = {
    line(kOnCreateDate, kLostOrStolenIdText),
};

inline constexpr Line kCompanyOfficeLines[] = {
    date("Created Date", "@create-date"),
    text("Company Name", "company-name"),
    text("Company Number", "registration-number"),
    text("Registration Area", "registration-area"),
    text("Company Status", "company-status"),
    person_name("Name"),
    kCorrectionsLine,
};

inline constexpr Case kSummaryValue[] = {
    {"amount", of(Form::kMoneySymbol, ".")},
    {"months", text_at(".").within("", " months")},
    {"years", text_at(".").within("", " years")},
    otherwise(text_at(".")),
};

inline constexpr Line kSummaryLines[] = {
    line(text_at("@name"), choice_at("@type", kSummaryValue)),
};

inline constexpr Case kYesOrNo[] = {
    {"Y", constant("Yes")},
    {"N", constant("No")},
    otherwise(text_at(".")),
};
inline constexpr Case kCharacteristicValue[] = {
    {"boolean", choice_at(".", kYesOrNo)},
    {"amount", of(Form::kMoneySymbol, ".")},
    {"months", text_at(".").within("", " months")},
    {"years", text_at(".").within("", " years")},
    otherwise(text_at(".")),
};

inline constexpr Line kCharacteristicLines[] = {
    line(text_at("@name"), choice_at("@type", kCharacteristicValue)),
};

inline constexpr Line kScoreLines[] = {
    text("Scorecard", "scorecard-name"),
    number("Relative Risk", "relative-risk"),
    number("Relative Risk Index", "relative-risk-index"),
    number("Risk Odds", "risk-odds"),
};

}  // namespace lines
}  // namespace zr::new_zealand
