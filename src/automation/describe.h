// How the rows of the description are made. Types are taken from the C++ members themselves: a row
// that names a member which does not exist, or arguments that it does not take, fails to compile.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/interface.h"
#include "zrcreditbureau/zr_credit_bureau.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr::automation {

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
ZR_PUBLIC_NAME(Service, kObject, "Object");
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
ZR_PUBLIC_NAME(CodeTableCollection, kObject, "Collection");
ZR_PUBLIC_NAME(CodeTableItems, kObject, "CodeTableItems");
ZR_PUBLIC_NAME(CodeTableItem, kObject, "CodeTableItem");
ZR_PUBLIC_NAME(zreProductType, kEnumeration, "zreProductType");
ZR_PUBLIC_NAME(zreOptionType, kEnumeration, "zreOptionType");
ZR_PUBLIC_NAME(zreXMLBuilderEncodeOptions, kEnumeration, "zreXMLBuilderEncodeOptions");
#undef ZR_PUBLIC_NAME

/// The automation type of a C++ type.
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
        return type_of<std::remove_pointer_t<Plain>>();
    } else if constexpr (requires { typename Plain::element_type; }) {
        return type_of<typename Plain::element_type>();  // an owning pointer
    } else {
        return PublicName<Plain>::type;
    }
}

/// A listed property as a member.
template <class Record>
Member member_of(const Property<Record>& property, std::int32_t id) {
    static constexpr TypeKind kKinds[] = {TypeKind::kText,      TypeKind::kBoolean,
                                          TypeKind::kCount,     TypeKind::kInteger,
                                          TypeKind::kCurrency,  TypeKind::kDate,
                                          TypeKind::kDateOrNull};  // in the order of ValueType
    const TypeKind kind = property.enumeration.empty()
                              ? kKinds[static_cast<std::size_t>(property.type)]
                              : TypeKind::kEnumeration;
    return {property.name,
            property.write != nullptr ? MemberKind::kReadWrite : MemberKind::kReadOnly,
            id,
            {kind, property.enumeration},
            {},
            property.meaning};
}

/// An argument of C++ type T.
template <class T>
struct In {
    std::string_view name;
    bool optional = false;
    std::string_view default_value = {};
};

/// A row whose type is the result of `call` with the arguments; its dispatch id is given later.
template <class Record, class Call, class... T>
Member describe(MemberKind kind, std::string_view name, Call /*call*/, std::string_view meaning,
                In<T>... arguments) {
    using Result = std::invoke_result_t<Call, Record&, T...>;
    return {
        name,
        kind,
        0,
        type_of<Result>(),
        {Argument{arguments.name, type_of<T>(), arguments.optional, arguments.default_value}...},
        meaning};
}

/// The same of a property that hosts read and write: it takes its value behind the arguments.
template <class Record, class Call, class... T>
Member describe_read_write(std::string_view name, Call call, std::string_view meaning,
                           In<T>... arguments) {
    using Result = std::invoke_result_t<Call, Record&, T...>;
    static_assert(std::is_invocable_v<Call, Record&, T..., Result>, "hosts cannot write it");
    return describe<Record>(MemberKind::kReadWrite, name, call, meaning, arguments...);
}

/// A property that hosts only assign: T is its type.
template <class Record, class T, class Call>
Member describe_write_only(std::string_view name, Call /*call*/, std::string_view meaning) {
    static_assert(std::is_invocable_v<Call, Record&, T>);
    return {name, MemberKind::kWriteOnly, 0, type_of<T>(), {}, meaning};
}

#define ZR_CALL(Record, Name)                                                       \
    [](Record& object, auto&&... arguments)                                         \
        -> decltype(object.Name(std::forward<decltype(arguments)>(arguments)...)) { \
        return object.Name(std::forward<decltype(arguments)>(arguments)...);        \
    }

// Rows: the record, the member, what it means, then its arguments as In<C++ type>{name, ...}.
#define ZR_OPERATION(Record, Name, ...) \
    describe<Record>(MemberKind::kOperation, #Name, ZR_CALL(Record, Name), __VA_ARGS__)
#define ZR_READ_ONLY(Record, Name, ...) \
    describe<Record>(MemberKind::kReadOnly, #Name, ZR_CALL(Record, Name), __VA_ARGS__)
#define ZR_READ_WRITE(Record, Name, ...) \
    describe_read_write<Record>(#Name, ZR_CALL(Record, Name), __VA_ARGS__)
#define ZR_WRITE_ONLY(Record, Name, T, meaning) \
    describe_write_only<Record, T>(#Name, ZR_CALL(Record, Name), meaning)

/// The default member of a collection: its item at a position or, where items have keys, under one.
template <class Collection>
Member item_row() {
    using Item = decltype(std::declval<const Collection&>().Item(std::int32_t{1}));
    constexpr bool keyed = requires(const Collection& items) { items.Item(std::string_view()); };
    return {"Item",
            MemberKind::kReadOnly,
            kDefaultMemberId,
            type_of<Item>(),
            {{"Index", {keyed ? TypeKind::kIndex : TypeKind::kInteger}}},
            keyed ? "the item at a 1-based position or with a key; an unknown one is an error"
                  : "the item at a 1-based position; one outside 1 to Count is an error"};
}

/// The enumerator of a collection.
template <class Collection>
Member new_enum_row() {
    static_assert(requires(const Collection& items) { items.begin() == items.end(); });
    return {"NewEnum", MemberKind::kReadOnly,          kNewEnumId, {TypeKind::kEnumerator},
            {},        "walks over the items in order"};
}

/// A class of these rows, numbered from 1 in their order but for those with a fixed id.
Class make_class(std::string_view name, std::string_view meaning, std::vector<Member> rows);

/// Appends the listed properties that the class has no row for, numbered from kFirstPropertyId.
template <class Record>
void add_listed_properties(Class& described, std::span<const Property<Record>> properties) {
    std::int32_t id = kFirstPropertyId;
    for (const Property<Record>& property : properties) {
        if (described.find(property.name) == nullptr) {
            described.members.push_back(member_of(property, id));
        }
        ++id;
    }
}

/// The class that has just these properties.
template <class Record>
Class class_of(std::string_view name, std::string_view meaning,
               std::span<const Property<Record>> properties) {
    std::vector<Member> rows;
    for (const Property<Record>& property : properties) {
        rows.push_back(member_of(property, 0));
    }
    return make_class(name, meaning, std::move(rows));
}

// The classes by subject, each in a file of its own.
void describe_facade(std::vector<Class>& classes);
void describe_records(std::vector<Class>& classes);
void describe_catalogue(std::vector<Class>& classes);
void describe_xml(std::vector<Class>& classes);
void describe_services(std::vector<Class>& classes);

}  // namespace zr::automation
