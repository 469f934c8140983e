#include "cli/nearest.h"

#include <algorithm>
#include <numeric>

#include "values/text.h"

namespace zr::cli {
namespace {

/// Letters inserted, left out or replaced that make one text the other.
std::size_t distance(std::string_view one, std::string_view other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : one) {
        std::size_t diagonal = row[0]++;
        for (std::size_t at = 1; at < row.size(); ++at) {
            const std::size_t replaced = diagonal + (other[at - 1] == letter ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({row[at] + 1, row[at - 1] + 1, replaced});
        }
    }
    return row.back();
}

}  // namespace

std::string did_you_mean(std::string_view given, const std::vector<std::string>& names) {
    constexpr std::size_t kLongest = 64;  // of what is compared
    const std::string wanted = text::upper(text::first(given, kLongest));
    std::size_t least = (wanted.size() + 1) / 3 + 1;  // more is another name
    const std::string* nearest = nullptr;
    for (const std::string& name : names) {
        const std::size_t differs = distance(wanted, text::upper(text::first(name, kLongest)));
        if (differs < least) {
            least = differs;
            nearest = &name;
        }
    }
    return nearest == nullptr ? "" : " Did you mean " + *nearest + "?";
}

std::string valid_names(std::string_view given, const std::vector<std::string>& names) {
    constexpr std::size_t kMost = 40;
    std::string told = did_you_mean(given, names) + " Known are ";
    for (std::size_t at = 0; at < std::min(names.size(), kMost); ++at) {
        told.append(at == 0 ? "" : ", ").append(names[at]);
    }
    return told + (names.size() > kMost ? " and others: see catalogue." : ".");
}

}  // namespace zr::cli
