#include "facade/zr_credit_bureau.h"

#include <utility>

#include "platform/error.h"
#include "values/text.h"

namespace zr {
namespace {

constexpr std::string_view kNoRuntime = "Error creating ZRRuntime8 object. ";

std::unique_ptr<Runtime> make_platform_runtime() {
    return std::make_unique<Runtime>(make_http_transport());
}

}  // namespace

ZRCreditBureau::ZRCreditBureau() : ZRCreditBureau(make_platform_runtime) {}

ZRCreditBureau::ZRCreditBureau(RuntimeMaker make_runtime)
    : make_runtime_(std::move(make_runtime)), services_(std::make_unique<zr::Services>()) {}

ZRCreditBureau::~ZRCreditBureau() { Dispose(); }

bool ZRCreditBureau::fail(std::string message, Failure failure) {
    SetErrorMessage(std::move(message), std::move(failure));
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

bool ZRCreditBureau::Initialise(std::string_view country) {
    return guarded([&] { return initialise(country); });
}

bool ZRCreditBureau::initialise(std::string_view country) {
    // Cut first, trimmed after: " NZ" leaves " N", which is no country.
    const std::string code = text::upper(text::trim(text::first(country, 2)));
    if (code != "AU" && code != "NZ") {
        return fail("This Country is not currently supported.", misuse("country-unknown"));
    }
    country_ = code;
    std::unique_ptr<zr::Runtime> runtime;
    try {
        runtime = make_runtime_();
    } catch (...) {
        return fail(std::string(kNoRuntime) + current_error_text(), current_failure());
    }
    if (runtime == nullptr) {
        return fail(std::string(kNoRuntime) + "Nothing was made.",
                    {FailureKind::kInternal, "no-runtime"});
    }
    // The old registry serves until the new one is complete.
    auto services = std::make_unique<zr::Services>();
    const bool result = services->Initialise(*this, country_);
    services_ = std::move(services);
    runtime_ = std::move(runtime);
    disposed_ = false;
    return result;
}

std::unique_ptr<Request> ZRCreditBureau::CreateRequest() {
    std::unique_ptr<Request> request;
    guarded([&] {
        request = std::make_unique<Request>();
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

Service* ZRCreditBureau::checked_service(const Operation& operation) {
    const auto failed = [this](std::string message, const char* word) -> Service* {
        fail(std::move(message), misuse(word));
        return nullptr;
    };
    if (operation.service_name.empty()) {
        return failed("Service Name not specified.", "service-missing");
    }
    if (operation.product_id != nullptr && operation.product_id->empty()) {
        return failed("Product not specified.", "product-missing");
    }
    if (!services_->Exists(operation.service_name)) {
        return failed("Service '" + std::string(operation.service_name) + "' does not exist.",
                      "service-unknown");
    }
    Service& service = services_->Item(operation.service_name);
    if (operation.refuse_obsolete && service.Obsolete()) {
        return failed("Service is obsolete.", "service-obsolete");
    }
    if (operation.product_id != nullptr && !check_product(operation, service)) {
        return nullptr;
    }
    return &service;
}

bool ZRCreditBureau::check_product(const Operation& operation, const Service& service) {
    const Product* product = service.Products().find(*operation.product_id);
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
        Service* service = checked_service(operation);
        return service != nullptr && procedure(*service);
    });
}

bool ZRCreditBureau::ExecuteCreditEnquiry(Request& request) {
    const Operation operation{.service_name = request.ServiceName(),
                              .product_id = &request.ProductId(),
                              .enquiry_only = true,
                              .unchanged = !request.Dirty()};
    return run(operation, [&](Service& service) { return service.CreditEnquiry(request); });
}

bool ZRCreditBureau::ExecuteGetList(Request& request) {
    const Operation operation{.service_name = request.ServiceName(), .unchanged = !request.Dirty()};
    return run(operation, [&](Service& service) { return service.GetList(request); });
}

bool ZRCreditBureau::ExecuteVerifyConnection(std::string_view service_name) {
    const Operation operation{.service_name = service_name};
    return run(operation, [](Service& service) { return service.VerifyConnection(); });
}

bool ZRCreditBureau::BuildResponse(Request& request, DateTime response_date,
                                   const std::string& response_xml) {
    const Operation operation{.service_name = request.ServiceName(),
                              .product_id = &request.ProductId(),
                              .refuse_obsolete = false};
    return run(operation, [&](Service& service) {
        if (!response_date.is_date()) {
            return fail("The response date is not a date of the years 100 to 9999.",
                        misuse("response-date"));
        }
        return service.BuildResponse(request, response_date, response_xml);
    });
}

const Products* ZRCreditBureau::ServiceProducts(std::string_view service_name) const {
    return services_->Exists(service_name) ? &services_->Item(service_name).Products() : nullptr;
}

std::string ZRCreditBureau::Version() {
    return std::to_string(ZR_VERSION_MAJOR) + "." + std::to_string(ZR_VERSION_MINOR) + "." +
           std::to_string(ZR_VERSION_REVISION);
}

void ZRCreditBureau::Dispose() {
    services_->Dispose();
    disposed_ = disposed_ || runtime_ != nullptr;
    runtime_.reset();
}

Region ZRCreditBureau::region() const {
    return country_ == "NZ" ? Region::kNewZealand : Region::kAustralia;
}

}  // namespace zr
