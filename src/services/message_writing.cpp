#include "services/message_writing.h"

#include "values/text.h"

namespace zr {

void write_attribute_element(ZRXMLBuilder& builder, std::string_view name,
                             std::string_view attribute, std::string_view value) {
    const XmlElement element(builder, name);
    builder.WriteAttribute(attribute, value);
}

std::string_view first_word(std::string_view text, std::size_t width) {
    const std::string_view trimmed = text::trim(text);
    return text::cut(trimmed.substr(0, trimmed.find(' ')), width);
}

std::string whole_amount(Currency amount) { return std::to_string(amount.floor_whole()); }

}  // namespace zr
