#include "bureau_gateway/message/xml_reader.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <memory>

#include "bureau_gateway/ascii.h"

namespace zr::gateway {
namespace {

struct DocumentFreer {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};
struct TextFreer {
    void operator()(xmlChar* text) const { xmlFree(text); }
};

std::string to_string(const xmlChar* text) {
    return text ? reinterpret_cast<const char*>(text) : std::string();
}

Element copy(xmlNode* node, int& position) {
    Element element;
    element.name = to_string(node->name);
    element.position = position++;
    for (xmlAttr* each = node->properties; each; each = each->next) {
        const std::unique_ptr<xmlChar, TextFreer> value(
            xmlNodeListGetString(node->doc, each->children, 1));
        element.attributes.emplace_back(to_string(each->name), to_string(value.get()));
    }
    for (xmlNode* each = node->children; each; each = each->next) {
        if (each->type == XML_ELEMENT_NODE) {
            element.children.push_back(copy(each, position));
        } else if (each->type == XML_TEXT_NODE || each->type == XML_CDATA_SECTION_NODE) {
            element.text += to_string(each->content);
        }
    }
    element.text = std::string(trim(element.text));
    return element;
}

}  // namespace

const Element* Element::child(std::string_view wanted) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const Element& each) { return each.name == wanted; });
    return found == children.end() ? nullptr : &*found;
}

std::string_view Element::child_text(std::string_view wanted) const {
    const Element* found = child(wanted);
    return found ? std::string_view(found->text) : std::string_view();
}

std::optional<std::string_view> Element::attribute(std::string_view wanted) const {
    for (const auto& [each, value] : attributes) {
        if (each == wanted) {
            return value;
        }
    }
    return std::nullopt;
}

std::optional<Element> read_xml(std::string_view text) {
    constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    const std::unique_ptr<xmlDoc, DocumentFreer> document(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, kOptions));
    if (!document || document->intSubset || !xmlDocGetRootElement(document.get())) {
        return std::nullopt;
    }
    int position = 0;
    return copy(xmlDocGetRootElement(document.get()), position);
}

}  // namespace zr::gateway
