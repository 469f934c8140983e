// Writes replies: elements, attributes and text, escaped, in UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zr::gateway {

class XmlWriter {
  public:
    void open(std::string_view name);

    /// Of the element opened last, before it has any content.
    void attribute(std::string_view name, std::string_view value);

    void text(std::string_view value);

    /// Closes the element opened last.
    void close();

    /// A whole element that holds only text.
    void leaf(std::string_view name, std::string_view value);

    /// As leaf, but nothing at all when the value is empty.
    void leaf_if(std::string_view name, std::string_view value);

    /// A whole element with one attribute.
    void coded(std::string_view name, std::string_view attribute, std::string_view value,
               std::string_view text = {});

    std::size_t size() const { return xml_.size(); }

    /// What has been written, all of it closed by now.
    std::string take() { return std::move(xml_); }

  private:
    void end_start_tag();
    void escaped(std::string_view value, bool in_attribute);

    std::string xml_;
    std::vector<std::string> names_;
    bool in_start_tag_ = false;
};

/// An element that is closed at the end of the scope.
class XmlScope {
  public:
    XmlScope(XmlWriter& writer, std::string_view name) : writer_(writer) { writer_.open(name); }
    ~XmlScope() { writer_.close(); }
    XmlScope(const XmlScope&) = delete;
    XmlScope& operator=(const XmlScope&) = delete;

  private:
    XmlWriter& writer_;
};

}  // namespace zr::gateway
