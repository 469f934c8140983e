#include <gtest/gtest.h>

#include <map>
#include <set>

#include "records/component.h"
#include "support/fake_bureau.h"
#include "values/text.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr::test {
namespace {

TEST(Facade, StartsWithItsDefaults) {
    ZRCreditBureau facade;
    EXPECT_TRUE(facade.TestMode());
    EXPECT_EQ(facade.CurrencyFormat(), "currency");
    EXPECT_EQ(facade.CurrencyFormatSymbol(), "currency");
    EXPECT_EQ(facade.DateFormat(), "medium date");
    EXPECT_EQ(facade.ErrorMessage(), "");
    EXPECT_EQ(facade.Country(), "");
    EXPECT_EQ(ZRCreditBureau::Version(), "5.0.0");
}

TEST(Facade, IsInitialisedForACountry) {
    const struct {
        const char* given;
        const char* country;  // null: refused
    } cases[] = {{"AU", "AU"},   {"au", "AU"},     {"nz", "NZ"},    {"NZL", "NZ"},
                 {"Auck", "AU"}, {"", nullptr},    {"UK", nullptr}, {" AU", nullptr},
                 {"A", nullptr}, {"N Z", nullptr}, {"  ", nullptr}};
    for (const auto& row : cases) {
        ZRCreditBureau facade;
        EXPECT_EQ(facade.Initialise(row.given), row.country != nullptr) << row.given;
        EXPECT_EQ(facade.Country(), row.country != nullptr ? row.country : "");
        EXPECT_EQ(facade.ErrorMessage(),
                  row.country != nullptr ? "" : "This Country is not currently supported.");
    }
}

TEST(Facade, KeepsItsServicesWhenTheRuntimeCannotBeMade) {
    int made = 0;
    ZRCreditBureau facade([&made]() -> std::unique_ptr<Runtime> {
        if (made++ == 1) {
            throw PlatformError(429, "Cannot create object\r\n", "Runtime");
        }
        return std::make_unique<Runtime>(make_http_transport());
    });
    EXPECT_TRUE(facade.Initialise("AU"));
    EXPECT_FALSE(facade.Initialise("NZ"));
    EXPECT_EQ(facade.ErrorMessage(),
              "Error creating ZRRuntime8 object. Cannot create object (Runtime error 429).");
    EXPECT_EQ(facade.Country(), "NZ");
    EXPECT_TRUE(facade.Services().Exists("VedaXMLAU"));
    EXPECT_TRUE(facade.Initialise("AU"));
}

TEST(Facade, TakesNoRuntimeThatIsNone) {
    const struct {
        std::unique_ptr<Runtime> (*make)();
        const char* reason;
    } cases[] = {
        {[]() -> std::unique_ptr<Runtime> { return nullptr; }, "Nothing was made."},
        {[]() -> std::unique_ptr<Runtime> { throw 5; },
         "Something unknown was thrown (error -2147418113)."},
        {[]() -> std::unique_ptr<Runtime> { throw std::bad_alloc(); }, "Not enough memory."},
        {[] { return std::make_unique<Runtime>(nullptr); },
         "A runtime needs a transport and a clock."},
        {[] { return std::make_unique<Runtime>(make_http_transport(), nullptr); },
         "A runtime needs a transport and a clock."},
    };
    for (const auto& row : cases) {
        ZRCreditBureau facade(row.make);
        EXPECT_FALSE(facade.Initialise("AU"));
        EXPECT_EQ(facade.ErrorMessage(),
                  std::string("Error creating ZRRuntime8 object. ") + row.reason);
        EXPECT_EQ(facade.Services().Count(), 0);
    }
}

class ThrowingTransport final : public HttpTransport {
  public:
    HttpReply exchange(const HttpRequest& /*request*/) override { throw 5; }
};

TEST(Facade, OutlivesWhateverTransportAndClockThrow) {
    const struct {
        DateTime (*clock)();
        const char* message;
    } cases[] = {
        {[] { return kClock; },
         "Something unknown was thrown (error -2147418113).\r\n\r\nPossible causes"},
        {[]() -> DateTime { throw 5; }, "Something unknown was thrown (error -2147418113)."},
        {[] { return DateTime(); }, "The clock gives no date."},
    };
    for (const auto& row : cases) {
        ZRCreditBureau facade([&row] {
            return std::make_unique<Runtime>(std::make_unique<ThrowingTransport>(), row.clock);
        });
        ASSERT_TRUE(facade.Initialise("AU"));
        EXPECT_FALSE(facade.ExecuteVerifyConnection("VedaXMLAU"));
        EXPECT_TRUE(facade.ErrorMessage().starts_with(row.message)) << facade.ErrorMessage();
    }
}

TEST(Facade, TranslatesAgainFromTheResponseItself) {
    FakeBureau bureau;
    const Response& first = bureau.translated("<BCAmessage service-request-id='1'/>");
    EXPECT_TRUE(
        bureau.facade.BuildResponse(*bureau.request, first.ResponseDate(), first.ResponseXML()));
    EXPECT_EQ(bureau.request->Response()->ResponseDate(), kClock.date_only());
    EXPECT_EQ(bureau.request->Response()->RequestId(), "1");
}

TEST(Facade, LeavesToTheHostWhatItHolds) {
    std::shared_ptr<ServiceVedaXMLAU> service;
    std::shared_ptr<const Response> response;
    const Product* product = nullptr;
    {
        FakeBureau bureau;
        service = bureau.facade.Service<ServiceVedaXMLAU>();
        EXPECT_EQ(service, bureau.facade.Service("vedaxmlau"));
        EXPECT_EQ(bureau.facade.Service<ServiceVedaXMLNZ>(), nullptr);
        product = &service->Products().Item(1);
        bureau.translated("<BCAmessage service-request-id='1'/>");
        response = bureau.request->Response();
        bureau.translated("<BCAmessage service-request-id='2'/>");
        EXPECT_EQ(service->Application(), &bureau.facade);
        bureau.facade.Initialise("AU");
        EXPECT_NE(service, bureau.facade.Service("VedaXMLAU"));
    }
    EXPECT_EQ(response->RequestId(), "1");
    EXPECT_EQ(response->ResponseElements().Item(2).ResponseDescription(), "1");
    EXPECT_EQ(product->ProductId(), "consumer-enquiry");
    EXPECT_EQ(service->Application(), nullptr);
    EXPECT_EQ(service->Products().Count(), 0);
    service->UserId("still a setting");
    EXPECT_EQ(service->UserId(), "still a setting");
}

TEST(Facade, HasCodesOfItsOwnToWrite) {
    const auto sent = [](FakeBureau& bureau) {
        bureau.ask("consumer-enquiry");
        bureau.request->StreetType("Avenue");
        bureau.facade.ExecuteCreditEnquiry(*bureau.request);
        return bureau.request->RequestXML().find("mine") != std::string::npos;
    };
    FakeBureau writer;
    FakeBureau other;
    const CodeTableItems& types = writer.service().CodeTables().Item("StreetTypes");
    types.Item(types.GetCodeFromDescription("Avenue")).Code("mine");
    EXPECT_TRUE(sent(writer));
    EXPECT_FALSE(sent(other));
}

TEST(Facade, TranslatesAsOfADateOnly) {
    FakeBureau bureau;
    const Response& response = bureau.translated("<BCAmessage service-request-id='1'/>");
    for (const DateTime& none : {DateTime(), DateTime::ymd(2012, 2, 30), DateTime::ymd(99, 12, 31),
                                 DateTime::ymd(10000, 1, 1)}) {
        EXPECT_FALSE(bureau.facade.BuildResponse(*bureau.request, none, "<BCAmessage/>"));
        EXPECT_EQ(bureau.facade.ErrorMessage(),
                  "The response date is not a date of the years 100 to 9999.");
        EXPECT_EQ(response.RequestId(), "1");
    }
}

TEST(Facade, RefusesEveryOperationOutsideItsLife) {
    ZRCreditBureau facade;
    const std::unique_ptr<Request> request = facade.CreateRequest();
    const auto refuses_all = [&](const char* message) {
        return !facade.ExecuteCreditEnquiry(*request) && !facade.ExecuteGetList(*request) &&
               !facade.ExecuteVerifyConnection("VedaXMLAU") &&
               !facade.BuildResponse(*request, kClock, "<a/>") && facade.ErrorMessage() == message;
    };
    constexpr const char* kNotYet = "The credit bureau has not been initialised.";
    facade.Dispose();
    EXPECT_TRUE(refuses_all(kNotYet));
    EXPECT_TRUE(facade.Initialise("AU"));
    facade.Dispose();
    facade.Dispose();
    EXPECT_TRUE(refuses_all("The credit bureau has been disposed of."));
    EXPECT_EQ(facade.Services().Count(), 0);
    EXPECT_EQ(facade.Country(), "AU");
}

/// A facade whose catalogue also has what no real one has.
class Validation : public testing::Test {
  protected:
    Validation() {
        auto& products = const_cast<Products&>(bureau.service().Products());
        Component::add(products, "lodge", true, zreProductType::zreProductTypeDefault, true);
        Component::add(products, "lodge-no-more", false, zreProductType::zreProductTypeDefault,
                       true);
        Component::add(products, "no-more", false, zreProductType::zreProductTypeEnquiry, true);
        bureau.script().reply.body = "<BCAmessage/>";
    }
    FakeBureau bureau;
};

TEST_F(Validation, StopsAtTheFirstFailure) {
    constexpr const char* kNoService = "Service Name not specified.";
    constexpr const char* kNoProduct = "Product not specified.";
    constexpr const char* kUnknown = "Service 'X' does not exist.";
    constexpr const char* kNotHere = "Service 'VedaXMLNZ' does not exist.";
    constexpr const char* kNoSuchProduct = "Product does not exist.";
    constexpr const char* kWrongType = "Product type invalid for this request.";
    constexpr const char* kNotAvailable = "Product is not available for this Service.";
    const struct {
        const char* service;
        const char* product;
        const char* enquiry;  // "": succeeds
        const char* list;     // of a company whose name is given
        const char* translate;
    } cases[] = {
        {"", "", kNoService, kNoService, kNoService},
        {"", "x", kNoService, kNoService, kNoService},
        {"X", "", kNoProduct, kUnknown, kNoProduct},
        {"X", "x", kUnknown, kUnknown, kUnknown},
        {"VedaXMLNZ", "x", kNotHere, kNotHere, kNotHere},
        {" ", "x", "Service ' ' does not exist.", "Service ' ' does not exist.",
         "Service ' ' does not exist."},
        {"VedaXMLAU", "", kNoProduct, "", kNoProduct},
        {"VedaXMLAU", "x", kNoSuchProduct, "", kNoSuchProduct},
        {"VedaXMLAU", "lodge", kWrongType, "", ""},
        {"VedaXMLAU", "lodge-no-more", kWrongType, "", kNotAvailable},
        {"VedaXMLAU", "no-more", kNotAvailable, "", kNotAvailable},
        {"VedaXMLAU", "consumer-enquiry", "", "", ""},
        {"vedaxmlau", "CONSUMER-ENQUIRY", "", "", ""},
    };
    std::map<std::string, std::set<std::string>> codes;
    for (const auto& row : cases) {
        const auto outcome = [&](auto operation) -> std::string {
            bureau.request->Clear();
            bureau.ask(row.product, row.service);
            bureau.request->CompanyName("ACME");
            if (operation()) {
                return "";
            }
            EXPECT_EQ(bureau.facade.ErrorKind(), FailureKind::kMisuse);
            codes[bureau.facade.ErrorMessage()].insert(bureau.facade.ErrorCode());
            return bureau.facade.ErrorMessage();
        };
        Request& request = *bureau.request;
        EXPECT_EQ(outcome([&] { return bureau.facade.ExecuteCreditEnquiry(request); }), row.enquiry)
            << row.service << "/" << row.product;
        EXPECT_EQ(outcome([&] { return bureau.facade.ExecuteGetList(request); }), row.list)
            << row.service << "/" << row.product;
        EXPECT_EQ(outcome([&] { return bureau.facade.BuildResponse(request, kClock, "<a/>"); }),
                  row.translate)
            << row.service << "/" << row.product;
    }
    EXPECT_EQ(codes[kNoService], std::set<std::string>{"service-missing"});
    EXPECT_EQ(codes[kNoProduct], std::set<std::string>{"product-missing"});
    EXPECT_EQ(codes[kUnknown], std::set<std::string>{"service-unknown"});
    EXPECT_EQ(codes[kNoSuchProduct], std::set<std::string>{"product-unknown"});
    EXPECT_EQ(codes[kWrongType], std::set<std::string>{"product-type"});
    EXPECT_EQ(codes[kNotAvailable], std::set<std::string>{"product-not-available"});
    EXPECT_FALSE(bureau.facade.ExecuteVerifyConnection(""));
    EXPECT_EQ(bureau.facade.ErrorMessage(), kNoService);
    EXPECT_FALSE(bureau.facade.ExecuteVerifyConnection("X"));
    EXPECT_EQ(bureau.facade.ErrorMessage(), kUnknown);
    // A success leaves the last failure's text.
    EXPECT_TRUE(bureau.facade.ExecuteVerifyConnection("VEDAXMLAU"));
    EXPECT_EQ(bureau.facade.ErrorMessage(), kUnknown);
}

TEST_F(Validation, LeavesARefusedRequestAlone) {
    bureau.ask("x");
    const auto response = bureau.request->Response();
    EXPECT_FALSE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
    EXPECT_FALSE(bureau.facade.BuildResponse(*bureau.request, kClock, "<a/>"));
    EXPECT_EQ(bureau.request->Response(), response);
    EXPECT_EQ(response->ResponseXML(), "");
    EXPECT_EQ(bureau.request->RequestXML(), "");
    EXPECT_TRUE(bureau.request->Dirty());
    EXPECT_TRUE(bureau.script().requests.empty());
}

TEST_F(Validation, PassesAnUnchangedRequest) {
    const std::unique_ptr<Request> fresh = bureau.facade.CreateRequest();
    EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*fresh));
    EXPECT_TRUE(bureau.facade.ExecuteGetList(*fresh));
    EXPECT_FALSE(bureau.facade.BuildResponse(*fresh, kClock, "<a/>"));
    EXPECT_TRUE(bureau.script().requests.empty());
}

