// Tells what the parser reports of a text.
#include "platform/xml_parser.h"

#include <libxml/parser.h>

#include <cstddef>
#include <new>

#include "platform/libraries/xml_reader.h"

namespace zr {

namespace {

const char* chars_of(const xmlChar* begin) { return reinterpret_cast<const char*>(begin); }

XmlEvents& events(void* context) { return *static_cast<XmlEvents*>(XmlReader::of(context).target); }

// An attribute as the parser reports it: five pointers.
enum AttributeField { kLocalName, kPrefix, kNamespace, kValueBegin, kValueEnd, kFieldCount };

void start_element(void* context, const xmlChar* name, const xmlChar*, const xmlChar* uri,
                   int namespace_count, const xmlChar** namespaces, int attribute_count,
                   int defaulted_count, const xmlChar** attributes) {
    XmlReader& reader = XmlReader::of(context);
    if (!reader.admit_element(namespace_count, namespaces)) return;
    reader.run([&] {
        XmlEvents& into = *static_cast<XmlEvents*>(reader.target);
        into.start_element(chars_of(name), uri != nullptr);
        const xmlChar** const end =
            attributes + std::ptrdiff_t{kFieldCount} * (attribute_count - defaulted_count);
        for (const xmlChar** at = attributes; at != end; at += kFieldCount) {
            const xmlChar* written = at[kLocalName];
            if (at[kPrefix] != nullptr) {
                written = xmlDictQLookup(reader.context()->dict, at[kPrefix], written);
                if (written == nullptr) throw std::bad_alloc();
            }
            into.attribute(chars_of(written),
                           {chars_of(at[kValueBegin]),
                            static_cast<std::size_t>(at[kValueEnd] - at[kValueBegin])});
        }
    });
}

void end_element(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    events(context).end_element();
}

void characters(void* context, const xmlChar* chars, int size) {
    events(context).text({chars_of(chars), static_cast<std::size_t>(size)});
}

void comment(void* context, const xmlChar*) { events(context).other_markup(); }

void instruction(void* context, const xmlChar*, const xmlChar*) {
    XmlReader::of(context).admit_name();
    events(context).other_markup();
}

xmlSAXHandler handlers() {
    xmlSAXHandler result{};
    result.startElementNs = start_element;
    result.endElementNs = end_element;
    result.characters = characters;
    result.ignorableWhitespace = characters;  // told apart by the builder
    result.cdataBlock = characters;
    result.comment = comment;
    result.processingInstruction = instruction;
    return result;
}

}  // namespace

std::optional<XmlParseError> parse_xml(std::string_view text, const XmlLimits& limits,
                                       XmlEvents& events) {
    XmlReader reader(text, XmlReader::Source::kText, limits);
    reader.target = &events;
    reader.set_handlers(handlers());
    return reader.parse();
}

}  // namespace zr
