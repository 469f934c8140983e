// The Australian desk: credit enquiries on individuals, organisation searches, connection tests.
#pragma once

#include <array>

#include "bureau_gateway/desk.h"

namespace zr::gateway::australia {

Answer answer(const Enquiry& enquiry);

inline constexpr std::array kServices = {
    ServiceRow{"BCA001", "V00"},
    ServiceRow{"BCA003", "V00"},
    ServiceRow{"BCA020", "V00"},
    ServiceRow{"PING", "V00"},
};
inline constexpr EnvelopeForm kEnvelope{ReferencePlace::kFirst, ""};
inline constexpr Desk kDesk{kEnvelope, kServices, &answer};

}  // namespace zr::gateway::australia
