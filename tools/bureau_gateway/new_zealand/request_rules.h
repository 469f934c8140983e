// What a New Zealand request must look like.
#pragma once

#include <vector>

#include "bureau_gateway/message/envelope.h"
#include "bureau_gateway/message/schema.h"

namespace zr::gateway::new_zealand {

namespace products {
inline constexpr std::string_view kIndividual = "consumer-enquiry-nz";
inline constexpr std::string_view kCompany = "company-enquiry";
inline constexpr std::string_view kCompanyWithDirectors =
    "company-plus-enquiry-with-director-checks";
inline constexpr std::string_view kCompanySearch = "company-selection-list";
}  // namespace products

/// The product that a request names; "" for none.
std::string_view product_of(const Element& request);

/// Complaints about a request of any product.
std::vector<Violation> check_request(const Element& request);

}  // namespace zr::gateway::new_zealand
