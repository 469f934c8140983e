// Where the elements of a reply stand in its text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zr {

/// A line and a column of a text, 1-based; columns are bytes.
struct TextPosition {
    std::size_t line = 0;
    std::size_t column = 0;
};

/// The elements of a well-formed document in their order, which are the nodes of its tree: the
/// first, with index 0, stands above the document element. The text outlives the map.
class SourceMap {
  public:
    struct Attribute {
        std::string_view name;  ///< as written
        bool filled = false;
    };
    struct Element {
        std::string_view name{};  ///< as written
        std::uint32_t parent = 0;
        std::uint32_t attributes = 0;  ///< the first of its attributes
        bool has_text = false;         ///< of its own, more than white space
        bool has_children = false;
    };

    explicit SourceMap(std::string_view xml);

    std::uint32_t size() const { return static_cast<std::uint32_t>(elements_.size()); }
    const Element& element(std::uint32_t index) const { return elements_[index]; }
    std::span<const Attribute> attributes(std::uint32_t index) const;

    /// "/a/b", or "/a/b/@c" for an attribute.
    std::string path(std::uint32_t index, std::string_view attribute = {}) const;
    /// The same with the 1-based position of each element among those of its name: "/a[1]/b[2]".
    std::string path_with_positions(std::uint32_t index, std::string_view attribute = {}) const;
    /// Where the element's start tag stands.
    TextPosition position(std::uint32_t index) const;

  private:
    void read_tag(std::size_t& at);
    void note_text(std::string_view text);
    std::size_t behind(std::string_view end, std::size_t at) const;

    std::string_view xml_;
    std::vector<Element> elements_;
    std::vector<Attribute> attributes_;
    std::uint32_t open_ = 0;  ///< the element that the scan is in
    // Made where they are first asked for.
    mutable std::vector<std::uint32_t> numbers_;  ///< of each element among those of its name
    mutable std::vector<std::size_t> line_begins_;
};

}  // namespace zr
