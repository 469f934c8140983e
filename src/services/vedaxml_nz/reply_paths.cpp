#include "services/vedaxml_nz/reply_paths.h"

#include <string>

#include "services/vedaxml_nz/report_layout.h"
#include "services/vedaxml_nz/statistics_tables.h"

namespace zr::new_zealand {
namespace {

XmlPath under_response(std::string_view child, XmlNames& names) {
    std::string path = "/BCAmessage/BCAservices/BCAservice/BCAservice-data/response/";
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
      licence_report(under_response("licencecheck-report", names)),
      fines_report(under_response("moj-fines-report", names)),
      general_message(under_response("general-message", names)),
      file_age("negative-block/characteristic[@name='age-of-oldest-file']", names),
      fines_balance("moj-overdue-fines-balance", names),
      fines_amount("fines-amount", names),
      company("company", names),
      company_name("company-name", names),
      company_number("registration-number", names) {}

const ReplyPaths& reply_paths() {
    static const ReplyPaths paths;
    return paths;
}

}  // namespace zr::new_zealand
