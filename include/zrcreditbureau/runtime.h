// What a facade works with: the way to the bureau, the clock, and the style sheets it has read.
#pragma once

#include <functional>
#include <memory>

#include "zrcreditbureau/date_time.h"
#include "zrcreditbureau/http.h"

namespace zr {

class StyleSheets;

/// Made once by Initialise. A host that has a way of its own to the bureau, or a test that lets its
/// clock stand still, gives the facade one (`ZRCreditBureau(RuntimeMaker)`).
class Runtime {
  public:
    /// Raises an error without a transport or a clock.
    explicit Runtime(std::unique_ptr<HttpTransport> transport,
                     std::function<DateTime()> clock = DateTime::now);
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;
    ~Runtime();

  private:
    friend class ServiceContext;
    std::unique_ptr<HttpTransport> transport_;
    std::function<DateTime()> clock_;
    std::unique_ptr<StyleSheets> style_sheets_;
};

}  // namespace zr
