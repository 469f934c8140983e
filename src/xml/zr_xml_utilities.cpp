#include "xml/zr_xml_utilities.h"

#include <limits>

#include "values/text.h"

namespace zr {
namespace {

std::optional<std::string_view> text_if_present(XmlNode node) {
    return node ? std::optional(node.text()) : std::nullopt;
}

// An element's text, every line feed as CR LF.
void append_host_text(std::string& target, std::string_view text) {
    for (;;) {
        const std::size_t line_feed = text.find('\n');
        target += text.substr(0, line_feed);
        if (line_feed == std::string_view::npos) {
            return;
        }
        target += text::kCrLf;
        text.remove_prefix(line_feed + 1);
    }
}

double number(std::optional<std::string_view> text, double default_value) {
    constexpr int kDecimals = 4;
    return text ? convert::to_number(*text, kDecimals) : default_value;
}

Currency currency(std::optional<std::string_view> text, Currency default_value) {
    return text ? convert::to_currency(*text) : default_value;
}

std::optional<DateTime> date(std::optional<std::string_view> text,
                             std::optional<DateTime> default_date) {
    return text ? convert::to_date(*text) : default_date;
}

}  // namespace

bool append_sub_node_text(std::string& target, XmlNode node, const XmlPath& path) {
    const std::optional<XmlValue> value = node.find(path);
    if (!value) {
        return false;
    }
    if (value->of_attribute) {
        target += value->text;
    } else {
        append_host_text(target, value->text);
    }
    return true;
}

std::string ZRXMLUtilities::GetNodeString(XmlNode node, std::string_view default_text) {
    if (!node) {
        return std::string(default_text);
    }
    std::string result;
    append_host_text(result, node.text());
    return result;
}

std::string ZRXMLUtilities::GetSubNodeString(XmlNode node, const XmlPath& path,
                                             std::string_view default_text) {
    std::string result;
    return append_sub_node_text(result, node, path) ? result : std::string(default_text);
}

std::int16_t ZRXMLUtilities::GetNodeInteger(XmlNode node, std::int16_t default_value) {
    if (!node) {
        return default_value;
    }
    const double value = convert::to_number(node.text(), 0);
    using Range = std::numeric_limits<std::int16_t>;
    return value >= Range::min() && value <= Range::max() ? static_cast<std::int16_t>(value)
                                                          : default_value;
}

double ZRXMLUtilities::GetNodeDouble(XmlNode node, double default_value) {
    return number(text_if_present(node), default_value);
}

double ZRXMLUtilities::GetSubNodeDouble(XmlNode node, const XmlPath& path, double default_value) {
    return number(node.value(path), default_value);
}

Currency ZRXMLUtilities::GetNodeCurrency(XmlNode node, Currency default_value) {
    return currency(text_if_present(node), default_value);
}

Currency ZRXMLUtilities::GetSubNodeCurrency(XmlNode node, const XmlPath& path,
                                            Currency default_value) {
    return currency(node.value(path), default_value);
}

std::optional<DateTime> ZRXMLUtilities::GetNodeDate(XmlNode node,
                                                    std::optional<DateTime> default_date) {
    return date(text_if_present(node), default_date);
}

std::optional<DateTime> ZRXMLUtilities::GetSubNodeDate(XmlNode node, const XmlPath& path,
                                                       std::optional<DateTime> default_date) {
    return date(node.value(path), default_date);
}

std::string ZRXMLUtilities::GetAttributeString(XmlNode element, XmlNameId name,
                                               std::string_view default_text) {
    return std::string(element.attribute(name).value_or(default_text));
}

std::string ZRXMLUtilities::GetSubNodeAttributeString(XmlNode node, const XmlPath& path,
                                                      XmlNameId name,
                                                      std::string_view default_text) {
    return GetAttributeString(node.first(path), name, default_text);
}

std::optional<DateTime> ZRXMLUtilities::GetAttributeDate(XmlNode element, XmlNameId name,
                                                         std::optional<DateTime> default_date) {
    const auto converted = date(element.attribute(name), std::nullopt);
    return converted ? converted : default_date;
}

std::optional<DateTime> ZRXMLUtilities::GetSubNodeAttributeDate(
    XmlNode node, const XmlPath& path, XmlNameId name, std::optional<DateTime> default_date) {
    return GetAttributeDate(node.first(path), name, default_date);
}

}  // namespace zr