TEST(Services, AreThoseOfTheCountryInTheirOrder) {
    const struct {
        const char* country;
        const char* all;
        const char* current;
        const char* other;
    } cases[] = {
        {"AU", "VedaXMLAU,B2BayAU", "VedaXMLAU", "VedaXMLNZ"},
        {"NZ", "VedaXMLNZ,B2BayNZ_V2,B2BayNZ", "VedaXMLNZ", "VedaXMLAU"},
    };
    for (const auto& row : cases) {
        FakeBureau bureau(row.country);
        const Services& services = bureau.facade.Services();
        EXPECT_EQ(services.Application(), &bureau.facade);
        EXPECT_EQ(services.List(true), row.all);
        EXPECT_EQ(services.List(false), row.current);
        EXPECT_EQ(services.Item(1).ServiceName(), row.current);
        EXPECT_EQ(&services.Item(text::lower(row.current)), &services.Item(1));
        EXPECT_TRUE(services.Exists(text::upper(row.current)));
        EXPECT_FALSE(services.Exists(""));
        EXPECT_FALSE(services.Exists(row.other));
        EXPECT_THROW((void)services.Item(0), PlatformError);
        EXPECT_THROW((void)services.Item(services.Count() + 1), PlatformError);
        EXPECT_THROW((void)services.Item(row.other), PlatformError);
    }
}

