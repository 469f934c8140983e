#include "services/b2bay/service_b2bay_au.h"

#include "services/b2bay/reports.h"
#include "services/vedaxml_au/catalogue.h"

namespace zr {

bool ServiceB2BayAU::build_catalogue() {
    build_australian_catalogue(products(), code_tables());
    return true;
}

const Translator& ServiceB2BayAU::translator() const {
    static const Translator translator(b2bay::australian_report());
    return translator;
}

}  // namespace zr
