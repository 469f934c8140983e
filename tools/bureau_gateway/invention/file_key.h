// Which file the bureau finds for a person, and how much is on it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bureau_gateway/dates.h"

namespace zr::gateway {

struct PersonName {
    std::string family;
    std::string first;
    std::string other;
};

/// How much is on a file.
enum class Burden { kClean, kAverage, kHeavy };

/// What decides a file's content. It is all in the bureau reference, so an enquiry on a reference
/// finds the records that the enquiry on the person found.
struct FileKey {
    std::uint64_t seed = 0;
    Burden burden = Burden::kAverage;
    bool possible_match = false;
    std::string reference;
};

/// The file of a person, told by family name, first name and date of birth.
FileKey key_of_person(const PersonName& name, std::optional<Date> date_of_birth);

/// The file that has this reference.
FileKey key_of_reference(std::string_view reference);

}  // namespace zr::gateway
