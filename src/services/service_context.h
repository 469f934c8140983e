// What a service sees of the facade that owns it.
#pragma once

#include <string>

#include "platform/style_sheet.h"
#include "reports/writer.h"
#include "values/regional_format.h"
#include "zrcreditbureau/date_time.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/http.h"
#include "zrcreditbureau/runtime.h"

namespace zr {

class ZRCreditBureau;

/// The facade as its services see it: settings that every service reads, the runtime object and the
/// place for the reason of a failure.
class ServiceContext {
  public:
    virtual bool TestMode() const = 0;
    virtual layout::FormatSettings format_settings() const = 0;
    /// The reason of the most recent failure.
    virtual const std::string& ErrorMessage() const = 0;
    virtual const Failure& LastFailure() const = 0;
    virtual void SetErrorMessage(std::string message, Failure failure) = 0;
    /// The facade itself, for hosts.
    virtual ZRCreditBureau& facade() = 0;

    HttpTransport& transport() { return *runtime().transport_; }
    StyleSheets& style_sheets() { return *runtime().style_sheets_; }
    /// The current local date and time; raises an error when the clock gives none.
    DateTime now();

  protected:
    ~ServiceContext() = default;

  private:
    virtual Runtime& runtime() = 0;
};

}  // namespace zr
