// What an Australian request must look like.
#pragma once

#include <vector>

#include "bureau_gateway/message/envelope.h"
#include "bureau_gateway/message/schema.h"

namespace zr::gateway::australia {

/// Complaints about a credit enquiry, also about the service code that it came under.
std::vector<Violation> check_credit_enquiry(const Message& message);

/// Complaints about an organisation identification request.
std::vector<Violation> check_organisation_search(const Message& message);

/// Complaints about a connection test.
std::vector<Violation> check_ping(const Message& message);

}  // namespace zr::gateway::australia
