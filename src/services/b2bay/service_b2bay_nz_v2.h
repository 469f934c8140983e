// Imports stored New Zealand B2Bay reports of version 2.
#pragma once

#include <string_view>

#include "services/b2bay/b2bay_service.h"

namespace zr {

/// Reports on a person, or on a company and perhaps its directors, whose records have load dates
/// and corrections.
class ServiceB2BayNZ_V2 final : public B2BayService {
  public:
    std::string_view ServiceName() const override { return "B2BayNZ_V2"; }
    std::string_view ServiceNameFriendly() const override {
        return "Baycorp B2Bay Version 2 (New Zealand)";
    }
    const Translator& translator() const override;

  protected:
    bool build_catalogue() override;
};

}  // namespace zr
