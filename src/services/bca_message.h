// The bureau's BCAmessage envelope, which every VedaXML document travels in.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "zrcreditbureau/date_time.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/zr_xml_builder.h"

namespace zr {

/// What an envelope says about the sender. The texts are the service's.
struct BcaSender {
    std::string_view user_id;
    std::string_view user_password;
    std::string_view client_reference;
    bool test_mode;
    DateTime now;  ///< stamps a document whose request has no transaction reference
};

/// What the countries' gateways have different.
struct BcaEnvelope {
    enum class ClientReference { kBeforeServiceCode, kAfterVersion };
    ClientReference client_reference;
    std::size_t transaction_reference_length;
    std::string_view time_stamp;  ///< the pattern of what stands in for an empty reference
};

/// A whole document: the envelope around the `request` element whose attributes and content
/// `write_request` writes. Without one, the envelope's data is empty.
std::string bca_message(const BcaSender& sender, const BcaEnvelope& envelope,
                        std::string_view service_code,
                        const std::function<void(ZRXMLBuilder&)>& write_request);

/// The attribute that tells a test from an enquiry in earnest.
void write_mode(ZRXMLBuilder& builder, const BcaSender& sender);

/// The attributes of the `request` element just opened.
void write_request_attributes(ZRXMLBuilder& builder, const BcaSender& sender,
                              const BcaEnvelope& envelope, const Request& request,
                              std::string_view version);

}  // namespace zr
