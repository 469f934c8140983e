#include <functional>
#include <limits>
#include <stdexcept>
#include <unordered_map>

#include "xml/xml_document.h"

namespace zr {

namespace {
struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
        return std::hash<std::string_view>{}(name);
    }
};
}  // namespace

struct XmlNames::Table {
    std::unordered_map<std::string, XmlNameId, NameHash, std::equal_to<>> ids;
};

XmlNames::XmlNames(XmlWatch* watch) : table_(std::make_unique<Table>()), watch_(watch) {}
XmlNames::~XmlNames() = default;
XmlNames::XmlNames(XmlNames&&) noexcept = default;
XmlNames& XmlNames::operator=(XmlNames&&) noexcept = default;

XmlNameId XmlNames::add(std::string_view name) {
    if (const XmlNameId known = find(name); known != 0) return known;
    if (size() > std::numeric_limits<XmlNameId>::max()) throw std::length_error("too many names");
    const auto id = static_cast<XmlNameId>(size());
    table_->ids.emplace(name, id);
    return id;
}

XmlNameId XmlNames::find(std::string_view name) const {
    const auto found = table_->ids.find(name);
    return found == table_->ids.end() ? XmlNameId{0} : found->second;
}

std::size_t XmlNames::size() const { return table_->ids.size() + 1; }

}  // namespace zr
