#include "services/b2bay/service_b2bay_nz_v2.h"

#include "services/b2bay/catalogue.h"
#include "services/b2bay/reports.h"

namespace zr {
bool ServiceB2BayNZ_V2::build_catalogue() {
    b2bay::version_2::build_catalogue(products(), code_tables());
    return true;
}

const Translator& ServiceB2BayNZ_V2::translator() const {
    static const Translator translator(b2bay::version_2::new_zealand_report());
    return translator;
}

}  // namespace zr
