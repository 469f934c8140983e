// The one object that a host creates.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "facade/registry.h"
#include "platform/error.h"
#include "records/request.h"
#include "services/service_context.h"
#include "values/date_time.h"

namespace zr {

/// The credit bureau of a country: hands out requests, checks and runs them on the country's
/// services, and keeps the reason of the last failure. Initialise first; Dispose (or destruction)
/// ends it. One thread at a time; any number of facades run side by side. No operation throws at
/// the host: what the host's own transport or clock throws, and memory that ends, are failures with
/// a reason ("Not enough memory."). What a collection's Item is documented to raise is all.
class ZRCreditBureau final : private ServiceContext {
  public:
    /// Makes the runtime object; throws, or gives none, when it cannot.
    using RuntimeMaker = std::function<std::unique_ptr<zr::Runtime>()>;

    ZRCreditBureau();
    /// With a runtime of the caller's own: another transport, another clock.
    explicit ZRCreditBureau(RuntimeMaker make_runtime);
    ~ZRCreditBureau();
    ZRCreditBureau(const ZRCreditBureau&) = delete;
    ZRCreditBureau& operator=(const ZRCreditBureau&) = delete;

    /// Sets the facade up for "AU" or "NZ" (the first two characters count, in any letter case).
    /// False for another country, and when the runtime object or the services cannot be made; what
    /// was there before then still is.
    bool Initialise(std::string_view country);

    /// The country it was initialised for: "AU", "NZ", or "" before.
    const std::string& Country() const { return country_; }

    /// A new request of this facade; none when there is no memory for one.
    std::unique_ptr<Request> CreateRequest();

    /// Runs the request's enquiry and fills its response. True at once when the request has not
    /// changed since the last successful enquiry.
    bool ExecuteCreditEnquiry(Request& request);

    /// Searches for companies and fills the response's CompanySelections. True at once when the
    /// request has not changed since the last successful search.
    bool ExecuteGetList(Request& request);

    /// Tests the connection of a service with its present settings.
    bool ExecuteVerifyConnection(std::string_view service_name);

    /// Translates a stored reply into the request's response. `response_date` is the day from which
    /// the statistics count back; both may come from that response itself.
    bool BuildResponse(Request& request, DateTime response_date, const std::string& response_xml);

    /// The reason of the most recent failure, "" when there was none. Success does not clear it.
    const std::string& ErrorMessage() const override { return *error_message_; }

    /// The kind of that failure, and which one of its kind it was: for programs, where ErrorMessage
    /// is for people.
    FailureKind ErrorKind() const { return failure_.kind; }
    const std::string& ErrorCode() const { return failure_.code; }

    /// The country's services; an empty registry before Initialise and after Dispose.
    const zr::Services& Services() const { return *services_; }

    /// The products of a service; null for a service that the country does not have.
    const Products* ServiceProducts(std::string_view service_name) const;

    /// True (the start value): enquiries go to the bureau's test endpoint in test mode.
    bool TestMode() const override { return test_mode_; }
    void TestMode(bool test_mode) { test_mode_ = test_mode; }

    /// Pattern of amounts in report lines; starts as "currency".
    const std::string& CurrencyFormat() const override { return currency_format_; }
    void CurrencyFormat(std::string_view pattern) { currency_format_ = pattern; }

    /// Pattern of summary amounts; starts as "currency".
    const std::string& CurrencyFormatSymbol() const override { return currency_format_symbol_; }
    void CurrencyFormatSymbol(std::string_view pattern) { currency_format_symbol_ = pattern; }

    /// Pattern of dates; starts as "medium date".
    const std::string& DateFormat() const override { return date_format_; }
    void DateFormat(std::string_view pattern) { date_format_ = pattern; }

    /// The component's version: major, minor and revision as "5.0.0".
    static std::string Version();

    /// Releases the services and the runtime object. Properties stay readable.
    void Dispose();

  private:
    // What services see of the facade.
    Region region() const override;
    const Failure& LastFailure() const override { return failure_; }
    void SetErrorMessage(std::string message, Failure failure) override {
        failure_ = std::move(failure);
        own_message_ = std::move(message);
        error_message_ = &own_message_;
    }
    zr::Runtime& Runtime() override { return *runtime_; }
    ZRCreditBureau& facade() override { return *this; }

    /// One of the four request operations, as far as the checks before it go.
    struct Operation;

    /// Stores the reason and answers false.
    bool fail(std::string message, Failure failure);
    /// Runs a procedure that answers as it does itself; whatever it throws is stored as its text.
    template <class Procedure>
    bool guarded(Procedure procedure) noexcept;
    bool initialise(std::string_view country);
    /// Runs the operation's checks in their order and then the service's procedure.
    template <class Procedure>
    bool run(const Operation& operation, Procedure procedure);
    /// The service that passes the operation's checks, or null after storing the reason.
    Service* checked_service(const Operation& operation);
    /// True when the operation's product passes its checks; else false after storing the reason.
    bool check_product(const Operation& operation, const Service& service);

    RuntimeMaker make_runtime_;
    std::unique_ptr<zr::Runtime> runtime_;
    std::unique_ptr<zr::Services> services_;
    bool test_mode_ = true;
    std::string country_;
    std::string currency_format_ = "currency";
    std::string currency_format_symbol_ = "currency";
    std::string date_format_ = "medium date";
    bool disposed_ = false;
    Failure failure_;
    std::string own_message_;
    const std::string no_memory_{kNoMemory};  ///< there may be none for it when it is needed
    const std::string* error_message_ = &own_message_;
};

}  // namespace zr
