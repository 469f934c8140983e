// The stages of the New Zealand connection test, and the settings.
#include <gtest/gtest.h>

#include <deque>

#include "support/fake_bureau.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr::test {
namespace {

constexpr const char* kService = "VedaXMLNZ";

/// Answers one reply after the other and keeps what it was asked.
class RepliesInTurn final : public HttpTransport {
  public:
    RepliesInTurn(std::deque<std::string> replies, std::vector<std::string>& asked)
        : replies_(std::move(replies)), asked_(asked) {}

    HttpReply exchange(const HttpRequest& request) override {
        asked_.push_back(request.body);
        HttpReply reply{200, "OK", replies_.front()};
        replies_.pop_front();
        return reply;
    }

  private:
    std::deque<std::string> replies_;
    std::vector<std::string>& asked_;
};

TEST(NewZealandConnection, IsTestedInTwoStages) {
    const std::string passed = "<BCAmessage/>";
    const std::string refused =
        "<BCAservice-data><BCAerror type='ACCESS'><BCAerror-code>9</BCAerror-code>"
        "<BCAerror-description>No</BCAerror-description></BCAerror></BCAservice-data>";
    const std::string cause = "ACCESS\r\n\r\n9: No";
    const struct {
        std::deque<std::string> replies;
        std::string message;
    } cases[] = {
        {{refused}, "Failed PING test.\r\n\r\n" + cause},
        {{passed, refused},
         "Passed PING test.\r\nFailed company-selection-list test.\r\n\r\n" + cause},
        {{passed, passed}, ""},
    };
    for (const auto& row : cases) {
        std::vector<std::string> asked;
        ZRCreditBureau facade([&] {
            return std::make_unique<Runtime>(std::make_unique<RepliesInTurn>(row.replies, asked));
        });
        facade.Initialise("NZ");
        EXPECT_EQ(facade.ExecuteVerifyConnection(kService), row.message.empty());
        EXPECT_EQ(facade.ErrorMessage(), row.message);
        ASSERT_EQ(asked.size(), row.replies.size());
        EXPECT_EQ(asked[0],
                  "<?xml version=\"1.0\"?><BCAmessage type=\"REQUEST\"><BCAaccess><BCAaccess-code>"
                  "</BCAaccess-code><BCAaccess-pwd></BCAaccess-pwd></BCAaccess>\r<BCAservice>"
                  "<BCAservice-code>PING</BCAservice-code><BCAservice-code-version>V00"
                  "</BCAservice-code-version><BCAservice-client-ref></BCAservice-client-ref>"
                  "<BCAservice-data></BCAservice-data></BCAservice>\r</BCAmessage>\r");
        if (asked.size() > 1) {
            EXPECT_NE(asked[1].find("<company-name>Zarnow</company-name>"), std::string::npos);
            EXPECT_EQ(asked[1].find("access-purpose"), std::string::npos);
        }
    }
}

TEST(NewZealandSettings, AreReadAndWrittenByName) {
    FakeBureau bureau("NZ");
    auto& service = dynamic_cast<ServiceVedaXMLNZ&>(bureau.service(kService));
    EXPECT_FALSE(service.Obsolete());
    EXPECT_FALSE(service.CompanyAddDirectorsStatistics());
    for (const Property<Service>& row : service.settings()) {
        if (row.type == ValueType::kBoolean) {
            row.write(service, Value(true));
        } else if (row.type == ValueType::kText) {
            row.write(service, Value(row.name));
            EXPECT_EQ(text_of(row.read(service)), row.name.substr(0, 16));
        }
    }
    EXPECT_EQ(service.ClientId(), "ClientId");
    EXPECT_EQ(service.OperatorId(), "OperatorId");
    EXPECT_TRUE(service.CompanyAddDirectorsStatistics());
    EXPECT_TRUE(service.WarnOnCharge());
    EXPECT_EQ(service.DefaultRequestURL(), "https://vedaxml-nz.invalid/sys1");
    EXPECT_EQ(service.DefaultRequestURLTest(), "https://vedaxml-nz.invalid/cta/sys1");
}

}  // namespace
}  // namespace zr::test
