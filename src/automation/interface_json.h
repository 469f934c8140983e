// The description as JSON, from which bindings in other languages make their classes.
#pragma once

#include "automation/json.h"

namespace zr::automation {

/// Classes with their members and arguments, and the enumerations, in the order of the interface.
void write_interface(JsonWriter& json);

}  // namespace zr::automation
