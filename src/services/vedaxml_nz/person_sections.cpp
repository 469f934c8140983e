#include "services/summary_lines.h"
#include "services/vedaxml_nz/lines.h"
#include "services/vedaxml_nz/report.h"

namespace zr::new_zealand {

using namespace layout;
using layout::text;  // rather than the namespace

// In the order of the report. A position of 1 stands where the report has the node once.
Sections person_sections() {
    const Lines defaults = default_lines(
        line("Joint Liability", constant("Yes").if_equal("@joint-liability", "Y")),
        line("Company Loan", constant("Yes").if_equal("@company-loan", "Y")),
        line("Account Balance", amount_at(Form::kMoney, "total-loan-amount").if_amount()));
    return {
        {person("Individual"), "Details", "individual[1]", person_lines()},
        {person("Individual"), "Addresses", "individual[1]/address", address_lines()},
        {person("Individual"),
         numbered("Alias"),
         "individual[1]/alias",
         {
             line({"Name", date_at("@create-date").within(" (", ")")},
                  {name_at("."),
                   date_at("date-of-birth").within(" (Date of Birth ", ")").if_other_birth()}),
         }},
        {person("Individual"), "Corrections", "individual[1]", {corrections_line()}},
        Section{
            prefixed("Verification"), "Property Ownership",
            "identity-verification[1]/property-ownership/property-ownership-verification-result",
            property_ownership_lines("@verified")}
            .merging(Runs::kAll),
        {prefixed("Verification"), "White Pages",
         "identity-verification[1]/electronic-white-pages[1]", white_pages_lines()},
        {prefixed("Verification"), "Driver Licence", "identity-verification[1]/driver-licence[1]",
         driver_licence_lines()},
        {prefixed("Notes"), with_id("Note", "@unique-id"), "note-file/note",
         note_lines("@create-date")},
        {prefixed("Enquiries"), numbered("Enquiry"), "credit-file/credit-enquiry",
         enquiry_lines(indented_corrections().within("\r\nCorrections:\r\n").if_value())},
        {prefixed("Defaults"), with_id("Default", "@defaulter-detail-number"),
         "default-file/default", defaults},
        {prefixed("Defaults (Collection Agency)"), with_id("Default", "@defaulter-detail-number"),
         "default-collection-agency-file/default", defaults},
        {prefixed("Judgements"), with_id("Judgement", "@unique-id"), "judgement-file/judgement",
         judgement_lines("date-paid")},
        {prefixed("Insolvencies"),
         with_id("Insolvency", "@unique-id"),
         "insolvency-file/insolvency",
         {
             text("Insolvency Number", "insolvency-number"),
             lookup("Type", "InsolvencyType", "insolvency-type/@code"),
             lookup("Status", "InsolvencyStatus",
                    "insolvency-status/@code | insolvency-status/code"),
             date("Adjudication Date", "adjudication-date"),
             lookup("Adjudication Court", "InsolvencyCourt",
                    "adjudication-court/@code | adjudication-court/code"),
             date("Discharged Date", "discharged-date"),
             text("Conditions", "conditions"),
             text("Partnership Number", "partnership-group-number"),
             text("Partnership Name", "partnership-group-name"),
             corrections_line(),
         }},
        {prefixed("Bankruptcies"), with_id("Bankruptcy", "@unique-id"),
         "bankruptcy-file/bankruptcy",
         bankruptcy_lines("free-format-address[1]", "free-format-address[2]", "unique-id")},
        {prefixed("Public Notices"), with_id("Public Notice", "@unique-id"),
         "public-notice-file/public-notice",
         notice_lines("free-format-address[1]", "free-format-address[2]")},
        {prefixed("Lost/Stolen Identification"), numbered("Lost/Stolen Id"),
         "lost-stolen-id-file/lost-stolen-id", lost_or_stolen_lines(indented_corrections())},
        {prefixed("Company Officers"), numbered("Company Officer"),
         "company-officer-details/company-officer", company_office_lines()},
        {prefixed("Summary"), "Summary Data", "summary-data/summary",
         summary_lines(Form::kMoneySymbol)},
        // The applicant's and the directors' alike.
        {plain("Negative Block"),
         "Characteristic",
         "negative-block/characteristic",
         {
             line(text_at("@name"),
                  choice_at("@type",
                            {{"boolean",
                              choice_at(".", {{"Y", "Yes"}, {"N", "No"}, otherwise(text_at("."))})},
                             {"amount", amount_at(Form::kMoneySymbol, ".")},
                             {"months", text_at(".").within("", " months")},
                             {"years", text_at(".").within("", " years")},
                             otherwise(text_at("."))})),
         }},
        {prefixed("Score"), "Score", "score-data[1]", score_lines()},
        // A message stands in place of the licence's details.
        Section{
            prefixed("LicenceCheck"),
            "LicenceCheck",
            ".",
            {
                person_name("Name"),
                text("Licence", "driver-licence-details/driver-licence"),
                text("Licence Status", "driver-licence-details/licence-status | licence-status"),
                text("Active", "driver-licence-details/active-status-flag | active-status-flag"),
            }}
            .unless_there_is("licencecheck-message")
            .from(kLicence),
        Section{prefixed("LicenceCheck"),
                numbered("Licence Component Details"),
                "driver-licence-component-details/driver-licence-component | "
                "driver-licence-details/driver-licence-component-details/driver-licence-component",
                {
                    text("Type", "component-type"),
                    text("Description", "component-description"),
                    date("Start Date", "start-date"),
                    date("End Date", "end-date"),
                    text("Status", "status"),
                }}
            .unless_there_is("licencecheck-message")
            .from(kLicence),
        Section{prefixed("LicenceCheck"),
                "LicenceCheck",
                "licencecheck-message[1]",
                {
                    text("", "."),
                }}
            .from(kLicence),
        Section{prefixed("MOJ Fines"),
                "MOJ Fines",
                "moj-fines-balance-banner[1]",
                {
                    text("Banner", "."),
                }}
            .from(kFines),
        Section{prefixed("MOJ Fines"),
                "Individual",
                "moj-fines-individual-details-confirmation[1]",
                {
                    person_name("Name"),
                    text("Gender", "gender/@type"),
                    date("Date of Birth", "date-of-birth"),
                    text("Driver Licence Number", "driver-licence-details/licence-number"),
                    text("Driver Licence Version", "driver-licence-details/licence-version-number"),
                    line("Driver Licence Verified",
                         choice_at("driver-licence-details/driver-licence-verified",
                                   {{"", "Not supplied"},
                                    {"N", "NOT Verified"},
                                    {"Y", "Verified"},
                                    {"X", "Verification Service not available"},
                                    otherwise("Unknown")})
                             .if_node("driver-licence-details")),
                    text("Occupation", "employment/occupation"),
                    text("Employer", "employment/employer"),
                    text("Veda Reference", "external-transaction-reference"),
                    text("Timestamp", "request-timestamp"),
                }}
            .from(kFines),
        Section{prefixed("MOJ Fines"),
                "Individual",
                "moj-fines-address-details-confirmation/address",
                {
                    line({"Address ", record_position()}, address_text()),
                }}
            .from(kFines),
        Section{prefixed("MOJ Fines"),
                numbered("Message"),
                "moj-messages/moj-message",
                {
                    line("Type", choice_at("moj-message-code",
                                           {{"FSR1", "FSR1; Overdue fine balance response sent"},
                                            {"FSR2", "FSR2; No match/no overdue fine balance"},
                                            {"ERR1", "ERR1; Fines data store is not available"},
                                            {"ERR2", "ERR2; Unknown reporting user"},
                                            {"ERR3", "ERR3; Invalid message data detected"},
                                            otherwise(text_at("moj-message-code"))})),
                    text("Text", "message-text"),
                }}
            .from(kFines),
        Section{prefixed("MOJ Fines"),
                "Overdue Fines Balance",
                "moj-overdue-fines-balance[1]",
                {
                    text("Indicator", "fines-indicator"),
                    money("Amount", "fines-amount"),
                    date("As At Date", "asatdate"),
                    line_for_each("fines-message", "Message", text_at("fines-message-text")),
                }}
            .from(kFines),
    };
}

}  // namespace zr::new_zealand
