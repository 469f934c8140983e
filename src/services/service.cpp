#include "services/service.h"

#include "platform/error.h"

namespace zr {

ZRCreditBureau* Service::Application() const {
    return context_ != nullptr ? &context_->facade() : nullptr;
}

ServiceContext& Service::context() const {
    if (context_ == nullptr) {
        throw PlatformError(error_number::kMessageOnly, "The service has been disposed of.");
    }
    return *context_;
}

bool Service::Initialise(ServiceContext& context) {
    context_ = &context;
    products_.clear();
    code_tables_.clear();
    return build_catalogue();
}

void Service::Dispose() {
    code_tables_.clear();
    products_.clear();
    context_ = nullptr;
}

bool Service::CreditEnquiry(Request& /*request*/) { return true; }

bool Service::GetList(Request& /*request*/) { return true; }

bool Service::VerifyConnection() { return true; }

}  // namespace zr
