// What works behind a service that hosts see: its catalogue, and the operations behind the
// facade's.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "records/component.h"
#include "records/property_rows.h"
#include "services/catalogue_rows.h"
#include "services/service_context.h"
#include "services/translator.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/service.h"

namespace zr {

/// A service as data.
struct ServiceDefinition {
    std::string_view country;
    std::string_view name;
    std::string_view friendly_name;
    bool obsolete = false;
    const CatalogueRows* catalogue = nullptr;
    const Translator& (*translator)() = nullptr;
    std::span<const Property<Service>> (*settings)() = nullptr;
    /// What hosts see of the service, with its engine behind it.
    std::shared_ptr<Service> (*make)(const ServiceDefinition&, ServiceContext&) = nullptr;
};

/// The products and code tables of a service.
struct Catalogue {
    explicit Catalogue(const ServiceDefinition& definition);
    const std::shared_ptr<Products> products = Component::make<Products>();
    const std::shared_ptr<CodeTableCollection> code_tables = Component::make<CodeTableCollection>();
};

class ServiceEngine {
  public:
    ServiceEngine(const Service& face, const ServiceDefinition& definition,
                  ServiceContext& context);
    ServiceEngine(const ServiceEngine&) = delete;
    ServiceEngine& operator=(const ServiceEngine&) = delete;
    virtual ~ServiceEngine() = default;

    /// `Face` is what hosts see, `Engine` is made of it, the definition and the context.
    template <class Face, class Engine>
    static std::shared_ptr<Service> make(const ServiceDefinition& definition,
                                         ServiceContext& context) {
        auto face = Component::make<Face>();
        face->engine_ = std::make_unique<Engine>(*face, definition, context);
        return face;
    }

    static ServiceEngine& of(const Service& service) { return *service.engine_; }

    const ServiceDefinition& definition() const { return definition_; }

    /// Has stored replies read by another translator of the same definition, one that tells a
    /// watch; by the service's own for null.
    void read_with(const Translator* reader) { reader_ = reader; }

    /// What the component looks things up in: what hosts were given of it, or else what the
    /// services of all facades share; empty once the service is disposed of.
    const Catalogue& catalogue() const { return *catalogue_; }

    /// The service's side of the facade's operations; each stores its reason with SetErrorMessage
    /// where it answers false. A service without transport answers true to the first three.
    virtual bool CreditEnquiry(Request& /*request*/) { return true; }
    virtual bool GetList(Request& /*request*/) { return true; }
    virtual bool VerifyConnection() { return true; }
    bool BuildResponse(Request& request, DateTime response_date, std::string_view response_xml);

  protected:
    /// Whether a company's figures include those of its directors.
    virtual bool counts_directors() const { return false; }

    /// The facade as services see it; raises an error once the service is disposed of.
    ServiceContext& context() const;

    /// Stores the reason and answers false.
    bool fail(std::string message, Failure failure);

    /// Parses and checks a reply: the document, or nothing after storing the reason.
    std::optional<XmlDocument> LoadResponseXML(std::string_view response_xml);

    /// BuildResponse for a reply that may have been parsed already.
    bool build_response(Request& request, DateTime response_date, std::string response_xml,
                        std::optional<XmlDocument> document);

  private:
    friend class Service;

    /// The rendering of a reply, with what a sheet cannot read in it.
    std::string render(const Request& request, const DateTime& response_date,
                       std::string_view response_xml);
    /// What hosts are given: a catalogue of this service's own, in which they may write codes.
    const Catalogue& own_catalogue();

    const Translator& reader() const {
        return reader_ != nullptr ? *reader_ : definition_.translator();
    }

    const Service& face_;
    const ServiceDefinition& definition_;
    ServiceContext* context_;
    // Held, for a facade may outlive what the process shares.
    std::shared_ptr<const Catalogue> catalogue_;
    std::shared_ptr<const Catalogue> nothing_;  ///< what is there after Dispose
    std::shared_ptr<const Catalogue> own_;
    const Translator* reader_ = nullptr;
};

/// The row of the one setting that every service has.
inline constexpr Property<Service> kXsltFileNameSetting = property<&Service::XSLTFileName>(
    "XSLTFileName", "the style sheet that turns a reply into ResponseHTML");

}  // namespace zr
