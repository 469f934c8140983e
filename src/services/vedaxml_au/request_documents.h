// The documents that the Australian service sends, in the bureau's BCAmessage envelope.
#pragma once

#include <string>
#include <string_view>

#include "services/bca_message.h"
#include "zrcreditbureau/products.h"
#include "zrcreditbureau/request.h"

namespace zr {

/// What a document says about the sender.
struct AustralianSender {
    BcaSender bca;
    std::string_view subscriber_id;
    std::string_view subscriber_security_code;
};

/// The credit enquiry for a request on one of the catalogue's products.
std::string australian_credit_enquiry(const AustralianSender& sender, const Request& request,
                                      const Product& product, const CodeTableItems& street_types);

/// The organisation identification request of a company search.
std::string australian_organisation_search(const AustralianSender& sender, const Request& request);

/// The connection test.
std::string australian_ping(const AustralianSender& sender);

}  // namespace zr
