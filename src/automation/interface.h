// The one description of the public interface, from which every binding is made: the classes that
// hosts see, their members with dispatch ids and types, and the enumerations.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zr::automation {

enum class TypeKind : std::uint8_t {
    kNothing,      ///< an operation without a result
    kText,         ///< Unicode text
    kBoolean,      ///< true is -1 to automation hosts
    kCount,        ///< 16-bit signed integer
    kInteger,      ///< 32-bit signed integer
    kCurrency,     ///< fixed point, four decimals
    kDate,         ///< a date with a time of day
    kDateOrNull,   ///< a date, null, or a text
    kIndex,        ///< a 1-based position or a key
    kObject,       ///< an object of the class that the type names; may be none where documented
    kEnumeration,  ///< a value of the enumeration that the type names
    kEnumerator,   ///< what walks over a collection's items
};

struct Type {
    TypeKind kind = TypeKind::kNothing;
    /// The class of an object or the enumeration of a value; "Object" for an object whose class
    /// depends on the call.
    std::string_view name = {};

    bool operator==(const Type&) const = default;
};

enum class MemberKind : std::uint8_t {
    kOperation,
    kReadOnly,   ///< a property that hosts read
    kReadWrite,  ///< a property; assigned by reference when it is an object
    kWriteOnly,  ///< a property that hosts only assign
};

struct Argument {
    std::string_view name;
    Type type;
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

struct Member {
    std::string_view name;
    MemberKind kind = MemberKind::kOperation;
    std::int32_t dispatch_id = 0;
    /// The result of an operation, the value of a property.
    Type type;
    std::vector<Argument> arguments;
    std::string_view meaning;

    bool is_default() const { return dispatch_id == kDefaultMemberId; }
};

struct Class {
    std::string_view name;
    std::string_view meaning;
    /// Hosts create it themselves; every other class is handed out by these.
    bool creatable = false;
    std::vector<Member> members;

    /// The member with this name in any letter case; null when there is none.
    const Member* find(std::string_view member_name) const;
};

struct EnumerationValue {
    std::string_view name;
    std::int32_t value;
};

struct Enumeration {
    std::string_view name;
    std::span<const EnumerationValue> values;
};

/// The type library.
struct Library {
    std::string_view name;
    std::int16_t major_version;
    std::int16_t minor_version;
    std::vector<Class> classes;
    std::vector<Enumeration> enumerations;

    /// The class with this name in any letter case; null when there is none.
    const Class* find(std::string_view class_name) const;
};

/// The description, made on first use and never changed.
const Library& library();

}  // namespace zr::automation
