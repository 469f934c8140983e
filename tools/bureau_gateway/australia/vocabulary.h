// The words that reports are made of. All of it is invented.
#pragma once

#include <span>
#include <string_view>

#include "bureau_gateway/australia/catalogue.h"
#include "bureau_gateway/invention/words.h"

namespace zr::gateway::australia {

struct Suburb {
    std::string_view name;
    std::string_view state;
    std::string_view postcode;
};
struct Street {
    std::string_view name;
    std::string_view type;  ///< a code
};

namespace words {
using namespace gateway::words;
std::span<const Suburb> suburbs();
std::span<const Street> streets();
std::span<const std::string_view> properties();
std::span<const std::string_view> businesses();
std::span<const std::string_view> courts();
std::span<const std::string_view> default_reasons();
std::span<const std::string_view> file_notes();
std::span<const std::string_view> file_messages();
std::span<const std::string_view> public_messages();
std::span<const std::string_view> states();
std::span<const std::string_view> bankruptcy_narratives();
std::span<const std::string_view> risk_factors();
}  // namespace words

}  // namespace zr::gateway::australia
