// Parses a document into a tree.
#include <array>
#include <cstdint>
#include <utility>

#include "platform/xml_parser.h"
#include "xml/xml_document.h"
#include "xml/xml_tree.h"

namespace zr {

namespace {

// Ids by the address of a name in the parser's dictionary, where equal names have equal addresses.
class NameCache {
  public:
    explicit NameCache(const XmlNames& names) : names_(names) {}

    XmlNameId id(const char* name) {
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
        const char* name = nullptr;
        XmlNameId id = 0;
    };

    XmlNameId fill(Entry& entry, const char* name) {
        entry = {name, names_.find(name)};
        return entry.id;
    }

    const XmlNames& names_;
    std::array<Entry, kSize> entries_{};
};

/// Fills a tree with what the parser tells.
class Building final : public XmlEvents {
  public:
    Building(std::size_t source_size, const XmlNames& names)
        : builder_(source_size, names), names_(names) {}

    void start_element(const char* name, bool in_namespace) override {
        builder_.name_document(name);
        builder_.start_element(in_namespace ? XmlNameId{0} : names_.id(name));
    }
    void attribute(const char* name, std::string_view value) override {
        builder_.attribute(names_.id(name), value);
    }
    void end_element() override { builder_.end_element(); }
    void text(std::string_view chars) override { builder_.text(chars); }
    void other_markup() override { builder_.other_markup(); }

    std::unique_ptr<const XmlTree> finish() { return builder_.finish(); }

  private:
    XmlTreeBuilder builder_;
    NameCache names_;
};

}  // namespace

std::variant<XmlDocument, XmlParseError> XmlDocument::parse(std::string_view text,
                                                            const XmlNames& names,
                                                            const XmlLimits& limits) {
    // Nothing is set aside for a text that is too large to be read.
    Building building(text.size() > limits.bytes ? 0 : text.size(), names);
    if (auto error = parse_xml(text, limits, building)) return *std::move(error);
    return XmlDocument(building.finish());
}

}  // namespace zr
