#include "bureau_gateway/message/xml_writer.h"

namespace zr::gateway {

void XmlWriter::end_start_tag() {
    if (in_start_tag_) {
        xml_ += '>';
        in_start_tag_ = false;
    }
}

void XmlWriter::escaped(std::string_view value, bool in_attribute) {
    for (const char c : value) {
        switch (c) {
            case '&':
                xml_ += "&amp;";
                break;
            case '<':
                xml_ += "&lt;";
                break;
            case '>':
                xml_ += "&gt;";
                break;
            case '"':
                xml_ += in_attribute ? "&quot;" : "\"";
                break;
            default:
                xml_ += c;
        }
    }
}

void XmlWriter::open(std::string_view name) {
    end_start_tag();
    xml_ += '<';
    xml_ += name;
    names_.emplace_back(name);
    in_start_tag_ = true;
}

void XmlWriter::attribute(std::string_view name, std::string_view value) {
    xml_ += ' ';
    xml_ += name;
    xml_ += "=\"";
    escaped(value, true);
    xml_ += '"';
}

void XmlWriter::text(std::string_view value) {
    end_start_tag();
    escaped(value, false);
}

void XmlWriter::close() {
    end_start_tag();
    xml_ += "</";
    xml_ += names_.back();
    xml_ += '>';
    names_.pop_back();
}

void XmlWriter::leaf(std::string_view name, std::string_view value) {
    open(name);
    text(value);
    close();
}

void XmlWriter::coded(std::string_view name, std::string_view attribute_name,
                      std::string_view value, std::string_view content) {
    open(name);
    attribute(attribute_name, value);
    text(content);
    close();
}

void XmlWriter::leaf_if(std::string_view name, std::string_view value) {
    if (!value.empty()) {
        leaf(name, value);
    }
}

}  // namespace zr::gateway
