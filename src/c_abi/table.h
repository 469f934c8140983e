// All items of a collection at once, as text.
#pragma once

#include <cstdint>
#include <span>

#include "automation/object.h"
#include "zrcreditbureau5.h"

namespace zr::c_abi {

/// Reads the members with these ids of every item; `table` is of the object that is given, for as
/// long as it lives. Raises what the members raise, and InvocationError for an unknown one and for
/// one whose values are objects.
automation::Object read_table(const automation::Object& collection,
                              std::span<const std::int32_t> ids, zr_table& table);

}  // namespace zr::c_abi
