#include "services/message_writing.h"

#include "values/text.h"

namespace zr {

void write_attribute_element(ZRXMLBuilder& builder, std::string_view name,
                             std::string_view attribute, std::string_view value) {
    const XmlElement element(builder, name);
    builder.WriteAttribute(attribute, value);
}

void write_field(ZRXMLBuilder& builder, const FieldWidth& field, std::string_view text,
                 bool omitted_when_blank) {
    builder.WriteTagWithText(field.name, text::cut(text, field.width), omitted_when_blank);
}

std::string_view first_word(std::string_view text) {
    const std::string_view trimmed = text::trim(text);
    return trimmed.substr(0, trimmed.find(' '));
}

std::string whole_amount(Currency amount) { return std::to_string(amount.floor_whole()); }

}  // namespace zr
