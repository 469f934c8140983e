#include "records/company_selections.h"

#include "records/collection.h"

namespace zr {

const CompanySelection& CompanySelections::Item(std::int32_t position) const {
    if (position < 1 || position > Count()) {
        raise_item_not_found();
    }
    return items_[static_cast<std::size_t>(position) - 1];
}

}  // namespace zr
