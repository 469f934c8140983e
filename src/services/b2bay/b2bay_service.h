// What the services that import stored B2Bay reports have in common.
#pragma once

#include <span>

#include "services/reply_service.h"

namespace zr {

/// A service without transport: it translates reports that the host fetched by other means. Its
/// enquiry interface is history, so the facade refuses enquiries.
class B2BayService : public ReplyService {
  public:
    bool Obsolete() const override { return true; }

    /// Whether the records of the directors found in a company's report are counted into the
    /// company's own figures; starts false.
    bool CompanyAddDirectorsStatistics() const { return company_add_directors_statistics_; }
    void CompanyAddDirectorsStatistics(bool add) { company_add_directors_statistics_ = add; }

    std::span<const Property<Service>> settings() const override;

  protected:
    bool counts_directors() const override { return company_add_directors_statistics_; }

  private:
    bool company_add_directors_statistics_ = false;
};

}  // namespace zr
