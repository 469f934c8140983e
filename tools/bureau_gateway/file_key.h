// Which file the bureau finds for a person, and how much is on it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zr::gateway {

/// What decides a file's content. It is all in the file's reference, so an enquiry on a reference
/// finds the records that the enquiry on the person found.
struct FileKey {
    std::string reference;
    std::uint64_t seed = 0;
    int burden = 0;  ///< how much is on file: clean, average, heavy
    bool possible_match = false;
};

inline constexpr const char* kBurdens[] = {"clean", "average", "heavy"};

/// The reference of a person's file; "" for nobody.
std::string reference_of_person(std::string_view family, std::string_view first,
                                std::string_view date_of_birth);

/// A reference whose file has so much on it.
std::string reference_of(int burden, std::uint64_t number);

/// The file of a reference; any text is one.
FileKey key_of(std::string_view reference);

}  // namespace zr::gateway
