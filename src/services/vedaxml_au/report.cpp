#include "services/vedaxml_au/report.h"

#include <string>

#include "records/component.h"

namespace zr::australia {
namespace {

using namespace layout;
using layout::text;  // rather than the namespace

/// The latest date until which the person must not be a director.
class Disqualification final : public ReportExtra {
  public:
    explicit Disqualification(XmlNames& names)
        : until_("individual-public-data-file/disqualified-directorship/date-disqualified-until[1]",
                 names) {}

    void fill(Response& response, XmlNode /*root*/, XmlNode person) const override {
        for (const XmlNode until : person.select(until_)) {
            const auto date = ZRXMLUtilities::GetNodeDate(until);
            const auto latest = held_date(response.DisqualifiedDirectorshipUntil());
            if (date && (!latest || *latest < *date)) {
                Component::set(response.DisqualifiedDirectorshipUntil, *date);
            }
        }
    }

    void write_quick_summary(Response& response, const ReportFormats& formats) const override {
        write("Quick Summary", response, formats);
    }
    void write_statistics(Response& response, const ReportFormats& formats) const override {
        write("Statistics", response, formats);
    }

  private:
    static void write(std::string_view group, Response& response, const ReportFormats& formats) {
        if (const auto until = held_date(response.DisqualifiedDirectorshipUntil())) {
            Component::lines(response).AddElement(group, "Disqualified Directorship", "Until",
                                                  formats.date.format(*until));
        }
    }

