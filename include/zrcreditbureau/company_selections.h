// The candidate companies that a company search returned. They live as long as their Response.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "zrcreditbureau/collection.h"
#include "zrcreditbureau/property.h"

namespace zr {

/// One candidate. A text is "" where the bureau gave none.
class CompanySelection {
  public:
    ReadOnly<std::string> CompanyName;
    /// Registration number; "" as well when it is none that can be asked for.
    ReadOnly<std::string> CompanyNumber;
    /// Registration status as the bureau reports it.
    ReadOnly<std::string> CompanyStatus;
    /// Company type code; Australia only.
    ReadOnly<std::string> CompanyType;
    /// What that code stands for, or the code again; in New Zealand the type in words.
    ReadOnly<std::string> CompanyTypeDescription;
    /// Area or register in which the company is registered.
    ReadOnly<std::string> RegistrationArea;
    /// The bureau's file number of the company; hosts may write it.
    mutable Writable<kind::Text> BureauFileId;
};

/// The candidates in the bureau's order.
class CompanySelections {
  public:
    CompanySelections(const CompanySelections&) = delete;
    CompanySelections& operator=(const CompanySelections&) = delete;

    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }

    /// The candidate at a 1-based position; raises the not-found error outside 1..Count.
    const CompanySelection& Item(NumberArg position) const { return item_at(items_, position); }

    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

  private:
    friend struct Component;
    CompanySelections() = default;
    std::deque<CompanySelection> items_;
};

}  // namespace zr
