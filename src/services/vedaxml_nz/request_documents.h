// The documents that the New Zealand service sends, in the bureau's BCAmessage envelope.
#pragma once

#include <string>
#include <string_view>

#include "services/bca_message.h"
#include "zrcreditbureau/products.h"
#include "zrcreditbureau/request.h"

namespace zr {

/// What a document says about the sender.
struct NewZealandSender {
    BcaSender bca;
    std::string_view client_id;
    std::string_view operator_id;
};

/// Why an enquiry cannot be sent as it stands, "" when it can. Only enquiries about a person are
/// checked.
std::string_view new_zealand_enquiry_fault(const Request& request);

/// The credit enquiry for a request on one of the catalogue's products. A product whose id is not
/// spelled as the catalogue spells it has no content.
std::string new_zealand_credit_enquiry(const NewZealandSender& sender, const Request& request,
                                       const Product& product, const CodeTableItems& street_types);

/// The company search, on behalf of one of the catalogue's products.
std::string new_zealand_company_search(const NewZealandSender& sender, const Request& request,
                                       const Product& product);

/// The connection test.
std::string new_zealand_ping(const NewZealandSender& sender);

}  // namespace zr
