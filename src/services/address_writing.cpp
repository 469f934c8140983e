#include "services/address_writing.h"

#include "services/message_writing.h"
#include "values/text.h"

namespace zr {

void write_address(ZRXMLBuilder& builder, const Request& request, RequestAddress which,
                   std::string_view type, std::span<const AddressField> fields,
                   const CodeTableItems& street_types) {
    const XmlElement address(builder, "address");
    builder.WriteAttribute("type", type);
    for (const AddressField& field : fields) {
        if (field.compose != nullptr) {
            builder.WriteTagWithText(field.element, field.compose(request, which),
                                     field.omitted_when_blank);
            continue;
        }
        const TextProperty property =
            which == RequestAddress::kCurrent ? field.current : field.previous;
        const std::string& value = (request.*property)();
        if (field.width == 0) {
            write_attribute_element(builder, field.element, "code",
                                    street_types.GetCodeFromDescription(value));
        } else {
            builder.WriteTagWithText(field.element, text::cut(value, field.width),
                                     field.omitted_when_blank);
        }
    }
}

}  // namespace zr
