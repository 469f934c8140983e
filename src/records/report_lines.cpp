#include "records/report_lines.h"

#include <algorithm>
#include <limits>
#include <string>

namespace zr {

const ResponseElement& ResponseElements::Item(NumberArg position) const {
    if (position.value < 1 || position.value > Count()) {
        raise_item_not_found();
    }
    return at_index(static_cast<std::size_t>(position.value) - 1);
}

void ReportLines::begin_group(std::string_view group) {
    if (group_number_ < std::numeric_limits<std::int16_t>::max()) {
        ++group_number_;
    }
    std::string sort = std::to_string(group_number_);
    sort.insert(0, kNoGroup.size() - std::min(kNoGroup.size(), sort.size()), '0');
    digits_ = static_cast<std::uint8_t>(sort.size());
    group_sort_ = keep(sort.append(group));
}

const ResponseElement* ReportLines::AddElement(std::string_view group, std::string_view sub_group,
                                               std::string_view name,
                                               std::string_view description) {
    if (description.empty()) {
        return nullptr;
    }
    return add_kept(group, keep(sub_group), keep(name), keep(description));
}

const ResponseElement* ReportLines::add_kept(std::string_view group, std::string_view sub_group,
                                             std::string_view name, std::string_view description) {
    if (group != last_group()) {
        begin_group(group);
    }
    if (count_ == blocks_.size() * kBlockLines) {
        blocks_.push_back(std::unique_ptr<ResponseElement[]>(new ResponseElement[kBlockLines]));
    }
    ResponseElement& line = blocks_.back()[count_ & (kBlockLines - 1)];
    ++count_;
    line.group_sort_ = group_sort_;
    line.sub_group_ = sub_group;
    line.name_ = name;
    line.description_ = description;
    line.digits_ = digits_;
    return &line;
}

}  // namespace zr
