#include "records/code_tables.h"

#include <algorithm>

namespace zr {
namespace {

void append_to_list(std::string& list, std::string_view entry) {
    if (!list.empty()) {
        list += ',';
    }
    list += entry;
}

}  // namespace

const CodeTableItem& CodeTableItems::Item(std::int32_t position) const {
    if (position < 1 || position > Count()) {
        raise_item_not_found();
    }
    return items_[static_cast<std::size_t>(position) - 1];
}

const CodeTableItem& CodeTableItems::Item(std::string_view code) const {
    const CodeTableItem* item = allow_duplicate_codes_ ? nullptr : find_code(code);
    if (item == nullptr) {
        raise_item_not_found();
    }
    return *item;
}

const CodeTableItem* CodeTableItems::find_code(std::string_view code) const {
    if (*recoded_) {
        const auto found = std::ranges::find_if(items_, [code](const CodeTableItem& item) {
            return text::equal_ignoring_case(item.Code(), code);
        });
        return found == items_.end() ? nullptr : &*found;
    }
    const auto found = positions_.find(code);
    return found == positions_.end() ? nullptr : &items_[found->second];
}

const CodeTableItem* CodeTableItems::find_description(std::string_view description) const {
    for (const CodeTableItem& item : items_) {
        if (text::equal_ignoring_case(item.Description(), description)) {
            return &item;
        }
    }
    return nullptr;
}

std::string CodeTableItems::GetCodeFromDescription(std::string_view description,
                                                   std::string_view default_code) const {
    const CodeTableItem* item = find_description(description);
    return item != nullptr ? item->Code() : std::string(default_code);
}

std::string_view CodeTableItems::GetDescriptionFromCode(std::string_view code) const {
    const CodeTableItem* item = find_code(code);
    return item != nullptr ? std::string_view(item->Description()) : std::string_view();
}

std::string CodeTableItems::ValidateDescription(std::string_view description) const {
    const CodeTableItem* item = find_description(description);
    return item != nullptr ? item->Description() : std::string();
}

const CodeTableItem& CodeTableItems::AddItem(std::string_view code, std::string_view description) {
    const bool is_new = positions_.emplace(std::string(code), items_.size()).second;
    if (!is_new && !allow_duplicate_codes_) {
        raise_duplicate_key();
    }
    items_.emplace_back(code, description, recoded_.get());
    append_to_list(code_list_, code);
    append_to_list(description_list_, description);
    return items_.back();
}

void CodeTableItems::add_rows(std::span<const CodeRow> rows) {
    items_.reserve(items_.size() + rows.size());
    for (const CodeRow& row : rows) {
        AddItem(row.code, row.description);
    }
}

void add_code_table(CodeTableCollection& tables, std::string_view name,
                    std::span<const CodeRow> rows, bool allow_duplicate_codes) {
    auto table = std::make_unique<CodeTableItems>();
    table->AllowDuplicateCodes(allow_duplicate_codes);
    table->add_rows(rows);
    tables.add(name, std::move(table));
}

}  // namespace zr
