// The live services, which ask the bureau over HTTPS.
#pragma once

#include <cstdint>
#include <string_view>

#include "zrcreditbureau/service.h"

namespace zr {

namespace kind {

/// A reference of which the bureau takes 16 characters: the rest is cut, and blanks at the end.
struct Reference : Text {
    static std::string_view kept(TextArg text);
};

/// Seconds from 30 to 300; what is beyond stays at the end.
struct Seconds : Count {
    static std::int16_t kept(NumberArg seconds);
};

}  // namespace kind

/// What both countries' services are told before they ask. Texts start empty.
class VedaXmlService : public Service {
  public:
    /// The host's own mark, sent with every message.
    Writable<kind::Reference> ClientReference;

    /// "" for none, "[PRECONFIG]" for the one that the machine is set up with, else host:port.
    Writable<kind::Text> ProxyServer;
    /// Who the proxy is told is asking; "" for a proxy that wants no name and no password.
    Writable<kind::Text> ProxyUserName;
    Writable<kind::Secret> ProxyPassword;

    /// Where enquiries go, in test mode and else; the default address where it is empty.
    Writable<kind::Text> RequestURL;
    Writable<kind::Text> RequestURLTest;
    /// The addresses that the component was built with.
    std::string_view DefaultRequestURL() const { return default_url_; }
    std::string_view DefaultRequestURLTest() const { return default_url_test_; }

    /// How long each phase of an exchange may take; starts as 30.
    Writable<kind::Seconds> TimeOutSeconds{30};

    /// Who the bureau is told is asking.
    Writable<kind::Text> UserId;
    Writable<kind::Secret> UserPassword;

    /// Kept for the host; the component does not read it.
    Writable<kind::Flag> WarnOnCharge;

  protected:
    VedaXmlService(std::string_view default_url, std::string_view default_url_test)
        : default_url_(default_url), default_url_test_(default_url_test) {}

  private:
    std::string_view default_url_;
    std::string_view default_url_test_;
};

/// Consumer and commercial enquiries about a person, company searches and the connection test in
/// Australia.
class ServiceVedaXMLAU final : public VedaXmlService {
  public:
    /// The lender's subscription.
    Writable<kind::Text> SubscriberId;
    Writable<kind::Secret> SubscriberSecurityCode;

  private:
    friend struct Component;
    ServiceVedaXMLAU();
};

/// Enquiries about a person, a company or a company and its directors, company searches and the
/// connection test in New Zealand.
class ServiceVedaXMLNZ final : public VedaXmlService {
  public:
    /// The lender as the bureau's client.
    Writable<kind::Text> ClientId;
    /// Whether the records of the directors that come with a company's report are counted into the
    /// company's own; starts as false.
    Writable<kind::Flag> CompanyAddDirectorsStatistics;
    /// Who at the lender asks.
    Writable<kind::Text> OperatorId;

  private:
    friend struct Component;
    ServiceVedaXMLNZ();
};

}  // namespace zr
