#include "services/catalogue_rows.h"

namespace zr {

namespace {

void add_code_tables(CodeTableCollection& tables, std::span<const CodeTableRow> rows) {
    for (const CodeTableRow& table : rows) {
        Component::add(tables, table.name, table.rows, table.allow_duplicate_codes);
    }
}

}  // namespace

void fill_catalogue(const CatalogueRows& rows, Products& products, CodeTableCollection& tables) {
    for (const ProductRow& row : rows.products) {
        Product& product = Component::add(products, row.id, true,
                                          zreProductType::zreProductTypeEnquiry, row.individual);
        Component::set(product.RequestOptions, row.request_options);
        Component::set(product.Warning, row.warning);
        Component::set(product.Chargeable, true);
        Component::set(product.Listable, !row.individual);
        for (const OptionRow& option : row.options) {
            Component::add(Component::options(product), option.id, option.description, option.type);
        }
        add_code_tables(Component::code_tables(product), row.tables);
    }
    add_code_tables(tables, rows.code_tables);
}

const CodeTableItems* find_code_table(const CodeTableCollection& service_tables,
                                      const Product* product, std::string_view name) {
    const CodeTableItems* found = service_tables.find(name);
    return found != nullptr || product == nullptr ? found : product->CodeTables().find(name);
}

}  // namespace zr
