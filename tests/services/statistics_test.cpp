// What is counted of a reply: both edges of every period for every kind of record, what is owed,
// and the ends of the ranges.
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

/// A kind of record: its family, and its text around the date by which it counts.
const struct Kind {
    const char* name;
    RecordFamily family;
    const char* before;
    const char* after;
} kKinds[] = {
    {"bankruptcy", RecordFamily::kBankruptcy,
     "<individual-public-data-file><bankruptcy><date-declared>",
     "</date-declared></bankruptcy></individual-public-data-file>"},
    {"consumer default", RecordFamily::kDefault,
     "<individual-consumer-credit-file><default><original-default><date-recorded>",
     "</date-recorded></original-default><current-default><date-recorded>2012-06-01"
     "</date-recorded></current-default></default></individual-consumer-credit-file>"},
    {"commercial default", RecordFamily::kDefault,
     "<individual-commercial-credit-file><default><original-default><date-recorded>",
     "</date-recorded></original-default></default></individual-commercial-credit-file>"},
    {"consumer enquiry", RecordFamily::kEnquiry,
     "<individual-consumer-credit-file><credit-enquiry enquiry-date='",
     "'/></individual-consumer-credit-file>"},
    {"commercial enquiry", RecordFamily::kEnquiry,
     "<individual-commercial-credit-file><credit-enquiry enquiry-date='",
     "'/></individual-commercial-credit-file>"},
    {"judgement", RecordFamily::kJudgement,
     "<individual-public-data-file><court-action type='default-judgement'><action-date>",
     "</action-date></court-action></individual-public-data-file>"},
    {"writ", RecordFamily::kCollection,
     "<individual-public-data-file><court-action type='Default-Judgement'><action-date>",
     "</action-date></court-action></individual-public-data-file>"},
};

TEST(Statistics, CountEventsStrictlyLaterThanTheStartOfAPeriod) {
    const struct {
        DateTime response_date;
        const char* event;
        std::array<std::int16_t, 4> years;
    } cases[] = {
        {DateTime::ymd(2012, 6, 15), "2011-06-15", {0, 1, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "2011-06-16", {1, 1, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "2010-06-15", {0, 0, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "2010-06-16", {0, 1, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "2009-06-15", {0, 0, 0, 1}},
        {DateTime::ymd(2012, 6, 15), "2009-06-16", {0, 0, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "2008-06-15", {0, 0, 0, 0}},
        {DateTime::ymd(2012, 6, 15), "2008-06-16", {0, 0, 0, 1}},
        {DateTime::ymd(2012, 6, 15), "2012-06-16", {1, 1, 1, 1}},
        {DateTime::ymd(2012, 6, 15), "", {0, 0, 0, 0}},
        {DateTime::ymd(2012, 6, 15), "15/06/2012", {0, 0, 0, 0}},
        // A leap day counts back to 28 February where there is no other.
        {DateTime::ymd(2012, 2, 29), "2011-02-28", {0, 1, 1, 1}},
        {DateTime::ymd(2012, 2, 29), "2011-03-01", {1, 1, 1, 1}},
        {DateTime::ymd(2012, 2, 29), "2008-02-29", {0, 0, 0, 0}},
        {DateTime::ymd(2012, 2, 29), "2008-03-01", {0, 0, 0, 1}},
        {DateTime::ymd(2013, 2, 28), "2012-02-29", {1, 1, 1, 1}},
    };
    FakeBureau bureau;
    for (const Kind& kind : kKinds) {
        for (const auto& row : cases) {
            const std::string record =
                std::string(kind.before).append(row.event).append(kind.after);
            const FamilyStatistics& counted =
                bureau.translated(report(record), row.response_date).statistics(kind.family);
            EXPECT_EQ(counted.total, 1) << kind.name;
            EXPECT_EQ(counted.years, row.years) << kind.name << " of " << row.event;
        }
    }
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
