#include "services/vedaxml_au/request_documents.h"

#include <string_view>
#include <type_traits>

#include "services/address_writing.h"
#include "services/message_writing.h"
#include "services/vedaxml_au/field_widths.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr {
namespace {

using australia::field;

/// What the product and its checked options make of the enquiry: the bureau's name for it and the
/// service code. The first row that fits counts; an option that the product does not offer fits
/// nothing.
constexpr struct {
    std::string_view product_id;
    std::string_view checked_option;  ///< "" fits always
    std::string_view name;
    std::string_view service_code;
} kEnquiries[] = {
    {"consumer-enquiry", "scorealr", "individual-consumer-plus-alr-scored-enquiry", "BCA003"},
    {"consumer-enquiry", "score", "individual-consumer-scored-enquiry", "BCA003"},
    {"consumer-enquiry", "", "consumer-enquiry", "BCA001"},
    {"consumer-plus-commercial-enquiry", "", "consumer-plus-commercial-enquiry", "BCA001"},
    {"commercial-enquiry", "score", "individual-commercial-scored-enquiry", "BCA003"},
    {"commercial-enquiry", "", "commercial-enquiry", "BCA001"},
    {"commercial-plus-consumer-enquiry", "score",
     "individual-commercial-plus-consumer-scored-enquiry", "BCA003"},
    {"commercial-plus-consumer-enquiry", "", "commercial-plus-consumer-enquiry", "BCA001"},
};
using Enquiry = std::remove_cvref_t<decltype(kEnquiries[0])>;

const Enquiry& enquiry_of(const Request& request, const Product& product) {
    for (const Enquiry& row : kEnquiries) {
        if (text::equal_ignoring_case(row.product_id, product.ProductId()) &&
            (row.checked_option.empty() || request.OptionChecked(row.checked_option))) {
            return row;
        }
    }
    throw PlatformError(error_number::kUnexpected,
                        "The product has no enquiry of the bureau.");  // the tables disagree
}

bool is_commercial(std::string_view product_id) {
    return text::equal_ignoring_case(product_id, "commercial-enquiry") ||
           text::equal_ignoring_case(product_id, "commercial-plus-consumer-enquiry");
}

/// The elements of an address in their order.
constexpr AddressField kAddressFields[] = {
    {field("unit-number"), &Request::UnitNumber, &Request::PrevUnitNumber, true},
    {field("street-number"), &Request::StreetNumber, &Request::PrevStreetNumber, false},
    {field("property"), &Request::PropertyName, &Request::PrevPropertyName, true},
    {field("street-name"), &Request::StreetName, &Request::PrevStreetName, false},
    {kStreetType, &Request::StreetType, &Request::PrevStreetType, false},
    {field("suburb"), &Request::Suburb, &Request::PrevSuburb, true},
    {field("city"), &Request::City, &Request::PrevCity, true},
    {field("state"), &Request::State, &Request::PrevState, true},
    {field("postcode"), &Request::Postcode, &Request::PrevPostCode, true},
    {field("country"), &Request::Country, &Request::PrevCountry, true},
};

constexpr BcaEnvelope kEnvelope{
    .client_reference = BcaEnvelope::ClientReference::kBeforeServiceCode,
    .transaction_reference_length = field("transaction-reference").width,
    .time_stamp = "yyyymmddhhnn"};

void write_subscriber(ZRXMLBuilder& builder, const AustralianSender& sender) {
    const XmlElement details(builder, "subscriber-details");
    builder.WriteTagWithText("subscriber-identifier", sender.subscriber_id);
    builder.WriteTagWithText("security", sender.subscriber_security_code);
}

void write_name(ZRXMLBuilder& builder, const Request& request) {
    const XmlElement name(builder, "individual-name");
    write_field(builder, field("family-name"), request.LastName());
    write_field(builder, field("first-given-name"), request.FirstName());
    write_field(builder, field("other-given-name"), first_word(request.MiddleNames()));
}

void write_employment(ZRXMLBuilder& builder, const Request& request) {
    if (request.Employer().empty() && request.Occupation().empty()) {
        return;
    }
    const XmlElement employment(builder, "employment");
    write_field(builder, field("employer"), request.Employer());
    if (!request.Occupation().empty()) {
        write_field(builder, field("occupation"), request.Occupation());
    }
}

void write_individual(ZRXMLBuilder& builder, const Request& request,
                      const CodeTableItems& street_types) {
    const XmlElement individual(builder, "individual");
    builder.WriteAttribute("role", "principal");
    write_name(builder, request);
    write_employment(builder, request);
    write_addresses(builder, request, "residential-current", "residential-previous", kAddressFields,
                    street_types);
    write_field(builder, field("drivers-licence-number"), request.DriverLicenceNumber(), true);
    write_attribute_element(builder, "gender", "type", text::lower(request.Gender()));
    builder.WriteTagWithDate("date-of-birth", request.DateOfBirth(), true);
}

void write_enquiry(ZRXMLBuilder& builder, const Request& request, const Product& product) {
    const XmlElement enquiry(builder, "enquiry");
    builder.WriteAttribute(
        "type", is_commercial(product.ProductId()) ? "credit-enquiry" : "credit-application");
    write_attribute_element(
        builder, "account-type", "code",
        product.CodeTables().Item("AccountTypes").GetCodeFromDescription(request.AccountType()));
    builder.WriteTagWithText("enquiry-amount", whole_amount(request.EnquiryAmount()));
    write_field(builder, field("client-reference"), request.EnquiryReference());
}

void write_product(ZRXMLBuilder& builder, std::string_view name, bool summary) {
    const XmlElement product(builder, "product");
    builder.WriteAttribute("name", name);
    if (summary) {
        builder.WriteAttribute("summary", "yes");
    }
}

/// The element that identifies an organisation follows from the length of the number alone.
void write_organisation(ZRXMLBuilder& builder, const Request& request) {
    const std::string& number = request.CompanyNumber();
    switch (text::length(number)) {
        case 0:
            write_field(builder, field("org-name"), request.CompanyName());
            return;
        case field("organisation-number").width:
            builder.WriteTagWithText("organisation-number", number);
            return;
        case field("australian-business-number").width:
            builder.WriteTagWithText("australian-business-number", number);
            return;
        default:
            write_field(builder, field("bureau-reference"), number);
    }
}

}  // namespace

