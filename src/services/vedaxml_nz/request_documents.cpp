#include "services/vedaxml_nz/request_documents.h"

#include "services/address_writing.h"
#include "services/message_writing.h"
#include "services/vedaxml_nz/field_widths.h"
#include "values/convert.h"
#include "values/digits.h"
#include "values/text.h"

namespace zr {
namespace {

using new_zealand::field;

constexpr std::string_view kIndividual = "enquiry_individual";

constexpr BcaEnvelope kEnvelope{
    .client_reference = BcaEnvelope::ClientReference::kAfterVersion,
    .transaction_reference_length = field("transaction-reference").width,
    .time_stamp = "yyyy-mm-ddThh:nn:ss"};

bool asks_for_licence(const Request& request) {
    return request.OptionChecked("driver-licence") || request.OptionChecked("licencecheck");
}

/// What an enquiry about a person must have, in the order of checking.
constexpr struct {
    bool (*missing)(const Request& request);
    std::string_view message;
} kIndividualChecks[] = {
    {[](const Request& request) { return request.StreetName().empty(); },
     "Street Name must be supplied."},
    {[](const Request& request) { return request.Suburb().empty() && request.City().empty(); },
     "Suburb or City must be supplied."},
    {[](const Request& request) {
         return request.OptionChecked("ewp") && request.PhoneNumber().empty();
     },
     "Electronic White Pages verification requires a Phone Number to be supplied."},
    {[](const Request& request) {
         return asks_for_licence(request) && request.DriverLicenceNumber().empty();
     },
     "Driver's Licence verification requires a Driver's Licence Number to be supplied."},
    {[](const Request& request) {
         return asks_for_licence(request) && !held_date(request.DateOfBirth());
     },
     "Driver's Licence verification requires a Date of Birth to be supplied."},
    {[](const Request& request) {
         return request.OptionChecked("driver-licence") && request.EnquiryReference().empty();
     },
     "Driver's Licence verification requires an Enquiry Reference to be supplied."},
};

/// The options that are attributes of an individual enquiry's product, in the bureau's order.
constexpr std::string_view kOptionAttributes[] = {
    "score", "ewp", "driver-licence", "property-ownership", "summary", "licencecheck", "moj-fines"};

/// The unit joined to the street number; a result that is too long for the bureau loses the unit.
std::string joined_street_number(const std::string& unit, const std::string& number,
                                 std::string_view separator) {
    std::string joined;
    if (convert::is_number(unit)) {
        joined.append(unit).append("/").append(number);
    } else if (!unit.empty()) {
        joined.append(number)
            .append(digits::is_digit(unit.front()) ? "/" : separator)
            .append(text::trim(unit));
    }
    constexpr std::size_t kWidth = field("street-number").width;
    const bool fits = !unit.empty() && text::length(joined) <= kWidth;
    return fits ? joined : std::string(text::cut(number, kWidth));
}

std::string street_number(const Request& request, RequestAddress which) {
    return which == RequestAddress::kCurrent
               ? joined_street_number(request.UnitNumber(), request.StreetNumber(), "")
               : joined_street_number(request.PrevUnitNumber(), request.PrevStreetNumber(), " ");
}

/// The elements of an address in their order.
constexpr AddressField kAddressFields[] = {
    {field("street-number"), nullptr, nullptr, false, street_number},
    {field("street-name"), &Request::StreetName, &Request::PrevStreetName, false},
    {kStreetType, &Request::StreetType, &Request::PrevStreetType, false},
    {field("suburb"), &Request::Suburb, &Request::PrevSuburb, true},
    {field("city"), &Request::City, &Request::PrevCity, true},
};

void write_name(ZRXMLBuilder& builder, const Request& request) {
    const XmlElement name(builder, "individual-name");
    write_field(builder, field("family-name"), request.LastName());
    write_field(builder, field("first-given-name"), first_word(request.FirstName()));
    write_field(builder, field("other-given-name"), first_word(request.MiddleNames()));
}

void write_employment(ZRXMLBuilder& builder, const Request& request) {
    if (request.Employer().empty() && request.Occupation().empty()) {
        return;
    }
    const XmlElement employment(builder, "employment");
    write_field(builder, field("employer"), request.Employer());
    write_field(builder, field("occupation"), request.Occupation());
}

/// The text at a fixed width: filled with zeros from the left, or its last characters.
std::string zero_filled(std::string_view text, std::size_t width) {
    const std::string filled = std::string(width, '0').append(text);
    return filled.substr(text::first(filled, text::length(filled) - width).size());
}

void write_phone(ZRXMLBuilder& builder, const Request& request) {
    if (request.PhoneNumber().empty()) {
        return;
    }
    const XmlElement details(builder, "phone-details");
    builder.WriteTagWithText("phone-area-code",
                             zero_filled(request.PhoneAreaCode(), field("phone-area-code").width));
    builder.WriteTagWithText("phone-number",
                             zero_filled(text::replace_all(request.PhoneNumber(), " ", ""),
                                         field("phone-number").width));
}

/// The licence field holds the number and, behind a blank, perhaps its version.
void write_licence(ZRXMLBuilder& builder, const Request& request) {
    if (request.DriverLicenceNumber().empty()) {
        return;
    }
    const std::string_view licence = text::trim(request.DriverLicenceNumber());
    const std::size_t blank = licence.find(' ');
    const XmlElement details(builder, "driver-licence-details");
    builder.WriteTagWithText("licence-number", licence.substr(0, blank));
    if (blank != std::string_view::npos) {
        builder.WriteTagWithText("licence-version-number", text::trim(licence.substr(blank)));
    }
}

void write_individual(ZRXMLBuilder& builder, const Request& request,
                      const CodeTableItems& street_types) {
    const XmlElement individual(builder, "individual");
    write_name(builder, request);
    write_attribute_element(builder, "gender", "type", text::lower(request.Gender()));
    builder.WriteTagWithDate("date-of-birth", request.DateOfBirth(), true);
    write_addresses(builder, request, "current", "previous", kAddressFields, street_types);
    write_employment(builder, request);
    write_phone(builder, request);
    write_licence(builder, request);
}

void write_enquiry(ZRXMLBuilder& builder, const Request& request, const Product& product) {
    const XmlElement enquiry(builder, "enquiry");
    builder.WriteAttribute("consent", "yes");
    write_attribute_element(
        builder, "account-type", "code",
        product.CodeTables().Item("AccountTypes").GetCodeFromDescription(request.AccountType()));
    builder.WriteTagWithText("enquiry-amount", whole_amount(request.EnquiryAmount()));
    write_field(builder, field("client-reference"), request.EnquiryReference());
}

void write_individual_body(ZRXMLBuilder& builder, const Request& request, const Product& product,
                           const CodeTableItems& street_types) {
    {
        const XmlElement element(builder, "product");
        builder.WriteAttribute("name", "consumer-enquiry-nz");
        for (const std::string_view option : kOptionAttributes) {
            builder.WriteAttribute(option, request.OptionChecked(option) ? "yes" : "", true);
        }
    }
    write_individual(builder, request, street_types);
    write_enquiry(builder, request, product);
}

void write_company_body(ZRXMLBuilder& builder, const Request& request, std::string_view name,
                        bool consent) {
    {
        const XmlElement element(builder, "product");
        builder.WriteAttribute("name", name);
        builder.WriteAttribute("consent", consent ? "yes" : "", true);
        builder.WriteAttribute("summary", "yes");
    }
    write_field(builder, field("registration-number"), request.CompanyNumber());
}

void write_request_head(ZRXMLBuilder& builder, const NewZealandSender& sender,
                        const Request& request, const Product& product) {
    write_request_attributes(builder, sender.bca, kEnvelope, request, "V2.0");
    if (product.ProductOptions().Exists("Purpose")) {
        write_attribute_element(
            builder, "access-purpose", "code",
            product.CodeTables().Item("Purposes").GetCodeFromDescription(request.Purpose()));
    }
    const XmlElement details(builder, "client-details");
    builder.WriteTagWithText("client-identifier", sender.client_id);
    builder.WriteTagWithText("operator-id", sender.operator_id);
}

/// The envelope with the bureau's head around what `write_body` writes.
template <class WriteBody>
std::string message(const NewZealandSender& sender, const Request& request, const Product& product,
                    WriteBody write_body) {
    return bca_message(sender.bca, kEnvelope, "BCA011", [&](ZRXMLBuilder& builder) {
        write_request_head(builder, sender, request, product);
        write_body(builder);
    });
}

}  // namespace

std::string_view new_zealand_enquiry_fault(const Request& request) {
    if (request.ProductId() == kIndividual) {
        for (const auto& check : kIndividualChecks) {
            if (check.missing(request)) {
                return check.message;
            }
        }
    }
    return {};
}

std::string new_zealand_credit_enquiry(const NewZealandSender& sender, const Request& request,
                                       const Product& product, const CodeTableItems& street_types) {
    return message(sender, request, product, [&](ZRXMLBuilder& builder) {
        if (request.ProductId() == kIndividual) {
            write_individual_body(builder, request, product, street_types);
        } else if (request.ProductId() == "enquiry_company") {
            write_company_body(builder, request, "company-enquiry", false);
        } else if (request.ProductId() == "enquiry_company_with_directors") {
            write_company_body(builder, request, "company-plus-enquiry-with-director-checks", true);
        }
    });
}

std::string new_zealand_company_search(const NewZealandSender& sender, const Request& request,
                                       const Product& product) {
    return message(sender, request, product, [&](ZRXMLBuilder& builder) {
        write_attribute_element(builder, "product", "name", "company-selection-list");
        if (request.CompanyNumber().empty()) {
            write_field(builder, field("company-name"), request.CompanyName());
        } else {
            write_field(builder, field("registration-number"), request.CompanyNumber());
        }
    });
}

std::string new_zealand_ping(const NewZealandSender& sender) {
    return bca_message(sender.bca, kEnvelope, "PING", nullptr);
}

}  // namespace zr
