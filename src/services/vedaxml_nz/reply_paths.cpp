#include "services/vedaxml_nz/reply_paths.h"

#include <string>

#include "services/vedaxml_nz/report_layout.h"
#include "services/vedaxml_nz/statistics_tables.h"

namespace zr::new_zealand {
namespace {

XmlPath under_response(std::string_view child, XmlNames& names) {
    std::string path = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response";
    return {path.append(child), names};
}

}  // namespace

ReplyPaths::ReplyPaths()
    : checks(names),
      search(names),
      summary(names),
      individual_statistics(individual_categories(), names),
      company_statistics(company_categories(), names),
      individual_layout(individual_sections(), names),
      company_layout(company_sections(), names),
      response(under_response("", names)),
      company(under_response("/enquiry-report/company", names)),
      company_report(under_response("/enquiry-report/company-report", names)),
      company_of_report(under_response("/enquiry-report/company-report/company", names)),
      directors(under_response("/enquiry-report/director-report", names)),
      licence_report(under_response("/licencecheck-report", names)),
      fines_report(under_response("/moj-fines-report", names)),
      general_message("general-message", names),
      file_age("negative-block/characteristic[@name='age-of-oldest-file']", names),
      fines_balance("moj-overdue-fines-balance", names),
      fines_amount("fines-amount", names),
      company_details("company", names),
      company_name("company-name", names),
      company_number("registration-number", names) {}

const ReplyPaths& reply_paths() {
    static const ReplyPaths paths;
    return paths;
}

}  // namespace zr::new_zealand
