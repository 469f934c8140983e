#include "reports/response_fields.h"

#include "records/component.h"
#include "xml/zr_xml_utilities.h"

namespace zr {

ResponseFields::ResponseFields(std::span<const ResponseFieldRow> rows, XmlNames& names) {
    fields_.reserve(rows.size());
    for (const ResponseFieldRow& row : rows) {
        fields_.push_back({row.property, XmlPath(row.path, names)});
    }
}

void ResponseFields::fill(Response& response, XmlNode node) const {
    for (const Field& field : fields_) {
        Component::set(response.*field.property,
                       ZRXMLUtilities::GetSubNodeString(node, field.path));
    }
}

}  // namespace zr
