// Replies: the same for the same applicant, different for others, and between them all that the
// templates can say.
#include "gateway/replies.h"

#include <filesystem>
#include <fstream>

#include "gateway/requests.h"

namespace zr::gateway::test {
namespace {

namespace fs = std::filesystem;

/// The part of a reply that the element of this name is.
std::string part_of(const std::string& reply, const std::string& element) {
    const auto from = reply.find("<" + element + ">");
    const auto to = reply.find("</" + element + ">");
    EXPECT_NE(to, std::string::npos) << element;
    return to == std::string::npos ? "" : reply.substr(from, to - from);
}

TEST(GatewayReplies, FollowFromTheApplicantAndTheDay) {
    const CreditRequest jo;
    const auto file_of = [](const std::string& reply) {
        return part_of(reply, "individual-public-data-file");
    };
    EXPECT_EQ(ask(credit_request(jo)), ask(credit_request(jo)));
    EXPECT_EQ(ask(person(), kNewZealand), ask(person(), kNewZealand));
    // the address, the letter case and the reference of the client do not matter to the file
    CreditRequest adverse{.family = "Adverse"};
    CreditRequest same{.family = "ADVERSE"};
    const std::string moved = with(with(credit_request(same), ">Main<", ">Other<"), ">C1<", ">C2<");
    const std::string file = file_of(ask(credit_request(adverse)));
    EXPECT_EQ(file, file_of(ask(moved)));
    // another day moves the dates and nothing else
    const Bureau tomorrow(settings_of(16));
    const std::string later = file_of(tomorrow.answer(kAustralia, credit_request(adverse)).reply);
    EXPECT_NE(file, later);
    EXPECT_EQ(file.size(), later.size());
    // people differ
    std::set<std::string> references;
    for (int i = 0; i < 50; ++i) {
        const Reply reply(ask(credit_request({.first = "Jo" + std::to_string(i)})));
        references.insert(reply.text("//primary-match/bureau-reference"));
    }
    EXPECT_EQ(references.size(), 50u);
}

TEST(GatewayReplies, AReferenceFindsTheFileOfThePerson) {
    for (const char* family : {"Clean", "Adverse", "Possible", "Citizen"}) {
        CreditRequest request{.family = family};
        const std::string by_name = ask(credit_request(request));
        request.reference = Reply(by_name).text("//primary-match/bureau-reference");
        EXPECT_LE(request.reference.size(), 10u);
        const std::string by_reference = ask(credit_request(request));
        if (by_name.find("<individual-public-data-file>") == std::string::npos) {
            EXPECT_EQ(by_reference.find("<individual-public-data-file>"), std::string::npos);
            continue;
        }
        EXPECT_EQ(part_of(by_name, "individual-public-data-file"),
                  part_of(by_reference, "individual-public-data-file"))
            << family;
    }
    EXPECT_EQ(refusal_code(ask(credit_request({.reference = "ABC"}))), "none");
}

TEST(GatewayReplies, SurnamesForDemonstrations) {
    const auto australian = [](const std::string& family) {
        return ask(credit_request({.family = family,
                                   .product = "commercial-plus-consumer-enquiry",
                                   .enquiry_type = "credit-enquiry",
                                   .account_type = "PL"}));
    };
    for (const char* adverse : {"//default", "//bankruptcy", "//court-action"}) {
        EXPECT_EQ(Reply(australian("clean")).count(adverse), 0u) << adverse;
        EXPECT_GT(Reply(australian("Adverse")).count(adverse), 0u) << adverse;
    }
    for (const char* adverse : {"//default", "//judgement", "//insolvency", "//bankruptcy"}) {
        EXPECT_EQ(Reply(ask(person("Clean"), kNewZealand)).count(adverse), 0u) << adverse;
    }
    EXPECT_GT(Reply(ask(person("Adverse"), kNewZealand)).count("//default"), 0u);
    EXPECT_EQ(Reply(australian("POSSIBLE")).count("//possible-match"), 1u);
    EXPECT_EQ(Reply(australian("CLEAN")).count("//possible-match"), 0u);
    for (const std::string& large : {australian("LARGE-300"), ask(person("LARGE-300"), kNewZealand),
                                     ask(search("company-name", "LARGE-300"), kNewZealand)}) {
        EXPECT_GT(large.size(), 300u * 1024);
        EXPECT_LT(large.size(), 400u * 1024);
    }
    EXPECT_EQ(refusal_code(australian("LARGE-")), "none");
}

TEST(GatewayReplies, HoldOnlyWhatTheOptionsAskFor) {
    const struct {
        const char* option;
        const char* part;
    } parts[] = {{"score", "//score-data"},
                 {"ewp", "//electronic-white-pages"},
                 {"driver-licence", "//identity-verification/driver-licence"},
                 {"property-ownership", "//property-ownership"},
                 {"summary", "//summary-data"},
                 {"licencecheck", "//licencecheck-report"},
                 {"moj-fines", "//moj-fines-report"}};
    for (const auto& asked : parts) {
        const std::string option = " " + std::string(asked.option) + "=\"yes\"";
        const Reply reply(ask(person("Citizen", "Jo", option), kNewZealand));
        for (const auto& each : parts) {
            EXPECT_EQ(reply.count(each.part), each.option == asked.option)
                << each.part << " of " << asked.option;
        }
    }
}

TEST(GatewayReplies, OrganisationCandidates) {
    std::set<std::size_t> counts;
    for (int i = 0; i < 60; ++i) {
        const std::string request = organisation_request("org-name", "Acme " + std::to_string(i));
        counts.insert(Reply(ask(request)).count("response/org-id-result"));
    }
    EXPECT_GT(counts.size(), 5u);
    const struct {
        const char* element;
        const char* value;
        const char* found;  ///< where the value stands in the one candidate
    } cases[] = {{"organisation-number", "123456789", "//australian-business-number"},
                 {"australian-business-number", "12345678901", "//australian-business-number"},
                 {"bureau-reference", "123456", "//bureau-reference"},
                 {"organisation-number", "123456000", ""},
                 {"org-name", "nothing", ""}};
    for (const auto& each : cases) {
        const Reply reply(ask(organisation_request(each.element, each.value)));
        const bool any = *each.found != '\0';
        EXPECT_EQ(reply.count("response/org-id-result"), any ? 1u : 0u) << each.value;
        EXPECT_TRUE(!any || reply.text(each.found).ends_with(each.value)) << each.value;
    }
}

TEST(GatewayReplies, CompanySearchesLeadToReports) {
    const struct {
        const char* name;
        std::size_t least;
        std::size_t most;
    } cases[] = {{"Bellbird Holdings", 2, 16},
                 {"bellbird ltd", 10, 30},
                 {"Zarnow", 1, 30},
                 {"Kākā Foods Limited", 2, 16},
                 {"Nosuch", 0, 0}};
    for (const auto& each : cases) {
        const Reply list(ask(search("company-name", each.name), kNewZealand));
        const auto found = list.nodes("response/company-selection-list/*");
        EXPECT_GE(found.size(), each.least) << each.name;
        EXPECT_LE(found.size(), each.most) << each.name;
        for (xmlNode* candidate : found) {
            const auto text = [&](const char* part) { return text_at(*candidate, part); };
            EXPECT_TRUE(text("string(company-name-type)").ends_with(" Name"));
            const std::string number = text("string(registration-number)");
            const Reply again(ask(search("registration-number", number), kNewZealand));
            EXPECT_EQ(again.count("response/company-selection-list/*"), 1u);
            const Reply report(ask(company(number), kNewZealand));
            for (const char* part :
                 {"company-name", "registration-number", "registration-area", "company-status"}) {
                EXPECT_EQ(text(part), report.text("//company/company//" + std::string(part)));
            }
        }
    }
    EXPECT_EQ(Reply(ask(search("registration-number", "1000"), kNewZealand)).count("response"), 1u);
}

/// Records of a company that are counted stand under the report as well as under the company.
TEST(GatewayReplies, CountedRecordsOfCompaniesStandWhereTheyAreCounted) {
    bool zeros_differ = false;
    std::size_t records = 0;
    for (int number = 1'000'001; number < 1'000'060; ++number) {
        for (const std::string& request :
             {company(std::to_string(number)), company_with_directors(std::to_string(number))}) {
            const Reply reply(ask(request, kNewZealand));
            for (const char* file : {"company-default-file/company-default",
                                     "company-judgement-file/company-judgement",
                                     "company-credit-file/company-credit-enquirer",
                                     "company-public-notice-file/company-public-notice"}) {
                const std::string report = "response/enquiry-report/";
                const auto counted = reply.nodes(report + file);
                const auto listed = reply.nodes(report + "*[company]/" + file);
                ASSERT_EQ(counted.size(), listed.size()) << number << file;
                records += listed.size();
                for (std::size_t i = 0; i < counted.size(); ++i) {
                    EXPECT_EQ(text_of(*counted[i]), text_of(*listed[i]));
                    EXPECT_EQ(attribute(*counted[i], "unique-id"),
                              attribute(*listed[i], "unique-id"));
                }
            }
            // notices that continue each other: the same number, with other zeros before it
            for (xmlNode* notice : reply.nodes("//company-public-notice[@unique-id = "
                                               "preceding-sibling::*[1]/@unique-id * 1]")) {
                zeros_differ |= attribute(*notice, "unique-id") !=
                                text_at(*notice, "string(preceding-sibling::*[1]/@unique-id)");
            }
        }
    }
    EXPECT_GT(records, 100u);
    EXPECT_TRUE(zeros_differ);
}

/// Adds "element" and "element/@attribute" of all that is no directive.
void collect(const xmlNode& element, std::set<std::string>& found) {
    const bool own = element.ns != nullptr;
    const std::string name = name_of(element);
    for (const xmlAttr* each = element.properties; each && !own; each = each->next) {
        if (!each->ns) {
            found.insert(name + "/@" + reinterpret_cast<const char*>(each->name));
        }
    }
    if (!own) {
        found.insert(name);
    }
    for (const xmlNode* each = element.children; each; each = each->next) {
        if (each->type == XML_ELEMENT_NODE) {
            collect(*each, found);
        }
    }
}

TEST(GatewayReplies, AllThatTheTemplatesCanSayIsSaid) {
    std::set<std::string> said;
    const auto hear = [&](const std::string& request, const char* path) {
        const Document reply = parse(ask(request, path));
        collect(*xmlDocGetRootElement(reply.get()), said);
    };
    for (int i = 0; i < 60; ++i) {
        const std::string number = std::to_string(i);
        const char* family = i % 2 != 0 ? "Adverse" : "Possible";
        hear(credit_request({.family = family,
                             .first = number,
                             .product = "individual-consumer-plus-alr-scored-enquiry",
                             .service_code = "BCA003"}),
             kAustralia);
        hear(credit_request({.family = family,
                             .first = number,
                             .product = "commercial-plus-consumer-enquiry",
                             .enquiry_type = "credit-enquiry",
                             .account_type = "PL"}),
             kAustralia);
        hear(credit_request({.reference = "30000" + number}), kAustralia);
        hear(organisation_request("org-name", "Acme " + number), kAustralia);
        hear(person(family, number), kNewZealand);
        hear(company(std::to_string(1'000'001 + i * 7919)), kNewZealand);
        hear(company_with_directors(std::to_string(1'000'001 + i * 7919)), kNewZealand);
    }
    for (const char* each : {"Refused", "Invalid"}) {
        hear(credit_request({.family = each}), kAustralia);
    }
    hear(search("company-name", "Bellbird"), kNewZealand);
    const std::set<std::string> aside = {"officer", "officer/@type"};  // held, not said
    std::size_t checked = 0;
    for (const auto& file :
         fs::recursive_directory_iterator(ZR_TEST_DATA "/../tools/bureau_gateway/replies")) {
        if (!file.is_regular_file() || file.path().filename() == "words.xml") {
            continue;
        }
        const Document form = load(file.path());
        std::set<std::string> can_say;
        collect(*xmlDocGetRootElement(form.get()), can_say);
        for (const std::string& each : can_say) {
            EXPECT_TRUE(said.contains(each) || aside.contains(each)) << file.path() << ": " << each;
            ++checked;
        }
    }
    EXPECT_GT(checked, 400u);
}

class OwnReplies : public testing::Test {
  protected:
    void SetUp() override { fs::create_directories(folder_ / "australia"); }
    void TearDown() override { fs::remove_all(folder_); }

