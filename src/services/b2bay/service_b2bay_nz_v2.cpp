#include "services/b2bay/service_b2bay_nz_v2.h"

#include "services/b2bay/catalogue.h"
#include "services/b2bay/reply_nz.h"
#include "services/b2bay/report_tables_nz.h"

namespace zr {
namespace {

const b2bay::ReportReader& reader() {
    static const b2bay::ReportReader kReader(b2bay::version_2());
    return kReader;
}

}  // namespace

bool ServiceB2BayNZ_V2::build_catalogue() {
    b2bay::build_catalogue_of_version_2(products(), code_tables());
    return true;
}

CheckedReply ServiceB2BayNZ_V2::check(std::string_view response_xml) const {
    return reader().check(response_xml);
}

void ServiceB2BayNZ_V2::translate(Request& request, XmlNode root) {
    reader().translate(context(), *this, CompanyAddDirectorsStatistics(), request, root);
}

}  // namespace zr
