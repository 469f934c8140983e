#include "bureau_gateway/company_register.h"

#include <algorithm>
#include <charconv>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/file_key.h"
#include "bureau_gateway/random.h"

namespace zr::gateway {
namespace {

/// What the elements of this name hold: their text, or an attribute.
std::vector<std::string> column(const xmlNode& words, const char* name,
                                const char* part = nullptr) {
    std::vector<std::string> found;
    for (const xmlNode* each = words.children; each; each = each->next) {
        if (each->type == XML_ELEMENT_NODE && name_of(*each) == name) {
            const xmlNode* text = each->children;
            found.push_back(part                    ? attribute(*each, part)
                            : text && text->content ? reinterpret_cast<const char*>(text->content)
                                                    : "");
        }
    }
    return found;
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

bool is_nobodys(std::uint64_t number) { return number % 1000 == 0 || number > 9'999'999; }

/// The number that a search finds of the many whose companies share a name.
std::uint64_t number_found(std::uint64_t index, std::uint64_t names) {
    const std::uint64_t number = (400 + index * 37 % 2400) * names + index;
    return is_nobodys(number) ? number + names : number;
}

}  // namespace

CompanyRegister::CompanyRegister(const xmlNode& words, xmlNode& shelf)
    : roots_(column(words, "company-root")),
      trades_(column(words, "company-trade")),
      variants_(column(words, "company-variant")),
      areas_(column(words, "company-area")),
      statuses_(column(words, "company-status")),
      burdens_(column(words, "company-root", "burden")),
      shelf_(shelf) {}

std::uint64_t CompanyRegister::name_count() const {
    return roots_.size() * trades_.size() * variants_.size();
}

std::string CompanyRegister::name_at(std::uint64_t index) const {
    const std::string& variant = variants_[index % variants_.size()];
    index /= variants_.size();
    return roots_[index / trades_.size() % roots_.size()] + " " + trades_[index % trades_.size()] +
           (variant.empty() ? "" : " ") + variant + " Limited";
}

/// Where the former name stands of the companies that have one: a quarter of them.
std::uint64_t CompanyRegister::former_index(std::uint64_t number) const {
    const std::uint64_t index = number % name_count();
    return hash(std::to_string(number)) % 4 == 0 ? (index + variants_.size()) % name_count()
                                                 : index;
}

xmlNode& CompanyRegister::put(std::uint64_t number, const char* match) const {
    Random random(hash(std::to_string(number)));
    const auto pick = [&](const std::vector<std::string>& from) {
        return from[random.next() % from.size()];
    };
    const std::uint64_t index = number % name_count();
    const std::string& fixed = burdens_[index / (variants_.size() * trades_.size())];
    const auto* burden = std::find(std::begin(kBurdens), std::end(kBurdens), fixed);
    const auto file =
        reference_of(burden == std::end(kBurdens) ? random.between(0, 2)
                                                  : static_cast<int>(burden - std::begin(kBurdens)),
                     number);
    xmlNode& company = add(shelf_, "company");
    const std::pair<const char*, std::string> facts[] = {
        {"name", name_at(index)}, {"number", std::to_string(number)},
        {"area", pick(areas_)},   {"status", pick(statuses_)},
        {"file", file},           {"match", match}};
    for (const auto& [name, value] : facts) {
        set_attribute(company, name, value);
    }
    if (former_index(number) != index) {
        xmlNode& former = add(company, "former");
        set_attribute(former, "name", name_at(former_index(number)));
        set_attribute(former, "days", std::to_string(random.between(200, 2000)));
    }
    return company;
}

xmlNode* CompanyRegister::find(std::string_view number) const {
    std::uint64_t value = 0;
    const char* end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value);
    return read.ec == std::errc{} && read.ptr == end && !is_nobodys(value)
               ? &put(value, "Current Name")
               : nullptr;
}

std::vector<xmlNode*> CompanyRegister::search(std::string_view name) const {
    constexpr std::size_t kMost = 30;
    const std::vector<std::string> wanted = words_of(name);
    std::vector<xmlNode*> found;
    for (std::uint64_t index = 0; index < name_count() && found.size() < kMost; ++index) {
        const std::uint64_t number = number_found(index, name_count());
        if (matches(wanted, name_at(index))) {
            found.push_back(&put(number, "Current Name"));
        } else if (matches(wanted, name_at(former_index(number)))) {
            found.push_back(&put(number, "Previous Name"));
        }
    }
    return found;
}

}  // namespace zr::gateway
