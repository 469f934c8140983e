// Words that the reports of every country are made of. All of it is invented.
#pragma once

#include <span>
#include <string_view>

namespace zr::gateway {

struct GivenName {
    std::string_view name;
    std::string_view gender;
};

namespace words {
std::span<const GivenName> given_names();
std::span<const std::string_view> family_names();
std::span<const std::string_view> employers();
std::span<const std::string_view> occupations();
std::span<const std::string_view> credit_providers();
}  // namespace words

}  // namespace zr::gateway
