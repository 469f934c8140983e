// What the whole documents of the cases cannot show of the New Zealand service: the rules of single
// fields, the checks before an enquiry, the stages of the connection test, the settings.
#include <gtest/gtest.h>

#include <deque>
#include <functional>

#include "support/fake_bureau.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr::test {
namespace {

constexpr const char* kService = "VedaXMLNZ";
constexpr const char* kIndividual = "enquiry_individual";

/// An individual enquiry that lacks nothing, no option checked.
class NewZealandEnquiry : public testing::Test {
  protected:
    NewZealandEnquiry() {
        bureau.script().reply.body = "<BCAmessage/>";
        bureau.ask(kIndividual, kService);
        request().StreetName("Queen");
        request().City("Auckland");
    }

    Request& request() { return *bureau.request; }

    /// The document of the enquiry; the message where it is refused.
    std::string document() {
        return bureau.facade.ExecuteCreditEnquiry(request()) ? request().RequestXML()
                                                             : bureau.facade.ErrorMessage();
    }

    /// The text of the document's element of this name, the last one of several; "none" when there
    /// is none.
    std::string element(const std::string& name) {
        const std::string text = document();
        const std::size_t start = text.rfind("<" + name + ">");
        if (start == std::string::npos) {
            return "none";
        }
        const std::size_t from = start + name.size() + 2;
        return text.substr(from, text.find("</", from) - from);
    }

