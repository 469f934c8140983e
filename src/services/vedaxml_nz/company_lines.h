// The lines of a New Zealand report on a company, section by section, for every service that reads
// such a report. Paths are relative to a record of the section.
#pragma once

#include "reports/layout.h"

namespace zr::new_zealand {

namespace company_lines {

using namespace zr::layout;  // the vocabulary of the tables below

inline constexpr Piece kAddressText = lines_at("free-format-address/address-line");

inline constexpr Line kCompanyLines[] = {
    text("Company Name", "company-name"),
    text("Registration Number", "registration-number"),
    text("Registration Area", "registration-area"),
    text("Status", "company-details/company-status"),
    text("Body Type", "company-details/body-type"),
    date("Incorporation Date", "company-details/incorporation-date"),
    text("Companies Act 1993 applies", "company-details/companies-act-1993-applies/@indicator"),
    date("Date Archived", "company-details/date-archived"),
    date("Date Re-Registered", "company-details/re-registered-date"),
    text("Constitution Filed", "company-details/constitution-filed/@indicator"),
    text("Accounts Required", "company-details/accounts-required/@indicator"),
    text("Registration Act Year", "company-details/registration-act/@year"),
};

inline constexpr Line kAddressLines[] = {
    line(text_at("@type"), lines_at("address-line")),
};

inline constexpr Line kPreviousNameLines[] = {
    text(Pieces{constant("Changed "), date_at("@name-start-date")}, "."),
};

inline constexpr Line kShareLines[] = {
    line("Number of Shares Issued", of(Form::kCount, "number-of-shares-issued")),
    money("Paid Capital", "paid-capital"),
    text("Extensive Shareholdings", "extensive-shareholdings/@indicator"),
};

inline constexpr Line kShareholderLines[] = {
    text("Name", "shareholder-name"),
    line("Address", kAddressText),
    line("Number of Shares", of(Form::kCount, "number-of-shares")),
};

inline constexpr Line kOfficerLines[] = {
    person_name(text_at("@type")),
    text("Occupation", "occupation"),
    line("Address", kAddressText),
};

inline constexpr Line kDocumentLines[] = {
    line(Pieces{constant("On "), date_at("date-registered")},
         Pieces{text_at("document-name"), text_at("barcode").within(" (barcode ", ")")}),
};

inline constexpr Line kCreditReferenceLines[] = {
    date("Created date", "@create-date"),          text("Supplier Industry", "supplier-industry"),
    text("Turnover Amount", "turnover-amount"),    text("Terms of Trade", "terms-of-trade"),
    text("Account Opened", "account-opened-date"), text("Referee Name", "referee-name"),
    text("Referee Phone", "referee-phone-number"), line("Narrative", lines_at("comment/narrative")),
};

inline constexpr Piece kNoticeNarrative[] = {text_at("narrative")};

// Of a run of notices: the first one's values, and the narratives of all.
inline constexpr Line kPublicNoticeLines[] = {
    date("Created date", "@create-date"),
    text("Notice Type", "notice-type"),
    text("Adverse", "adverse/@indicator"),
    line("Narrative", each_of_run(kNoticeNarrative, "\r\n")),
};

inline constexpr Line kEnquiryLines[] = {
    text(Pieces{constant("On "), date_at("@enquiry-date")}, "."),
};

inline constexpr Line kDefaultLines[] = {
    date("Created date", "@create-date"),
    text("Credit Provider", "credit-provider"),
    date("Date Account opened", "date-account-opened"),
    text("Account Terms", "account-terms"),
    line("Default Status", Pieces{text_at("company-default-status"),
                                  date_at("company-default-status/@last-update-date")
                                      .within(" (last updated ", ")")
                                      .if_value()}),
    date("Last Update date", "company-default-status/@last-update-date"),
    date("Date Paid", "date-paid"),
    money("Default Amount", "default-amount"),
    money("Default Balance", "default-balance"),
    line("Address", kAddressText),
    person_name("Company Officer", "company-officer"),
    text("Narrative", "narrative"),
};

inline constexpr Line kJudgementLines[] = {
    date("Publication date", "publication-date"),   text("Creditor", "creditor"),
    money("Judgement Amount", "judgement-amount"),  text("Narrative", "narrative"),
    text("Gazette Narrative", "gazette-narrative"),
};

inline constexpr Line kAffiliationLines[] = {
    text("Company Name", "company-name"),
    text("Company Number", "registration-number"),
    text("Company Status", "company-status"),
    text("Body Type", "body-type"),
    line("Number of Shares", of(Form::kCount, "number-of-shares-owned")),
    line("Percentage of Shares", of(Form::kPercent, "percentage-of-shares-owned")),
};

}  // namespace company_lines
}  // namespace zr::new_zealand
