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
constexpr std::array kService = {
    ElementRule{.name = "BCAservice-client-ref", .width = 16},
    ElementRule{.name = "BCAservice-code"},
    ElementRule{.name = "BCAservice-code-version"},
    ElementRule{.name = "BCAservice-data", .content = Content::kElements},
};
constexpr std::array kMessage = {
    ElementRule{.name = "BCAaccess", .content = Content::kElements, .children = kAccess},
    ElementRule{.name = "BCAservice", .content = Content::kElements, .children = kService},
};
constexpr ElementRule kEnvelope{.name = "BCAmessage",
                                .content = Content::kElements,
                                .attributes = kMessageAttributes,
                                .children = kMessage};

/// Takes the request element out, so that the rules of the envelope need not know it.
std::variant<Element, Refusal> detach_request(Element& envelope) {
    for (Element& service : envelope.children) {
        for (Element& data : service.children) {
            if (service.name != "BCAservice" || data.name != "BCAservice-data") {
                continue;
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

std::variant<Message, Refusal> read_message(std::string_view text) {
    std::optional<Element> envelope = read_xml(text);
    if (!envelope) {
        return refusals::kNotXml;
    }
    if (envelope->name != kEnvelope.name || envelope->attribute("type") != "REQUEST") {
        return refusals::kNotRequest;
    }
    auto request = detach_request(*envelope);
    if (auto* refusal = std::get_if<Refusal>(&request)) {
        return *refusal;
    }
    const auto violations = check(*envelope, kEnvelope);
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

void write_violations(XmlWriter& xml, const std::vector<Violation>& violations) {
    const XmlScope response(xml, "response");
    for (const Violation& each : violations) {
        const XmlScope error(xml, "error");
        xml.open("error-description");
        xml.attribute("code", each.code);
        xml.text(each.description);
        xml.close();
        xml.leaf("error-type", each.type);
        xml.leaf("input-container", each.container);
    }
}

}  // namespace zr::gateway
