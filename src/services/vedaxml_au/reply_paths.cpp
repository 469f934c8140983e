#include "services/vedaxml_au/reply_paths.h"

#include <string_view>

#include "services/vedaxml_au/report_layout.h"

namespace zr::australia {
namespace {

/// A property and its path as data.
struct CandidateRow {
    void (CompanySelection::*set)(std::string_view);
    std::string_view path;
};

constexpr CandidateRow kCandidateFields[] = {
    {&CompanySelection::CompanyType, "organisation-type"},
    {&CompanySelection::CompanyStatus, "asic-report/asic-status"},
    {&CompanySelection::RegistrationArea, "state"},
};

std::vector<CandidateField> compile_candidate_fields(XmlNames& names) {
    std::vector<CandidateField> fields;
    for (const CandidateRow& row : kCandidateFields) {
        fields.push_back({row.set, XmlPath(row.path, names)});
    }
    return fields;
}

}  // namespace

ReplyPaths::ReplyPaths()
    : checks(names),
      statistics(statistics_categories(), names),
      layout(report_sections(), names, layout::MissingAmounts::kNoLine),
      summary(names),
      possible_match("possible-match", names),
      disqualified_until(
          "individual-public-data-file/disqualified-directorship/date-disqualified-until", names),
      candidate("//BCAmessage/BCAservices/BCAservice/BCAservice-data/response/org-id-result",
                names),
      candidate_name("match-name", names),
      candidate_fields(compile_candidate_fields(names)),
      candidate_reference("bureau-report/bureau-reference", names),
      entity_type("australian-business-register-report/EntityTypeText", names),
      number_heading("organisation-number-heading", names),
      organisation_number("organisation-number", names),
      business_number("australian-business-number", names) {}

const ReplyPaths& reply_paths() {
    static const ReplyPaths paths;
    return paths;
}

}  // namespace zr::australia
