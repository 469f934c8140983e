// The common outward shape of the bureau services.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "zrcreditbureau/products.h"
#include "zrcreditbureau/property.h"

namespace zr {

class ServiceEngine;
class ZRCreditBureau;

/// One bureau interface of the facade's country: its settings and its catalogue. Enquiries go
/// through the facade. A host may hold a service for longer than its facade has it (a second
/// Initialise or Dispose lets it go): it then tells of nothing but its names and settings, while
/// what was handed out of its catalogue stays as it is.
class Service : public std::enable_shared_from_this<Service> {
  public:
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;
    virtual ~Service();

    /// What the service is called by in code: in `Services` and `Request.ServiceName`.
    std::string_view ServiceName() const;
    /// The name to display.
    std::string_view ServiceNameFriendly() const;
    /// The facade refuses enquiries of obsolete services; stored replies are still translated.
    bool Obsolete() const;

    /// The facade; none once the service is disposed of.
    ZRCreditBureau* Application() const;
    /// The product catalogue, this service's own; empty after Dispose.
    const zr::Products& Products() const;
    /// The code tables of the service as a whole, by name; empty after Dispose.
    const CodeTableCollection& CodeTables() const;

    /// The file of the style sheet that turns a reply into ResponseHTML; starts empty, which gives
    /// none.
    Writable<kind::Text> XSLTFileName;

    /// The settings by name, in the order of the public interface.
    std::span<const Property<Service>> settings() const;
    /// The setting with this name in any letter case; null when the service has none.
    const Property<Service>* setting(TextArg name) const;

    /// Lets the catalogue, the code tables and the facade go. The settings stay readable.
    void Dispose();

  protected:
    Service();

  private:
    friend class ServiceEngine;
    std::unique_ptr<ServiceEngine> engine_;
};

}  // namespace zr
