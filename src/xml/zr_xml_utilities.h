// Reads typed values out of a parsed reply, with a default for anything that is missing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "values/convert.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/date_time.h"

namespace zr {

/// Where there is no node or attribute, the caller's default comes back and nothing is thrown. A
/// node that is present with empty text is not missing. Text that does not convert gives 0, or null
/// for a date. A path may end in an attribute, whose value is then read in the node's place, its
/// line feeds as they are.
class ZRXMLUtilities {
  public:
    /// The node's text with every line feed as CR LF.
    static std::string GetNodeString(XmlNode node, std::string_view default_text = {});
    static std::string GetSubNodeString(XmlNode node, const XmlPath& path,
                                        std::string_view default_text = {});

    /// The text as a whole number, halves to even; the default outside -32768 to 32767.
    static std::int16_t GetNodeInteger(XmlNode node, std::int16_t default_value);

    /// The text as a number with four decimals.
    static double GetNodeDouble(XmlNode node, double default_value);
    static double GetSubNodeDouble(XmlNode node, const XmlPath& path, double default_value);

    static Currency GetNodeCurrency(XmlNode node, Currency default_value);
    static Currency GetSubNodeCurrency(XmlNode node, const XmlPath& path, Currency default_value);

    /// The text as a date in the form "yyyy-mm-dd"; the default only when the node is missing.
    static std::optional<DateTime> GetNodeDate(XmlNode node,
                                               std::optional<DateTime> default_date = {});
    static std::optional<DateTime> GetSubNodeDate(XmlNode node, const XmlPath& path,
                                                  std::optional<DateTime> default_date = {});

    /// The attribute's value as it stands.
    static std::string GetAttributeString(XmlNode element, XmlNameId name,
                                          std::string_view default_text = {});
    static std::string GetSubNodeAttributeString(XmlNode node, const XmlPath& path, XmlNameId name,
                                                 std::string_view default_text = {});

    /// The attribute as a date; the default also when it is not a date.
    static std::optional<DateTime> GetAttributeDate(XmlNode element, XmlNameId name,
                                                    std::optional<DateTime> default_date = {});
    static std::optional<DateTime> GetSubNodeAttributeDate(
        XmlNode node, const XmlPath& path, XmlNameId name,
        std::optional<DateTime> default_date = {});
};

/// Appends the text that GetSubNodeString reads to `target`. False, and nothing, when the path
/// selects nothing.
bool append_sub_node_text(std::string& target, XmlNode node, const XmlPath& path);

}  // namespace zr
