// The services that translate stored reports of the bureaus' former interface. The host has the
// reports; enquiries are refused.
#pragma once

#include "zrcreditbureau/service.h"

namespace zr {

class B2BayService : public Service {
  public:
    /// Whether the records of the directors that come with a company's report are counted into the
    /// company's own; starts as false.
    Writable<kind::Flag> CompanyAddDirectorsStatistics;

  protected:
    B2BayService() = default;
};

/// Australian reports on a person.
class ServiceB2BayAU final : public B2BayService {
    friend struct Component;
    ServiceB2BayAU() = default;
};

/// New Zealand reports on a person or a company.
class ServiceB2BayNZ final : public B2BayService {
    friend struct Component;
    ServiceB2BayNZ() = default;
};

/// New Zealand reports of version 2, also on a company and its directors, whose records have load
/// dates and corrections.
class ServiceB2BayNZ_V2 final : public B2BayService {
    friend struct Component;
    ServiceB2BayNZ_V2() = default;
};

}  // namespace zr
