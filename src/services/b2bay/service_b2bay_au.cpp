#include "services/b2bay/service_b2bay_au.h"

#include "services/b2bay/reply_au.h"
#include "services/vedaxml_au/catalogue.h"

namespace zr {

bool ServiceB2BayAU::build_catalogue() {
    build_australian_catalogue(products(), code_tables());
    return true;
}

CheckedReply ServiceB2BayAU::check(std::string_view response_xml) const {
    return b2bay::check_australian(response_xml);
}

void ServiceB2BayAU::translate(Request& request, XmlNode root) {
    b2bay::translate_australian(context(), *this, RequestInternals::Response(request), root);
}

}  // namespace zr
