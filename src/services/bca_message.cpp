#include "services/bca_message.h"

#include "services/message_writing.h"
#include "values/regional_format.h"
#include "values/text.h"

namespace zr {
namespace {

std::string transaction_reference(const BcaSender& sender, const BcaEnvelope& envelope,
                                  const Request& request) {
    const std::string_view own =
        text::cut(request.TransactionReference(), envelope.transaction_reference_length);
    return own.empty() ? RegionalFormat(envelope.time_stamp).format(sender.now) : std::string(own);
}

void write_service_head(ZRXMLBuilder& builder, const BcaSender& sender, const BcaEnvelope& envelope,
                        std::string_view service_code) {
    const auto write_client_reference_at = [&](BcaEnvelope::ClientReference place) {
        if (envelope.client_reference == place) {
            builder.WriteTagWithText("BCAservice-client-ref", sender.client_reference);
        }
    };
    write_client_reference_at(BcaEnvelope::ClientReference::kBeforeServiceCode);
    builder.WriteTagWithText("BCAservice-code", service_code);
    builder.WriteTagWithText("BCAservice-code-version", "V00");
    write_client_reference_at(BcaEnvelope::ClientReference::kAfterVersion);
}

}  // namespace

std::string bca_message(const BcaSender& sender, const BcaEnvelope& envelope,
                        std::string_view service_code,
                        const std::function<void(ZRXMLBuilder&)>& write_request) {
    ZRXMLBuilder builder;
    builder.EncodeOptions(zreXMLBuilderEncodeOptions::zreXMLBuilderEncodeOptionsNonASCII);
    {
        const XmlElement message(builder, "BCAmessage");
        builder.WriteAttribute("type", "REQUEST");
        {
            const XmlElement access(builder, "BCAaccess");
            builder.WriteTagWithText("BCAaccess-code", sender.user_id);
            builder.WriteTagWithText("BCAaccess-pwd", sender.user_password);
        }
        const XmlElement service(builder, "BCAservice");
        write_service_head(builder, sender, envelope, service_code);
        if (write_request) {
            const XmlElement data(builder, "BCAservice-data");
            const XmlElement request(builder, "request");
            write_request(builder);
        } else {
            builder.WriteTagWithText("BCAservice-data", "");
        }
    }
    return builder.XML(true);
}

void write_mode(ZRXMLBuilder& builder, const BcaSender& sender) {
    builder.WriteAttribute("mode", sender.test_mode ? "test" : "production");
}

void write_request_attributes(ZRXMLBuilder& builder, const BcaSender& sender,
                              const BcaEnvelope& envelope, const Request& request,
                              std::string_view version) {
    builder.WriteAttribute("version", version);
    write_mode(builder, sender);
    builder.WriteAttribute("transaction-reference",
                           transaction_reference(sender, envelope, request));
}

}  // namespace zr
