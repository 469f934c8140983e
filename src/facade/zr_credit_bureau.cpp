#include "zrcreditbureau/zr_credit_bureau.h"

#include <utility>

#include "facade/registry.h"
#include "records/component.h"
#include "services/service_engine.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr {
namespace {

constexpr std::string_view kNoRuntime = "Error creating ZRRuntime8 object. ";

std::unique_ptr<Runtime> make_platform_runtime() {
    return std::make_unique<Runtime>(make_http_transport());
}

}  // namespace

class ZRCreditBureau::Context final : public ServiceContext {
  public:
    explicit Context(ZRCreditBureau& bureau) : bureau_(bureau) {}

    bool TestMode() const override { return bureau_.TestMode(); }
    layout::FormatSettings format_settings() const override {
        return {bureau_.DateFormat(), bureau_.CurrencyFormat(), bureau_.CurrencyFormatSymbol(),
                bureau_.Country() == "NZ" ? Region::kNewZealand : Region::kAustralia};
    }
    const std::string& ErrorMessage() const override { return bureau_.ErrorMessage(); }
    const Failure& LastFailure() const override { return bureau_.failure_; }
    void SetErrorMessage(std::string message, Failure failure) override {
        bureau_.fail(std::move(message), std::move(failure));
    }
    ZRCreditBureau& facade() override { return bureau_; }

  private:
    Runtime& runtime() override { return *bureau_.runtime_; }

    ZRCreditBureau& bureau_;
};

ZRCreditBureau::ZRCreditBureau() : ZRCreditBureau(make_platform_runtime) {}

ZRCreditBureau::ZRCreditBureau(RuntimeMaker make_runtime)
    : make_runtime_(std::move(make_runtime)),
      context_(std::make_unique<Context>(*this)),
      no_memory_(kNoMemory) {}

ZRCreditBureau::~ZRCreditBureau() { Dispose(); }

bool ZRCreditBureau::fail(std::string message, Failure failure) {
    failure_ = std::move(failure);
    own_message_ = std::move(message);
    error_message_ = &own_message_;
    return false;
}

template <class Procedure>
bool ZRCreditBureau::guarded(Procedure procedure) noexcept {
    try {
        try {
            return procedure();
        } catch (...) {
            return fail(current_error_text(), current_failure());
        }
    } catch (...) {
        error_message_ = &no_memory_;  // not even for the message
        failure_ = no_memory();
        return false;
    }
}

bool ZRCreditBureau::Initialise(TextArg country) {
    return guarded([&] { return initialise(country); });
}

bool ZRCreditBureau::initialise(std::string_view country) {
    // Cut first, trimmed after: " NZ" leaves " N", which is no country.
    const std::string code = text::upper(text::trim(text::first(country, 2)));
    if (code != "AU" && code != "NZ") {
        return fail("This Country is not currently supported.", misuse("country-unknown"));
    }
    country_ = code;
    std::unique_ptr<Runtime> runtime;
    try {
        runtime = make_runtime_();
    } catch (...) {
        return fail(std::string(kNoRuntime) + current_error_text(), current_failure());
    }
    if (runtime == nullptr) {
        return fail(std::string(kNoRuntime) + "Nothing was made.",
                    {FailureKind::kInternal, "no-runtime"});
    }
    // The old services serve until the new ones are complete.
    std::vector<std::shared_ptr<zr::Service>> services = make_services(country_, *context_);
    let_services_go();
    services_.services_ = std::move(services);
    services_.application_ = this;
    runtime_ = std::move(runtime);
    disposed_ = false;
    return true;
}

std::unique_ptr<Request> ZRCreditBureau::CreateRequest() {
    std::unique_ptr<Request> request;
    guarded([&] {
        request = Component::make_request();
        request->Application(this);
        return true;
    });
    return request;
}

struct ZRCreditBureau::Operation {
    std::string_view service_name;
    const std::string* product_id = nullptr;  ///< null: the operation names no product
    bool enquiry_only = false;                ///< the product must be an enquiry product
    bool refuse_obsolete = true;
    bool unchanged = false;  ///< the request has not changed: nothing to do
};

