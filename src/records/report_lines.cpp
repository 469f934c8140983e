#include "records/report_lines.h"

#include <limits>

namespace zr {

std::string ResponseElement::ResponseGroupSort() const {
    constexpr std::size_t kDigits = 4;
    std::string sort = std::to_string(group_number_);
    if (sort.size() < kDigits) {
        sort.insert(0, kDigits - sort.size(), '0');
    }
    sort += group_;
    return sort;
}

const ResponseElement& ResponseElements::Item(NumberArg position) const {
    if (position.value < 1 || position.value > Count()) {
        raise_item_not_found();
    }
    return at_index(static_cast<std::size_t>(position.value) - 1);
}

const ResponseElement* ReportLines::AddElement(std::string_view group, std::string_view sub_group,
                                               std::string_view name,
                                               std::string_view description) {
    if (description.empty()) {
        return nullptr;
    }
    return add_kept(group == last_group_ ? last_group_ : keep(group), keep(sub_group), keep(name),
                    keep(description));
}

const ResponseElement* ReportLines::add_kept(std::string_view group, std::string_view sub_group,
                                             std::string_view name, std::string_view description) {
    if (group != last_group_) {
        if (group_number_ < std::numeric_limits<std::int16_t>::max()) {
            ++group_number_;
        }
        last_group_ = group;
    }
    if (count_ == blocks_.size() * kBlockLines) {
        blocks_.push_back(std::unique_ptr<ResponseElement[]>(new ResponseElement[kBlockLines]));
    }
    ResponseElement& line = blocks_.back()[count_ & (kBlockLines - 1)];
    ++count_;
    line.group_ = group;
    line.sub_group_ = sub_group;
    line.name_ = name;
    line.description_ = description;
    line.group_number_ = group_number_;
    return &line;
}

}  // namespace zr
