#include "values/text.h"

#include <algorithm>

namespace zr::text {

std::string_view cut(std::string_view value, std::size_t count) {
    return trim_right(first(value, count));
}

std::string_view trim(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
    return trim_right(value);
}

std::string_view trim_right(std::string_view value) {
    return value.substr(0, value.find_last_not_of(' ') + 1);
}

std::string replace_all(std::string_view value, std::string_view from, std::string_view to) {
    std::string result;
    if (from.empty()) {
        return result.assign(value);
    }
    std::size_t start = 0;
    for (std::size_t found = 0; (found = value.find(from, start)) != std::string_view::npos;) {
        result.append(value, start, found - start).append(to);
        start = found + from.size();
    }
    return result.append(value, start);
}

}  // namespace zr::text
