// How the rows of the description are made. Types and calls are taken from the C++ members
// themselves: a row that names a member which does not exist, or arguments that it does not take,
// fails to compile.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "automation/cpp_types.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::automation {

/// Calls with the values, the first for the first of T.
template <class Record, class Call, class... T>
struct Run {
    static Variant run(const Object& self, const void* /*property*/, std::span<Variant> values) {
        return run(self, values, std::index_sequence_for<T...>());
    }

  private:
    template <std::size_t... i>
    static Variant run(const Object& self, [[maybe_unused]] std::span<Variant> values,
                       std::index_sequence<i...>) {
        auto& object = self.as<Record>();
        if constexpr (std::is_void_v<std::invoke_result_t<Call, Record&, T...>>) {
            Call()(object, taken<T>(values[i])...);
            return Empty();
        } else {
            return given<std::invoke_result_t<Call, Record&, T...>>(
                Call()(object, taken<T>(values[i])...), self);
        }
    }
};

/// Between the values of listed properties and those that pass to and from hosts.
Variant from_property(const Value& value, ValueType type);
Value to_property(const Variant& value);

/// A listed property as a member.
template <class Record>
Member member_of(const Property<Record>& property, std::int32_t id) {
    static constexpr TypeKind kKinds[] = {TypeKind::kText,      TypeKind::kBoolean,
                                          TypeKind::kCount,     TypeKind::kInteger,
                                          TypeKind::kCurrency,  TypeKind::kDate,
                                          TypeKind::kDateOrNull};  // in the order of ValueType
    using Row = Property<Record>;
    const TypeKind kind = property.enumeration.empty()
                              ? kKinds[static_cast<std::size_t>(property.type)]
                              : TypeKind::kEnumeration;
    Member member{
        .name = property.name,
        .kind = property.write != nullptr ? MemberKind::kReadWrite : MemberKind::kReadOnly,
        .dispatch_id = id,
        .type = {kind, property.enumeration},
        .arguments = {},
        .meaning = property.meaning,
        .read =
            [](const Object& self, const void* row, std::span<Variant>) {
                const Row& listed = *static_cast<const Row*>(row);
                return from_property(listed.read(self.as<Record>()), listed.type);
            },
        .write = nullptr,
        .property = &property,
        .peek =
            [](const void* record, const void* row) {
                return static_cast<const Row*>(row)->read(*static_cast<const Record*>(record));
            }};
    if (property.write != nullptr) {
        member.write = [](const Object& self, const void* row, std::span<Variant> values) {
            static_cast<const Row*>(row)->write(self.as<Record>(), to_property(values[0]));
            return Variant();
        };
    }
    return member;
}

/// An argument of C++ type T.
template <class T>
struct In {
    std::string_view name;
    std::string_view meaning;
    bool optional = false;
    std::string_view default_value = {};
};

/// A row whose type is the result of `Call` with the arguments; its dispatch id is given later.
template <class Record, class Call, class... T>
Member describe(MemberKind kind, std::string_view name, Call /*call*/, std::string_view meaning,
                In<T>... arguments) {
    static_assert(sizeof...(T) < kMostArguments);
    return {.name = name,
            .kind = kind,
            .type = type_of<std::invoke_result_t<Call, Record&, T...>>(),
            .arguments = {Argument{arguments.name, type_of<T>(), arguments.meaning,
                                   arguments.optional, arguments.default_value}...},
            .meaning = meaning,
            .read = Run<Record, Call, T...>::run};
}

/// The same of a property that hosts read and write: it takes its value behind the arguments.
template <class Record, class Call, class... T>
Member describe_read_write(std::string_view name, Call call, std::string_view meaning,
                           In<T>... arguments) {
    using Result = std::remove_cvref_t<std::invoke_result_t<Call, Record&, T...>>;
    static_assert(std::is_invocable_v<Call, Record&, T..., Result>, "hosts cannot write it");
    Member member = describe<Record>(MemberKind::kReadWrite, name, call, meaning, arguments...);
    member.write = Run<Record, Call, T..., Result>::run;
    return member;
}

/// A property that hosts only assign: T is its type.
template <class Record, class T, class Call>
Member describe_write_only(std::string_view name, Call /*call*/, std::string_view meaning) {
    return {.name = name,
            .kind = MemberKind::kWriteOnly,
            .type = type_of<T>(),
            .arguments = {},
            .meaning = meaning,
            .write = Run<Record, Call, T>::run};
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

/// A row that may raise the error of this number.
inline Member raising(std::int32_t number, Member row) {
    row.raises = number;
    return row;
}

/// The short way to items that live and die with their collection; services do not.
template <class Collection>
constexpr ItemAt item_at() {
    if constexpr (std::is_same_v<Collection, Services>) {
        return nullptr;
    } else {
        return [](const Object& self, std::int32_t position) -> const void* {
            return &self.as<const Collection>().Item(position);
        };
    }
}

/// The default member of a collection: its item at a position or, where items have keys, under one.
template <class Collection>
Member item_row() {
    constexpr bool keyed = requires(const Collection& items) { items.Item(std::string_view()); };
    return {.name = "Item",
            .kind = MemberKind::kReadOnly,
            .dispatch_id = kDefaultMemberId,
            .type = type_of<decltype(std::declval<const Collection&>().Item(1))>(),
            .arguments = {{"Index",
                           {keyed ? TypeKind::kIndex : TypeKind::kInteger},
                           keyed ? "a position from 1, or a key in any letter case"
                                 : "a position from 1"}},
            .meaning = keyed ? "the item at a position or with a key" : "the item at a position",
            .read = [](const Object& self, const void*, std::span<Variant> values) -> Variant {
                const auto& items = self.as<const Collection>();
                if constexpr (keyed) {
                    if (is_text(values[0])) {
                        return object_of(items.Item(text_in(values[0])), self);
                    }
                }
                return object_of(items.Item(std::get<std::int32_t>(values[0])), self);
            },
            .item_at = item_at<Collection>(),
            .raises = error_number::kItemNotFound};
}

/// The enumerator of a collection.
Member new_enum_row();

/// A class of these rows, numbered from 1 in their order but for those with a fixed id.
Class make_class(std::string_view name, std::string_view meaning, std::vector<Member> rows);

/// Lets hosts create objects of a class.
template <class T>
void let_create(Class& described) {
    described.create = [] { return object_of(std::make_shared<T>()); };
}
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
Class class_with(std::string_view name, std::string_view meaning,
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
