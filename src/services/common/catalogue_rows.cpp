#include "services/common/catalogue_rows.h"

namespace zr {

void add_options(Product& product, std::span<const OptionRow> options) {
    for (const OptionRow& option : options) {
        product.options().AddOption(option.id, option.description, option.type);
    }
}

void add_code_tables(CodeTableCollection& tables, std::span<const CodeTableRow> rows) {
    for (const CodeTableRow& table : rows) {
        add_code_table(tables, table.name, table.rows);
    }
}

}  // namespace zr
