#include "automation/json_form.h"

#include <gtest/gtest.h>

#include <string>

#include "records/component.h"

namespace zr::automation {
namespace {

std::string reason_of(const std::string& json) {
    const auto made = Component::make_request();
    Request& request = *made;
    try {
        read_request(parse_json(json), request);
    } catch (const JsonError& error) {
        return error.what();
    }
    return "";
}

TEST(JsonForm, ReadsARequest) {
    const auto made = Component::make_request();
    Request& request = *made;
    read_request(parse_json(R"({"LastName":"Nguy\u1ec5n","gender":"f","EnquiryAmount":15000.99,
        "XRMApplicantIndex":-2,"DateOfBirth":"1970-01-02","DefaultNewDate":"3 Feb 2010",
        "DefaultOccurredDate":"2011-06-15T10:00:00",
        "Options":{"score":{"Checked":true},"Purpose":{"Value":"x","Tag":"t"}}})"),
                 request);
    EXPECT_EQ(request.LastName(), "Nguy\u1ec5n");
    EXPECT_EQ(request.Gender(), "Female");
    EXPECT_EQ(request.EnquiryAmount(), Currency::from_units(150009900));
    EXPECT_EQ(request.XRMApplicantIndex(), -2);
    EXPECT_EQ(request.DateOfBirth(), DateOrNull(DateTime::ymd(1970, 1, 2)));
    EXPECT_EQ(request.DefaultNewDate(), DateOrNull(std::string("3 Feb 2010")));
    EXPECT_EQ(request.DefaultOccurredDate().to_iso(), "2011-06-15T10:00:00");
    EXPECT_TRUE(request.OptionChecked("SCORE"));
    EXPECT_EQ(request.OptionValue("Purpose"), "x");
    EXPECT_EQ(request.OptionTag("Purpose"), "t");
    EXPECT_TRUE(request.Dirty());

    read_request(parse_json(R"({"DateOfBirth":null})"), request);
    EXPECT_TRUE(is_null(request.DateOfBirth()));
}

TEST(JsonForm, ReadsMoneyExactly) {
    const struct {
        const char* digits;
        std::int64_t units;
    } rows[] = {
        {"0", 0},
        {"-0.00005", 0},
        {"0.00015", 2},
        {"922337203685477.5807", 9'223'372'036'854'775'807},
        {"1e30", 9'223'372'036'854'775'807},
        {"1.5e3", 15'000'000},
        {"-15000.99E-2", -1'500'099},
        {"12e-6", 0},
        {"2E+0", 20'000},
        {R"("15000.99")", 150'009'900},
    };
    for (const auto& row : rows) {
        const auto made = Component::make_request();
        Request& request = *made;
        read_request(parse_json(std::string(R"({"EnquiryAmount":)") + row.digits + "}"), request);
        EXPECT_EQ(request.EnquiryAmount().units(), row.units) << row.digits;
    }
}

TEST(JsonForm, SaysWhichPropertyIsWrong) {
    const struct {
        const char* json;
        const char* reason;
    } rows[] = {
        {"[]", "Request must be an object."},
        {R"({"Surname":"x"})", "Request.Surname is not a known property."},
        {R"({"Dirty":false})", "Request.Dirty is read-only."},
        {R"({"requestxml":""})", "Request.RequestXML is read-only."},
        {R"({"LastName":null})", "Request.LastName must be a text."},
        {R"({"lastname":1})", "Request.LastName must be a text."},
        {R"({"EnquiryAmount":"$15"})", "Request.EnquiryAmount must be a number."},
        {R"({"EnquiryAmount":1e99})", "Request.EnquiryAmount must be a number."},
        {R"({"XRMApplicantIndex":1.5})",
         "Request.XRMApplicantIndex must be a whole number from -32768 to 32767."},
        {R"({"XRMApplicantIndex":32768})",
         "Request.XRMApplicantIndex must be a whole number from -32768 to 32767."},
        {R"({"DefaultOccurredDate":"2011-02-29"})",
         "Request.DefaultOccurredDate must be a date as text, for example \"2012-06-15\"."},
        {R"({"DateOfBirth":19700102})",
         "Request.DateOfBirth must be a date as text, for example \"2012-06-15\", or null."},
        {R"({"Options":{"score":true}})", "Request.Options.score must be an object."},
        {R"({"Options":{"score":{"Checked":1}}})",
         "Request.Options.score.Checked must be true or false."},
        {R"({"Options":{"score":{"On":true}}})",
         "Request.Options.score.On is not one of Checked, Value and Tag."},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(reason_of(row.json), row.reason) << row.json;
    }
}

class Settings : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(bureau_.Initialise("AU")); }
    Service& service() { return bureau_.Services().Item("VedaXMLAU"); }
    std::string read_back(std::string_view name) {
        return std::string(text_of(service().setting(name)->read(service())));
    }
    std::string reason_of(const std::string& json) {
        try {
            read_settings(parse_json(json), service());
        } catch (const JsonError& error) {
            return error.what();
        }
        return "";
    }

