// The live Australian VedaXML service.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/secret.h"
#include "services/vedaxml_service.h"

namespace zr {

struct AustralianSender;

/// Consumer and commercial enquiries about a person, company searches and the connection test over
/// the Australian VedaXML gateway.
class ServiceVedaXMLAU final : public VedaXmlService {
  public:
    ServiceVedaXMLAU() = default;
    ~ServiceVedaXMLAU() override { wipe(subscriber_security_code_); }
    ServiceVedaXMLAU(const ServiceVedaXMLAU&) = delete;
    ServiceVedaXMLAU& operator=(const ServiceVedaXMLAU&) = delete;

    std::string_view ServiceName() const override { return "VedaXMLAU"; }
    std::string_view ServiceNameFriendly() const override {
        return "Veda Advantage VedaXML (Australia)";
    }
    std::string_view DefaultRequestURL() const override;
    std::string_view DefaultRequestURLTest() const override;

    /// Sent as the subscriber's identifier; starts empty.
    const std::string& SubscriberId() const { return subscriber_id_; }
    void SubscriberId(std::string_view id) { subscriber_id_ = id; }

    /// Sent as the subscriber's security code; starts empty.
    const std::string& SubscriberSecurityCode() const { return subscriber_security_code_; }
    void SubscriberSecurityCode(std::string_view code) { subscriber_security_code_ = code; }

    std::span<const Property<Service>> settings() const override;

    // Component-internal: the facade calls these.
    bool VerifyConnection() override;
    const Translator& translator() const override;

  protected:
    bool build_catalogue() override;
    bool BuildCreditEnquiryXML(Request& request) override;
    std::string_view missing_company() const override;
    bool BuildGetListXML(Request& request) override;
    void add_company_selections(CompanySelections& selections, XmlNode root) const override;

  private:
    AustralianSender sender() const;

    std::string subscriber_id_;
    std::string subscriber_security_code_;
};

}  // namespace zr