TEST(Services, ThatAreObsoleteOnlyTranslate) {
    constexpr const char* kObsolete = "Service is obsolete.";
    int obsolete = 0;
    for (const char* country : {"AU", "NZ"}) {
        FakeBureau bureau(country);
        ZRCreditBureau& facade = bureau.facade;
        const Services& services = facade.Services();
        for (std::int32_t at = 1; at <= services.Count(); ++at) {
            const Service& service = services.Item(at);
            if (!service.Obsolete()) {
                continue;
            }
            ++obsolete;
            const auto refused = [&](bool result) {
                return !result && facade.ErrorMessage() == kObsolete;
            };
            bureau.ask("no such product", service.ServiceName());
            EXPECT_TRUE(refused(facade.ExecuteCreditEnquiry(*bureau.request)));
            EXPECT_TRUE(refused(facade.ExecuteGetList(*bureau.request)));
            EXPECT_TRUE(refused(facade.ExecuteVerifyConnection(service.ServiceName())));
            bureau.ask(service.Products().Item(1).ProductId(), service.ServiceName());
            EXPECT_FALSE(facade.BuildResponse(*bureau.request, kClock, "not xml"));
            EXPECT_EQ(bureau.request->Response()->ResponseXML(), "not xml");
            EXPECT_TRUE(bureau.script().requests.empty());
        }
    }
    EXPECT_EQ(obsolete, 3);
}

