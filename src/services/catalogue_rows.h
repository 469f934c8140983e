// The rows that catalogues are made of.
#pragma once

#include <span>
#include <string_view>

#include "records/component.h"

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

/// A code table as data.
struct CodeTableRow {
    std::string_view name;
    std::span<const CodeRow> rows;
    bool allow_duplicate_codes = false;
};

/// An available, chargeable enquiry product as data. Hosts may look a company up before they
/// enquire about it.
struct ProductRow {
    std::string_view id;
    bool individual;
    std::string_view request_options;
    std::span<const OptionRow> options;
    std::span<const CodeTableRow> tables;
    std::string_view warning{};
};

/// What a service offers as data: its products, and the code tables that are not a product's own.
struct CatalogueRows {
    std::span<const ProductRow> products;
    std::span<const CodeTableRow> code_tables;
};

void fill_catalogue(const CatalogueRows& rows, Products& products, CodeTableCollection& tables);

/// A service's table by name, or else the product's; null where neither has it. There may be no
/// product.
const CodeTableItems* find_code_table(const CodeTableCollection& service_tables,
                                      const Product* product, std::string_view name);

}  // namespace zr
