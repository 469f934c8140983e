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

void write_service_lines(const XmlPath& request_id, std::string_view service_name, XmlNode root,
                         Response& response) {
    response.RequestId(ZRXMLUtilities::GetSubNodeString(root, request_id));
    ResponseElements& lines = response.elements();
    lines.AddElement("Response", "Service", "Service", service_name);
    lines.AddElement("Response", "Service", "Request Id", response.RequestId());
}

}  // namespace zr
