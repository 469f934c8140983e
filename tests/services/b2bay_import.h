// One facade and what a service of it makes of reports.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/fake_bureau.h"
#include "zrcreditbureau/b2bay_services.h"

namespace zr::test {

inline constexpr DateTime kReportDate = DateTime::ymd(2012, 6, 15);

/// A service and a product of it.
struct ServiceRow {
    const char* country;
    const char* name;
    const char* product;
};
inline constexpr ServiceRow kV1{"NZ", "B2BayNZ", "enquiry_individual"};
inline constexpr ServiceRow kV2{"NZ", "B2BayNZ_V2", "enquiry_individual"};
inline constexpr ServiceRow kAu{"AU", "B2BayAU", "consumer-enquiry"};

/// One facade and what it makes of reports.
class Import {
  public:
    explicit Import(const ServiceRow& row) : row_(row), bureau_(row.country) {}

    bool translate(const std::string& response, const DateTime& date = kReportDate) {
        bureau_.ask(row_.product, row_.name);
        return bureau_.facade.BuildResponse(
            *bureau_.request, date,
            "<BCAmessage><BCAservices><BCAservice><BCAservice-data><response>" + response +
                "</response></BCAservice-data></BCAservice></BCAservices></BCAmessage>");
    }

    /// An Australian report's content stands in its primary match, but for what `outside` holds.
    const Response& report(const std::string& content, const std::string& outside = "",
                           const DateTime& date = kReportDate) {
        const bool match = std::string_view(row_.country) == "AU";
        EXPECT_TRUE(translate("<enquiry-report>" + std::string(match ? "<primary-match>" : "") +
                                  content + (match ? "</primary-match>" : "") + outside +
                                  "</enquiry-report>",
                              date))
            << bureau_.facade.ErrorMessage();
        return *bureau_.request->Response();
    }

    /// The group's lines in the last response: "sub-group/name=description" each, joined by "; ".
    std::string lines(std::string_view group) const {
        std::string text;
        for (const ResponseElement& line : bureau_.request->Response()->ResponseElements()) {
            if (line.ResponseGroup() == group) {
                text.append(text.empty() ? "" : "; ").append(line.ResponseSubGroup()) += '/';
                text.append(line.ResponseName()).append("=").append(line.ResponseDescription());
            }
        }
        return text;
    }

    B2BayService& service() { return dynamic_cast<B2BayService&>(bureau_.service(row_.name)); }
    FakeBureau& bureau() { return bureau_; }

  private:
    const ServiceRow& row_;
    FakeBureau bureau_;
};

}  // namespace zr::test
