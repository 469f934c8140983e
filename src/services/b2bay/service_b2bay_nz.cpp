#include "services/b2bay/service_b2bay_nz.h"

#include "services/b2bay/catalogue.h"
#include "services/b2bay/reports.h"

namespace zr {
bool ServiceB2BayNZ::build_catalogue() {
    b2bay::build_catalogue(products(), code_tables());
    return true;
}

const Translator& ServiceB2BayNZ::translator() const {
    static const Translator translator(b2bay::new_zealand_report());
    return translator;
}

}  // namespace zr