    XmlPath until_;
};

std::string content_error(const ReplyCheckPaths& paths, XmlNode error) {
    const auto text = [&](const XmlPath& path) {
        return ZRXMLUtilities::GetSubNodeString(error, path);
    };
    return text(paths.error_description) + " (" + text(paths.error_code) + ")\r\nType of error '" +
           text(paths.error_type) + "', in '" + text(paths.input_container) + "'";
}

// Sections that the consumer and the commercial file have alike.

Lines cross_reference() {
    return {
        date("Created date", "@create-date"),
        text("Bureau Reference", "bureau-reference"),
        person_name("Name"),
    };
}

Lines default_lines(const Text& account_type) {
    return {
        line("Account Type", account_type),
        text("Client Reference", "account-details/client-reference"),
        line("Status", {text_at("account-details/default-status"),
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
}

Lines note(std::string_view recorded) { return {text({"On ", date_at(recorded)}, ".")}; }

Lines current_provider(std::string_view since) {
    return {line({"On ", date_at(since)},
                 {text_at("credit-provider"),
                  text_at("client-reference").within(" (Reference ", ")").if_value()})};
}

Lines enquiry(const Text& account_type) {
    return {
        date("Enquiry date", "@enquiry-date"), text("Enquiry type", "@type"),
        text("Enquirer", "credit-enquirer"),   text("Enquirer Reference", "client-reference"),
        line("Account Type", account_type),    money("Enquiry Amount", "enquiry-amount"),
    };
}

Lines message() { return {text("Message", ".")}; }

const Variation& vedaxml() {
    static const Variation variation{
        .address_created = "@create-date",
        .employer_since = general_date_at("@create-date").within(" (", ")"),
        .note_recorded = "@date-recorded",
        .provider_since = "@date-provided",
        .consumer_messages = "Consumer File Messages",
        .commercial_messages = "Commercial File Messages",
        // An account type with the subject's role: any role in the consumer file.
        .default_account_type =
            all({text_at("account-details/account-type"), text_at("account-details/role/@type")
                                                              .within(" as ")
                                                              .if_node("account-details/role")})
                .if_any_value(),
        .consumer_account_type =
            all({text_at("account-type"), text_at("role/@type").within(" as ").if_node("role")})
                .if_any_value(),
        .summary =
            {
                line(text_at("@name"),
                     choice_at("@type", {{"amount", amount_at(Form::kMoneySymbol, ".")},
                                         {"months", text_at(".").within("", " months").if_value()},
                                         {"years", text_at(".").within("", " years").if_value()},
                                         otherwise(text_at("."))})),
            },
        .score =
            {
                text("Type", "score/@type"),
                text("Scorecard", "score/scorecard-name"),
                number("Relative Risk", "score/relative-risk"),
                number("Relative Risk Index", "score/relative-risk-index"),
                number("Risk Odds", "score/risk-odds"),
                line_for_each("score/risk-factor", text_at(".").within("", " risk"),
                              all({text_at("@impact-level"), text_at("@impact-effect").within(" ")})
                                  .if_any_value()),
                text("Population",
                     "score/population/@population-name | score/population/population-name"),
                line("Population Odds", amount_at(Form::kNumber,
                                                  "score/population/@population-odds | "
                                                  "score/population/population-odds")
                                            .if_node("score/population")),
            },
        .area_level_risk = Section{plain("Score"),
                                   "Score",
                                   "area-level-risk[1]",
                                   {text("Area Level Risk", "@indicator")}}
                               .from(kReport),
    };
    return variation;
}

}  // namespace

// In the order of the report. A position of 1 stands where the report has the node once.
Sections sections(const Variation& variation) {
    return {
        {person("Individual"),
         "Details",
         "individual[1]",
         {
             person_name("Name"),
             text("Gender", "gender/@type"),
             date("Date of Birth", "date-of-birth"),
             text("Driver's Licence Number", "drivers-licence-number"),
         }},
        {person("Individual"),
         "Addresses",
         "individual[1]/address",
         {
             line({text_at("@type"), date_at(variation.address_created).within(" (", ")")},
                  {text_at("unit-number").within("", "/").if_value(), text_at("street-number"),
                   text_at("property").joined(" "), text_at("street-name").joined(" "),
                   lookup_at("StreetTypes", "street-type/@code").joined(" "),
                   text_at("suburb").joined("\r\n"), text_at("state").joined("\r\n"),
                   text_at("postcode").joined(" ")}),
         }},
        {person("Individual"),
         numbered("Employment"),
         "individual[1]/employment",
         {
             text({"Employer", variation.employer_since}, "employer"),
             text("Occupation", "occupation"),
         }},

        {prefixed("Consumer Cross References"), numbered("Cross Reference"),
         "individual-consumer-credit-file/individual-cross-reference", cross_reference()},
        {prefixed("Consumer Defaults"), numbered("Default"),
         "individual-consumer-credit-file/default", default_lines(variation.default_account_type)},
        {prefixed("Consumer Notes"), numbered("Note"), "individual-consumer-credit-file/file-note",
         note(variation.note_recorded)},
        {prefixed("Consumer Current Credit Providers"), numbered("Current Credit Provider"),
         "individual-consumer-credit-file/current-credit-provider",
         current_provider(variation.provider_since)},
        {prefixed("Consumer Enquiries"), numbered("Consumer Enquiry"),
         "individual-consumer-credit-file/credit-enquiry",
         enquiry(variation.consumer_account_type)},
        {prefixed(variation.consumer_messages), numbered("Message"),
         "individual-consumer-credit-file/file-message", message()},

        {prefixed("Commercial Cross References"), numbered("Cross Reference"),
         "individual-commercial-credit-file/individual-cross-reference", cross_reference()},
        {prefixed("Commercial Defaults"), numbered("Default"),
         "individual-commercial-credit-file/default",
         default_lines(variation.default_account_type)},
        {prefixed("Commercial Notes"), numbered("Note"),
         "individual-commercial-credit-file/file-note", note(variation.note_recorded)},
        {prefixed("Commercial Current Credit Providers"), numbered("Current Credit Provider"),
         "individual-commercial-credit-file/current-credit-provider",
         current_provider(variation.provider_since)},
        // A principal's role goes without saying in the commercial file.
        {prefixed("Commercial Enquiries"), numbered("Enquiry"),
         "individual-commercial-credit-file/credit-enquiry",
         enquiry(all({text_at("account-type"),
                      text_at("role/@type").within(" (", ")").unless("role/@type", "PRINCIPAL")})
                     .if_any_value())},
        {prefixed(variation.commercial_messages), numbered("Message"),
         "individual-commercial-credit-file/file-message", message()},

        {prefixed("Directorships"),
         numbered("Directorship"),
         "individual-public-data-file/directorship",
         {
             // A current directorship is the ordinary case and says nothing of its type.
             line("Type", text_at("@type").unless_exactly("current")),
             text("Bureau Reference", "organisation/bureau-reference"),
             text("Organisation Name", "organisation/organisation-name"),
             lookup("Organisation Type", "OrganisationTypes",
                    "organisation/organisation-type/@code"),
             text("Organisation Number", "organisation/organisation-number"),
             text("Organisation Status", "organisation/organisation-details/organisation-status"),
             text("Australian Business Number", "organisation/australian-business-number"),
             date("Date Appointed", "date-appointed"),
             date("Date Ceased", "date-ceased"),
             date("Date last known as Director", "date-last-known-as-director"),
         }},
        {prefixed("Disqualified Directorships"),
         numbered("Disqualified Directorship"),
         "individual-public-data-file/disqualified-directorship",
         {
             date("Date Disqualified", "date-disqualified"),
             date("Date Disqualified Until", "date-disqualified-until"),
         }},
        {prefixed("Proprietorships"),
         numbered("Proprietorship"),
         "individual-public-data-file/proprietorship",
         {
             date("Date Appointed", "date-appointed"),
             text("Bureau Reference", "business/bureau-reference"),
             text("Business Name", "business/business-name"),
             text("Australian Business Number", "business/australian-business-number"),
             line("Business Registration", all({text_at("business/business-registration/@state | "
                                                        "business/business-registration/state"),
                                                text_at("business/business-registration/@number | "
                                                        "business/business-registration/number")
                                                    .within(", Number ")})
                                               .if_any_value()),
         }},
        {prefixed("Bankruptcies"),
         numbered("Bankruptcy"),
         "individual-public-data-file/bankruptcy",
         {
             text("Type", "bankruptcy-type"),
             date("Date Declared", "date-declared"),
             text("Narrative", "narrative"),
             line("Proceedings (State, Year, Number)",
                  all({text_at("proceedings/@state | proceedings/state"),
                       text_at("proceedings/@year | proceedings/year").within(", "),
                       text_at("proceedings/@number | proceedings/number").within(", Number ")})
                      .if_any_value()),
             line("Discharge Status",
                  {text_at("discharge-status"),
                   date_at("discharge-status/@date").within(" on ").if_value()}),
             text("Co-Borrower", "co-borrower"),
         }},
        {prefixed("Court Actions"),
         numbered("Court Action"),
         "individual-public-data-file/court-action",
         {
             text("Type", "@type"),
             date("Action date", "action-date"),
             text("Creditor", "creditor"),
             text("Court Type", "court-type"),
             text("Court Action Id", "plaint-number"),
             money("Court Action Amount", "court-action-amount"),
             line("Court Action Status",
                  all({text_at("court-action-status"),
                       date_at("court-action-status/@date").within(" (", ")")})
                      .if_any_value()),
         }},
        {prefixed("Public File Data Messages"), numbered("File Message"),
         "individual-public-data-file/file-message", message()},

        // These belong to the report rather than to the match; the score's group has no prefix.
        Section{prefixed("Summary"), "Summary Data", "summary-data/summary", variation.summary}
            .from(kReport),
        Section{plain("Score"), "Score", "score-data[1]", variation.score}.from(kReport),
        variation.area_level_risk,
    };
}

ReportDefinition report() {
    // Writs and summonses are every other court action.
    constexpr StatisticsCategory kJudgements{.family = RecordFamily::kJudgement,
                                             .records = "individual-public-data-file/court-action",
                                             .only_path = "@type",
                                             .only_value = "default-judgement",
                                             .event_date = "action-date",
                                             .loaded = "court-action-amount",
                                             .outstanding = "court-action-amount",
                                             .settled_path = "court-action-status/@code",
                                             .settled_codes = {"D", "P", "S"}};
    StatisticsCategory writs = kJudgements;
    writs.family = RecordFamily::kCollection;
    writs.only_others = true;
    return {
        .subject = "primary-match",
        .possible_match = "possible-match",
        .file = {.node = ".",
                 .number = "bureau-reference",
                 .match_type = "@type",
                 .upper_case_type = true},
        .person = {.fields = {{&Response::LastName, "individual-name/family-name"},
                              {&Response::FirstName, "individual-name/first-given-name"},
                              {&Response::MiddleNames, "individual-name/other-given-name"},
                              {&Response::Gender, "gender/@type"},
                              {&Response::DriversLicenceNumber, "drivers-licence-number"},
                              {&Response::Employer, "employment[1]/employer"},
                              {&Response::Occupation, "employment[1]/occupation"}},
                   .current_address = "address[@type='residential-current']",
                   .address_fields = {{&Response::UnitNumber, "unit-number"},
                                      {&Response::StreetNumber, "street-number"},
                                      {&Response::PropertyName, "property"},
                                      {&Response::StreetName, "street-name"},
                                      {&Response::Suburb, "suburb"},
                                      {&Response::State, "state"},
                                      {&Response::Postcode, "postcode"}}},
        // The blank after the statistics' slash is their own.
        .individual = {.counted = {counted::kBankruptcies, counted::kDefaults, counted::kEnquiries,
                                   kJudgements, writs},
                       .quick_summary = {{RecordFamily::kEnquiry, "Enquiries", ""},
                                         {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                                         {RecordFamily::kCollection, "Court Writs/Summons", ""},
                                         {RecordFamily::kJudgement, "Judgements", ""},
                                         {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged",
                                          true}},
                       .sections = sections(vedaxml())},
        .sources = {kEnquiryReport},
        .extra = [](XmlNames& names) -> std::unique_ptr<ReportExtra> {
            return std::make_unique<Disqualification>(names);
        },
        .statistics = {{RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged"},
                       {RecordFamily::kJudgement, "Judgements", "Not Paid"},
                       {RecordFamily::kCollection, "Court Writs/ Summons", "Not Paid"},
                       {RecordFamily::kDefault, "Defaults", "Not Paid"},
                       {RecordFamily::kEnquiry, "Enquiries", ""}},
        .content_error = content_error,
    };
}

}  // namespace zr::australia