    FakeBureau bureau{"NZ"};
};

TEST_F(NewZealandEnquiry, JoinsTheUnitToTheStreetNumber) {
    const struct {
        const char* unit;
        const char* number;
        const char* current;
        const char* previous;
    } cases[] = {
        {"", "25", "25", "25"},
        {"", "1234567 9", "1234567", "1234567"},
        {"3", "25", "3/25", "3/25"},
        {" 3 ", "25", " 3 /25", " 3 /25"},
        {"-1.5", "25", "-1.5/25", "-1.5/25"},
        {"3A", "25", "25/3A", "25/3A"},
        {"1/2 ", "25", "25/1/2", "25/1/2"},
        {" 3A", "25", "253A", "25 3A"},
        {"A", "25", "25A", "25 A"},
        {"Flat", "25", "25Flat", "25 Flat"},
        {"Flat ", "1234", "1234Flat", "1234"},  // eight characters, and nine
        {"1234", "567", "1234/567", "1234/567"},
        {"1234", "56789", "56789", "56789"},
        {"\u00E9", "1234567", "1234567&#233;", "1234567"},  // characters, not bytes
        {"A", "", "A", " A"},
        {"3", "", "3/", "3/"},
    };
    for (const auto& row : cases) {
        request().UnitNumber(row.unit);
        request().StreetNumber(row.number);
        request().PrevStreetName("");
        EXPECT_EQ(element("street-number"), row.current) << row.unit;
        request().PrevStreetName("Old");
        request().PrevUnitNumber(row.unit);
        request().PrevStreetNumber(row.number);
        EXPECT_EQ(element("street-number"), row.previous) << row.unit;
    }
}

TEST_F(NewZealandEnquiry, WritesEachFieldByItsRule) {
    using Setter = Writable<kind::Text> Request::*;
    const struct {
        Setter set;
        const char* value;
        const char* element;
        const char* expected;
    } cases[] = {
        {&Request::FirstName, " Jean Paul ", "first-given-name", "Jean"},
        {&Request::FirstName, "Maximilianusz Paul", "first-given-name", "Maximilianusz"},
        {&Request::FirstName, "Maximilianuszka", "first-given-name", "Maximilianusz"},
        {&Request::MiddleNames, "\t", "other-given-name", "\t"},
        {&Request::LastName, "123456789012345678901234 6", "family-name",
         "123456789012345678901234"},
        {&Request::PhoneAreaCode, "09", "phone-area-code", "none"},
        {&Request::PhoneNumber, "3 7 3", "phone-number", "00000373"},
        {&Request::PhoneNumber, "021 123 456 78", "phone-number", "12345678"},
        {&Request::PhoneNumber, " ", "phone-number", "00000000"},
        {&Request::PhoneAreaCode, "", "phone-area-code", "0000"},
        {&Request::PhoneAreaCode, "+64 9", "phone-area-code", "64 9"},
        {&Request::DriverLicenceNumber, "AB123456", "licence-number", "AB123456"},
        {&Request::DriverLicenceNumber, " AB123456 ", "licence-version-number", "none"},
        {&Request::DriverLicenceNumber, "AB  1 2", "licence-version-number", "1 2"},
        {&Request::DriverLicenceNumber, "  ", "licence-number", ""},
        {&Request::Employer, "E", "occupation", ""},
        {&Request::Suburb, "1234567890123456789 1", "suburb", "1234567890123456789"},
    };
    for (const auto& row : cases) {
        (request().*row.set)(row.value);
        EXPECT_EQ(element(row.element), row.expected) << row.value;
    }
}

TEST_F(NewZealandEnquiry, IsCheckedInOrderBeforeAnythingIsSent) {
    constexpr const char* kLicence =
        "Driver's Licence verification requires a Driver's Licence Number to be supplied.";
    constexpr const char* kBirth =
        "Driver's Licence verification requires a Date of Birth to be supplied.";
    request().StreetName("");
    request().City("");
    for (const char* option : {"ewp", "driver-licence", "licencecheck"}) {
        request().OptionChecked(option, true);
    }
    // Each row: what is refused, and what then mends it.
    const struct {
        const char* message;
        std::function<void(Request&)> mend;
    } steps[] = {
        {"Street Name must be supplied.", [](Request& r) { r.StreetName("Queen"); }},
        {"Suburb or City must be supplied.", [](Request& r) { r.Suburb("Ponsonby"); }},
        {"Electronic White Pages verification requires a Phone Number to be supplied.",
         [](Request& r) { r.PhoneNumber("1"); }},
        {kLicence,
         [](Request& r) {
             r.OptionChecked("driver-licence", false);
             r.EnquiryReference("");
         }},
        {kLicence, [](Request& r) { r.DriverLicenceNumber("A"); }},
        {kBirth,
         [](Request& r) {
             r.OptionChecked("licencecheck", false);
             r.OptionChecked("driver-licence", true);
         }},
        {kBirth, [](Request& r) { r.DateOfBirth(DateTime::ymd(1970, 1, 2)); }},
        {"Driver's Licence verification requires an Enquiry Reference to be supplied.",
         [](Request& r) {
             // The licence check alone needs no reference.
             r.OptionChecked("driver-licence", false);
             r.OptionChecked("licencecheck", true);
         }},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(document(), step.message);
        EXPECT_EQ(request().RequestXML(), "");
        EXPECT_TRUE(bureau.script().requests.empty());
        step.mend(request());
    }
    EXPECT_TRUE(document().starts_with("<?xml"));
    EXPECT_EQ(bureau.script().requests.size(), 1U);
    EXPECT_FALSE(request().Dirty());
}

TEST_F(NewZealandEnquiry, KnowsTheProductByItsExactIdOnly) {
    request().StreetName("");
    request().ProductId("Enquiry_Individual");
    const std::string text = document();
    EXPECT_NE(text.find("<access-purpose "), std::string::npos);
    EXPECT_NE(text.find("</client-details>\r</request>"), std::string::npos);
}

TEST_F(NewZealandEnquiry, OfACompanyIsNotChecked) {
    request().Clear();
    bureau.ask("enquiry_company", kService);
    request().OptionChecked("ewp", true);
    EXPECT_EQ(element("registration-number"), "");
}

TEST_F(NewZealandEnquiry, SearchNeedsACompanyAndAProduct) {
    const struct {
        const char* product;
        const char* company;
        const char* message;
    } cases[] = {
        {"", "", "You must supply either a Company Name or Number."},
        {"", "Zarnow", "Product does not exist."},
        {"consumer-enquiry", "Zarnow", "Product does not exist."},
    };
    for (const auto& row : cases) {
        request().ProductId(row.product);
        request().CompanyName(row.company);
        EXPECT_FALSE(bureau.facade.ExecuteGetList(request()));
        EXPECT_EQ(bureau.facade.ErrorMessage(), row.message);
    }
    EXPECT_TRUE(bureau.script().requests.empty());
}

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
