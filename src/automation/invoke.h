// Calls members of the interface by their rows: checks what hosts pass in, fills in what they leave
// out, and converts between the types that they may give.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "automation/interface.h"
#include "zrcreditbureau/error.h"

namespace zr::automation {

/// What a host did wrong, by the number that the platform gives to it.
enum class Misuse : std::uint32_t {
    kUnknownClass = 0x80040154,
    kUnknownMember = 0x80020003,
    kUnknownArgument = 0x80020006,
    kWrongType = 0x80020005,
    kOutOfRange = 0x8002000A,
    kWrongCount = 0x8002000E,
    kArgumentMissing = 0x8002000F,
    kNotReadable = 0x800A018A,  ///< 394, as automation hosts number it
    kNotWritable = 0x800A017F,  ///< 383
};

/// A call that never reached the component.
class InvocationError : public PlatformError {
  public:
    InvocationError(Misuse misuse, std::string description);
    Misuse misuse() const { return misuse_; }

  private:
    Misuse misuse_;
};

/// A new object of a class that hosts create, by the class's name with or without the library's
/// before it. Raises InvocationError for any other.
Object create(std::string_view class_name);

/// The member; raises InvocationError when the object's class has none of that name or id.
const Member& member_of(const Object& self, std::string_view name);
const Member& member_of(const Object& self, std::int32_t id);

/// Reads a property or runs an operation. Raises InvocationError for what a host did wrong, else
/// what the member raises. A view in the result is valid until the object is written or let go.
Variant read(const Object& self, const Member& member, std::span<const Variant> given);

/// Writes a property: the value stands behind the arguments.
void write(const Object& self, const Member& member, std::span<const Variant> given);

/// The arguments in their places, of which those from names.size() before the end were given by
/// name, in any letter case. Raises InvocationError for an unknown name and for one given twice.
std::vector<Variant> in_their_places(const Member& member, std::span<const Variant> given,
                                     std::span<const std::string_view> names);

/// A walk over a collection, as an object that hosts hold, and whether an object is one.
Object walk_over(const Object& collection);
bool is_walk(const Object& object);

/// Walks over a collection.
class Walk {
  public:
    explicit Walk(Object collection);
    /// The next item; false behind the last.
    bool next(Variant& item);

  private:
    Object collection_;
    const Member& count_;
    const Member& item_;
    std::int32_t position_ = 0;
};

}  // namespace zr::automation
