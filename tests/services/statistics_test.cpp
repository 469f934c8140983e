// The ends of the ranges of what is counted.
#include <gtest/gtest.h>

#include "support/fake_bureau.h"

namespace zr::test {
namespace {

std::string report(const std::string& match) {
    return "<BCAmessage><BCAservices><BCAservice><BCAservice-data><response><enquiry-report>"
           "<primary-match>" +
           match +
           "</primary-match></enquiry-report></response></BCAservice-data></BCAservice>"
           "</BCAservices></BCAmessage>";
}

std::string repeated(const std::string& text, int count) {
    std::string result;
    while (count-- > 0) {
        result += text;
    }
    return result;
}

TEST(Statistics, StayAtTheEndOfTheirRange) {
    const std::string largest =
        "<default><original-default><date-recorded>2012-06-01</date-recorded><default-amount>"
        "922337203685477.5807</default-amount></original-default><current-default><default-amount>"
        "922337203685477.5807</default-amount></current-default></default>";
    const std::string records = "<individual-consumer-credit-file>" + repeated(largest, 2) +
                                repeated("<credit-enquiry enquiry-date='2012-06-01'/>", 32770) +
                                "</individual-consumer-credit-file>";
    FakeBureau bureau;
    const Response& response = bureau.translated(report(records));
    EXPECT_EQ(response.EnquiryCount(), 32767);
    EXPECT_EQ(response.EnquiryCount1Y(), 32767);
    EXPECT_EQ(response.DefaultLoadedValue().to_plain(), "922337203685477.5807");
    EXPECT_EQ(response.DefaultLoadedBalance().to_plain(), "922337203685477.5807");
    EXPECT_EQ(response.DefaultCountUnpaid(), 2);
}

}  // namespace
}  // namespace zr::test
