// Rows of the settings that a service declares by itself.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "records/property.h"
#include "services/reply_service.h"

namespace zr {

/// A row for a service's own text setting.
template <class S, const std::string& (S::*read)() const, void (S::*write)(std::string_view)>
constexpr Property<Service> text_setting(std::string_view name, std::string_view meaning) {
    return {name, ValueType::kText, meaning,
            [](const Service& service) {
                return property_detail::to_value((static_cast<const S&>(service).*read)());
            },
            [](Service& service, const Value& value) {
                (static_cast<S&>(service).*write)(text_of(value));
            }};
}

/// A row for a service's own flag.
template <class S, bool (S::*read)() const, void (S::*write)(bool)>
constexpr Property<Service> flag_setting(std::string_view name, std::string_view meaning) {
    return {name, ValueType::kBoolean, meaning,
            [](const Service& service) {
                return property_detail::to_value((static_cast<const S&>(service).*read)());
            },
            [](Service& service, const Value& value) {
                (static_cast<S&>(service).*write)(std::get<bool>(value));
            }};
}

/// The row of ReplyService's one setting.
inline constexpr Property<Service> kXsltFileNameSetting =
    text_setting<ReplyService, &ReplyService::XSLTFileName, &ReplyService::XSLTFileName>(
        "XSLTFileName", "the style sheet that turns a reply into ResponseHTML");

}  // namespace zr
