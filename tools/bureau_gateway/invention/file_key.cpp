#include "bureau_gateway/invention/file_key.h"

#include <array>
#include <charconv>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

constexpr std::uint64_t kFileNumbers = 100'000'000;  // eight digits

/// The first digit of a reference says what kind of file it is.
struct KindRow {
    char digit;
    Burden burden;
    bool possible_match;
    std::string_view surname;  ///< that always has this kind; "" for none
    int weight;                ///< how many of 20 other people have it
};
constexpr std::array kKinds = {
    KindRow{'1', Burden::kClean, false, "CLEAN", 7},
    KindRow{'2', Burden::kAverage, false, "", 7},
    KindRow{'3', Burden::kHeavy, false, "ADVERSE", 3},
    KindRow{'4', Burden::kAverage, true, "POSSIBLE", 2},
    KindRow{'5', Burden::kHeavy, true, "", 1},
};
constexpr std::uint64_t kWeights = 20;

const KindRow& kind_by_weight(std::uint64_t number) {
    auto left = static_cast<int>(number % kWeights);
    for (const KindRow& row : kKinds) {
        left -= row.weight;
        if (left < 0) {
            return row;
        }
    }
    return kKinds.back();
}

FileKey make_key(const KindRow& kind, std::uint64_t number) {
    const std::string digits = std::to_string(number);
    return {number, kind.burden, kind.possible_match,
            kind.digit + std::string(8 - digits.size(), '0') + digits};
}

}  // namespace

FileKey key_of_person(const PersonName& name, std::optional<Date> date_of_birth) {
    const std::string family = to_upper(trim(name.family));
    const std::uint64_t person =
        hash(family + "|" + to_upper(trim(name.first)) + "|" + to_iso(date_of_birth));
    for (const KindRow& kind : kKinds) {
        if (kind.surname == family) {
            return make_key(kind, person % kFileNumbers);
        }
    }
    return make_key(kind_by_weight(person / kFileNumbers), person % kFileNumbers);
}

FileKey key_of_reference(std::string_view reference) {
    std::uint64_t number = 0;
    const char* end = reference.data() + reference.size();
    if (reference.size() == 9 && std::from_chars(reference.data() + 1, end, number).ptr == end) {
        for (const KindRow& kind : kKinds) {
            if (kind.digit == reference.front()) {
                return make_key(kind, number);
            }
        }
    }
    const std::uint64_t file = hash(reference);
    FileKey key = make_key(kind_by_weight(file / kFileNumbers), file % kFileNumbers);
    key.reference = reference;
    return key;
}

}  // namespace zr::gateway
