// What the live VedaXML services have in common: the exchange and the round trip.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "services/bca_message.h"
#include "services/service_engine.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/http.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr {

/// Talks to a VedaXML gateway.
class VedaXmlEngine : public ServiceEngine {
  public:
    VedaXmlEngine(const VedaXmlService& settings, const ServiceDefinition& definition,
                  ServiceContext& context)
        : ServiceEngine(settings, definition, context), settings_(settings) {}

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
    std::string address() const;
    void fill_http(HttpRequest& http, const Request& request) const;

    const VedaXmlService& settings_;
};

/// What reads a service's replies, compiled once against one table of names.
template <ReportDefinition (*report)(), class SearchPaths>
struct VedaXmlReading {
    Translator translator{report()};
    SearchPaths search{translator.names()};

    static const VedaXmlReading& only() {
        static VedaXmlReading reading;
        return reading;
    }
};

/// Rows of the settings that every VedaXML service has, then those of its own.
std::vector<Property<Service>> vedaxml_settings(std::span<const Property<Service>> own);

}  // namespace zr
