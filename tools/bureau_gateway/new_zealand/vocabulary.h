// The words that New Zealand reports are made of. All of it is invented.
#pragma once

#include <span>
#include <string_view>

#include "bureau_gateway/invention/words.h"

namespace zr::gateway::new_zealand {

struct Place {
    std::string_view suburb;
    std::string_view city;
};

namespace words {
using namespace gateway::words;
std::span<const Place> places();
std::span<const std::string_view> streets();
std::span<const std::string_view> courts();
std::span<const std::string_view> industries();
std::span<const std::string_view> collectors();
std::span<const std::string_view> notes();
std::span<const std::string_view> narratives();
std::span<const std::string_view> correction_texts();
std::span<const std::string_view> notice_types();
std::span<const std::string_view> general_messages();

/// First words of the names of companies, and what comes second.
std::span<const std::string_view> company_roots();
std::span<const std::string_view> company_trades();
std::span<const std::string_view> company_variants();
}  // namespace words

}  // namespace zr::gateway::new_zealand
