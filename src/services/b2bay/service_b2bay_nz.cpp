#include "services/b2bay/service_b2bay_nz.h"

#include "services/b2bay/catalogue.h"
#include "services/b2bay/reply_nz.h"
#include "services/b2bay/report_tables_nz.h"

namespace zr {
namespace {

const b2bay::ReportReader& reader() {
    static const b2bay::ReportReader kReader(b2bay::version_1());
    return kReader;
}

}  // namespace

bool ServiceB2BayNZ::build_catalogue() {
    b2bay::build_catalogue(products(), code_tables());
    return true;
}

CheckedReply ServiceB2BayNZ::check(std::string_view response_xml) const {
    return reader().check(response_xml);
}

void ServiceB2BayNZ::translate(Request& request, XmlNode root) {
    reader().translate(context(), *this, CompanyAddDirectorsStatistics(), request, root);
}

}  // namespace zr
