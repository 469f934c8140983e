// What an exchange asks of the transport, what it leaves behind, and the checks of a reply that the
// cases cannot show.
#include <gtest/gtest.h>

#include <fstream>

#include "services/service_engine.h"
#include "support/fake_bureau.h"
#include "values/text.h"
#include "xml/xml_document.h"
#include "zrcreditbureau/b2bay_services.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace zr::test {
namespace {

ServiceVedaXMLAU& australian(FakeBureau& bureau) {
    return dynamic_cast<ServiceVedaXMLAU&>(bureau.service());
}

HttpRequest sent(FakeBureau& bureau) {
    bureau.script().requests.clear();
    bureau.facade.ExecuteVerifyConnection("VedaXMLAU");
    return bureau.script().requests.at(0);
}

TEST(Exchange, GoesToTheAddressOfTheMode) {
    constexpr const char* kDefault = "https://vedaxml-au.invalid/sys1";
    constexpr const char* kDefaultTest = "https://vedaxml-au.invalid/cta/sys1";
    const struct {
        bool test_mode;
        const char* own;
        const char* own_test;
        const char* expected;
    } cases[] = {
        {true, "", "", kDefaultTest},
        {true, "http://p", "", kDefaultTest},
        {true, "http://p", "http://t", "http://t"},
        {false, "", "http://t", kDefault},
        {false, "http://p", "http://t", "http://p"},
    };
    FakeBureau bureau;
    for (const auto& row : cases) {
        bureau.facade.TestMode(row.test_mode);
        australian(bureau).RequestURL(row.own);
        australian(bureau).RequestURLTest(row.own_test);
        EXPECT_EQ(sent(bureau).url, row.expected);
    }
}

TEST(Exchange, TakesTheProxySettings) {
    using Mode = HttpProxy::Mode;
    const struct {
        const char* server;
        const char* user;
        Mode mode;
        const char* expected_server;
        const char* expected_password;
    } cases[] = {
        {"", "", Mode::kDirect, "", ""},
        {"[PRECONFIG]", "me", Mode::kPreconfigured, "", "secret"},
        {"[preconfig]", "", Mode::kNamed, "[preconfig]", ""},
        {"proxy:8080", "", Mode::kNamed, "proxy:8080", ""},
        {"proxy:8080", "me", Mode::kNamed, "proxy:8080", "secret"},
    };
    FakeBureau bureau;
    australian(bureau).ProxyPassword("secret");
    for (const auto& row : cases) {
        australian(bureau).ProxyServer(row.server);
        australian(bureau).ProxyUserName(row.user);
        const HttpProxy proxy = sent(bureau).proxy;
        EXPECT_EQ(proxy.mode, row.mode) << row.server;
        EXPECT_EQ(proxy.server, row.expected_server);
        EXPECT_EQ(proxy.user, row.user);
        EXPECT_EQ(proxy.password, row.expected_password);
    }
}

TEST(Exchange, CarriesDocumentCredentialsAndTimeOuts) {
    using std::chrono::milliseconds;
    FakeBureau bureau;
    australian(bureau).UserId("user");
    australian(bureau).UserPassword("password");
    const HttpRequest request = sent(bureau);
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.user, "user");
    EXPECT_EQ(request.password, "password");
    EXPECT_EQ(request.content_type, "text/xml");
    EXPECT_EQ(request.body,
              "<?xml version=\"1.0\"?><BCAmessage type=\"REQUEST\"><BCAaccess><BCAaccess-code>user"
              "</BCAaccess-code><BCAaccess-pwd>password</BCAaccess-pwd></BCAaccess>\r<BCAservice>"
              "<BCAservice-client-ref></BCAservice-client-ref><BCAservice-code>PING"
              "</BCAservice-code><BCAservice-code-version>V00</BCAservice-code-version>"
              "<BCAservice-data><request mode=\"test\"></request>\r</BCAservice-data>\r"
              "</BCAservice>\r</BCAmessage>\r");
    const struct {
        std::int64_t given;
        std::int16_t seconds;
    } cases[] = {{40000, 300}, {-40000, 30}, {5'000'000'000, 300}, {5, 30}, {30, 30},
                 {120, 120},   {300, 300},   {1000, 300},          {-1, 30}};
    for (const auto& row : cases) {
        australian(bureau).TimeOutSeconds(row.given);
        EXPECT_EQ(australian(bureau).TimeOutSeconds(), row.seconds);
        const HttpTimeouts limits = sent(bureau).timeouts;
        for (const milliseconds limit :
             {limits.resolve, limits.connect, limits.send, limits.receive}) {
            EXPECT_EQ(limit, milliseconds(1000 * row.seconds));
        }
    }
}

TEST(Exchange, SendsNoCharacterThatXmlDoesNotAllow) {
    const struct {
        const char* last_name;
        const char* reference;
        const char* user;
        const char* property;  // null: sent
    } cases[] = {
        {"Smith\x01", "", "", "LastName"},
        {"Smith\x1F", "\x02", "", "TransactionReference"},
        {"", "\uFFFF", "", "TransactionReference"},
        {"", "", "me\b", "UserId"},
        {"a\tb\r\nc\x7F", "", "", nullptr},
        {"", "\xFF", "", "TransactionReference"},
    };
    for (const auto& row : cases) {
        FakeBureau bureau;
        bureau.ask("consumer-enquiry");
        bureau.request->LastName(row.last_name);
        bureau.request->TransactionReference(row.reference);
        bureau.request->ClientId("never sent \x01");
        australian(bureau).UserId(row.user);
        bureau.facade.ExecuteCreditEnquiry(*bureau.request);
        EXPECT_EQ(bureau.script().requests.empty(), row.property != nullptr);
        if (row.property != nullptr) {
            EXPECT_EQ(bureau.facade.ErrorMessage(),
                      std::string(row.property) + " holds a character that XML does not allow.");
        }
    }
}

TEST(Exchange, CutsTheClientReference) {
    FakeBureau bureau;
    australian(bureau).ClientReference("ABCDEFGHIJKLMNOPQRST");
    EXPECT_EQ(australian(bureau).ClientReference(), "ABCDEFGHIJKLMNOP");
    australian(bureau).ClientReference("ABCDEFGHIJKLM    QRS");
    EXPECT_EQ(australian(bureau).ClientReference(), "ABCDEFGHIJKLM");
}

TEST(Exchange, OfAStoredReportIsNone) {
    for (const auto& [country, name] :
         {std::pair{"AU", "B2BayAU"}, std::pair{"NZ", "B2BayNZ"}, std::pair{"NZ", "B2BayNZ_V2"}}) {
        FakeBureau bureau(country);
        const auto& service = dynamic_cast<B2BayService&>(bureau.service(name));
        ServiceEngine& engine = ServiceEngine::of(bureau.service(name));
        EXPECT_TRUE(engine.CreditEnquiry(*bureau.request) && engine.GetList(*bureau.request) &&
                    engine.VerifyConnection());
        EXPECT_TRUE(bureau.script().requests.empty());
        EXPECT_TRUE(service.Obsolete());
        EXPECT_FALSE(service.CompanyAddDirectorsStatistics());
    }
}

TEST(Exchange, KeepsTheReplyOfAFailedEnquiryAndTheRequestDirty) {
    FakeBureau bureau;
    const auto fails = [&bureau](int status, const char* body) {
        bureau.request->Clear();
        bureau.ask("consumer-enquiry");
        bureau.script().reply = {status, "Text", body};
        EXPECT_FALSE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
        EXPECT_EQ(bureau.request->Response()->ResponseXML(), body);
        EXPECT_TRUE(bureau.request->Dirty());
    };
    fails(500, "<html>broken</html>");
    fails(200, "not xml");
    fails(200, "<BCAservice-data><BCAerror/></BCAservice-data>");
}

TEST(Exchange, FillsTheResponseOfASuccessfulEnquiry) {
    FakeBureau bureau;
    bureau.ask("consumer-enquiry");
    bureau.script().reply.body = "<BCAmessage service-request-id='1'/>";
    EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
    const Response& response = *bureau.request->Response();
    EXPECT_FALSE(bureau.request->Dirty());
    EXPECT_EQ(response.ResponseDate(), kClock.date_only());
    EXPECT_EQ(response.ResponseXML(), bureau.script().reply.body);
    EXPECT_EQ(response.ResponseHTML(), "");
    EXPECT_EQ(response.RequestId(), "1");
    // Nothing is sent again until the request changes.
    EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
    EXPECT_TRUE(bureau.facade.ExecuteGetList(*bureau.request));
    EXPECT_EQ(bureau.script().requests.size(), 1U);
    bureau.request->LastName("SMITH");
    EXPECT_TRUE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
    EXPECT_EQ(bureau.script().requests.size(), 2U);
}

TEST(Exchange, ClearsTheRequestOfASuccessfulSearch) {
    FakeBureau bureau;
    bureau.ask("");
    bureau.request->CompanyName("ACME");
    bureau.script().reply.body = "<BCAmessage/>";
    EXPECT_TRUE(bureau.facade.ExecuteGetList(*bureau.request));
    EXPECT_FALSE(bureau.request->Dirty());
    EXPECT_EQ(bureau.request->Response()->ResponseXML(), "<BCAmessage/>");
}

TEST(Reply, ThatDoesNotParseTellsWhatTheParserSays) {
    const std::string replies[] = {"<html><br></html>", "<a>\n<b></a>", "", "Not XML at all"};
    bool with_source = false;
    bool without_source = false;
    FakeBureau bureau;
    for (const std::string& reply : replies) {
        const auto parsed = XmlDocument::parse(reply, XmlNames());
        const auto& error = std::get<XmlParseError>(parsed);
        std::string expected =
            "The response received was not a valid XML document.\r\n\r\nMessage\t: " +
            error.reason + "Error\t: " + std::to_string(error.code);
        if (!error.source_text.empty()) {
            expected += "\r\nSource\t: " + error.source_text;
            expected += error.line_position == 0
                            ? ""
                            : "\r\nPosition\t: " + std::to_string(error.line_position);
        }
        (error.source_text.empty() ? without_source : with_source) = true;
        bureau.ask("consumer-enquiry");
        EXPECT_FALSE(bureau.facade.BuildResponse(*bureau.request, kClock, reply));
        EXPECT_EQ(bureau.facade.ErrorMessage(), expected);
        EXPECT_EQ(bureau.request->Response()->ResponseXML(), reply);
    }
    EXPECT_TRUE(with_source);
    EXPECT_TRUE(without_source);
}

TEST(Reply, ThatIsAWebPageIsNoReply) {
    const std::string refusal =
        "The response received was not a valid XML document.\r\n\r\nMessage\t: The document is a "
        "web "
        "page (HTML), not a reply of the bureau.\r\nError\t: 10100";
    const struct {
        const char* reply;
        bool refused;
    } cases[] = {
        {"<html><body>Service unavailable</body></html>", true},
        {"<!DOCTYPE HTML><HTML xmlns='http://www.w3.org/1999/xhtml'/>", true},
        {"<?xml version='1.0'?><!-- page --><h:Html xmlns:h='urn:x'><h:body/></h:Html>", true},
        {"<BCAmessage><html/></BCAmessage>", false},
        {"<htmlx/>", false},
    };
    for (const auto& row : cases) {
        FakeBureau bureau;
        bureau.ask("consumer-enquiry");
        bureau.script().reply.body = row.reply;
        EXPECT_EQ(bureau.facade.ExecuteCreditEnquiry(*bureau.request), !row.refused) << row.reply;
        EXPECT_EQ(bureau.facade.ErrorMessage(), row.refused ? refusal : "") << row.reply;
        EXPECT_EQ(bureau.request->Response()->ResponseXML(), row.reply);
        EXPECT_EQ(bureau.facade.ExecuteVerifyConnection("VedaXMLAU"), !row.refused) << row.reply;
    }
}

TEST(Exchange, TellsProgramsTheKindOfAFailure) {
    using enum FailureKind;
    using namespace error_number;
    const auto thrown = [](std::int32_t number) {
        BureauScript script;
        script.failure = PlatformError(number, "D");
        return script;
    };
    const auto replied = [](int status, const std::string& body) {
        BureauScript script;
        script.reply = {status, "Text", body};
        return script;
    };
    const std::string data = "<BCAmessage><BCAservice-data>";
    const struct {
        BureauScript script;
        FailureKind kind;
        std::string code;
    } cases[] = {
        {thrown(kTimeout), kTimeOut, "-2147012894"},
        {thrown(kNameNotResolved), kNetwork, "-2147012889"},
        {thrown(kConnectionLost), kNetwork, "-2147012866"},
        {thrown(kUnknownAuthority), kCertificate, "-2147012851"},
        {thrown(kSecurityFailure), kCertificate, "-2147012721"},
        {thrown(kInvalidAddress), kConfiguration, "-2147012891"},
        {thrown(kInvalidReply), kReply, "-2147012744"},
        {thrown(kUnexpected), kInternal, "-2147418113"},
        {replied(401, ""), kConfiguration, "401"},
        {replied(302, ""), kConfiguration, "302"},
        {replied(429, ""), kNetwork, "429"},
        {replied(503, ""), kNetwork, "503"},
        {replied(200, "<a"), kReply, "73"},
        {replied(200, "<html/>"), kReply, "10100"},
        {replied(200, "<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"), kReply, "10005"},
        {replied(200, std::string(1000, '<') + "a>"), kReply, "68"},
        {replied(200, text::replace_all(std::string(300, '.'), ".", "<a>")), kLimits, "10001"},
        {replied(200, data + "<BCAerror type='service'><BCAerror-code>V009</BCAerror-code>"
                             "</BCAerror></BCAservice-data></BCAmessage>"),
         kRefused, "V009"},
        {replied(200, data + "<response><error><error-description code='12'/></error></response>"
                             "</BCAservice-data></BCAmessage>"),
         kContent, "12"},
    };
    for (const auto& row : cases) {
        FakeBureau bureau;
        EXPECT_EQ(bureau.facade.ErrorKind(), kNone);
        bureau.script() = row.script;
        bureau.ask("consumer-enquiry");
        EXPECT_FALSE(bureau.facade.ExecuteCreditEnquiry(*bureau.request));
        EXPECT_EQ(failure_kind_name(bureau.facade.ErrorKind()), failure_kind_name(row.kind))
            << bureau.facade.ErrorMessage();
        EXPECT_EQ(bureau.facade.ErrorCode(), row.code) << bureau.facade.ErrorMessage();
        // Each stage of a connection test keeps the kind of what went wrong in it.
        FakeBureau other("NZ");
        other.script() = row.script;
        EXPECT_FALSE(other.facade.ExecuteVerifyConnection("VedaXMLNZ"));
        EXPECT_EQ(other.facade.ErrorKind(), row.kind);
    }
}

TEST(Reply, TranslatedAgainGivesTheSame) {
    FakeBureau bureau;
    const std::string rich =
        "<BCAmessage service-request-id='9'><BCAservices><BCAservice><BCAservice-data><response>"
        "<enquiry-report><primary-match type='x'><individual-public-data-file><bankruptcy/>"
        "</individual-public-data-file></primary-match></enquiry-report></response>"
        "</BCAservice-data></BCAservice></BCAservices></BCAmessage>";
    EXPECT_EQ(bureau.translated(rich).BankruptcyCount(), 1);
    const std::int32_t lines = bureau.request->Response()->ResponseElements().Count();
    EXPECT_EQ(bureau.translated(rich).BankruptcyCount(), 1);
    EXPECT_EQ(bureau.request->Response()->ResponseElements().Count(), lines);
    EXPECT_EQ(bureau.translated("<BCAmessage/>").BankruptcyCount(), 0);
    EXPECT_EQ(bureau.request->Response()->MatchType(), "");
    // A stored reply can be the response's own.
    bureau.translated(rich);
    EXPECT_EQ(bureau.translated(bureau.request->Response()->ResponseXML()).RequestId(), "9");
}

TEST(Reply, IsRenderedEvenWhenItIsFaulty) {
    FakeBureau bureau;
    const std::string sheet = testing::TempDir() + "rendering.xsl";
    std::ofstream(sheet) << "<xsl:stylesheet version='1.0' "
                            "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
                            "<xsl:output method='text'/><xsl:template match='/'>"
                            "[<xsl:value-of select='//BCAerror-code'/>]</xsl:template>"
                            "</xsl:stylesheet>";
    australian(bureau).XSLTFileName(sheet);
    const std::string refused =
        "<BCAservice-data><BCAerror><BCAerror-code>7</BCAerror-code></BCAerror></BCAservice-data>";
    EXPECT_EQ(bureau.translated(refused).ResponseHTML(), "[7]");

    const std::string missing = testing::TempDir() + "missing.xsl";
    australian(bureau).XSLTFileName(missing);
    const std::string page = bureau.translated("<BCAmessage/>").ResponseHTML();
    const std::string opening =
        "<html><body><span style='font:bold 10pt Verdana;color:red;'>Error transforming XML using "
        "XSL file '" +
        missing + "'.<BR><BR>";
    EXPECT_EQ(page.substr(0, opening.size()), opening);
    EXPECT_TRUE(page.ends_with(").</span></body></html>")) << page;
}

TEST(Reply, HasNoMarkupInThePageThatSaysWhatFailed) {
    FakeBureau bureau;
    australian(bureau).XSLTFileName("/<script>&/none.xsl");
    const std::string named = bureau.translated("<BCAmessage/>").ResponseHTML();
    EXPECT_NE(named.find("'/&lt;script&gt;&amp;/none.xsl'"), std::string::npos) << named;

    const std::string sheet = testing::TempDir() + "any.xsl";
    std::ofstream(sheet) << "<xsl:stylesheet version='1.0' "
                            "xmlns:xsl='http://www.w3.org/1999/XSL/Transform'/>";
    australian(bureau).XSLTFileName(sheet);
    const std::string quoted =
        bureau.translated("<a b='<script>alert(1)</script>&x;'>").ResponseHTML();
    EXPECT_EQ(quoted.find("<script"), std::string::npos) << quoted;
    EXPECT_NE(quoted.find("Unescaped '&lt;'"), std::string::npos) << quoted;
}

}  // namespace
}  // namespace zr::test
