#include "bureau_gateway/new_zealand/request_rules.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "bureau_gateway/new_zealand/catalogue.h"

namespace zr::gateway::new_zealand {
namespace {

using enum Content;
using enum Occurs;
using Values = std::string_view;

constexpr std::array kVersion = {Values{"V2.0"}};
constexpr std::array kYes = {Values{"yes"}};
constexpr std::array kPurposes = {Values{"C1"}, Values{"C2"}};
constexpr std::array kAddressTypes = {Values{"current"}, Values{"previous"}};
constexpr std::array kGenders = {Values{"male"}, Values{"female"}, Values{"unknown"}, Values{""}};

constexpr AttributeRule option(std::string_view name) {
    return {.name = name, .required = false, .values = kYes};
}

constexpr std::array kPurposeCode = {AttributeRule{.name = "code", .values = kPurposes}};
constexpr std::array kClient = {
    ElementRule{.name = "client-identifier", .content = kFilledText},
    ElementRule{.name = "operator-id"},
};
constexpr ElementRule kPurpose{
    .name = "access-purpose", .content = kNone, .attributes = kPurposeCode};
constexpr ElementRule kClientDetails{
    .name = "client-details", .content = kElements, .children = kClient};

constexpr std::array kName = {
    ElementRule{.name = "family-name", .content = kFilledText, .width = 25},
    ElementRule{.name = "first-given-name", .width = 13},
    ElementRule{.name = "other-given-name", .width = 13},
};

// The codes of street types and account types are looked up apart.
constexpr std::array kCode = {AttributeRule{.name = "code"}};
constexpr std::array kAddressType = {AttributeRule{.name = "type", .values = kAddressTypes}};
constexpr std::array kAddress = {
    ElementRule{.name = "street-number", .width = 8},
    ElementRule{.name = "street-name", .content = kFilledText, .width = 20},
    ElementRule{.name = "street-type", .content = kNone, .attributes = kCode},
    ElementRule{.name = "suburb", .occurs = kOptional, .content = kFilledText, .width = 20},
    ElementRule{.name = "city", .occurs = kOptional, .content = kFilledText, .width = 20},
};

constexpr std::array kEmployment = {
    ElementRule{.name = "employer", .width = 30},
    ElementRule{.name = "occupation", .width = 30},
};
constexpr std::array kPhone = {
    ElementRule{.name = "phone-area-code", .content = kDigits, .width = 4},
    ElementRule{.name = "phone-number", .content = kDigits, .width = 8},
};
constexpr std::array kLicence = {
    ElementRule{.name = "licence-number", .content = kFilledText, .width = 8},
    ElementRule{
        .name = "licence-version-number", .occurs = kOptional, .content = kDigits, .width = 3},
};

constexpr std::array kGender = {AttributeRule{.name = "type", .values = kGenders}};
constexpr std::array kIndividual = {
    ElementRule{.name = "individual-name", .content = kElements, .children = kName},
    ElementRule{.name = "gender", .content = kNone, .attributes = kGender},
    ElementRule{.name = "date-of-birth", .occurs = kOptional, .content = kDate},
    ElementRule{.name = "address",
                .occurs = kMany,
                .content = kElements,
                .attributes = kAddressType,
                .children = kAddress},
    ElementRule{
        .name = "employment", .occurs = kOptional, .content = kElements, .children = kEmployment},
    ElementRule{
        .name = "phone-details", .occurs = kOptional, .content = kElements, .children = kPhone},
    ElementRule{.name = "driver-licence-details",
                .occurs = kOptional,
                .content = kElements,
                .children = kLicence},
};

constexpr std::array kConsent = {AttributeRule{.name = "consent", .values = kYes}};
constexpr std::array kEnquiry = {
    ElementRule{.name = "account-type", .content = kNone, .attributes = kCode},
    ElementRule{.name = "enquiry-amount", .content = kWholeNumber},
    ElementRule{.name = "client-reference", .width = 16},
};

constexpr std::array kProductName = {AttributeRule{.name = "name"}};
constexpr std::array kIndividualOptions = {
    AttributeRule{.name = "name"},
    option("score"),
    option("ewp"),
    option("driver-licence"),
    option("property-ownership"),
    option("summary"),
    option("licencecheck"),
    option("moj-fines"),
};
constexpr std::array kCompanyOptions = {AttributeRule{.name = "name"}, option("summary")};
constexpr std::array kDirectorsOptions = {
    AttributeRule{.name = "name"},
    AttributeRule{.name = "consent", .values = kYes},
    option("summary"),
};

constexpr ElementRule product(std::span<const AttributeRule> attributes) {
    return {.name = "product", .content = kNone, .attributes = attributes};
}
constexpr ElementRule registration_number(Occurs occurs) {
    return {.name = "registration-number", .occurs = occurs, .content = kWholeNumber, .width = 7};
}

constexpr std::array kIndividualRequest = {
    kPurpose,
    kClientDetails,
    product(kIndividualOptions),
    ElementRule{.name = "individual", .content = kElements, .children = kIndividual},
    ElementRule{
        .name = "enquiry", .content = kElements, .attributes = kConsent, .children = kEnquiry},
};
constexpr std::array kCompanyRequest = {kClientDetails, product(kCompanyOptions),
                                        registration_number(kOnce)};
constexpr std::array kDirectorsRequest = {kPurpose, kClientDetails, product(kDirectorsOptions),
                                          registration_number(kOnce)};
// The search carries the purpose when the enquiry that it is made for does.
constexpr std::array kSearchRequest = {
    ElementRule{.name = "access-purpose",
                .occurs = kOptional,
                .content = kNone,
                .attributes = kPurposeCode},
    kClientDetails,
    product(kProductName),
    registration_number(kOptional),
    ElementRule{.name = "company-name", .occurs = kOptional, .content = kFilledText, .width = 125},
};

struct ProductRow {
    std::string_view name;
    std::span<const ElementRule> children;
};
constexpr std::array kProducts = {
    ProductRow{products::kIndividual, kIndividualRequest},
    ProductRow{products::kCompany, kCompanyRequest},
    ProductRow{products::kCompanyWithDirectors, kDirectorsRequest},
    ProductRow{products::kCompanySearch, kSearchRequest},
};

// The mode has been compared with the address by now.
constexpr std::array kRequestAttributes = {
    AttributeRule{.name = "version", .values = kVersion},
    AttributeRule{.name = "mode"},
    AttributeRule{.name = "transaction-reference", .width = 20},
};

bool has_code(const Element& element, std::span<const std::string_view> codes) {
    const auto code = element.attribute("code");
    return !code || std::find(codes.begin(), codes.end(), *code) != codes.end();
}

/// Rules that look at more than one element.
class CrossChecks {
  public:
    explicit CrossChecks(std::vector<Violation>& violations) : violations_(violations) {}