    void put(const std::string& name, const std::string& text) const {
        std::ofstream(folder_ / name) << text;
    }
    Answer answer(const std::string& request, const char* path = kAustralia) const {
        Settings settings = settings_of(15);
        settings.replies_folder = folder_;
        return Bureau(settings).answer(path, request);
    }

    const fs::path folder_ =
        fs::temp_directory_path() / ("own-replies-" + std::to_string(::getpid()));
};

TEST_F(OwnReplies, AreChosenBySurnameNumberOrReference) {
    put("citizen.xml", "<mine/>");
    put("300000001.XML", "by reference, and no XML");
    put("australia/adverse.xml", "<australian/>");
    put("C1.xml", "<by-client-reference/>");
    put("1234567.xml", "<company/>");
    put("bellbird.xml", "<search/>");
    EXPECT_EQ(answer(person("CITIZEN"), kNewZealand).reply, "<mine/>");
    EXPECT_EQ(answer(person("CITIZEN"), kNewZealand).outcome, "stored");
    EXPECT_EQ(answer(credit_request({.reference = "300000001"})).reply, "by reference, and no XML");
    EXPECT_EQ(answer(with(credit_request({.family = "Adverse"}), ">C1<", "><")).reply,
              "<australian/>");
    EXPECT_EQ(answer(credit_request({.family = "Other"})).reply, "<by-client-reference/>");
    EXPECT_EQ(answer(company("1234567"), kNewZealand).reply, "<company/>");
    EXPECT_EQ(answer(search("company-name", "Bellbird"), kNewZealand).reply, "<search/>");
    // others get what they always get, and requests are checked first
    EXPECT_EQ(answer(person("Adverse"), kNewZealand).reply, ask(person("Adverse"), kNewZealand));
    EXPECT_EQ(complaints(answer(with(person(), ">15000<", ">-1<"), kNewZealand).reply).size(), 1u);
}

TEST_F(OwnReplies, AreFilledInWhenTheyAreTemplates) {
    const auto reply = [&](const std::string& content) {
        put("citizen.xml", "<t:reply xmlns:t=\"urn:bureau-gateway\">" + content + "</t:reply>");
        return answer(person(), kNewZealand).reply;
    };
    const auto content = [&](const std::string& form) {
        const std::string whole = reply("<response>" + form + "</response>");
        const auto from = whole.find("<response>") + 10;
        return whole.substr(from, whole.find("</response>") - from);
    };
    put("beside.xml", "<t:x xmlns:t=\"urn:bureau-gateway\"><from>{$a}</from></t:x>");
    const struct {
        const char* form;
        const char* expected;
    } cases[] = {
        {"<a b=\"{1 + 1}\">x {$request/individual/individual-name/family-name} y</a>",
         "<a b=\"2\">x Citizen y</a>"},
        {"<a>{$request/none}</a><b c=\"{''}\" d=\"\"/><e/><f g=\"{''}\">h</f>", "<e/><f>h</f>"},
        {"<a t:repeat=\"3\">{$n}</a>", "<a>1</a><a>2</a><a>3</a>"},
        {"<a t:repeat=\"$request/individual/address\">{$n} {$it/@type}</a>",
         "<a>1 current</a><a>2 previous</a>"},
        {"<a t:repeat=\"2\"><b t:repeat=\"2\">{$n}</b>{$n}</a>",
         "<a><b>1</b><b>2</b>1</a><a><b>1</b><b>2</b>2</a>"},
        {"<t:let a=\"2\" b=\"$a * 2\"/><a t:if=\"$b = 4\">{$b}</a><c t:if=\"false()\">x</c>",
         "<a>4</a>"},
        {"<t:include file=\"beside\" a=\"7\"/>", "<from>7</from>"},
        {"<a>1</a><t:copy select=\"a | / | a/text()\"/>", "<a>1</a><a>1</a>"},
        {"<a t:repeat=\"number('x')\"/><a t:repeat=\"-1\"/>{between(3, 3)}", "3"},
        {"<t:hold name=\"k\"><h>5</h></t:hold><a>{$k}</a>", "<a>5</a>"},
        {"<a>{day(0)} {day(31)} {months(day(400))} {two(2)} {either(1, 'y', 'n')}</a>",
         "<a>2012-06-15 2012-05-15 13 2.00 y</a>"},
        {"<a t:file=\"'312345678'\">{reference()} {burden()} {some('1 2 3')}</a>",
         "<a>312345678 heavy 3</a>"},
        {"<a t:repeat=\"2\">{oldest($request//none)}{upper('x')}{digits(0 + 1) &lt; 10}</a>",
         "<a>Xtrue</a><a>Xtrue</a>"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(content(each.form), each.expected) << each.form;
    }
    for (const char* broken :
         {"<a>{</a>", "<a>{1 +}</a>", "<a>{none(1)}</a>", "<a>{digits()}</a>", "<a>{$unknown}</a>",
          "<t:what/>", "<t:include file=\"absent\"/>", "<t:include file=\"citizen\"/>"}) {
        EXPECT_EQ(refusal_code(reply(broken)), "T001") << broken;
    }
    EXPECT_EQ(refusal_code(reply("<BCAerror><BCAerror-code>X1</BCAerror-code></BCAerror>")), "X1");
}

TEST_F(OwnReplies, NeedTheirFolder) {
    fs::remove_all(folder_);
    EXPECT_THROW(answer(person(), kNewZealand), std::runtime_error);
}

}  // namespace
}  // namespace zr::gateway::test
