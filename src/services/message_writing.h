// What the services' request documents have in common.
#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "services/field_widths.h"
#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr {

/// An element of a document being written: opened here, closed when the object goes. A document
/// that is given up by an exception stays as it is.
class XmlElement {
  public:
    XmlElement(ZRXMLBuilder& builder, std::string_view name) : builder_(builder), name_(name) {
        builder_.TagOpen(name_);
    }
    ~XmlElement() noexcept(false) {  // there may be no memory for the tag
        if (std::uncaught_exceptions() == exceptions_) {
            builder_.TagClose(name_);
        }
    }
    XmlElement(const XmlElement&) = delete;
    XmlElement& operator=(const XmlElement&) = delete;

  private:
    ZRXMLBuilder& builder_;
    std::string_view name_;
    int exceptions_ = std::uncaught_exceptions();
};

/// An element with one attribute and no content.
void write_attribute_element(ZRXMLBuilder& builder, std::string_view name,
                             std::string_view attribute, std::string_view value);

/// An element whose text is cut to the field's width.
void write_field(ZRXMLBuilder& builder, const FieldWidth& field, std::string_view text,
                 bool omitted_when_blank = false);

/// The first word of the text.
std::string_view first_word(std::string_view text);

/// An amount rounded down to a whole number, as plain decimal digits.
std::string whole_amount(Currency amount);

}  // namespace zr