    ZRCreditBureau bureau_;
};

TEST_F(Settings, AreWrittenUnderTheirOwnRules) {
    read_settings(parse_json(R"({"USERID":"u","ClientReference":"12345678901234567890",
                                 "TimeOutSeconds":5,"WarnOnCharge":true})"),
                  service());
    EXPECT_EQ(read_back("UserId"), "u");
    EXPECT_EQ(read_back("ClientReference"), "1234567890123456");
    EXPECT_EQ(std::get<std::int32_t>(service().setting("TimeOutSeconds")->read(service())), 30);
}

TEST_F(Settings, AreRefusedWithoutShowingTheirValues) {
    EXPECT_EQ(reason_of(R"({"UserPassword":["secret"]})"),
              "Services.VedaXMLAU.UserPassword must be a text.");
    EXPECT_EQ(reason_of(R"({"Password":"secret"})"),
              "Services.VedaXMLAU.Password is not a known property.");
    EXPECT_EQ(reason_of(R"({"TimeOutSeconds":"secret"})"),
              "Services.VedaXMLAU.TimeOutSeconds must be a whole number from -32768 to 32767.");
}

TEST(JsonForm, WritesEveryPropertyOfAResponse) {
    const auto request = Component::make_request();
    Response& response = Component::new_response(*request);
    Component::set(response.LastName, "Smith");
    Component::set(response.DateOfBirth, DateTime::ymd(1970, 1, 2));
    Component::set(response.MOJFinesAmount, Currency::from_units(12345));
    Component::statistics(response, RecordFamily::kDefault).years[1] = 3;
    Component::lines(response).AddElement("Group", "Sub", "Name", "Value");
    Component::set(Component::add(Component::selections(response)).CompanyNumber, "9");

    JsonWriter json;
    write_response(json, response);
    const JsonValue written = parse_json(json.view());
    ASSERT_EQ(written.members().size(), response_properties().size() + 2);
    EXPECT_EQ(written.find("Name")->text(), "Smith, ");
    EXPECT_EQ(written.find("DateOfBirth")->text(), "1970-01-02");
    EXPECT_TRUE(written.find("DisqualifiedDirectorshipUntil")->is_null());
    EXPECT_EQ(written.find("MOJFinesAmount")->text(), "1.2345");
    EXPECT_EQ(written.find("DefaultCount2Y")->text(), "3");
    const JsonValue& element = written.find("ResponseElements")->items().at(0);
    EXPECT_EQ(element.members().size(), 5U);
    EXPECT_EQ(element.find("ResponseGroupSort")->text(), "0001Group");
    const JsonValue& selection = written.find("CompanySelections")->items().at(0);
    EXPECT_EQ(selection.members().size(), 7U);
    EXPECT_EQ(selection.find("CompanyNumber")->text(), "9");
}

TEST_F(Settings, StandBesideACatalogueThatIsWrittenInOrder) {
    JsonWriter json;
    write_catalogue(json, bureau_);
    const JsonValue written = parse_json(json.view());
    EXPECT_EQ(written.find("Country")->text(), "AU");
    const JsonValue& veda = written.find("Services")->items().at(0);
    EXPECT_EQ(veda.find("ServiceName")->text(), "VedaXMLAU");
    const JsonValue& product = veda.find("Products")->items().at(0);
    EXPECT_EQ(product.find("ProductId")->text(), "consumer-enquiry");
    EXPECT_EQ(product.find("ProductOptions")->items().size(), 4U);
    EXPECT_EQ(product.find("ProductOptions")->items()[1].find("OptionType")->text(), "1");
    EXPECT_EQ(product.find("CodeTables")->items().at(0).find("Name")->text(), "AccountTypes");
    const JsonValue& tables = *veda.find("CodeTables");
    ASSERT_EQ(tables.items().size(), 3U);
    EXPECT_EQ(tables.items()[2].find("Items")->items().size(), 205U);
}

}  // namespace
}  // namespace zr::automation
