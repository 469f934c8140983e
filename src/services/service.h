// The common outward shape of the bureau services.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "records/products.h"
#include "records/property.h"
#include "records/request.h"
#include "services/service_context.h"
#include "values/date_time.h"
#include "xml/xml_document.h"

namespace zr {

/// One bureau interface: its settings, its catalogue, and the operations behind the facade's.
class Service {
  public:
    Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    virtual ~Service() = default;

    /// What the service is called by in code: in `Services` and `Request.ServiceName`.
    virtual std::string_view ServiceName() const = 0;
    /// The name to display.
    virtual std::string_view ServiceNameFriendly() const = 0;
    /// The facade refuses enquiries of obsolete services; stored replies are still translated.
    virtual bool Obsolete() const = 0;

    /// The facade; none before the service is initialised and after it is disposed of.
    ZRCreditBureau* Application() const;
    /// The product catalogue; empty after Dispose.
    const zr::Products& Products() const { return products_; }
    /// The service-level code tables by name; empty after Dispose.
    const CodeTableCollection& CodeTables() const { return code_tables_; }

    /// The public settings of the service by name, readable and where hosts may, writable.
    virtual std::span<const Property<Service>> settings() const = 0;

    /// Releases the catalogue, the code tables and the reference to the facade. The settings stay
    /// readable.
    virtual void Dispose();

    // Component-internal: the registry and the facade call these.

    /// Builds the catalogue; called once by the registry. The result is that of the build.
    bool Initialise(ServiceContext& context);

    /// The service's side of the facade's operations; each stores its reason with SetErrorMessage
    /// where it answers false. A service without transport answers true to the first three.
    virtual bool CreditEnquiry(Request& request);
    virtual bool GetList(Request& request);
    virtual bool VerifyConnection();
    virtual bool BuildResponse(Request& request, DateTime response_date,
                               const std::string& response_xml) = 0;

  protected:
    /// Fills the catalogue and the code tables.
    virtual bool build_catalogue() = 0;

    /// The facade as services see it; raises an error once the service is disposed of.
    ServiceContext& context() const;
    zr::Products& products() { return products_; }
    CodeTableCollection& code_tables() { return code_tables_; }

  private:
    ServiceContext* context_ = nullptr;
    zr::Products products_;
    CodeTableCollection code_tables_;
};

}  // namespace zr
