// The one description of the public interface, from which every binding is made: the classes that
// hosts see, their members with ids, types and how they are called, and the enumerations.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/object.h"
#include "zrcreditbureau/property.h"

namespace zr::automation {

enum class TypeKind : std::uint8_t {
    kNothing,      ///< an operation without a result
    kText,         ///< Unicode text
    kBoolean,      ///< true is -1 to automation hosts
    kCount,        ///< 16-bit signed integer
    kInteger,      ///< 32-bit signed integer
    kCurrency,     ///< fixed point, four decimals
    kDate,         ///< a date with a time of day; null where none is known
    kDateOrNull,   ///< a date, null, or a text
    kIndex,        ///< a 1-based position or a key
    kObject,       ///< an object of the class that the type names; may be none where documented
    kEnumeration,  ///< a value of the enumeration that the type names
    kEnumerator,   ///< what walks over a collection's items
};

/// "text", "int16": as descriptions name it.
std::string_view type_kind_name(TypeKind kind);

struct Type {
    TypeKind kind = TypeKind::kNothing;
    /// The class of an object or the enumeration of a value; "Object" for an object whose class
    /// depends on the call.
    std::string_view name = {};
    /// An object may be none.
    bool may_be_none = false;

    bool operator==(const Type&) const = default;
};

enum class MemberKind : std::uint8_t {
    kOperation,
    kReadOnly,   ///< a property that hosts read
    kReadWrite,  ///< a property; assigned by reference when it is an object
    kWriteOnly,  ///< a property that hosts only assign
};

/// "operation", "read-write": as descriptions name it.
std::string_view member_kind_name(MemberKind kind);

struct Argument {
    std::string_view name;
    Type type;
    std::string_view meaning;
    bool optional = false;
    /// What an optional argument stands for when it is left out, as text: "True", "0", "".
    std::string_view default_value = {};
};

/// The id of a collection's default member and of its enumerator, fixed by the platform; ids of
/// rows count from 1, those of listed properties from kFirstPropertyId, so that neither moves when
/// the other grows.
inline constexpr std::int32_t kDefaultMemberId = 0;
inline constexpr std::int32_t kNewEnumId = -4;
inline constexpr std::int32_t kFirstPropertyId = 1000;

/// No member takes more arguments, the value that is written included.
inline constexpr std::size_t kMostArguments = 4;

/// How a listed property is read, of a record that is at hand.
using Peek = Value (*)(const void* record, const void* property);

/// Where a collection has the item at a 1-based position; raises the not-found error outside.
using ItemAt = const void* (*)(const Object& collection, std::int32_t position);

/// How a member is reached, with its arguments complete and of their types; `property` is the row
/// of a listed one.
using Thunk = Variant (*)(const Object& self, const void* property, std::span<Variant> arguments);

struct Class;

struct Member {
    std::string_view name;
    MemberKind kind = MemberKind::kOperation;
    std::int32_t dispatch_id = 0;
    /// The result of an operation, the value of a property.
    Type type;
    std::vector<Argument> arguments;
    std::string_view meaning;
    Thunk read = nullptr;   ///< reads the property or runs the operation; null: only written
    Thunk write = nullptr;  ///< takes the value behind the arguments; null: not written
    const void* property = nullptr;     ///< the row of a listed one
    Peek peek = nullptr;                ///< the short way to a listed property
    ItemAt item_at = nullptr;           ///< the short way to a collection's items
    const Class* item_class = nullptr;  ///< which are of this class
    /// The number of the error that it raises; 0 for none.
    std::int32_t raises = 0;

    bool is_default() const { return dispatch_id == kDefaultMemberId; }
};

/// Hashes and compares names of members and classes in any letter case; they are ASCII.
struct NameHash {
    std::size_t operator()(std::string_view name) const;
};
struct SameName {
    bool operator()(std::string_view left, std::string_view right) const;
};

struct Class {
    std::string_view name;
    std::string_view meaning;
    /// Makes one for a host that creates it itself; null for what is handed out by these.
    Object (*create)() = nullptr;
    std::vector<Member> members;

    /// The member with this name in any letter case, or with this id; null when there is none.
    const Member* find(std::string_view member_name) const;
    const Member* find(std::int32_t id) const;

  private:
    friend struct Library;
    void index();

    std::unordered_map<std::string_view, const Member*, NameHash, SameName> by_name_;
    std::vector<const Member*> by_id_;             ///< from kNewEnumId
    std::vector<const Member*> properties_by_id_;  ///< from kFirstPropertyId
};

struct EnumerationValue {
    std::string_view name;
    std::int32_t value;
    std::string_view meaning;
};

struct Enumeration {
    std::string_view name;
    std::string_view meaning;
    std::span<const EnumerationValue> values;
};

/// The type library.
struct Library {
    Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    std::string_view name = "ZRCreditBureau5";
    std::string_view version = "1.0";
    std::vector<Class> classes;
    std::vector<Enumeration> enumerations;

    /// The class with this name in any letter case, with or without the library's before it; null
    /// when there is none.
    const Class* find(std::string_view class_name) const;
};

/// The description, made on first use and never changed.
const Library& library();

}  // namespace zr::automation
