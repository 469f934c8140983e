#include "services/vedaxml_nz/lines.h"

#include <utility>

namespace zr::new_zealand {

using namespace layout;
using layout::text;  // rather than the namespace

namespace {

Of<Each> corrections_with(std::string_view reference, std::string_view status,
                          std::string_view line) {
    return each_at(
        "corrections/correction",
        {text_at("correction-reference").within(reference),
         lookup_at("CorrectionStatus", "correction-status/@code").within(status),
         date_at("correction-status/@date").within(", last changed on ").if_value(),
         each_at("correction-text-detail/correction-text", {text_at(".").within(line)}, "")},
        "\r\n\r\n");
}

}  // namespace

Lines person_lines() {
    return {
        person_name("Name"),
        text("Gender", "gender/@type"),
        date("Date of Birth", "date-of-birth"),
    };
}

Lines address_lines() {
    return {
        line({text_at("@type"), date_at("@create-date").within(" (", ")")}, address_text()),
    };
}

Lines property_ownership_lines(std::string_view verified) {
    return {
        text("Verified", verified),
        text("Owner", "property-owner"),
        line("Street Number", {text_at("street-number-from"),
                               text_at("street-number-to").within(" to ").if_value()}),
        text("Street Name", "street-name"),
        text("City/ District", "city-district"),
        text("Region", "region-description"),
        text("Reference", "property-reference"),
    };
}

Lines white_pages_lines() {
    return {
        text("Status", "electronic-white-pages-result-status"),
        text("Displayed Data", "displayed-data"),
        text("Phone Type", "phone-type"),
        text("Narrative", "narrative"),
    };
}

Lines driver_licence_lines() {
    return {
        text("Licence Number", "driver-licence-indicator/@match"),
        text("Family Name", "family-name-indicator/@match"),
        text("First Given Name", "first-given-name-indicator/@match"),
        text("Other Given Name", "other-given-name-indicator/@match"),
        text("Date of Birth", "date-of-birth/@match"),
        text("Narrative", "general-message"),
    };
}

Lines company_office_lines() {
    return {
        date("Created Date", "@create-date"),
        text("Company Name", "company-name"),
        text("Company Number", "registration-number"),
        text("Registration Area", "registration-area"),
        text("Company Status", "company-status"),
        person_name("Name"),
        corrections_line(),
    };
}

Lines score_lines() {
    return {
        text("Scorecard", "scorecard-name"),
        number("Relative Risk", "relative-risk"),
        number("Relative Risk Index", "relative-risk-index"),
        number("Risk Odds", "risk-odds"),
    };
}

Text address_text() {
    return {text_at("street-number"), text_at("street-name").joined(" "),
            lookup_at("StreetTypes", "street-type/@code").joined(" "),
            text_at("suburb").joined("\r\n"), text_at("city").joined("\r\n")};
}

Of<Each> corrections() { return corrections_with("Reference: ", "\r\nStatus: ", "\r\n"); }

Of<Each> indented_corrections() {
    return corrections_with("    Reference: ", "\r\n    Status: ", "\r\n    ");
}

Line corrections_line() { return line("Corrections", corrections()); }

Lines note_lines(std::string_view created) {
    return {line({"On ", date_at(created)},
                 {lookup_at("NotesTypeCodes", "@type"), text_at(".").within(": ")})};
}

// What was asked for: the account type, "for" an amount, and the enquirer's reference.
Lines enquiry_lines(Piece corrections) {
    return {
        line({"On ", date_at("@create-date")},
             {text_at("credit-enquirer"),
              all({text_at("account-type"),
                   amount_at(Form::kMoneySymbol, "enquiry-amount").if_amount().joined(" for "),
                   all({text_at("client-reference").within("Client Reference \"", "\"").if_value()})
                       .joined("; ")})
                  .within("\r\n    ")
                  .if_value(),
              std::move(corrections)})};
}

Lines default_lines(Line joint_liability, Line company_loan, Line account_balance) {
    return {
        text("Detail Number", "@defaulter-detail-number"),
        std::move(joint_liability),
        std::move(company_loan),
        date("Load Date", "load-date"),
        date("Default Date", "default-date"),
        text("Credit Provider", "credit-provider"),
        text("Credit Provider ANZSIC", "ANZSIC-industry"),
        money("Default Amount", "default-original-amount"),
        money("Default Balance", "default-balance-amount"),
        std::move(account_balance),
        lookup("Account Type", "AccountTypes", "account-type/@code"),
        date("Account Opened Date", "account-opened-date"),
        text("Default Status", "default-status/@code"),
        date("Default Status changed date", "default-status/@date"),
        text("Client Reference", "client-account-reference-id"),
        person_name("Client Name"),
        date("Client Date of Birth", "date-of-birth"),
        lookup("Client Relationship", "ConsumerDefaultRelationshipTypeCodes",
               "consumer-default-relationship/@type"),
        corrections_line(),
    };
}

Lines judgement_lines(std::string_view date_paid) {
    return {
        date("Load Date", "load-date"),
        text("Creditor", "creditor"),
        money("Judgement Amount", "judgement-amount"),
        text("Court Type", "court-type"),
        text("Judgement Status", "judgement-status"),
        date("Date Paid", date_paid),
        person_name("Name"),
        text("Narrative", "narrative"),
        corrections_line(),
    };
}

Lines bankruptcy_lines(std::string_view first_address, std::string_view second_address,
                       std::string_view narrative_id) {
    return {
        date("Load Date", "load-date"),
        text("Source", "source"),
        date("Discharged date", "date-discharged"),
        person_name("Name"),
        line("Address", lines_at(first_address)),
        line("Address 2", lines_at(second_address)),
        line("Narrative",
             each_at("narrative", {text_at(narrative_id).within("", ": "), text_at(".")}, "\r\n")),
        corrections_line(),
    };
}

Lines notice_lines(std::string_view first_address, std::string_view second_address) {
    return {
        date("Load Date", "load-date"),
        text("Notice Type", "notice-type"),
        person_name("Name"),
        line("Address", lines_at(first_address)),
        line("Address 2", lines_at(second_address)),
        text("Narrative", "narrative"),
        corrections_line(),
    };
}

Lines lost_or_stolen_lines(Of<Each> corrections) {
    return {line({"On ", date_at("@create-date")},
                 {choice_at("@lost-or-stolen", {{"L", "Lost "}, {"S", "Stolen "}}),
                  text_at("id-type"), text_at("id-type/@id-detail").within(" (", ")").if_value(),
                  choice_at("@reported-to-police", {{"Y", " - Reported to Police"},
                                                    otherwise(" - NOT REPORTED TO POLICE")}),
                  text_at("issuer").within("\r\n    Issuer: ").if_value(),
                  text_at("narrative").within("\r\n    ").if_value(),
                  std::move(corrections).within("\r\nCorrections:\r\n").if_value()})};
}

Of<Each> free_address() { return lines_at("free-format-address/address-line"); }

Lines company_lines() {
    return {
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
}

Lines company_address_lines() {
    return {
        line(text_at("@type"), lines_at("address-line")),
    };
}

Lines share_lines() {
    return {
        line("Number of Shares Issued", amount_at(Form::kCount, "number-of-shares-issued")),
        money("Paid Capital", "paid-capital"),
        text("Extensive Shareholdings", "extensive-shareholdings/@indicator"),
    };
}

Lines shareholder_lines() {
    return {
        text("Name", "shareholder-name"),
        line("Address", free_address()),
        line("Number of Shares", amount_at(Form::kCount, "number-of-shares")),
    };
}

Lines company_notice_lines() {
    return {
        date("Created date", "@create-date"),
        text("Notice Type", "notice-type"),
        text("Adverse", "adverse/@indicator"),
        line("Narrative", each_of_run({text_at("narrative")}, "\r\n")),
    };
}

Lines company_enquiry_lines() {
    return {
        text({"On ", date_at("@enquiry-date")}, "."),
    };
}

Lines company_judgement_lines() {
    return {
        date("Publication date", "publication-date"),   text("Creditor", "creditor"),
        money("Judgement Amount", "judgement-amount"),  text("Narrative", "narrative"),
        text("Gazette Narrative", "gazette-narrative"),
    };
}

Lines affiliation_lines() {
    return {
        text("Company Name", "company-name"),
        text("Company Number", "registration-number"),
        text("Company Status", "company-status"),
        text("Body Type", "body-type"),
        line("Number of Shares", amount_at(Form::kCount, "number-of-shares-owned")),
        line("Percentage of Shares", amount_at(Form::kPercent, "percentage-of-shares-owned")),
    };
}

Lines previous_name_lines() {
    return {
        text({"Changed ", date_at("@name-start-date")}, "."),
    };
}

Lines officer_lines() {
    return {
        person_name(text_at("@type")),
        text("Occupation", "occupation"),
        line("Address", free_address()),
    };
}

Lines credit_reference_lines() {
    return {
        date("Created date", "@create-date"),
        text("Supplier Industry", "supplier-industry"),
        text("Turnover Amount", "turnover-amount"),
        text("Terms of Trade", "terms-of-trade"),
        text("Account Opened", "account-opened-date"),
        text("Referee Name", "referee-name"),
        text("Referee Phone", "referee-phone-number"),
        line("Narrative", lines_at("comment/narrative")),
    };
}

}  // namespace zr::new_zealand
