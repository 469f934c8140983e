// The properties of the small records by name, for the description and for the JSON form alike.
#pragma once

#include <span>

#include "zrcreditbureau/code_tables.h"
#include "zrcreditbureau/company_selections.h"
#include "zrcreditbureau/products.h"
#include "zrcreditbureau/property.h"
#include "zrcreditbureau/response_elements.h"

namespace zr::automation {

std::span<const Property<ResponseElement>> response_element_properties();
std::span<const Property<CompanySelection>> company_selection_properties();
std::span<const Property<Product>> product_properties();
std::span<const Property<ProductOption>> product_option_properties();
std::span<const Property<CodeTableItem>> code_table_item_properties();

}  // namespace zr::automation
