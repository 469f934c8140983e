// What the C++ types of the public interface are to hosts of other languages, and how values pass
// from one to the other.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "automation/interface.h"
#include "zrcreditbureau/zr_credit_bureau.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr::automation {

/// What stands for the class where only a call tells which one it is.
inline constexpr std::string_view kClassOfTheCall = "Object";

/// The public name of a C++ type that members take or give.
template <class T>
struct PublicName;

#define ZR_PUBLIC_NAME(Cpp, Kind, Name)                      \
    template <>                                              \
    struct PublicName<Cpp> {                                 \
        static constexpr Type type = {TypeKind::Kind, Name}; \
    }
ZR_PUBLIC_NAME(ZRCreditBureau, kObject, "ZRCreditBureau");
ZR_PUBLIC_NAME(Services, kObject, "Services");
ZR_PUBLIC_NAME(Service, kObject, kClassOfTheCall);
ZR_PUBLIC_NAME(Request, kObject, "Request");
ZR_PUBLIC_NAME(Response, kObject, "Response");
ZR_PUBLIC_NAME(ResponseElements, kObject, "ResponseElements");
ZR_PUBLIC_NAME(ResponseElement, kObject, "ResponseElement");
ZR_PUBLIC_NAME(CompanySelections, kObject, "CompanySelections");
ZR_PUBLIC_NAME(CompanySelection, kObject, "CompanySelection");
ZR_PUBLIC_NAME(Products, kObject, "Products");
ZR_PUBLIC_NAME(Product, kObject, "Product");
ZR_PUBLIC_NAME(ProductOptions, kObject, "ProductOptions");
ZR_PUBLIC_NAME(ProductOption, kObject, "ProductOption");
ZR_PUBLIC_NAME(CodeTableCollection, kObject, "CodeTables");
ZR_PUBLIC_NAME(CodeTableItems, kObject, "CodeTableItems");
ZR_PUBLIC_NAME(CodeTableItem, kObject, "CodeTableItem");
ZR_PUBLIC_NAME(ZRXMLBuilder, kObject, "ZRXMLBuilder");
ZR_PUBLIC_NAME(ZRStringBuilder, kObject, "ZRStringBuilder");
ZR_PUBLIC_NAME(zreProductType, kEnumeration, "zreProductType");
ZR_PUBLIC_NAME(zreOptionType, kEnumeration, "zreOptionType");
ZR_PUBLIC_NAME(zreXMLBuilderEncodeOptions, kEnumeration, "zreXMLBuilderEncodeOptions");
#undef ZR_PUBLIC_NAME

template <class T>
concept OwningPointer = requires {
    typename T::element_type;
};
template <class T>
concept MaybeNone = requires(T value) {
    value.has_value();
};

/// The automation type of a C++ type. A pointer may point to none; what owns does not.
template <class T>
constexpr Type type_of() {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_void_v<Plain>) {
        return {TypeKind::kNothing};
    } else if constexpr (std::is_same_v<Plain, bool>) {
        return {TypeKind::kBoolean};
    } else if constexpr (std::is_same_v<Plain, std::int16_t>) {
        return {TypeKind::kCount};
    } else if constexpr (std::is_same_v<Plain, std::int32_t>) {
        return {TypeKind::kInteger};
    } else if constexpr (std::is_same_v<Plain, Currency>) {
        return {TypeKind::kCurrency};
    } else if constexpr (std::is_same_v<Plain, DateTime>) {
        return {TypeKind::kDate};
    } else if constexpr (std::is_same_v<Plain, DateOrNull>) {
        return {TypeKind::kDateOrNull};
    } else if constexpr (std::is_convertible_v<Plain, std::string_view>) {
        return {TypeKind::kText};
    } else if constexpr (std::is_pointer_v<Plain>) {
        Type pointed = type_of<std::remove_pointer_t<Plain>>();
        pointed.may_be_none = true;
        return pointed;
    } else if constexpr (MaybeNone<Plain>) {
        Type held = type_of<typename Plain::value_type>();
        held.may_be_none = true;
        return held;
    } else if constexpr (OwningPointer<Plain>) {
        return type_of<typename Plain::element_type>();
    } else {
        return PublicName<Plain>::type;
    }
}

const Class& class_of_service(const Service& service);

/// The class that hosts see a C++ object as.
template <class T>
const Class& class_of(const T& instance) {
    if constexpr (std::is_same_v<T, Service>) {
        return class_of_service(instance);
    } else {
        static const Class& kClass = *library().find(type_of<T>().name);
        return kClass;
    }
}
/// An object of what a member gave; a part of `self` keeps that alive.
template <class T>
Object object_of(std::shared_ptr<T> instance) {
    return instance == nullptr ? Object() : Object(class_of(std::as_const(*instance)), instance);
}
template <class T>
Object object_of(T& part, const Object& self) {
    if constexpr (requires { part.shared_from_this(); }) {
        return object_of(part.shared_from_this());
    } else {
        return object_of(std::shared_ptr<T>(self.shared<char>(), &part));
    }
}

/// What a member gave, as a value.
template <class T>
Variant given(T&& result, const Object& self) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Plain, DateTime>) {
        return result.is_date() ? Variant(result) : Variant(Null{});
    } else if constexpr (std::is_same_v<Plain, std::string> && !std::is_reference_v<T>) {
        return std::forward<T>(result);
    } else if constexpr (std::is_convertible_v<Plain, std::string_view>) {
        return std::string_view(result);
    } else if constexpr (std::is_enum_v<Plain>) {
        return static_cast<std::int32_t>(result);
    } else if constexpr (std::is_pointer_v<Plain>) {
        return result == nullptr ? Object() : object_of(*result, self);
    } else if constexpr (MaybeNone<Plain>) {
        return result ? given(*std::forward<T>(result), self) : Variant(Object());
    } else if constexpr (OwningPointer<Plain>) {
        if (result == nullptr) {
            throw std::bad_alloc();  // the one reason why there is none
        }
        return object_of(std::shared_ptr<typename Plain::element_type>(std::forward<T>(result)));
    } else if constexpr (std::is_constructible_v<Variant, Plain>) {
        return result;
    } else {
        return object_of(result, self);
    }
}

/// The object in a value; raises InvocationError where it is none.
const Object& needed_object(const Variant& value);

/// A value of the member's type as what C++ takes.
template <class T>
T taken(Variant& value) {
    using Plain = std::remove_cvref_t<T>;
    if constexpr (std::is_same_v<Plain, DateOrNull>) {
        if (is_text(value)) {
            return std::string(text_in(value));
        }
        const DateTime* date = std::get_if<DateTime>(&value);
        return date != nullptr ? DateOrNull(*date) : DateOrNull(Null{});
    } else if constexpr (std::is_convertible_v<Plain, std::string_view>) {
        return Plain(text_in(value));
    } else if constexpr (std::is_enum_v<Plain>) {
        return static_cast<Plain>(std::get<std::int32_t>(value));
    } else if constexpr (std::is_pointer_v<Plain>) {
        const auto& object = std::get<Object>(value);
        return object ? &object.template as<std::remove_pointer_t<Plain>>() : nullptr;
    } else if constexpr (OwningPointer<Plain>) {
        const auto& object = std::get<Object>(value);
        return object ? object.template shared<typename Plain::element_type>() : nullptr;
    } else if constexpr (std::is_constructible_v<Variant, Plain>) {
        return std::get<Plain>(value);
    } else {
        return needed_object(value).template as<Plain>();
    }
}

}  // namespace zr::automation