    void individual_enquiry(const Element& request) {
        const Element* individual = request.child("individual");
        const Element* enquiry = request.child("enquiry");
        if (individual) {
            addresses(*individual);
            licence(*individual);
            options(*request.child("product"), *individual, enquiry);
        }
        const Element* account_type = enquiry ? enquiry->child("account-type") : nullptr;
        if (account_type && !has_code(*account_type, account_type_codes())) {
            add(*account_type, "E404", "Account type code is not known", "value");
        }
    }

    void company_search(const Element& request) {
        if ((request.child("registration-number") != nullptr) ==
            (request.child("company-name") != nullptr)) {
            add(request, "E611", "Either a registration number or a company name is required",
                "structure");
        }
    }

  private:
    void add(const Element& container, std::string_view code, std::string description,
             std::string_view type) {
        violations_.push_back(complaint(container, code, std::move(description), type));
    }

    void addresses(const Element& individual) {
        int current = 0;
        int previous = 0;
        for (const Element& each : individual.children) {
            if (each.name != "address") {
                continue;
            }
            ++(each.attribute("type") == "current" ? current : previous);
            const Element* street_type = each.child("street-type");
            if (street_type && street_type->attribute("code") != "" &&
                !has_code(*street_type, street_type_codes())) {
                add(*street_type, "E402", "Street type code is not known", "value");
            }
            if (each.attribute("type") == "current" && !each.child("suburb") &&
                !each.child("city")) {
                add(each, "E612", "A suburb or a city of the current address is required",
                    "mandatory");
            }
        }
        if (current != 1 || previous > 1) {
            add(individual, "E603", "One current address is required, with one previous at most",
                "structure");
        }
    }

    void licence(const Element& individual) {
        const Element* details = individual.child("driver-licence-details");
        const std::string_view number = details ? details->child_text("licence-number") : "";
        const auto is_letter_or_digit = [](char c) {
            return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        };
        if (!std::all_of(number.begin(), number.end(), is_letter_or_digit)) {
            add(*details, "E304", "Licence number must be letters and digits", "format");
        }
    }

    /// What the options that are asked for need to know of the individual.
    void options(const Element& product, const Element& individual, const Element* enquiry) {
        const auto asked = [&](std::string_view name) { return product.attribute(name) == "yes"; };
        if (asked("ewp") && !individual.child("phone-details")) {
            add(individual, "E613", "White pages verification needs a phone number", "mandatory");
        }
        if (!asked("driver-licence") && !asked("licencecheck")) {
            return;
        }
        if (!individual.child("driver-licence-details") || !individual.child("date-of-birth")) {
            add(individual, "E614",
                "Driver licence verification needs a licence number and a date of birth",
                "mandatory");
        }
        if (asked("driver-licence") && enquiry && enquiry->child_text("client-reference").empty()) {
            add(*enquiry, "E615", "Driver licence verification needs a client reference",
                "mandatory");
        }
    }

    std::vector<Violation>& violations_;
};

}  // namespace

std::string_view product_of(const Element& request) {
    const Element* product = request.child("product");
    return product ? product->attribute("name").value_or("") : "";
}

std::vector<Violation> check_request(const Element& request) {
    const std::string_view name = product_of(request);
    const auto row = std::find_if(kProducts.begin(), kProducts.end(),
                                  [&](const ProductRow& each) { return each.name == name; });
    if (row == kProducts.end()) {
        return {complaint(request, "E403", "Product name is not known", "value")};
    }
    std::vector<Violation> violations = check(request, {.name = "request",
                                                        .content = kElements,
                                                        .attributes = kRequestAttributes,
                                                        .children = row->children});
    CrossChecks cross(violations);
    if (name == products::kIndividual) {
        cross.individual_enquiry(request);
    } else if (name == products::kCompanySearch) {
        cross.company_search(request);
    }
    return violations;
}

}  // namespace zr::gateway::new_zealand
