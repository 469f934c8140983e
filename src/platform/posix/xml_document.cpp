// Parses a document into a tree.
#include "platform/xml_document.h"

#include <libxml/parser.h>

#include <array>
#include <cstdint>
#include <new>
#include <utility>

#include "platform/posix/xml_reader.h"
#include "platform/xml_tree.h"

namespace zr {

namespace {

std::string_view view(const xmlChar* begin) { return reinterpret_cast<const char*>(begin); }

// Ids by the address of a name in the parser's dictionary, where equal names have equal addresses.
class NameCache {
  public:
    explicit NameCache(const XmlNames& names) : names_(names) {}

    XmlNameId id(const xmlChar* name) {
        const std::uint64_t spread = reinterpret_cast<std::uintptr_t>(name) * 0x9E3779B97F4A7C15ULL;
        const std::size_t home = spread >> (64 - kBits);
        for (std::size_t probe = home; probe < home + kProbes; ++probe) {
            Entry& entry = entries_[probe % kSize];
            if (entry.name == name) return entry.id;
            if (entry.name == nullptr) return fill(entry, name);
        }
        return fill(entries_[home], name);
    }

  private:
    static constexpr unsigned kBits = 9;
    static constexpr std::size_t kSize = std::size_t{1} << kBits;
    static constexpr std::size_t kProbes = 4;
    struct Entry {
        const xmlChar* name = nullptr;
        XmlNameId id = 0;
    };

    XmlNameId fill(Entry& entry, const xmlChar* name) {
        entry = {name, names_.find(view(name))};
        return entry.id;
    }

    const XmlNames& names_;
    std::array<Entry, kSize> entries_{};
};

struct Target {
    XmlTreeBuilder builder;
    NameCache names;
};

Target& target(void* context) { return *static_cast<Target*>(XmlReader::of(context).target); }

// An attribute as the parser reports it: five pointers.
enum AttributeField { kLocalName, kPrefix, kNamespace, kValueBegin, kValueEnd, kFieldCount };

void start_element(void* context, const xmlChar* name, const xmlChar*, const xmlChar* uri,
                   int namespace_count, const xmlChar** namespaces, int attribute_count,
                   int defaulted_count, const xmlChar** attributes) {
    XmlReader& reader = XmlReader::of(context);
    if (!reader.admit_element(namespace_count, namespaces)) return;
    reader.run([&] {
        Target& into = *static_cast<Target*>(reader.target);
        into.builder.name_document(view(name));
        into.builder.start_element(uri == nullptr ? into.names.id(name) : XmlNameId{0});
        const xmlChar** const end =
            attributes + std::ptrdiff_t{kFieldCount} * (attribute_count - defaulted_count);
        for (const xmlChar** at = attributes; at != end; at += kFieldCount) {
            const xmlChar* written = at[kLocalName];
            if (at[kPrefix] != nullptr) {
                written = xmlDictQLookup(reader.context()->dict, at[kPrefix], written);
                if (written == nullptr) throw std::bad_alloc();
            }
            into.builder.attribute(into.names.id(written),
                                   {reinterpret_cast<const char*>(at[kValueBegin]),
                                    static_cast<std::size_t>(at[kValueEnd] - at[kValueBegin])});
        }
    });
}

void end_element(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    target(context).builder.end_element();
}

void characters(void* context, const xmlChar* chars, int size) {
    target(context).builder.text(
        {reinterpret_cast<const char*>(chars), static_cast<std::size_t>(size)});
}

void comment(void* context, const xmlChar*) { target(context).builder.other_markup(); }

void instruction(void* context, const xmlChar*, const xmlChar*) {
    XmlReader::of(context).admit_name();
    target(context).builder.other_markup();
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

std::variant<XmlDocument, XmlParseError> XmlDocument::parse(std::string_view text,
                                                            const XmlNames& names,
                                                            const XmlLimits& limits) {
    XmlReader reader(text, XmlReader::Source::kText, limits);
    if (text.size() > limits.bytes) return *reader.parse();  // nothing is set aside for it
    Target into{XmlTreeBuilder(text.size(), names), NameCache(names)};
    reader.target = &into;
    reader.set_handlers(handlers());
    if (auto error = reader.parse()) return *std::move(error);
    return XmlDocument(into.builder.finish());
}

}  // namespace zr
