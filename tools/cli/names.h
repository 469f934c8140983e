// Property names in the spellings of the command line: LastName is --last-name, Last Name to read,
// and ZR_LAST_NAME in the environment.
#pragma once

#include <string>
#include <string_view>

namespace zr::cli {

/// "last-name"; a run of capitals is one word: XRMApplicationId is "xrm-application-id".
std::string option_name(std::string_view property);

/// "ZR_LAST_NAME".
std::string environment_name(std::string_view property);

/// "Last Name".
std::string label(std::string_view property);

}  // namespace zr::cli
