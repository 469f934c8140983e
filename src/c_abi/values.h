// Values as C passes them.
#pragma once

#include <array>
#include <span>

#include "automation/interface.h"
#include "zrcreditbureau5.h"

namespace zr::c_abi {

/// A listed property's value for a host, a 16-bit number where it is a count.
zr_value to_c(const Value& value, automation::TypeKind kind);

/// The value for a host: an object becomes a handle that counts, a text a view of `value`.
zr_value to_c(automation::Variant& value);

/// The values that a host passed in, as views of them.
class Given {
  public:
    /// Raises InvocationError for more than any member takes, for what is no value, and for a
    /// handle that stands for nothing.
    explicit Given(std::span<const zr_value> values);
    operator std::span<const automation::Variant>() const { return {values_.data(), size_}; }

  private:
    std::array<automation::Variant, automation::kMostArguments> values_;
    std::size_t size_;
};

}  // namespace zr::c_abi
