#include "services/service_context.h"

#include <utility>

#include "zrcreditbureau/error.h"

namespace zr {

Runtime::Runtime(std::unique_ptr<HttpTransport> transport, std::function<DateTime()> clock)
    : transport_(std::move(transport)),
      clock_(std::move(clock)),
      style_sheets_(std::make_unique<StyleSheets>()) {
    if (transport_ == nullptr || clock_ == nullptr) {
        throw PlatformError(error_number::kMessageOnly, "A runtime needs a transport and a clock.");
    }
}

Runtime::~Runtime() = default;

DateTime ServiceContext::now() {
    const DateTime now = runtime().clock_();
    if (!now.is_date()) {
        throw PlatformError(error_number::kMessageOnly, "The clock gives no date.");
    }
    return now;
}

}  // namespace zr
