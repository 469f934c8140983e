// What the live VedaXML services have in common: settings, exchange and the round trip.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/http.h"
#include "services/bca_message.h"
#include "services/reply_service.h"
#include "services/service_settings.h"
#include "values/text.h"
#include "xml/xml_document.h"

namespace zr {

/// A service that talks to a VedaXML gateway.
class VedaXmlService : public ReplyService {
  public:
    VedaXmlService() = default;
    ~VedaXmlService() override;  // wipes the passwords
    VedaXmlService(const VedaXmlService&) = delete;
    VedaXmlService& operator=(const VedaXmlService&) = delete;

    // Name() reads and Name(value) writes each setting of the list.
#define ZR_SETTING_READ_Text(Name) \
    const std::string& Name() const { return Name##_; }
#define ZR_SETTING_READ_Reference(Name) ZR_SETTING_READ_Text(Name)
#define ZR_SETTING_READ_Boolean(Name) \
    bool Name() const { return Name##_; }
#define ZR_SETTING_READ_Seconds(Name) \
    std::int16_t Name() const { return Name##_; }
#define ZR_SETTING_WRITE_Text(Name) \
    void Name(std::string_view value) { Name##_ = value; }
#define ZR_SETTING_WRITE_Reference(Name) \
    void Name(std::string_view value) { Name##_ = text::cut(value, kClientReferenceLength); }
#define ZR_SETTING_WRITE_Boolean(Name) \
    void Name(bool value) { Name##_ = value; }
#define ZR_SETTING_WRITE_Seconds(Name)                                                             \
    void Name(std::int64_t value) {                                                                \
        Name##_ = std::clamp(property_detail::to_count(value), kShortestTimeOut, kLongestTimeOut); \
    }
#define ZR_SETTING(Kind, Name, meaning) ZR_SETTING_READ_##Kind(Name) ZR_SETTING_WRITE_##Kind(Name)
#include "services/vedaxml_settings.inc"
#undef ZR_SETTING

    // Set by the host; texts start empty, TimeOutSeconds at 30.

    /// The bureau's endpoints for this service, used when RequestURL or RequestURLTest is empty.
    virtual std::string_view DefaultRequestURL() const = 0;
    virtual std::string_view DefaultRequestURLTest() const = 0;

    bool Obsolete() const override { return false; }

    // Component-internal: the facade calls these.

    bool CreditEnquiry(Request& request) override;
    bool GetList(Request& request) override;

  protected:
    /// Composes the credit enquiry into the request's RequestXML; false after storing the reason
    /// where the request cannot be sent.
    virtual bool BuildCreditEnquiryXML(Request& request) = 0;

    /// The message for a company search that names no company.
    virtual std::string_view missing_company() const = 0;

    /// Composes the company search into the request's RequestXML; false after storing the reason
    /// where the request cannot be sent.
    virtual bool BuildGetListXML(Request& request) = 0;

    /// Adds a selection for each candidate of a checked reply to a company search.
    virtual void add_company_selections(CompanySelections& selections, XmlNode root) const = 0;

    /// The sender of a document that is composed now.
    BcaSender bca_sender() const;

    /// Sends the request's document and checks the reply, whose text is left in the response: the
    /// parsed reply, or nothing after storing the reason.
    std::optional<XmlDocument> ExecuteRequest(Request& request);

  private:
    static constexpr std::size_t kClientReferenceLength = 16;
    static constexpr std::int16_t kShortestTimeOut = 30;
    static constexpr std::int16_t kLongestTimeOut = 300;

    std::string address() const;
    HttpRequest http_request(const Request& request) const;

#define ZR_SETTING_STORE_Text(Name) std::string Name##_;
#define ZR_SETTING_STORE_Reference(Name) std::string Name##_;
#define ZR_SETTING_STORE_Boolean(Name) bool Name##_ = false;
#define ZR_SETTING_STORE_Seconds(Name) std::int16_t Name##_ = kShortestTimeOut;
#define ZR_SETTING(Kind, Name, meaning) ZR_SETTING_STORE_##Kind(Name)
#include "services/vedaxml_settings.inc"
#undef ZR_SETTING
};

/// Rows of the settings that every VedaXML service has, then those of its own.
std::vector<Property<Service>> vedaxml_settings(std::initializer_list<Property<Service>> own);

}  // namespace zr
