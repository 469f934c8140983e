#include "services/catalogue_rows.h"

namespace zr {

void add_products(Products& products, std::span<const ProductRow> rows) {
    for (const ProductRow& row : rows) {
        Product& product = products.AddProduct(row.id, true, zreProductType::zreProductTypeEnquiry,
                                               row.individual);
        product.RequestOptions(row.request_options);
        product.Warning(row.warning);
        product.Chargeable(true);
        product.Listable(!row.individual);
        add_options(product, row.options);
        add_code_tables(product.code_tables(), row.tables);
    }
}

void add_options(Product& product, std::span<const OptionRow> options) {
    for (const OptionRow& option : options) {
        product.options().AddOption(option.id, option.description, option.type);
    }
}

void add_code_tables(CodeTableCollection& tables, std::span<const CodeTableRow> rows) {
    for (const CodeTableRow& table : rows) {
        add_code_table(tables, table.name, table.rows, table.allow_duplicate_codes);
    }
}

const CodeTableItems* find_code_table(const CodeTableCollection& service_tables,
                                      const Product* product, std::string_view name) {
    const CodeTableItems* found = service_tables.find(name);
    return found != nullptr || product == nullptr ? found : product->CodeTables().find(name);
}

}  // namespace zr
