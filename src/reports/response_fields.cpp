#include "reports/response_fields.h"

#include "xml/zr_xml_utilities.h"

namespace zr {

ResponseFields::ResponseFields(std::span<const ResponseFieldRow> rows, XmlNames& names) {
    fields_.reserve(rows.size());
    for (const ResponseFieldRow& row : rows) {
        fields_.push_back({row.set, XmlPath(row.path, names)});
    }
}

void ResponseFields::fill(Response& response, XmlNode node) const {
    for (const Field& field : fields_) {
        (response.*field.set)(ZRXMLUtilities::GetSubNodeString(node, field.path));
    }
}

}  // namespace zr
