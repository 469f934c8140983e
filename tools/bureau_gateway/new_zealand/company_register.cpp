#include "bureau_gateway/new_zealand/company_register.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/new_zealand/vocabulary.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::new_zealand {
namespace {

constexpr auto kAreas = std::to_array<std::string_view>({"Northern", "Central", "Southern"});
constexpr auto kStatuses = std::to_array<std::string_view>(
    {"Registered", "Registered", "Registered", "Removed", "In Liquidation", "In Receivership"});

// An index into the register is a number and back: between them lies a multiplication modulo the
// count of numbers of seven digits. Numbers of fewer digits follow behind.
constexpr std::uint64_t kFirstNumber = 1'000'000;
constexpr std::uint64_t kNumbers = 9'000'000;
constexpr std::uint64_t kFactor = 4'111'117;   // shares no prime with kNumbers (2, 3, 5)
constexpr std::uint64_t kTotient = 2'400'000;  // of kNumbers

constexpr std::uint64_t power(std::uint64_t base, std::uint64_t exponent) {
    std::uint64_t result = 1;
    for (; exponent != 0; exponent /= 2, base = base * base % kNumbers) {
        result = exponent % 2 != 0 ? result * base % kNumbers : result;
    }
    return result;
}
constexpr std::uint64_t kInverse = power(kFactor, kTotient - 1);
static_assert(kFactor * kInverse % kNumbers == 1);

constexpr std::uint64_t number_of(std::uint64_t index) {
    return kFirstNumber + index * kFactor % kNumbers;
}
constexpr std::uint64_t index_of(std::uint64_t number) {
    return number >= kFirstNumber ? (number - kFirstNumber) * kInverse % kNumbers
                                  : kNumbers + number;
}

/// Where a company's index places it: which of the words make up its name.
struct Place {
    std::size_t root;
    std::size_t trade;
    std::size_t variant;
};

std::uint64_t name_count() {
    return words::company_roots().size() * words::company_trades().size() *
           words::company_variants().size();
}

Place place_of(std::uint64_t index) {
    const auto take = [&](std::size_t size) {
        const auto part = static_cast<std::size_t>(index % size);
        index /= size;
        return part;
    };
    const std::size_t variant = take(words::company_variants().size());
    const std::size_t trade = take(words::company_trades().size());
    return {take(words::company_roots().size()), trade, variant};
}

std::string name_at(const Place& place) {
    const std::string_view variant = words::company_variants()[place.variant];
    return std::string(words::company_roots()[place.root]) + " " +
           std::string(words::company_trades()[place.trade]) + (variant.empty() ? "" : " ") +
           std::string(variant) + " Limited";
}

Burden burden_of(const Place& place, Random& random) {
    constexpr auto kFixed = std::to_array({Burden::kClean, Burden::kHeavy, Burden::kHeavy});
    if (place.root < kFixed.size()) {
        return kFixed[place.root];
    }
    return static_cast<Burden>(random.between(0, 2));
}

Company company_at(std::uint64_t number) {
    const std::uint64_t index = index_of(number);
    Place place = place_of(index);
    Company company;
    company.number = std::to_string(number);
    company.seed = hash(company.number);
    company.name = name_at(place);
    Random random(company.seed, "company");
    company.area = random.pick(std::span(kAreas));
    company.status = random.pick(std::span(kStatuses));
    company.burden = burden_of(place, random);
    for (int i = random.percent(25) ? random.between(1, 2) : 0; i > 0; --i) {
        place.trade = (place.trade + 1) % words::company_trades().size();
        company.former_names.push_back({name_at(place), 800 * i + random.between(1, 700)});
    }
    return company;
}

/// The words of a name in capitals, with the same word for a limited company.
std::vector<std::string> words_of(std::string_view name) {
    std::vector<std::string> found;
    const std::string text = to_upper(name);
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find_first_of(" .,", at), text.size());
        if (end != at) {
            const std::string word = text.substr(at, end - at);
            found.push_back(word == "LTD" ? "LIMITED" : word);
        }
        at = end + 1;
    }
    return found;
}

bool matches(const std::vector<std::string>& wanted, std::string_view name) {
    const std::vector<std::string> has = words_of(name);
    return std::all_of(wanted.begin(), wanted.end(), [&](const std::string& each) {
        return std::any_of(has.begin(), has.end(),
                           [&](const std::string& word) { return word.starts_with(each); });
    });
}

/// How a company goes by a name that was searched for; "" when it does not.
std::string_view type_of_match(const std::vector<std::string>& wanted, const Company& company) {
    if (matches(wanted, company.name)) {
        return "Current Name";
    }
    const bool formerly =
        std::any_of(company.former_names.begin(), company.former_names.end(),
                    [&](const FormerName& each) { return matches(wanted, each.name); });
    return formerly ? "Previous Name" : "";
}

void write(XmlWriter& xml, const Company& company, std::string_view name_type) {
    const XmlScope scope(xml, "company-selection-list-details");
    xml.leaf("company-name", company.name);
    xml.leaf("registration-number", company.number);
    xml.leaf("company-status", company.status);
    xml.leaf("company-name-type", name_type);
    xml.leaf("registration-area", company.area);
}

/// Searches find one company of each name; of the names with a variant, every second one.
bool is_listed(std::uint64_t index, const Company& company) {
    constexpr std::size_t kAlwaysListed = 2;
    return place_of(index).variant < kAlwaysListed || company.seed % 2 == 0;
}

void write_by_name(XmlWriter& xml, std::string_view name) {
    constexpr int kMost = 30;
    const std::vector<std::string> wanted = words_of(name);
    int found = 0;
    for (std::uint64_t index = 0; index < name_count() && found < kMost; ++index) {
        if (number_of(index) % 1000 == 0) {
            continue;
        }
        const Company company = company_at(number_of(index));
        const std::string_view type =
            is_listed(index, company) ? type_of_match(wanted, company) : std::string_view();
        if (!type.empty()) {
            write(xml, company, type);
            ++found;
        }
    }
}

void write_many(XmlWriter& xml, std::size_t least_bytes) {
    const std::size_t wanted = xml.size() + least_bytes;
    for (std::uint64_t index = 0; xml.size() < wanted; ++index) {
        if (number_of(index) % 1000 != 0) {
            write(xml, company_at(number_of(index)), "Current Name");
        }
    }
}

}  // namespace

std::optional<Company> find_company(std::string_view number) {
    std::uint64_t value = 0;
    const char* end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value);
    const bool numeric = read.ec == std::errc{} && read.ptr == end && value < 10'000'000;
    return numeric && value % 1000 != 0 ? std::optional(company_at(value)) : std::nullopt;
}

void write_candidates(XmlWriter& xml, const Element& request, std::size_t least_bytes) {
    const XmlScope list(xml, "company-selection-list");
    if (request.child("company-name") == nullptr) {
        if (const auto company = find_company(request.child_text("registration-number"))) {
            write(xml, *company, "Current Name");
        }
    } else if (least_bytes != 0) {
        write_many(xml, least_bytes);
    } else {
        write_by_name(xml, request.child_text("company-name"));
    }
}

}  // namespace zr::gateway::new_zealand