ServiceEngine* ZRCreditBureau::checked_service(const Operation& operation) {
    const auto failed = [this](std::string message, const char* word) -> ServiceEngine* {
        fail(std::move(message), misuse(word));
        return nullptr;
    };
    if (operation.service_name.empty()) {
        return failed("Service Name not specified.", "service-missing");
    }
    if (operation.product_id != nullptr && operation.product_id->empty()) {
        return failed("Product not specified.", "product-missing");
    }
    const zr::Service* const face = services_.find(operation.service_name);
    if (face == nullptr) {
        return failed("Service '" + std::string(operation.service_name) + "' does not exist.",
                      "service-unknown");
    }
    ServiceEngine& service = ServiceEngine::of(*face);
    if (operation.refuse_obsolete && service.definition().obsolete) {
        return failed("Service is obsolete.", "service-obsolete");
    }
    if (operation.product_id != nullptr && !check_product(operation, service)) {
        return nullptr;
    }
    return &service;
}

bool ZRCreditBureau::check_product(const Operation& operation, const ServiceEngine& service) {
    const Product* product = service.catalogue().products->find(*operation.product_id);
    if (product == nullptr) {
        return fail("Product does not exist.", misuse("product-unknown"));
    }
    if (operation.enquiry_only && product->ProductType() != zreProductType::zreProductTypeEnquiry) {
        return fail("Product type invalid for this request.", misuse("product-type"));
    }
    if (!product->Available()) {
        return fail("Product is not available for this Service.", misuse("product-not-available"));
    }
    return true;
}

template <class Procedure>
bool ZRCreditBureau::run(const Operation& operation, Procedure procedure) {
    return guarded([&] {
        if (runtime_ == nullptr) {
            return disposed_ ? fail("The credit bureau has been disposed of.", misuse("disposed"))
                             : fail("The credit bureau has not been initialised.",
                                    misuse("not-initialised"));
        }
        if (operation.unchanged) {
            return true;
        }
        ServiceEngine* const service = checked_service(operation);
        return service != nullptr && procedure(*service);
    });
}

bool ZRCreditBureau::ExecuteCreditEnquiry(Request& request) {
    const Operation operation{.service_name = request.ServiceName(),
                              .product_id = &request.ProductId(),
                              .enquiry_only = true,
                              .unchanged = !request.Dirty()};
    return run(operation, [&](ServiceEngine& service) { return service.CreditEnquiry(request); });
}

bool ZRCreditBureau::ExecuteGetList(Request& request) {
    const Operation operation{.service_name = request.ServiceName(), .unchanged = !request.Dirty()};
    return run(operation, [&](ServiceEngine& service) { return service.GetList(request); });
}

bool ZRCreditBureau::ExecuteVerifyConnection(TextArg service_name) {
    const Operation operation{.service_name = service_name};
    return run(operation, [](ServiceEngine& service) { return service.VerifyConnection(); });
}

bool ZRCreditBureau::BuildResponse(Request& request, DateTime response_date, TextArg response_xml) {
    const Operation operation{.service_name = request.ServiceName(),
                              .product_id = &request.ProductId(),
                              .refuse_obsolete = false};
    return run(operation, [&](ServiceEngine& service) {
        if (!response_date.is_date()) {
            return fail("The response date is not a date of the years 100 to 9999.",
                        misuse("response-date"));
        }
        return service.BuildResponse(request, response_date, response_xml);
    });
}

std::shared_ptr<zr::Service> ZRCreditBureau::Service(TextArg name) const {
    zr::Service* const found = services_.find(name);
    return found != nullptr ? found->shared_from_this() : nullptr;
}

const Products* ZRCreditBureau::ServiceProducts(TextArg service_name) const {
    const zr::Service* const found = services_.find(service_name);
    return found != nullptr ? &found->Products() : nullptr;
}

std::string ZRCreditBureau::Version() {
    return std::to_string(ZR_VERSION_MAJOR) + "." + std::to_string(ZR_VERSION_MINOR) + "." +
           std::to_string(ZR_VERSION_REVISION);
}

void ZRCreditBureau::let_services_go() {
    for (zr::Service& service : services_) {
        service.Dispose();
    }
    services_.services_.clear();
    services_.application_ = nullptr;
}

void ZRCreditBureau::Dispose() {
    let_services_go();
    disposed_ = disposed_ || runtime_ != nullptr;
    runtime_.reset();
}

}  // namespace zr
