// Where the lines and fields of a report come from, to read and for programs.
#pragma once

#include <string>

#include "automation/json.h"
#include "checks/reply_check.h"
#include "zrcreditbureau/response.h"

namespace zr::cli {

/// Each field and line with the places of the reply that it was made of, as line, column and path.
std::string explanation_text(const Response& response, const Explanation& explanation);

/// The same as one object: fields by name, lines in the order of the response's.
void write_explanation(automation::JsonWriter& json, const Explanation& explanation);

}  // namespace zr::cli
