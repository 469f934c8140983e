#include "zrcreditbureau/code_tables.h"

#include <algorithm>

#include "values/text.h"

namespace zr {

const CodeTableItem& CodeTableItems::Item(TextArg code) const {
    const CodeTableItem* item = allow_duplicate_codes_ ? nullptr : find_code(code);
    if (item == nullptr) {
        raise_item_not_found();
    }
    return *item;
}

const CodeTableItem* CodeTableItems::find_code(std::string_view code) const {
    if (recoded_) {
        const auto found = std::ranges::find_if(items_, [code](const CodeTableItem& item) {
            return text::equal_ignoring_case(item.Code(), code);
        });
        return found == items_.end() ? nullptr : &*found;
    }
    const std::size_t found = index_.find(code);
    return found == KeyIndex::kNone ? nullptr : &items_[found];
}

const CodeTableItem* CodeTableItems::find_description(std::string_view description) const {
    for (const CodeTableItem& item : items_) {
        if (text::equal_ignoring_case(item.Description(), description)) {
            return &item;
        }
    }
    return nullptr;
}

std::string CodeTableItems::GetCodeFromDescription(TextArg description,
                                                   TextArg default_code) const {
    const CodeTableItem* item = find_description(description);
    return item != nullptr ? item->Code() : std::string(default_code);
}

std::string_view CodeTableItems::GetDescriptionFromCode(TextArg code) const {
    const CodeTableItem* item = find_code(code);
    return item != nullptr ? std::string_view(item->Description()) : std::string_view();
}

std::string CodeTableItems::ValidateDescription(TextArg description) const {
    const CodeTableItem* item = find_description(description);
    return item != nullptr ? item->Description() : std::string();
}

}  // namespace zr
