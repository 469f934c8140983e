#include "services/address_writing.h"

#include "services/message_writing.h"

namespace zr {
namespace {

void write_address(ZRXMLBuilder& builder, const Request& request, RequestAddress which,
                   std::string_view type, std::span<const AddressField> fields,
                   const CodeTableItems& street_types) {
    const XmlElement address(builder, "address");
    builder.WriteAttribute("type", type);
    for (const AddressField& row : fields) {
        if (row.compose != nullptr) {
            builder.WriteTagWithText(row.field.name, row.compose(request, which),
                                     row.omitted_when_blank);
            continue;
        }
        const TextProperty property =
            which == RequestAddress::kCurrent ? row.current : row.previous;
        const std::string& value = (request.*property)();
        if (row.field.name == kStreetType.name) {
            write_attribute_element(builder, row.field.name, "code",
                                    street_types.GetCodeFromDescription(value));
        } else {
            write_field(builder, row.field, value, row.omitted_when_blank);
        }
    }
}

}  // namespace

void write_addresses(ZRXMLBuilder& builder, const Request& request, std::string_view current_type,
                     std::string_view previous_type, std::span<const AddressField> fields,
                     const CodeTableItems& street_types) {
    write_address(builder, request, RequestAddress::kCurrent, current_type, fields, street_types);
    if (!request.PrevStreetName().empty()) {
        write_address(builder, request, RequestAddress::kPrevious, previous_type, fields,
                      street_types);
    }
}

}  // namespace zr
