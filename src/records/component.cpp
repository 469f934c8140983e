#include "records/component.h"

namespace zr {

void Component::raise_duplicate_key() {
    throw PlatformError(error_number::kDuplicateKey,
                        "This key is already associated with an element of this collection.");
}

const CodeTableItem& Component::add(CodeTableItems& table, CodeRow row) {
    const bool is_new = table.index_.add(row.code, table.items_.size());
    if (!is_new && !table.AllowDuplicateCodes()) {
        raise_duplicate_key();
    }
    const std::string_view separator = table.items_.empty() ? "" : ",";
    (table.code_list_ += separator) += row.code;
    (table.description_list_ += separator) += row.description;
    table.items_.push_back({row.code, row.description, &table.recoded_});
    return table.items_.back();
}

void Component::add(CodeTableCollection& tables, std::string_view name,
                    std::span<const CodeRow> rows, bool allow_duplicate_codes) {
    CodeTableItems& table = add(tables, name, make<CodeTableItems>(allow_duplicate_codes));
    table.items_.reserve(rows.size());
    for (const CodeRow& row : rows) {
        add(table, row);
    }
}

ProductOption& Component::add(ProductOptions& options, std::string_view id,
                              std::string_view description, zreOptionType type) {
    ProductOption& option = add(options, id, make<ProductOption>());
    set(option.OptionId, id);
    set(option.Description, description);
    set(option.OptionType, type);
    return option;
}

Product& Component::add(Products& products, std::string_view id, bool available,
                        zreProductType type, bool individual) {
    Product& product = add(products, id, make<Product>());
    set(product.ProductId, id);
    set(product.Available, available);
    set(product.ProductType, type);
    set(product.Individual, individual);
    return product;
}

}  // namespace zr
