// Who an enquiry is about, and which file the bureau finds for them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "bureau_gateway/australia/file.h"
#include "bureau_gateway/message/xml_reader.h"

namespace zr::gateway::australia {

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

/// What a surname asks for, instead of a report that follows from the applicant's details.
struct Demonstration {
    bool refused = false;
    bool invalid = false;
    std::size_t large_bytes = 0;  ///< at least so large a report; 0: as it comes
    std::string fault;            ///< a fault in the form of --fault; "" for none
};

/// What the surname asks for; nothing for ordinary surnames.
Demonstration demonstration(std::string_view family_name);

/// The file of a person, told by family name, first name and date of birth.
FileKey key_of_person(const PersonName& name, std::optional<Date> date_of_birth);

/// The file that has this reference.
FileKey key_of_reference(std::string_view reference);

/// The individual as the request gives it.
Individual read_individual(const Element& individual, Date today);

}  // namespace zr::gateway::australia
