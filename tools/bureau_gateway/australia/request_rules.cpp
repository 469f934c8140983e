#include "bureau_gateway/australia/request_rules.h"

#include <algorithm>
#include <array>
#include <string>

#include "bureau_gateway/australia/catalogue.h"

namespace zr::gateway::australia {
namespace {

using enum Content;
using enum Occurs;
using Values = std::string_view;

constexpr std::array kVersion1 = {Values{"1.0"}};
constexpr std::array kVersion2 = {Values{"2.0"}};
constexpr std::array kYes = {Values{"yes"}};
constexpr std::array kPrincipal = {Values{"principal"}};
constexpr std::array kAddressTypes = {Values{"residential-current"},
                                      Values{"residential-previous"}};
constexpr std::array kGenders = {Values{"male"}, Values{"female"}, Values{"unknown"}, Values{""}};
constexpr std::array kEnquiryTypes = {Values{"credit-application"}, Values{"credit-enquiry"}};
constexpr std::array kOrganisationProduct = {Values{"organisation-identification"}};
constexpr std::array kSearchTypes = {Values{"registered-companies-businesses"}};

constexpr std::array kSubscriberDetails = {
    ElementRule{.name = "subscriber-identifier", .content = kFilledText},
    ElementRule{.name = "security", .content = kFilledText},
};

constexpr std::array kName = {
    ElementRule{.name = "family-name", .content = kFilledText, .width = 25},
    ElementRule{.name = "first-given-name", .width = 15},
    ElementRule{.name = "other-given-name", .width = 15},
};

constexpr std::array kEmployment = {
    ElementRule{.name = "employer", .width = 35},
    ElementRule{.name = "occupation", .occurs = kOptional, .content = kFilledText, .width = 22},
};

// A street type's code is checked apart: its table is not a list of bare codes here.
constexpr std::array kCode = {AttributeRule{.name = "code"}};
constexpr std::array kAddressAttributes = {AttributeRule{.name = "type", .values = kAddressTypes}};
constexpr std::array kAddress = {
    ElementRule{.name = "unit-number", .occurs = kOptional, .content = kFilledText, .width = 5},
    ElementRule{.name = "street-number", .width = 8},
    ElementRule{.name = "property", .occurs = kOptional, .content = kFilledText, .width = 15},
    ElementRule{.name = "street-name", .content = kFilledText, .width = 25},
    ElementRule{.name = "street-type", .content = kNone, .attributes = kCode},
    ElementRule{.name = "suburb", .occurs = kOptional, .content = kFilledText, .width = 22},
    ElementRule{.name = "city", .occurs = kOptional, .content = kFilledText, .width = 20},
    ElementRule{.name = "state", .occurs = kOptional, .content = kFilledText, .width = 3},
    ElementRule{.name = "postcode", .occurs = kOptional, .content = kFilledText, .width = 4},
    ElementRule{.name = "country", .occurs = kOptional, .content = kFilledText, .width = 2},
};

constexpr std::array kGender = {AttributeRule{.name = "type", .values = kGenders}};
constexpr std::array kRole = {AttributeRule{.name = "role", .values = kPrincipal}};
constexpr std::array kIndividual = {
    ElementRule{.name = "individual-name", .content = kElements, .children = kName},
    ElementRule{
        .name = "employment", .occurs = kOptional, .content = kElements, .children = kEmployment},
    ElementRule{.name = "address",
                .occurs = kMany,
                .content = kElements,
                .attributes = kAddressAttributes,
                .children = kAddress},
    ElementRule{
        .name = "drivers-licence-number", .occurs = kOptional, .content = kFilledText, .width = 9},
    ElementRule{.name = "gender", .content = kNone, .attributes = kGender},
    ElementRule{.name = "date-of-birth", .occurs = kOptional, .content = kDate},
};

constexpr std::array kEnquiryAttributes = {AttributeRule{.name = "type", .values = kEnquiryTypes}};
constexpr std::array kEnquiry = {
    ElementRule{.name = "account-type", .content = kNone, .attributes = kCode},
    ElementRule{.name = "enquiry-amount", .content = kWholeNumber},
    ElementRule{.name = "client-reference", .width = 15},
};

constexpr std::array kProductAttributes = {
    AttributeRule{.name = "name"},
    AttributeRule{.name = "summary", .required = false, .values = kYes},
};
constexpr std::array kCreditEnquiry = {
    ElementRule{.name = "subscriber-details", .content = kElements, .children = kSubscriberDetails},
    ElementRule{.name = "product", .content = kNone, .attributes = kProductAttributes},
    ElementRule{
        .name = "bureau-reference", .occurs = kOptional, .content = kFilledText, .width = 10},
    ElementRule{.name = "individual",
                .occurs = kOptional,
                .content = kElements,
                .attributes = kRole,
                .children = kIndividual},
    ElementRule{.name = "enquiry",
                .content = kElements,
                .attributes = kEnquiryAttributes,
                .children = kEnquiry},
};

constexpr std::array kOrganisationAttributes = {
    AttributeRule{.name = "name", .values = kOrganisationProduct}};
constexpr std::array kSearchAttributes = {
    AttributeRule{.name = "search-type", .values = kSearchTypes}};
constexpr std::array kWorkingWith = {
    ElementRule{.name = "org-name", .occurs = kOptional, .content = kFilledText, .width = 72},
    ElementRule{
        .name = "organisation-number", .occurs = kOptional, .content = kFilledText, .width = 9},
    ElementRule{.name = "australian-business-number",
                .occurs = kOptional,
                .content = kFilledText,
                .width = 11},
    ElementRule{
        .name = "bureau-reference", .occurs = kOptional, .content = kFilledText, .width = 10},
};
constexpr std::array kOrganisationSearch = {
    ElementRule{.name = "subscriber-details", .content = kElements, .children = kSubscriberDetails},
    ElementRule{.name = "product", .content = kNone, .attributes = kOrganisationAttributes},
    ElementRule{.name = "working-with-organisation",
                .content = kElements,
                .attributes = kSearchAttributes,
                .children = kWorkingWith},
};

// The mode has been compared with the address by now.
constexpr std::array kCreditRequestAttributes = {
    AttributeRule{.name = "version", .values = kVersion1},
    AttributeRule{.name = "mode"},
    AttributeRule{.name = "transaction-reference", .width = 13},
};
constexpr std::array kOrganisationRequestAttributes = {
    AttributeRule{.name = "version", .values = kVersion2},
    AttributeRule{.name = "mode"},
    AttributeRule{.name = "transaction-reference", .width = 13},
};
constexpr std::array kPingAttributes = {AttributeRule{.name = "mode"}};

constexpr ElementRule kCreditRequest{.name = "request",
                                     .content = kElements,
                                     .attributes = kCreditRequestAttributes,
                                     .children = kCreditEnquiry};
constexpr ElementRule kOrganisationRequest{.name = "request",
                                           .content = kElements,
                                           .attributes = kOrganisationRequestAttributes,
                                           .children = kOrganisationSearch};
constexpr ElementRule kPing{.name = "request", .content = kNone, .attributes = kPingAttributes};

/// Rules that look at more than one element.
class CrossChecks {
  public:
    explicit CrossChecks(std::vector<Violation>& violations) : violations_(violations) {}

