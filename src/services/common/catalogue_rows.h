// The rows that catalogues are made of.
#pragma once

#include <span>
#include <string_view>

#include "records/code_tables.h"
#include "records/products.h"

namespace zr {

/// An option of a product as data.
struct OptionRow {
    std::string_view id;
    std::string_view description;
    zreOptionType type;
};

constexpr OptionRow general_option(std::string_view id) {
    return {id, "", zreOptionType::zreOptionTypeGeneral};
}
constexpr OptionRow boolean_option(std::string_view id, std::string_view description) {
    return {id, description, zreOptionType::zreOptionTypeBoolean};
}

/// A code table without duplicate codes as data.
struct CodeTableRow {
    std::string_view name;
    std::span<const CodeRow> rows;
};

void add_options(Product& product, std::span<const OptionRow> options);

void add_code_tables(CodeTableCollection& tables, std::span<const CodeTableRow> rows);

/// A service's table by name, or else the product's; null where neither has it. There may be no
/// product.
const CodeTableItems* find_code_table(const CodeTableCollection& service_tables,
                                      const Product* product, std::string_view name);

}  // namespace zr
