// The report style sheets that are installed with the program.
#pragma once

#include <string>
#include <string_view>

namespace zr::cli {

/// The file of the sheet for a service's reports; "" for a service without one, or where the sheets
/// are not installed.
std::string installed_sheet(std::string_view service);

}  // namespace zr::cli
