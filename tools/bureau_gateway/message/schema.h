// What a request may hold, as tables of rules, and the check of a request against them.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/message/xml_reader.h"

namespace zr::gateway {

/// One complaint about a request's content.
struct Violation {
    std::string_view code;
    std::string description;
    std::string_view type;  ///< mandatory, length, format, value or structure
    std::string container;  ///< the element that the complaint is in
    int position = 0;       ///< where, in the order of the document
};

enum class Occurs { kOptional, kOnce, kMany };
enum class Content { kNone, kElements, kText, kFilledText, kWholeNumber, kDigits, kDate };

struct AttributeRule {
    std::string_view name;
    bool required = true;
    std::size_t width = 0;                       ///< 0: any
    std::span<const std::string_view> values{};  ///< none: any; compared with their case
};

struct ElementRule {
    std::string_view name;
    Occurs occurs = Occurs::kOnce;
    Content content = Content::kText;
    std::size_t width = 0;  ///< of the text in characters, the exact one of kDigits; 0: any
    std::span<const AttributeRule> attributes{};
    std::span<const ElementRule> children{};  ///< in the order that they are sent in
};

/// Every way in which the element breaks the rule, in the order of the document.
std::vector<Violation> check(const Element& element, const ElementRule& rule);

/// Complaints that are not about one element or attribute alone.
Violation complaint(const Element& container, std::string_view code, std::string description,
                    std::string_view type);

}  // namespace zr::gateway
