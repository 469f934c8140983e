// What the live VedaXML services have in common: settings, exchange and the round trip.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "services/common/reply_reader.h"
#include "services/common/service.h"

namespace zr {

/// A service that talks to a VedaXML gateway.
class VedaXmlService : public Service {
  public:
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
#define ZR_SETTING_WRITE_Seconds(Name)                                  \
    void Name(std::int16_t value) {                                     \
        Name##_ = std::clamp(value, kShortestTimeOut, kLongestTimeOut); \
    }
#define ZR_SETTING(Kind, Name, meaning) ZR_SETTING_READ_##Kind(Name) ZR_SETTING_WRITE_##Kind(Name)
#include "services/common/vedaxml_settings.inc"
#undef ZR_SETTING

    /// The bureau's endpoints for this service, used when RequestURL or RequestURLTest is empty.
    virtual std::string_view DefaultRequestURL() const = 0;
    virtual std::string_view DefaultRequestURLTest() const = 0;

    bool Obsolete() const override { return false; }

    // Component-internal: the facade calls these.

    bool CreditEnquiry(Request& request) override;
    bool BuildResponse(Request& request, const DateTime& response_date,
                       const std::string& response_xml) override;

  protected:
    /// Composes the credit enquiry into the request's RequestXML.
    virtual void BuildCreditEnquiryXML(Request& request) = 0;

    /// Parses a reply and checks it for the bureau's errors; stores the reason where there is no
    /// document.
    virtual std::optional<XmlDocument> LoadResponseXML(std::string_view response_xml) = 0;

    /// Fills the response, whose document fields are set already, from a checked reply.
    virtual void translate(Request& request, const DateTime& response_date, XmlNode root) = 0;

    /// Sends the request's document and checks the reply, whose text is left in the response. The
    /// parsed reply, or nothing after storing the reason.
    std::optional<XmlDocument> ExecuteRequest(Request& request);

    /// The transaction reference of a document: the request's own, else a time stamp.
    std::string transaction_reference(const Request& request) const;

    /// "test" or "production".
    std::string_view mode() const { return context().TestMode() ? "test" : "production"; }

  private:
    static constexpr std::size_t kClientReferenceLength = 16;
    static constexpr std::int16_t kShortestTimeOut = 30;
    static constexpr std::int16_t kLongestTimeOut = 300;

    /// Clears the response and sets the fields that every translation sets, faulty reply or not.
    void begin_response(Request& request, const DateTime& response_date,
                        const std::string& response_xml);
    std::string address() const;
    HttpRequest http_request(const Request& request) const;

#define ZR_SETTING_STORE_Text(Name) std::string Name##_;
#define ZR_SETTING_STORE_Reference(Name) std::string Name##_;
#define ZR_SETTING_STORE_Boolean(Name) bool Name##_ = false;
#define ZR_SETTING_STORE_Seconds(Name) std::int16_t Name##_ = kShortestTimeOut;
#define ZR_SETTING(Kind, Name, meaning) ZR_SETTING_STORE_##Kind(Name)
#include "services/common/vedaxml_settings.inc"
#undef ZR_SETTING
};

}  // namespace zr
