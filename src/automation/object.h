// What passes between a host of another language and the component: objects of the described
// classes, and values.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/date_time.h"

namespace zr {
class Service;
}

namespace zr::automation {

struct Class;

/// An object and the class that hosts see it as. It keeps what it is a part of alive: a line its
/// response, a product its service.
class Object {
  public:
    Object() = default;

    template <class T>
    Object(const Class& type, const std::shared_ptr<T>& instance)
        : type_(&type), instance_(std::const_pointer_cast<Stored<T>>(instance)) {}

    explicit operator bool() const { return instance_ != nullptr; }
    const Class& type() const { return *type_; }

    /// The instance, of which the class has been looked at.
    template <class T>
    T& as() const {
        return static_cast<T&>(*static_cast<Stored<T>*>(instance_.get()));
    }
    template <class T>
    std::shared_ptr<T> shared() const {
        return {instance_, &as<T>()};
    }
    /// Where the instance is: the same for two objects of one class that are the same.
    const void* address() const { return instance_.get(); }

    /// A part of it, which keeps it alive.
    Object part(const Class& type, const void* at) const {
        Object made;
        made.type_ = &type;
        made.instance_ = std::shared_ptr<void>(instance_, const_cast<void*>(at));
        return made;
    }

    bool operator==(const Object& other) const { return instance_ == other.instance_; }

  private:
    /// What the pointer points to: services are held as what they have in common.
    template <class T>
    using Stored = std::conditional_t<std::is_base_of_v<Service, std::remove_const_t<T>>, Service,
                                      std::remove_const_t<T>>;

    const Class* type_ = nullptr;
    std::shared_ptr<void> instance_;
};

/// An argument that is left out; the result of what gives none.
struct Empty {
    constexpr bool operator==(const Empty&) const = default;
};

/// A value that is passed in or given. A view is valid as long as what it was made of.
using Variant = std::variant<Empty, Null, bool, std::int16_t, std::int32_t, double, Currency,
                             DateTime, std::string_view, std::string, Object>;

/// The text in it, which must be one.
inline std::string_view text_in(const Variant& value) {
    const std::string* own = std::get_if<std::string>(&value);
    return own != nullptr ? std::string_view(*own) : std::get<std::string_view>(value);
}

inline bool is_text(const Variant& value) {
    return std::holds_alternative<std::string>(value) ||
           std::holds_alternative<std::string_view>(value);
}

}  // namespace zr::automation
