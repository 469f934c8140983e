// Surnames that ask for something particular instead of a report that follows from the details.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "bureau_gateway/desk.h"

namespace zr::gateway {

/// What a surname asks for, instead of a report that follows from the applicant's details.
struct Demonstration {
    bool refused = false;
    bool invalid = false;
    std::size_t large_bytes = 0;  ///< at least so large a report; 0: as it comes
    std::string fault;            ///< a fault in the form of --fault; "" for none
};

/// What the surname asks for; nothing for ordinary surnames.
Demonstration demonstration(std::string_view family_name);

/// Answers as the surname asks: refused, with `reject`, or with `report` and perhaps a fault.
Answer demonstrate(const Enquiry& enquiry, const Demonstration& wanted,
                   const std::function<Answer()>& reject, const std::function<Answer()>& report);

}  // namespace zr::gateway