    void credit_enquiry(const Message& message) {
        const Element& request = message.request;
        if ((request.child("bureau-reference") != nullptr) ==
            (request.child("individual") != nullptr)) {
            add(request, "E601", "Either a bureau reference or an individual is required",
                "structure");
        }
        if (const Element* individual = request.child("individual")) {
            addresses(*individual);
        }
        if (const Element* product = request.child("product")) {
            enquiry_name(message, *product);
        }
    }

    void organisation_search(const Element& request) {
        const Element* organisation = request.child("working-with-organisation");
        if (organisation && organisation->children.size() != 1) {
            add(*organisation, "E602", "One name or number of the organisation is required",
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
        for (const Element& each : individual.children) {
            if (each.name != "address") {
                continue;
            }
            current += each.attribute("type") == "residential-current";
            const Element* street_type = each.child("street-type");
            const auto code = street_type ? street_type->attribute("code") : std::nullopt;
            const auto known = street_type_codes();
            if (code && !code->empty() &&
                std::find(known.begin(), known.end(), *code) == known.end()) {
                add(*street_type, "E402", "Street type code is not known", "value");
            }
        }
        if (current != 1) {
            add(individual, "E603", "One current residential address is required", "structure");
        }
    }

    void enquiry_name(const Message& message, const Element& product) {
        const auto name = product.attribute("name");
        const EnquiryRow* row = name ? find_enquiry(*name) : nullptr;
        if (!row) {
            if (name) {
                add(product, "E403", "Product name is not known", "value");
            }
            return;
        }
        if (row->service_code != message.service_code) {
            add(product, "E604",
                "Product '" + std::string(row->name) + "' needs service code " +
                    std::string(row->service_code),
                "structure");
        }
        if (const Element* enquiry = message.request.child("enquiry")) {
            enquiry_block(*row, *enquiry);
        }
    }

    void enquiry_block(const EnquiryRow& row, const Element& enquiry) {
        if (const auto type = enquiry.attribute("type"); type && *type != row.enquiry_type) {
            add(enquiry, "E605", "Enquiry type does not fit the product", "structure");
        }
        const Element* account_type = enquiry.child("account-type");
        const auto code = account_type ? account_type->attribute("code") : std::nullopt;
        if (code && std::none_of(row.account_types.begin(), row.account_types.end(),
                                 [&](const CodeRow& each) { return each.code == *code; })) {
            add(*account_type, "E404", "Account type code is not known for the product", "value");
        }
    }

    std::vector<Violation>& violations_;
};

}  // namespace

std::vector<Violation> check_credit_enquiry(const Message& message) {
    std::vector<Violation> violations = check(message.request, kCreditRequest);
    CrossChecks(violations).credit_enquiry(message);
    return violations;
}

std::vector<Violation> check_organisation_search(const Message& message) {
    std::vector<Violation> violations = check(message.request, kOrganisationRequest);
    CrossChecks(violations).organisation_search(message.request);
    return violations;
}

std::vector<Violation> check_ping(const Message& message) { return check(message.request, kPing); }

}  // namespace zr::gateway::australia
