// Imports stored Australian B2Bay reports.
#pragma once

#include <string_view>

#include "services/b2bay/b2bay_service.h"

namespace zr {

/// Reports on a person, with a consumer file, a commercial file and public data. The catalogue is
/// that of the Australian VedaXML service.
class ServiceB2BayAU final : public B2BayService {
  public:
    std::string_view ServiceName() const override { return "B2BayAU"; }
    std::string_view ServiceNameFriendly() const override { return "Baycorp B2Bay (Australia)"; }
    const Translator& translator() const override;

  protected:
    bool build_catalogue() override;
};

}  // namespace zr