std::string australian_credit_enquiry(const AustralianSender& sender, const Request& request,
                                      const Product& product, const CodeTableItems& street_types) {
    const Enquiry& enquiry = enquiry_of(request, product);
    return bca_message(sender.bca, kEnvelope, enquiry.service_code, [&](ZRXMLBuilder& builder) {
        write_request_attributes(builder, sender.bca, kEnvelope, request, "1.0");
        write_subscriber(builder, sender);
        if (!product.Individual()) {
            return;
        }
        write_product(builder, enquiry.name, request.OptionChecked("summary"));
        if (request.BureauFileId().empty()) {
            write_individual(builder, request, street_types);
        } else {
            write_field(builder, field("bureau-reference"), request.BureauFileId());
        }
        write_enquiry(builder, request, product);
    });
}

std::string australian_organisation_search(const AustralianSender& sender, const Request& request) {
    return bca_message(sender.bca, kEnvelope, "BCA020", [&](ZRXMLBuilder& builder) {
        write_request_attributes(builder, sender.bca, kEnvelope, request, "2.0");
        write_subscriber(builder, sender);
        write_product(builder, "organisation-identification", false);
        const XmlElement search(builder, "working-with-organisation");
        builder.WriteAttribute("search-type", "registered-companies-businesses");
        write_organisation(builder, request);
    });
}

std::string australian_ping(const AustralianSender& sender) {
    return bca_message(sender.bca, kEnvelope, "PING",
                       [&](ZRXMLBuilder& builder) { write_mode(builder, sender.bca); });
}

}  // namespace zr