TEST(Services, GiveTheirProducts) {
    FakeBureau bureau;
    EXPECT_EQ(bureau.facade.ServiceProducts("vedaxmlau"), &bureau.service().Products());
    EXPECT_EQ(bureau.facade.ServiceProducts("Unknown"), nullptr);
    EXPECT_EQ(bureau.facade.ServiceProducts(""), nullptr);
    EXPECT_EQ(bureau.facade.ErrorMessage(), "");
}

TEST(Services, GiveUpTheirCatalogueWhenDisposedOf) {
    FakeBureau bureau;
    Service& service = bureau.service();
    EXPECT_EQ(service.Application(), &bureau.facade);
    service.Dispose();
    EXPECT_EQ(service.Application(), nullptr);
    EXPECT_EQ(service.Products().Count(), 0);
    EXPECT_EQ(service.CodeTables().Count(), 0);
    bureau.ask("consumer-enquiry");
    EXPECT_FALSE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
    EXPECT_EQ(bureau.facade.ErrorMessage(), "Product does not exist.");
}

TEST(Services, ThatAreDisposedOfRunNothing) {
    FakeBureau bureau;
    bureau.service().Dispose();
    bureau.request->ServiceName("VedaXMLAU");
    bureau.request->CompanyName("ACME");
    EXPECT_FALSE(bureau.facade.ExecuteGetList(*bureau.request));
    EXPECT_FALSE(bureau.facade.ExecuteVerifyConnection("VedaXMLAU"));
    EXPECT_EQ(bureau.facade.ErrorMessage(), "The service has been disposed of.");
}

}  // namespace
}  // namespace zr::test
