#include "reports/runs.h"

#include <algorithm>

namespace zr {

std::string_view unique_id(XmlNode record, const XmlPath& id, Runs runs) {
    std::string_view text = record.value(id).value_or("");
    if (runs == Runs::kByText) {
        return text;
    }
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    return text;
}

std::size_t end_of_run(std::span<const XmlNode> records, std::size_t first, const XmlPath& id,
                       Runs runs) {
    if (runs == Runs::kAll) {
        return records.size();
    }
    std::size_t end = first + 1;
    const std::string_view shared = unique_id(records[first], id, runs);
    if (runs == Runs::kNone || (shared.empty() && runs != Runs::kById)) {
        return end;
    }
    while (end < records.size() && unique_id(records[end], id, runs) == shared) {
        ++end;
    }
    return end;
}

}  // namespace zr
