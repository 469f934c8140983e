// What is counted of a reply: what is owed, and the ends of the ranges.
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

TEST(Statistics, CountWhatIsOwed) {
    const auto default_of = [](const std::string& code, const std::string& amount,
                               const std::string& before = "") {
        return "<individual-consumer-credit-file><default><account-details>" + before +
               "<default-status code='" + code +
               "'/></account-details><original-default><default-amount>1000.25</default-amount>"
               "</original-default><current-default><default-amount>" +
               amount +
               "</default-amount></current-default></default></individual-consumer-credit-file>";
    };
    const auto action_of = [](const std::string& type, const std::string& code,
                              const std::string& amount, const std::string& before = "") {
        return "<individual-public-data-file><court-action type='" + type +
               "'><court-action-amount>" + amount + "</court-action-amount>" + before +
               "<court-action-status code='" + code +
               "'/></court-action></individual-public-data-file>";
    };
    const RecordFamily defaults = RecordFamily::kDefault;
    const RecordFamily judgements = RecordFamily::kJudgement;
    const RecordFamily writs = RecordFamily::kCollection;
    const struct {
        std::string record;
        RecordFamily family;
        std::int16_t unpaid;
        const char* value;
        const char* balance;
    } cases[] = {
        {default_of("S", "500"), defaults, 0, "1000.25", "0"},
        {default_of("P", "500"), defaults, 0, "1000.25", "0"},
        {default_of("D", "500"), defaults, 1, "1000.25", "500"},
        {default_of("s", "500"), defaults, 1, "1000.25", "500"},
        {default_of("", "0.0001"), defaults, 1, "1000.25", "0.0001"},
        {default_of("", "0"), defaults, 0, "1000.25", "0"},
        {default_of("", "-5"), defaults, 0, "1000.25", "-5"},
        {default_of("", ""), defaults, 0, "1000.25", "0"},
        {default_of("", "$1,500"), defaults, 1, "1000.25", "1500"},
        {default_of("", "AUD 500"), defaults, 0, "1000.25", "0"},
        {action_of("default-judgement", "D", "70"), judgements, 0, "70", "0"},
        {action_of("default-judgement", "P", "70"), judgements, 0, "70", "0"},
        {action_of("default-judgement", "S", "70"), judgements, 0, "70", "0"},
        {action_of("default-judgement", "U", "70"), judgements, 1, "70", "70"},
        {action_of("writ", "D", "70"), writs, 0, "70", "0"},
        {action_of("", "", "70"), writs, 1, "70", "70"},
        // A code is that of the first status, which may have none.
        {default_of("S", "500", "<default-status/>"), defaults, 1, "1000.25", "500"},
        {action_of("", "D", "70", "<court-action-status/>"), writs, 1, "70", "70"},
    };
    FakeBureau bureau;
    for (const auto& row : cases) {
        const FamilyStatistics& counted =
            bureau.translated(report(row.record)).statistics(row.family);
        EXPECT_EQ(counted.total, 1) << row.record;
        EXPECT_EQ(counted.open, row.unpaid) << row.record;
        EXPECT_EQ(counted.loaded_value.to_plain(), row.value) << row.record;
        EXPECT_EQ(counted.loaded_balance.to_plain(), row.balance) << row.record;
    }
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

TEST(Statistics, KeepTheLatestDisqualification) {
    const auto until = [](const char* date) {
        return std::string("<disqualified-directorship><date-disqualified-until>") + date +
               "</date-disqualified-until></disqualified-directorship>";
    };
    const std::string orders[] = {until("2010-01-01") + until("2013-05-01"),
                                  until("2013-05-01") + until("2010-01-01") + until("")};
    FakeBureau bureau;
    for (const std::string& order : orders) {
        const Response& response = bureau.translated(
            report("<individual-public-data-file>" + order + "</individual-public-data-file>"));
        EXPECT_EQ(response.DisqualifiedDirectorshipUntil(), DateOrNull(DateTime::ymd(2013, 5, 1)));
    }
}

}  // namespace
}  // namespace zr::test
