// The register of New Zealand companies: every number of up to seven digits is one company's,
// unless it ends with 000, and says what the company is called.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/documents/xml.h"

namespace zr::gateway {

/// Companies are elements <company name number area status file match>, each with a <former name
/// days> for a name that it gave up so many days ago. They are added to `shelf`.
class CompanyRegister {
  public:
    CompanyRegister(const xmlNode& words, xmlNode& shelf);

    /// The company of a number; null when it is nobody's.
    xmlNode* find(std::string_view number) const;

    /// Up to thirty companies that go, or went, by a name that has all these words, any of which
    /// may be cut short.
    std::vector<xmlNode*> search(std::string_view name) const;

  private:
    std::uint64_t name_count() const;
    std::string name_at(std::uint64_t index) const;
    std::uint64_t former_index(std::uint64_t number) const;
    xmlNode& put(std::uint64_t number, const char* match) const;

    std::vector<std::string> roots_, trades_, variants_, areas_, statuses_, burdens_;
    xmlNode& shelf_;
};

}  // namespace zr::gateway
