// Texts of the command line as the values that a job document would hold.
#pragma once

#include <string>
#include <string_view>

#include "automation/json.h"
#include "cli/job.h"
#include "zrcreditbureau/property.h"

namespace zr::cli {

/// The text as a JSON value of this type. Throws MisuseError, naming the option and not the text,
/// when it does not read as one.
automation::JsonValue option_value(ValueType type, const std::string& text,
                                   const std::string& option);

/// Appends a member to an object.
void add_member(automation::JsonValue& object, std::string_view name, automation::JsonValue value);

/// Reads a --request file, a job document or the properties of a request, into the job. Throws
/// MisuseError.
void read_request_file(const std::string& path, Job& job);

/// Reads a --settings file, settings by service name or the same under "Services". Throws
/// MisuseError.
void read_settings_file(const std::string& path, Job& job);

}  // namespace zr::cli
