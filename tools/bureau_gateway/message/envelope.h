// The BCAmessage envelope, the same for every country: taking a request apart and wrapping replies.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "bureau_gateway/message/schema.h"
#include "bureau_gateway/message/xml_reader.h"
#include "bureau_gateway/message/xml_writer.h"

namespace zr::gateway {

/// A row of the refusals: type, code and description of a BCAerror.
struct RefusalRow {
    std::string_view type;
    std::string_view code;
    std::string_view description;
};

/// A refusal of the whole message.
struct Refusal {
    Refusal(const RefusalRow& of) : row(of), description(of.description) {}
    Refusal(const RefusalRow& of, std::string text) : row(of), description(std::move(text)) {}

    RefusalRow row;
    std::string description;
};

namespace refusals {
inline constexpr RefusalRow kNotXml{"message", "M001", "The message is not well-formed"};
inline constexpr RefusalRow kNotRequest{"message", "M002", "The message is not a request"};
inline constexpr RefusalRow kNoRequest{"message", "M003", "The message holds no request"};
inline constexpr RefusalRow kEnvelope{"message", "M004", "The message envelope is not in order"};
inline constexpr RefusalRow kAccessDenied{"security", "S001", "Access denied"};
inline constexpr RefusalRow kUnknownService{"service", "V001", "The service code is not known"};
inline constexpr RefusalRow kUnknownVersion{"service", "V002",
                                            "The service code version is not supported"};
inline constexpr RefusalRow kWrongMode{"service", "V003", "The mode does not fit the address"};
inline constexpr RefusalRow kRefused{"service", "V009",
                                     "The service is not available to this subscriber"};
inline constexpr RefusalRow kUnknownFault{"service", "V010", "The fault is not known"};
}  // namespace refusals

/// Where a country's envelope has its BCAservice-client-ref: before or behind code and version.
enum class ReferencePlace { kFirst, kLast };

/// What is a country's own in the envelope of its requests.
struct EnvelopeForm {
    ReferencePlace reference;
    std::string_view bare_service;  ///< code of the service that is asked without a request
};

/// Whether complaints tell what type they are of and where, or only what is wrong.
enum class ErrorForm { kLocated, kDescribed };

/// A request whose envelope is in order.
struct Message {
    std::string access_code;
    std::string access_password;
    std::string client_reference;
    std::string service_code;
    std::string service_version;
    Element request;  ///< without a name when there is none, as a country's test may be
};

/// Takes a request's text apart, or says why the bureau refuses it unread.
std::variant<Message, Refusal> read_message(std::string_view text, const EnvelopeForm& form);

/// A reply document: `body` writes what is inside BCAservice-data.
template <class Body>
std::string write_reply(std::string_view service_code, std::string_view request_id, Body body) {
    XmlWriter xml;
    xml.open("BCAmessage");
    xml.attribute("type", "RESPONSE");
    xml.attribute("service-request-id", request_id);
    xml.open("BCAservices");
    xml.open("BCAservice");
    xml.leaf("BCAservice-code", service_code);
    xml.open("BCAservice-data");
    body(xml);
    for (int i = 0; i < 4; ++i) {
        xml.close();
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + xml.take() + "\n";
}

void write_refusal(XmlWriter& xml, const Refusal& refusal);

/// A response that holds nothing but the complaints.
void write_violations(XmlWriter& xml, const std::vector<Violation>& violations, ErrorForm form);

}  // namespace zr::gateway
