// Text properties of a response, by where a reply has them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "xml/xml_document.h"
#include "zrcreditbureau/response.h"

namespace zr {

/// A property and its path as data.
struct ResponseFieldRow {
    ReadOnly<std::string> Response::*property;
    std::string_view path;  ///< relative to the node that the properties are read from
};

/// Rows compiled against a service's names.
class ResponseFields {
  public:
    ResponseFields(std::span<const ResponseFieldRow> rows, XmlNames& names);

    /// Sets every property; one that the node does not have is "".
    void fill(Response& response, XmlNode node) const;

  private:
    struct Field {
        ReadOnly<std::string> Response::*property;
        XmlPath path;
    };
    std::vector<Field> fields_;
};

}  // namespace zr
