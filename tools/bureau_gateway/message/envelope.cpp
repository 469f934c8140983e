#include "bureau_gateway/message/envelope.h"

#include <array>
#include <utility>

namespace zr::gateway {

namespace {

constexpr std::array<std::string_view, 1> kRequest = {"REQUEST"};
constexpr std::array kMessageAttributes = {AttributeRule{"type", true, 0, kRequest}};
constexpr std::array kAccess = {
    ElementRule{.name = "BCAaccess-code"},
    ElementRule{.name = "BCAaccess-pwd"},
};
// The data is the service's own affair; only its one element is looked for here.
constexpr ElementRule kReference{.name = "BCAservice-client-ref", .width = 16};
constexpr ElementRule kCode{.name = "BCAservice-code"};
constexpr ElementRule kVersion{.name = "BCAservice-code-version"};
constexpr ElementRule kData{.name = "BCAservice-data", .content = Content::kElements};
constexpr std::array kReferenceFirst = {kReference, kCode, kVersion, kData};
constexpr std::array kReferenceLast = {kCode, kVersion, kReference, kData};

constexpr auto message_rules(std::span<const ElementRule> service) {
    return std::array{
        ElementRule{.name = "BCAaccess", .content = Content::kElements, .children = kAccess},
        ElementRule{.name = "BCAservice", .content = Content::kElements, .children = service},
    };
}
constexpr auto kMessageReferenceFirst = message_rules(kReferenceFirst);
constexpr auto kMessageReferenceLast = message_rules(kReferenceLast);

constexpr ElementRule envelope_rule(ReferencePlace reference) {
    return {.name = "BCAmessage",
            .content = Content::kElements,
            .attributes = kMessageAttributes,
            .children = reference == ReferencePlace::kFirst ? kMessageReferenceFirst
                                                            : kMessageReferenceLast};
}

/// Takes the request element out, so that the rules of the envelope need not know it.
std::variant<Element, Refusal> detach_request(Element& envelope, const EnvelopeForm& form) {
    for (Element& service : envelope.children) {
        for (Element& data : service.children) {
            if (service.name != "BCAservice" || data.name != "BCAservice-data") {
                continue;
            }
            if (data.children.empty() && !form.bare_service.empty() &&
                service.child_text("BCAservice-code") == form.bare_service) {
                return Element{};
            }
            if (data.children.size() != 1 || data.children.front().name != "request") {
                break;
            }
            Element request = std::move(data.children.front());
            data.children.clear();
            return request;
        }
    }
    return refusals::kNoRequest;
}

}  // namespace

std::variant<Message, Refusal> read_message(std::string_view text, const EnvelopeForm& form) {
    std::optional<Element> envelope = read_xml(text);
    const ElementRule rule = envelope_rule(form.reference);
    if (!envelope) {
        return refusals::kNotXml;
    }
    if (envelope->name != rule.name || envelope->attribute("type") != "REQUEST") {
        return refusals::kNotRequest;
    }
    auto request = detach_request(*envelope, form);
    if (auto* refusal = std::get_if<Refusal>(&request)) {
        return *refusal;
    }
    const auto violations = check(*envelope, rule);
    if (!violations.empty()) {
        return Refusal(refusals::kEnvelope, violations.front().description);
    }
    const Element& access = *envelope->child("BCAaccess");
    const Element& service = *envelope->child("BCAservice");
    return Message{std::string(access.child_text("BCAaccess-code")),
                   std::string(access.child_text("BCAaccess-pwd")),
                   std::string(service.child_text("BCAservice-client-ref")),
                   std::string(service.child_text("BCAservice-code")),
                   std::string(service.child_text("BCAservice-code-version")),
                   std::get<Element>(std::move(request))};
}

void write_refusal(XmlWriter& xml, const Refusal& refusal) {
    const XmlScope error(xml, "BCAerror");
    xml.attribute("type", refusal.row.type);
    xml.leaf("BCAerror-code", refusal.row.code);
    xml.leaf("BCAerror-description", refusal.description);
}

void write_violations(XmlWriter& xml, const std::vector<Violation>& violations, ErrorForm form) {
    const XmlScope response(xml, "response");
    for (const Violation& each : violations) {
        const XmlScope error(xml, "error");
        xml.open("error-description");
        xml.attribute("code", each.code);
        xml.text(each.description);
        xml.close();
        if (form == ErrorForm::kLocated) {
            xml.leaf("error-type", each.type);
            xml.leaf("input-container", each.container);
        }
    }
}

}  // namespace zr::gateway
