// The inside of a parsed document, and what fills it while a parser reports its markup.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "xml/xml_document.h"

namespace zr {

/// Whether a character of a document is no white space: a parser lets no other control characters
/// through. An object, so that an algorithm that takes it sees through the call.
inline constexpr auto is_ink = [](char c) { return static_cast<unsigned char>(c) > ' '; };

/// Elements in document order. Node 0 is the one above the document element; the last is a
/// sentinel, which bounds the attributes of the last element.
struct XmlTree {
    struct Node {
        std::uint32_t end;         ///< one past its last descendant, so its next sibling's index
        std::uint32_t text_begin;  ///< its text and that of its descendants, as one span of `pool`
        std::uint32_t text_end;
        std::uint32_t attributes;  ///< the first of its attributes, which end where the next begin
    };
    struct Attribute {
        std::uint32_t value_begin;
        std::uint32_t value_size;
        XmlNameId name;
    };

    /// The node's name, 0 for the first and for names that no path mentions; beside the nodes, so
    /// that a search through all elements reads little memory.
    std::vector<XmlNameId> names;
    std::vector<Node> nodes;
    std::vector<Attribute> attributes;
    /// Text from the front, attribute values from the back; neither can outgrow the source.
    std::unique_ptr<char[]> pool;
    std::string document_element;  ///< its name, without a prefix
    /// A bit for each name id that an element has.
    std::vector<std::uint64_t> present;
    XmlWatch* watch = nullptr;  ///< told what is read

    bool has_name(XmlNameId name) const {
        const std::size_t word = name / 64U;
        return word < present.size() && (present[word] >> (name % 64U) & 1U) != 0;
    }
    std::string_view value(const Attribute& attribute) const {
        return {pool.get() + attribute.value_begin, attribute.value_size};
    }
};

/// Builds a tree from markup events. White-space runs between tags, comments and instructions are
/// dropped as they are met.
class XmlTreeBuilder {
  public:
    /// `source_size` is the size of the whole text, which bounds what can follow.
    XmlTreeBuilder(std::size_t source_size, const XmlNames& names);

    void start_element(XmlNameId name) {
        end_run();
        open_.push_back(static_cast<std::uint32_t>(tree_->nodes.size()));
        tree_->present[name / 64U] |= std::uint64_t{1} << (name % 64U);
        add_node(name);
    }

    /// Tells the name of the element that is started next; only the first one's is kept.
    void name_document(const char* name) {
        if (tree_->nodes.size() == 1) tree_->document_element = name;
    }

    /// An attribute of the element started last. One with id 0 is nothing.
    void attribute(XmlNameId name, std::string_view value);

    void end_element() {
        end_run();
        close(open_.back());
        open_.pop_back();
    }

    void text(std::string_view chars) {
        if (chars.size() > values_begin_ - text_end_) return;  // cannot be: see XmlTree::pool
        std::memcpy(tree_->pool.get() + text_end_, chars.data(), chars.size());
        text_end_ += static_cast<std::uint32_t>(chars.size());
        run_has_ink_ = run_has_ink_ || std::any_of(chars.begin(), chars.end(), is_ink);
    }

    /// A comment or an instruction: ends a run of text.
    void other_markup() { end_run(); }

    /// The tree; the builder is spent.
    std::unique_ptr<const XmlTree> finish();

  private:
    void end_run() {
        if (!run_has_ink_) text_end_ = run_begin_;
        run_begin_ = text_end_;
        run_has_ink_ = false;
    }
    void add_node(XmlNameId name) {
        tree_->names.push_back(name);
        tree_->nodes.push_back(
            {0, text_end_, 0, static_cast<std::uint32_t>(tree_->attributes.size())});
    }
    void close(std::uint32_t index) {
        XmlTree::Node& node = tree_->nodes[index];
        node.end = static_cast<std::uint32_t>(tree_->nodes.size());
        node.text_end = text_end_;
    }

    std::unique_ptr<XmlTree> tree_;
    std::vector<std::uint32_t> open_;
    std::uint32_t text_end_ = 0;
    std::uint32_t values_begin_;
    std::uint32_t run_begin_ = 0;
    bool run_has_ink_ = false;
};

}  // namespace zr
