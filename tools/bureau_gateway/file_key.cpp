#include "bureau_gateway/file_key.h"

#include <algorithm>
#include <array>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

constexpr std::uint64_t kFileNumbers = 100'000'000;  // eight digits

/// The first digit of a reference says what kind of file it is.
struct KindRow {
    char digit;
    int burden;
    bool possible_match;
    std::string_view surname;  ///< that always has this kind; "" for none
    int weight;                ///< how many of 20 other people have it
};
constexpr std::array kKinds = {
    KindRow{'1', 0, false, "CLEAN", 7},   KindRow{'2', 1, false, "", 7},
    KindRow{'3', 2, false, "ADVERSE", 3}, KindRow{'4', 1, true, "POSSIBLE", 2},
    KindRow{'5', 2, true, "", 1},
};

const KindRow& kind_by_weight(std::uint64_t number) {
    auto left = static_cast<int>(number % 20);
    for (const KindRow& row : kKinds) {
        left -= row.weight;
        if (left < 0) {
            return row;
        }
    }
    return kKinds.back();
}

std::string reference_of(const KindRow& kind, std::uint64_t number) {
    const std::string digits = std::to_string(number % kFileNumbers);
    return kind.digit + std::string(8 - digits.size(), '0') + digits;
}

const KindRow& kind_of(std::string_view reference) {
    const bool usual =
        reference.size() == 9 && std::all_of(reference.begin(), reference.end(),
                                             [](char c) { return c >= '0' && c <= '9'; });
    const auto row = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindRow& each) {
        return usual && each.digit == reference.front();
    });
    return row == kKinds.end() ? kind_by_weight(hash(reference) / kFileNumbers) : *row;
}

}  // namespace

std::string reference_of_person(std::string_view family, std::string_view first,
                                std::string_view date_of_birth) {
    const std::string name = to_upper(trim(family));
    if (name.empty()) {
        return {};
    }
    const std::uint64_t person =
        hash(name + "|" + to_upper(trim(first)) + "|" + std::string(date_of_birth));
    const auto row = std::find_if(kKinds.begin(), kKinds.end(),
                                  [&](const KindRow& each) { return each.surname == name; });
    return reference_of(row == kKinds.end() ? kind_by_weight(person / kFileNumbers) : *row, person);
}

std::string reference_of(int burden, std::uint64_t number) {
    return reference_of(kKinds[static_cast<std::size_t>(burden)], number);
}

FileKey key_of(std::string_view reference) {
    const KindRow& kind = kind_of(reference);
    return {std::string(reference), hash(reference), kind.burden, kind.possible_match};
}

}  // namespace zr::gateway
