#include "bureau_gateway/invention/words.h"

#include <array>

namespace zr::gateway::words {
namespace {

template <class... Texts>
constexpr auto list(const Texts&... texts) {
    return std::array<std::string_view, sizeof...(texts)>{texts...};
}

constexpr std::array kGivenNames = {
    GivenName{"Alba", "female"},    GivenName{"Bruno", "male"},     GivenName{"Celeste", "female"},
    GivenName{"Dorian", "male"},    GivenName{"Elspeth", "female"}, GivenName{"Fabian", "male"},
    GivenName{"Ginevra", "female"}, GivenName{"Horace", "male"},    GivenName{"Isolde", "female"},
    GivenName{"Jasper", "male"},    GivenName{"Zoë", "female"},     GivenName{"André", "male"},
};

constexpr auto kFamilyNames =
    list("Testwell", "Sampleton", "Mockridge", "Fictional", "Placeholder", "Dummett", "Specimen",
         "Examplar", "Trialby", "Pseudon", "O'Sample", "Müster");

constexpr auto kEmployers =
    list("Acme Sample Works", "Fictional Freight", "Nowhere Nurseries", "Mock & Sons Printing",
         "Specimen Hospital", "Department of Examples", "Trial Creek Dairy", "Self-employed");

constexpr auto kOccupations =
    list("Clerk", "Electrician", "Nurse", "Teacher", "Driver", "Accountant", "Chef", "Surveyor");

constexpr auto kCreditProviders =
    list("Sample Savings Bank", "First Fictional Finance", "Mock Mutual", "Example Energy",
         "Placeholder Telecom", "Nowhere Credit Union", "Specimen Motor Finance",
         "Invented Insurance & Loans", "Trial Retail Cards", "Dummy Water Utility");

}  // namespace

std::span<const GivenName> given_names() { return kGivenNames; }
std::span<const std::string_view> family_names() { return kFamilyNames; }
std::span<const std::string_view> employers() { return kEmployers; }
std::span<const std::string_view> occupations() { return kOccupations; }
std::span<const std::string_view> credit_providers() { return kCreditProviders; }

}  // namespace zr::gateway::words
