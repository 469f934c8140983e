#include "bureau_gateway/australia/applicant.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::australia {
namespace {

constexpr std::uint64_t kFileNumbers = 100'000'000;  // eight digits
constexpr std::size_t kMaxLargeKilobytes = 32 * 1024;

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

std::string text(const Element* parent, std::string_view name) {
    return parent ? std::string(parent->child_text(name)) : std::string();
}

Address read_address(const Element& element, Date created) {
    Address address;
    address.type = element.attribute("type") == "residential-current" ? "residential-current"
                                                                      : "residential-previous";
    address.created = created;
    address.unit = text(&element, "unit-number");
    address.number = text(&element, "street-number");
    address.property = text(&element, "property");
    address.street = text(&element, "street-name");
    if (const Element* street_type = element.child("street-type")) {
        address.street_type = street_type->attribute("code").value_or("");
    }
    address.suburb = text(&element, "suburb");
    address.state = text(&element, "state");
    address.postcode = text(&element, "postcode");
    return address;
}

}  // namespace

Demonstration demonstration(std::string_view family_name) {
    const std::string name = to_upper(trim(family_name));
    const auto after = [&](std::string_view prefix) -> std::optional<std::string> {
        if (!name.starts_with(prefix)) {
            return std::nullopt;
        }
        return name.substr(prefix.size());
    };
    Demonstration wanted;
    wanted.refused = name == "REFUSED";
    wanted.invalid = name == "INVALID";
    if (const auto kilobytes = after("LARGE-")) {
        std::size_t number = 0;
        std::from_chars(kilobytes->data(), kilobytes->data() + kilobytes->size(), number);
        wanted.large_bytes = std::min(number, kMaxLargeKilobytes) * 1024;
    }
    wanted.fault = after("FAULT-").value_or("");
    return wanted;
}

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

Individual read_individual(const Element& element, Date today) {
    Individual individual;
    const Element* name = element.child("individual-name");
    individual.name = {text(name, "family-name"), text(name, "first-given-name"),
                       text(name, "other-given-name")};
    if (const Element* gender = element.child("gender")) {
        individual.gender = gender->attribute("type").value_or("");
    }
    individual.date_of_birth = parse_date(element.child_text("date-of-birth"));
    individual.licence_number = text(&element, "drivers-licence-number");
    for (const Element& each : element.children) {
        if (each.name == "address") {
            individual.addresses.push_back(read_address(each, today));
        }
    }
    if (const Element* employment = element.child("employment")) {
        individual.employments.push_back(
            {today, text(employment, "employer"), text(employment, "occupation")});
    }
    return individual;
}

}  // namespace zr::gateway::australia
