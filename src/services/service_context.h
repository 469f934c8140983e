// What a service sees of the facade that owns it.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/error.h"
#include "platform/http.h"
#include "platform/style_sheet.h"
#include "reports/writer.h"
#include "values/date_time.h"
#include "values/regional_format.h"

namespace zr {

class ZRCreditBureau;

/// The runtime object of a facade: the platform's services, made once by Initialise and handed to
/// whoever needs them.
class Runtime {
  public:
    /// Raises an error without a transport or a clock.
    explicit Runtime(std::unique_ptr<HttpTransport> transport,
                     std::function<DateTime()> clock = DateTime::now)
        : transport_(std::move(transport)), clock_(std::move(clock)) {
        if (transport_ == nullptr || clock_ == nullptr) {
            throw PlatformError(error_number::kMessageOnly,
                                "A runtime needs a transport and a clock.");
        }
    }

    HttpTransport& transport() { return *transport_; }
    StyleSheets& style_sheets() { return style_sheets_; }
    /// The current local date and time; raises an error when the clock gives none.
    DateTime now() const {
        const DateTime now = clock_();
        if (!now.is_date()) {
            throw PlatformError(error_number::kMessageOnly, "The clock gives no date.");
        }
        return now;
    }

  private:
    std::unique_ptr<HttpTransport> transport_;
    std::function<DateTime()> clock_;
    StyleSheets style_sheets_;
};

/// The facade as its services see it: settings that every service reads, the runtime object and the
/// place for the reason of a failure.
class ServiceContext {
  public:
    virtual bool TestMode() const = 0;
    virtual const std::string& CurrencyFormat() const = 0;
    virtual const std::string& CurrencyFormatSymbol() const = 0;
    virtual const std::string& DateFormat() const = 0;
    virtual Region region() const = 0;
    /// The reason of the most recent failure.
    virtual const std::string& ErrorMessage() const = 0;
    virtual const Failure& LastFailure() const = 0;
    virtual void SetErrorMessage(std::string message, Failure failure) = 0;
    virtual zr::Runtime& Runtime() = 0;
    /// The facade itself, for hosts.
    virtual ZRCreditBureau& facade() = 0;

    layout::FormatSettings format_settings() const {
        return {DateFormat(), CurrencyFormat(), CurrencyFormatSymbol(), region()};
    }

  protected:
    ~ServiceContext() = default;
};

}  // namespace zr
