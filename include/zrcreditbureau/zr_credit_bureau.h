// The one object that a host creates.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "zrcreditbureau/date_time.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/property.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/runtime.h"
#include "zrcreditbureau/services.h"

namespace zr {

/// The credit bureau of a country: hands out requests, checks and runs them on the country's
/// services, and keeps the reason of the last failure. Initialise first; Dispose (or destruction)
/// ends it. One thread at a time; any number of facades run side by side. No operation throws at
/// the host: what the host's own transport or clock throws, and memory that ends, are failures with
/// a reason ("Not enough memory."). What a collection's Item is documented to raise is all.
class ZRCreditBureau final : public std::enable_shared_from_this<ZRCreditBureau> {
  public:
    /// Makes the runtime object; throws, or gives none, when it cannot.
    using RuntimeMaker = std::function<std::unique_ptr<Runtime>()>;

    ZRCreditBureau();
    /// With a runtime of the caller's own: another transport, another clock.
    explicit ZRCreditBureau(RuntimeMaker make_runtime);
    ~ZRCreditBureau();
    ZRCreditBureau(const ZRCreditBureau&) = delete;
    ZRCreditBureau& operator=(const ZRCreditBureau&) = delete;

    /// Sets the facade up for "AU" or "NZ" (the first two characters count, in any letter case).
    /// False for another country, and when the runtime object or the services cannot be made; what
    /// was there before then still is.
    bool Initialise(TextArg country);

    /// The country it was initialised for: "AU", "NZ", or "" before.
    const std::string& Country() const { return country_; }

    /// A new request of this facade, which may outlive it; none when there is no memory for one.
    std::unique_ptr<Request> CreateRequest();

    /// Runs the request's enquiry and attaches a new response to it. True at once when the request
    /// has not changed since the last successful enquiry.
    bool ExecuteCreditEnquiry(Request& request);

    /// Searches for companies: the new response has them as CompanySelections. True at once when
    /// the request has not changed since the last successful search.
    bool ExecuteGetList(Request& request);

    /// Tests the connection of a service with its present settings.
    bool ExecuteVerifyConnection(TextArg service_name);

    /// Translates a stored reply into a new response of the request. `response_date` is the day
    /// from which the statistics count back; both may come from the response that the request has.
    bool BuildResponse(Request& request, DateTime response_date, TextArg response_xml);

    /// The reason of the most recent failure, "" when there was none. Success does not clear it.
    const std::string& ErrorMessage() const { return *error_message_; }

    /// The kind of that failure, and which one of its kind it was: for programs, where ErrorMessage
    /// is for people.
    FailureKind ErrorKind() const { return failure_.kind; }
    const std::string& ErrorCode() const { return failure_.code; }

    /// The country's services; an empty registry before Initialise and after Dispose.
    const zr::Services& Services() const { return services_; }

    /// A service, to set up or to hold, by its class (`bureau.Service<ServiceVedaXMLAU>()`) or by
    /// its name; null where the country does not have it.
    template <class S>
    std::shared_ptr<S> Service() const {
        for (zr::Service& service : services_) {
            if (S* const found = dynamic_cast<S*>(&service)) {
                return {service.shared_from_this(), found};
            }
        }
        return nullptr;
    }
    std::shared_ptr<zr::Service> Service(TextArg name) const;

    /// The products of a service; null for a service that the country does not have.
    const Products* ServiceProducts(TextArg service_name) const;

    /// True (the start value): enquiries go to the bureau's test endpoint.
    Writable<kind::Flag> TestMode{true};
    /// Pattern of amounts in report lines; starts as "currency".
    Writable<kind::Text> CurrencyFormat{"currency"};
    /// Pattern of summary amounts; starts as "currency".
    Writable<kind::Text> CurrencyFormatSymbol{"currency"};
    /// Pattern of dates; starts as "medium date".
    Writable<kind::Text> DateFormat{"medium date"};

    /// The component's version: major, minor and revision as "5.0.0".
    static std::string Version();

    /// Lets the services and the runtime object go. Properties stay readable.
    void Dispose();

  private:
    /// What services see of the facade.
    class Context;
    /// One of the four request operations, as far as the checks before it go.
    struct Operation;

    /// Stores the reason and answers false.
    bool fail(std::string message, Failure failure);
    /// Runs a procedure that answers as it does itself; whatever it throws is stored as its text.
    template <class Procedure>
    bool guarded(Procedure procedure) noexcept;
    bool initialise(std::string_view country);
    void let_services_go();
    /// Runs the operation's checks in their order and then the service's procedure.
    template <class Procedure>
    bool run(const Operation& operation, Procedure procedure);
    /// The service that passes the operation's checks, or null after storing the reason.
    ServiceEngine* checked_service(const Operation& operation);
    /// True when the operation's product passes its checks; else false after storing the reason.
    bool check_product(const Operation& operation, const ServiceEngine& service);

    RuntimeMaker make_runtime_;
    std::unique_ptr<Context> context_;
    std::unique_ptr<Runtime> runtime_;
    zr::Services services_;
    std::string country_;
    bool disposed_ = false;
    Failure failure_;
    std::string own_message_;
    const std::string no_memory_;  ///< there may be none for it when it is needed
    const std::string* error_message_ = &own_message_;
};

}  // namespace zr
