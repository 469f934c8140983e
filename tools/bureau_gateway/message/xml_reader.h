// A request as a tree of elements. libxml2 is named in the source file only.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zr::gateway {

struct Element {
    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<Element> children;
    std::string text;  ///< the element's own text, white space trimmed at both ends
    int position = 0;  ///< in the order of the document

    /// The first child of this name, or null.
    const Element* child(std::string_view wanted) const;

    /// The text of the first child of this name; "" when there is none.
    std::string_view child_text(std::string_view wanted) const;

    /// The attribute's value; none when it is absent.
    std::optional<std::string_view> attribute(std::string_view wanted) const;
};

/// The document element; none when the text is not well-formed or has a document type.
std::optional<Element> read_xml(std::string_view text);

}  // namespace zr::gateway
