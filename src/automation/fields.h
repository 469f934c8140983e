// The plain fields of the small records, for the description and for the JSON form alike.
#pragma once

#include <span>
#include <string_view>

#include "automation/describe.h"
#include "automation/interface.h"
#include "records/code_tables.h"
#include "records/company_selections.h"
#include "records/products.h"
#include "records/property.h"
#include "records/response_elements.h"

namespace zr::automation {

/// One field of a record.
template <class Record>
struct Field {
    std::string_view name;
    Type type;
    std::string_view meaning;
    bool writable;
    /// The value; an enumeration's as its number.
    Value (*read)(const Record&);
};

std::span<const Field<ResponseElement>> response_element_fields();
std::span<const Field<CompanySelection>> company_selection_fields();
std::span<const Field<Product>> product_fields();
std::span<const Field<ProductOption>> product_option_fields();
std::span<const Field<CodeTableItem>> code_table_item_fields();

/// The class that has just these fields.
template <class Record>
Class class_of_fields(std::string_view name, std::string_view meaning,
                      std::span<const Field<Record>> fields) {
    std::vector<Member> rows;
    for (const Field<Record>& field : fields) {
        rows.push_back({field.name,
                        field.writable ? MemberKind::kReadWrite : MemberKind::kReadOnly,
                        0,
                        field.type,
                        {},
                        field.meaning});
    }
    return make_class(name, meaning, std::move(rows));
}

}  // namespace zr::automation
