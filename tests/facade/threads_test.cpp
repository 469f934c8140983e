// Facades of their own side by side: the thread sanitizer's work, and the same results on every
// thread.

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "zrcreditbureau/vedaxml_services.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr {
namespace {

const std::string kRoot = ZR_TEST_DATA "/..";

std::string read_file(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Translates a reply, rendering included, and gives everything that came of it as one text.
std::string translate(const std::string& reply) {
    ZRCreditBureau bureau;
    bureau.Initialise("AU");
    dynamic_cast<ServiceVedaXMLAU&>(bureau.Services().Item("VedaXMLAU"))
        .XSLTFileName(kRoot + "/xslt/vedaxml_au.xsl");
    const auto request = bureau.CreateRequest();
    request->ServiceName("VedaXMLAU");
    request->ProductId("consumer-enquiry");
    if (!bureau.BuildResponse(*request, DateTime::ymd(2012, 6, 15), reply)) {
        return bureau.ErrorMessage();
    }
    const auto response = request->Response();
    std::string result = response->ResponseHTML();
    for (const ResponseElement& line : response->ResponseElements()) {
        result += line.ResponseGroupSort();
        result += line.ResponseDescription();
    }
    return result;
}

TEST(Threads, FacadesRunSideBySide) {
    const std::string reply = read_file(kRoot + "/examples/vedaxml_au_adverse.xml");
    const std::string expected = translate(reply);
    ASSERT_GT(expected.size(), 10'000U);

    constexpr int kThreads = 8;
    constexpr int kRounds = 5;
    std::vector<std::string> results(kThreads);
    std::vector<std::jthread> threads;
    for (std::string& result : results) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                result = translate(reply);
            }
        });
    }
    threads.clear();
    for (const std::string& result : results) {
        EXPECT_EQ(result, expected);
    }
}

}  // namespace
}  // namespace zr
