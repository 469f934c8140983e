#include "services/catalogue_rows.h"

namespace zr {

void add_products(Products& products, std::span<const ProductRow> rows) {
    for (const ProductRow& row : rows) {
        Product& product = Component::add(products, row.id, true,
                                          zreProductType::zreProductTypeEnquiry, row.individual);
        Component::set(product.RequestOptions, row.request_options);
        Component::set(product.Warning, row.warning);
        Component::set(product.Chargeable, true);
        Component::set(product.Listable, !row.individual);
        add_options(product, row.options);
        add_code_tables(Component::code_tables(product), row.tables);
    }
}

void add_options(Product& product, std::span<const OptionRow> options) {
    for (const OptionRow& option : options) {
        Component::add(Component::options(product), option.id, option.description, option.type);
    }
}

void add_code_tables(CodeTableCollection& tables, std::span<const CodeTableRow> rows) {
    for (const CodeTableRow& table : rows) {
        Component::add(tables, table.name, table.rows, table.allow_duplicate_codes);
    }
}

const CodeTableItems* find_code_table(const CodeTableCollection& service_tables,
                                      const Product* product, std::string_view name) {
    const CodeTableItems* found = service_tables.find(name);
    return found != nullptr || product == nullptr ? found : product->CodeTables().find(name);
}

}  // namespace zr
