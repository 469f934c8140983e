// The New Zealand desk: enquiries on individuals and companies, company searches, connection tests.
#pragma once

#include <array>

#include "bureau_gateway/desk.h"

namespace zr::gateway::new_zealand {

Answer answer(const Enquiry& enquiry);

inline constexpr std::array kServices = {
    ServiceRow{"BCA011", "V00"},
    ServiceRow{"PING", "V00"},
};
inline constexpr EnvelopeForm kEnvelope{ReferencePlace::kLast, "PING"};
inline constexpr Desk kDesk{kEnvelope, kServices, &answer};

}  // namespace zr::gateway::new_zealand
