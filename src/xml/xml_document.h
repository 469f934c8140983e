// Reply documents: a compact, read-only tree and the paths that read it.
//
// The paths that a service reads are compiled once, at start-up, against that service's table of
// names. A document is parsed against the same table, so a step of a path compares small integers,
// and a name that no path mentions costs nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/xml_parser.h"

namespace zr {

/// A name as a small integer; 0 is any name that no path mentions.
using XmlNameId = std::uint16_t;

class XmlWatch;  // xml_watch.h

/// The names that a family of paths mentions. Filled while paths are compiled, constant afterwards.
class XmlNames {
  public:
    /// What is read by these names is told to the watch, when there is one.
    explicit XmlNames(XmlWatch* watch = nullptr);
    ~XmlNames();
    XmlNames(XmlNames&&) noexcept;
    XmlNames& operator=(XmlNames&&) noexcept;

    /// The id of `name`, which is added when it is new.
    XmlNameId add(std::string_view name);

    /// The id of `name`, 0 when no path mentions it.
    XmlNameId find(std::string_view name) const;

    /// One more than the highest id given out.
    std::size_t size() const;

    XmlWatch* watch() const { return watch_; }

  private:
    struct Table;
    std::unique_ptr<Table> table_;
    XmlWatch* watch_;
};

struct XmlTree;  // xml_tree.h
class XmlNode;

/// What a compiled path is made of.
namespace xml_path {

/// An attribute that an element must have, with this value.
struct Predicate {
    XmlNameId name = 0;
    std::string value;
};

struct Step {
    enum class Axis : std::uint8_t { kChild, kDescendant };
    Axis axis = Axis::kChild;
    XmlNameId name = 0;
    std::uint32_t position = 0;  ///< 1-based among the step's matches in one parent, 0 for all
    std::vector<Predicate> predicates;
};

struct Alternative {
    bool absolute = false;
    std::vector<Step> steps;  ///< none: the context itself
    XmlNameId attribute = 0;  ///< of the first element that the steps select; 0: none
};

/// What most paths are: names of children from the context down, perhaps an attribute of the last.
struct Plain {
    std::vector<XmlNameId> children;
    XmlNameId attribute = 0;  ///< 0: none
};

}  // namespace xml_path

/// A compiled path: child steps (a/b), a leading / or //, or // between steps, attributes compared
/// ([@type='x']), a 1-based position ([2], after any such comparison), a union (a/b | c/d), also in
/// brackets at the front of a path ((a | b)/c), and "." for the context itself. Results come in
/// document order, each once. A path of a union, but not one that begins with brackets, may end in
/// an attribute (@a or a/@b): that of the first element at the steps before it and of no later one.
/// Elements are named without a prefix, and are those in no namespace; attributes are named as
/// written (lang, xml:lang).
class XmlPath {
  public:
    /// Compiles `expression`; throws std::invalid_argument naming it when it is no such path.
    XmlPath(std::string_view expression, XmlNames& names);

    /// A path that matches nothing.
    XmlPath() = default;

  private:
    friend class XmlNode;
    std::vector<xml_path::Alternative> alternatives_;
    /// The same path, where it is a plain one; never where a watch is told what is read.
    std::optional<xml_path::Plain> plain_;
};

/// The path of an expression; one that matches nothing where that is "".
inline XmlPath path_or_none(std::string_view expression, XmlNames& names) {
    return expression.empty() ? XmlPath() : XmlPath(expression, names);
}

/// What a path selects: an element's text or an attribute's value. A view into the document.
struct XmlValue {
    std::string_view text;
    bool of_attribute = false;
};

/// An element of a document, or none. A handle: cheap to copy, valid while its document lives, also
/// when the document object is moved.
class XmlNode {
  public:
    XmlNode() = default;

    /// True when there is an element.
    explicit operator bool() const { return tree_ != nullptr; }

    bool operator==(const XmlNode&) const = default;

    /// The text of the element and its descendants, white space trimmed at both ends; line breaks
    /// are line feeds. "" when there is no element. A view into the document.
    std::string_view text() const;

    /// The value of the attribute with this id; none when there is no such attribute or element.
    std::optional<std::string_view> attribute(XmlNameId name) const;

    /// The first element that the path selects, or none.
    XmlNode first(const XmlPath& path) const;

    /// The text of the element, or the value of the attribute, that comes first of what the paths
    /// of the union select; none when they select nothing. An attribute precedes the children of
    /// its element.
    std::optional<XmlValue> find(const XmlPath& path) const;

    /// As find: the text alone.
    std::optional<std::string_view> value(const XmlPath& path) const {
        const std::optional<XmlValue> found = find(path);
        return found ? std::optional(found->text) : std::nullopt;
    }

    /// Every element that the path selects, in document order.
    std::vector<XmlNode> select(const XmlPath& path) const;

    /// As select, into a vector that is reused.
    void select(const XmlPath& path, std::vector<XmlNode>& into) const;

    /// Its place among the elements of the document in their order: 1 for the document element.
    std::uint32_t index() const { return index_; }

  private:
    friend class XmlDocument;
    std::optional<XmlValue> find_any(const XmlPath& path) const;
    void tell(XmlNode context, const XmlPath* path, XmlNameId attribute) const;
    XmlNode(const XmlTree* tree, std::uint32_t index) : tree_(tree), index_(index) {}

    const XmlTree* tree_ = nullptr;
    std::uint32_t index_ = 0;
};

/// A parsed document. White-space text between elements does not exist in it. A document type
/// declaration is tolerated and nothing it names is read; one with an internal subset is refused.
class XmlDocument {
  public:
    /// Parses UTF-8 text against a table of names; an encoding named in the declaration is ignored.
    static std::variant<XmlDocument, XmlParseError> parse(std::string_view text,
                                                          const XmlNames& names,
                                                          const XmlLimits& limits = {});

    XmlDocument(XmlDocument&&) noexcept;
    XmlDocument& operator=(XmlDocument&&) noexcept;
    ~XmlDocument();

    /// The node above the document element: a relative path from here names the document element
    /// first.
    XmlNode root() const;

    /// The name of the document element as it stands, without a prefix, whatever its namespace.
    std::string_view document_element() const;

  private:
    explicit XmlDocument(std::unique_ptr<const XmlTree> tree);
    std::unique_ptr<const XmlTree> tree_;
};

}  // namespace zr
