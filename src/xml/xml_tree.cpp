#include "xml/xml_tree.h"

#include <utility>

namespace zr {

namespace {
// Typical replies have an element to every 35 bytes and an attribute to every 150; what is reserved
// and not used is never touched, so that it costs no memory.
constexpr std::size_t kBytesPerElement = 32;
constexpr std::size_t kBytesPerAttribute = 96;
constexpr std::size_t kTypicalDepth = 32;
}  // namespace

XmlTreeBuilder::XmlTreeBuilder(std::size_t source_size, const XmlNames& names)
    : tree_(std::make_unique<XmlTree>()), values_begin_(static_cast<std::uint32_t>(source_size)) {
    tree_->names.reserve(source_size / kBytesPerElement + 2);
    tree_->nodes.reserve(source_size / kBytesPerElement + 2);
    tree_->attributes.reserve(source_size / kBytesPerAttribute + 1);
    tree_->pool = std::make_unique_for_overwrite<char[]>(source_size);
    tree_->present.resize(names.size() / 64 + 1);
    tree_->watch = names.watch();
    open_.reserve(kTypicalDepth);
    add_node(0);
}

void XmlTreeBuilder::attribute(XmlNameId name, std::string_view value) {
    if (name == 0 || value.size() > values_begin_ - text_end_) return;
    values_begin_ -= static_cast<std::uint32_t>(value.size());
    std::memcpy(tree_->pool.get() + values_begin_, value.data(), value.size());
    tree_->attributes.push_back({values_begin_, static_cast<std::uint32_t>(value.size()), name});
}

std::unique_ptr<const XmlTree> XmlTreeBuilder::finish() {
    end_run();
    close(0);
    add_node(0);
    return std::move(tree_);
}

}  // namespace zr
