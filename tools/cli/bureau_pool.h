// The facades that jobs run on, kept from job to job.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/http.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {

/// Lends facades that look new to every job: settings are reset, while what is costly to make (the
/// catalogues, compiled style sheets, the transport's TLS sessions) is kept.
class BureauPool {
  public:
    /// Every facade exchanges over this transport, which outlives the pool.
    explicit BureauPool(HttpTransport& transport);
    ~BureauPool();
    BureauPool(const BureauPool&) = delete;
    BureauPool& operator=(const BureauPool&) = delete;

    /// The facade of a country with every setting at its start value, until the next call. Throws
    /// automation::JsonError with the facade's reason where it cannot be initialised.
    ZRCreditBureau& bureau(const std::string& country);

  private:
    struct Entry;

    HttpTransport& transport_;
    std::map<std::string, std::unique_ptr<Entry>> entries_;
};

}  // namespace zr::cli
