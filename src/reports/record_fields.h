// Text properties of a record, by where a reply has them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "records/component.h"
#include "xml/zr_xml_utilities.h"

namespace zr {

/// A property and its path as data.
template <class Record>
struct FieldRow {
    ReadOnly<std::string> Record::*property;
    std::string_view path;  ///< relative to the node that the properties are read from
};

/// Rows compiled against a service's names.
template <class Record>
class RecordFields {
  public:
    RecordFields(std::span<const FieldRow<Record>> rows, XmlNames& names) {
        fields_.reserve(rows.size());
        for (const FieldRow<Record>& row : rows) {
            fields_.push_back({row.property, XmlPath(row.path, names)});
        }
    }

    /// Sets every property; one that the node does not have is "".
    void fill(Record& record, XmlNode node) const {
        for (const Field& field : fields_) {
            Component::set(record.*field.property,
                           ZRXMLUtilities::GetSubNodeString(node, field.path));
        }
    }

  private:
    struct Field {
        ReadOnly<std::string> Record::*property;
        XmlPath path;
    };
    std::vector<Field> fields_;
};

}  // namespace zr
