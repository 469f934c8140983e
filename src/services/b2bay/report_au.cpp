#include <utility>

#include "services/b2bay/reports.h"
#include "services/summary_lines.h"
#include "services/vedaxml_au/report.h"

namespace zr::b2bay {
namespace {

using namespace layout;
using layout::text;  // rather than the namespace

Line number_or_text(Text label, std::string_view path) {
    return line(std::move(label), amount_at(Form::kNumberText, path));
}

// A role's words; its type where it has none. Some dates stand as attributes in one layout of the
// bureau and as elements in another.
const australia::Variation& variation() {
    static const australia::Variation variation{
        .address_created = "@create-date | create-date",
        .employer_since = date_at("@create-date | create-date").within(" (", ")"),
        .note_recorded = "@date-recorded | date-recorded",
        .provider_since = "@date-provided | date-provided",
        // Two blanks.
        .consumer_messages = "Consumer  File Messages",
        .commercial_messages = "Commercial  File Messages",
        .default_account_type = {text_at("account-details/account-type"),
                                 choice_at("account-details/role",
                                           {{"", text_at("account-details/role/@type")},
                                            otherwise(text_at("account-details/role"))})
                                     .within(" as ")
                                     .if_value()},
        .consumer_account_type = {text_at("account-type"),
                                  choice_at("role", {{"", text_at("role/@type")},
                                                     otherwise(text_at("role"))})
                                      .within(" as ")
                                      .if_value()},
        .summary = summary_lines(layout::Form::kMoneyText),
        .score =
            {
                text("Type", "score/@type"),
                text("Scorecard", "score/scorecard-name"),
                number_or_text("Relative Risk", "score/relative-risk"),
                number_or_text("Relative Risk Index", "score/relative-risk-index"),
                number_or_text("Risk Odds", "score/risk-odds"),
                line_for_each("score/risk-factor", text_at(".").within("", " risk"),
                              {text_at("@impact-level"), text_at("@impact-effect").joined(" ")}),
                text("Population",
                     "score/population/@population-name | score/population/population-name"),
                number_or_text(
                    "Population Odds",
                    "score/population/@population-odds | score/population/population-odds"),
            },
        // The score's own, or else that beside it.
        .area_level_risk =
            Section{
                plain("Score"),
                "Score",
                ".",
                {line("Area Level Risk",
                      choice_at("score-data[1]/area-level-risk/@indicator",
                                {{"", text_at("area-level-risk/@indicator")},
                                 otherwise(text_at("score-data[1]/area-level-risk/@indicator"))}))}}
                .from(australia::kReport),
    };
    return variation;
}

}  // namespace

ReportDefinition australian_report() {
    using namespace australia::counted;
    ReportDefinition report = australia::report();
    report.possible_match = {};
    report.file.upper_case_type = false;
    report.extra = nullptr;
    report.individual = {
        // Court actions of any other type are not counted; what is owed is not, either.
        .counted = {kBankruptcies,
                    kDefaults,
                    kEnquiries,
                    {.family = RecordFamily::kJudgement,
                     .records = "individual-public-data-file/court-action",
                     .only_path = "@type",
                     .only_value = "default-judgement",
                     .event_date = "action-date",
                     .loaded = "court-action-amount"}},
        .quick_summary = {{RecordFamily::kEnquiry, "Enquiries", ""},
                          {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                          {RecordFamily::kJudgement, "Judgements", ""},
                          {RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true}},
        .sections = australia::sections(variation())};
    report.statistics = {{RecordFamily::kBankruptcy, "Bankruptcy", "Undischarged", true},
                         {RecordFamily::kJudgement, "Judgements", ""},
                         {RecordFamily::kDefault, "Defaults", "Not Paid", true},
                         {RecordFamily::kEnquiry, "Enquiries", ""}};
    return report;
}

}  // namespace zr::b2bay
