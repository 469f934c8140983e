// The periods that records are counted in: both edges of each, for every kind of record and
// service.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "b2bay_import.h"

namespace zr::test {
namespace {

constexpr ServiceRow kLiveAu{"AU", "VedaXMLAU", "consumer-enquiry"};
constexpr ServiceRow kLiveNz{"NZ", "VedaXMLNZ", "enquiry_individual"};

/// A kind of record: the services that count it, its family, and a record of it with DATE where the
/// date stands by which it counts; other dates in it do not count.
const struct {
    std::vector<const ServiceRow*> services;
    RecordFamily family;
    const char* record;
} kKinds[] = {
    // Australia.
    {{&kLiveAu, &kAu},
     RecordFamily::kBankruptcy,
     "<individual-public-data-file><bankruptcy><date-declared>DATE</date-declared></bankruptcy>"
     "</individual-public-data-file>"},
    {{&kLiveAu, &kAu},
     RecordFamily::kDefault,
     "<individual-consumer-credit-file><default><original-default><date-recorded>DATE"
     "</date-recorded></original-default><current-default><date-recorded>2012-06-01"
     "</date-recorded></current-default></default></individual-consumer-credit-file>"},
    {{&kLiveAu, &kAu},
     RecordFamily::kDefault,
     "<individual-commercial-credit-file><default><original-default><date-recorded>DATE"
     "</date-recorded></original-default></default></individual-commercial-credit-file>"},
    {{&kLiveAu, &kAu},
     RecordFamily::kEnquiry,
     "<individual-consumer-credit-file><credit-enquiry enquiry-date='DATE'/>"
     "</individual-consumer-credit-file>"},
    {{&kLiveAu, &kAu},
     RecordFamily::kEnquiry,
     "<individual-commercial-credit-file><credit-enquiry enquiry-date='DATE'/>"
     "</individual-commercial-credit-file>"},
    {{&kLiveAu, &kAu},
     RecordFamily::kJudgement,
     "<individual-public-data-file><court-action type='default-judgement'><action-date>DATE"
     "</action-date></court-action></individual-public-data-file>"},
    {{&kLiveAu},
     RecordFamily::kCollection,  // a writ: the type is told in lower case alone
     "<individual-public-data-file><court-action type='Default-Judgement'><action-date>DATE"
     "</action-date></court-action></individual-public-data-file>"},
    // People in New Zealand.
    {{&kLiveNz},
     RecordFamily::kBankruptcy,
     "<insolvency-file><insolvency><insolvency-type code='TYPRM'/><adjudication-date>DATE"
     "</adjudication-date></insolvency></insolvency-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kBankruptcy,
     "<bankruptcy-file><bankruptcy><publication-date>2012-06-14</publication-date><load-date>DATE"
     "</load-date></bankruptcy></bankruptcy-file>"},
    {{&kV1},
     RecordFamily::kBankruptcy,
     "<bankruptcy-file><bankruptcy><load-date>2012-06-14</load-date><publication-date>DATE"
     "</publication-date></bankruptcy></bankruptcy-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kDefault,
     "<default-file><default create-date='2012-06-14'><default-date>2012-06-14</default-date>"
     "<load-date>DATE</load-date></default></default-file>"},
    {{&kV1},
     RecordFamily::kDefault,
     "<default-file><default last-update-date='2012-06-14' create-date='DATE'/></default-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kCollection,
     "<default-collection-agency-file><default><load-date>DATE</load-date></default>"
     "</default-collection-agency-file>"},
    {{&kV1},
     RecordFamily::kCollection,
     "<collection-file><collection create-date='DATE'/></collection-file>"},
    {{&kLiveNz, &kV1, &kV2},
     RecordFamily::kEnquiry,
     "<credit-file><credit-enquiry create-date='DATE'/></credit-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kJudgement,
     "<judgement-file><judgement><load-date>DATE</load-date></judgement></judgement-file>"},
    {{&kV1},
     RecordFamily::kJudgement,
     "<judgement-file><judgement><publication-date>DATE</publication-date></judgement>"
     "</judgement-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kPublicNotice,
     "<public-notice-file><public-notice><load-date>DATE</load-date></public-notice>"
     "</public-notice-file>"},
    // Companies in New Zealand.
    {{&kLiveNz, &kV1, &kV2},
     RecordFamily::kDefault,
     "<company/><company-default-file><company-default create-date='DATE'/>"
     "</company-default-file>"},
    {{&kLiveNz, &kV1, &kV2},
     RecordFamily::kEnquiry,
     "<company/><company-credit-file><company-credit-enquirer enquiry-date='DATE'/>"
     "</company-credit-file>"},
    {{&kLiveNz, &kV1, &kV2},
     RecordFamily::kJudgement,
     "<company/><company-judgement-file><company-judgement><publication-date>DATE"
     "</publication-date></company-judgement></company-judgement-file>"},
    {{&kV1},
     RecordFamily::kCollection,
     "<company/><company-collection-file><company-collection create-date='DATE'/>"
     "</company-collection-file>"},
    {{&kLiveNz, &kV2},
     RecordFamily::kPublicNotice,
     "<company/><company-public-notice-file><company-public-notice create-date='DATE'/>"
     "</company-public-notice-file>"},
};

std::string dated(std::string record, const std::string& date) {
    return record.replace(record.find("DATE"), 4, date);
}

struct Event {
    const char* date;
    std::array<std::int16_t, 4> years;
};

TEST(Periods, HoldWhatIsLaterThanTheirFirstDay) {
    const Event events[] = {
        {"2011-06-15", {0, 1, 1, 1}}, {"2011-06-16", {1, 1, 1, 1}}, {"2010-06-15", {0, 0, 1, 1}},
        {"2010-06-16", {0, 1, 1, 1}}, {"2009-06-15", {0, 0, 0, 1}}, {"2009-06-16", {0, 0, 1, 1}},
        {"2008-06-15", {0, 0, 0, 0}}, {"2008-06-16", {0, 0, 0, 1}}, {"2012-06-16", {1, 1, 1, 1}},
        {"", {0, 0, 0, 0}},           {"15/06/2012", {0, 0, 0, 0}},
    };
    for (const auto& kind : kKinds) {
        for (const ServiceRow* service : kind.services) {
            Import import(*service);
            for (const Event& event : events) {
                const std::string record = dated(kind.record, event.date);
                const FamilyStatistics& counted = import.report(record).statistics(kind.family);
                EXPECT_EQ(counted.total, 1) << service->name << " " << record;
                EXPECT_EQ(counted.years, event.years) << service->name << " " << record;
            }
        }
    }
}

TEST(Periods, CountBackFromALeapDayToTheLastOfFebruary) {
    const struct {
        DateTime response_date;
        Event event;
    } rows[] = {
        {DateTime::ymd(2012, 2, 29), {"2011-02-28", {0, 1, 1, 1}}},
        {DateTime::ymd(2012, 2, 29), {"2011-03-01", {1, 1, 1, 1}}},
        {DateTime::ymd(2012, 2, 29), {"2008-02-29", {0, 0, 0, 0}}},
        {DateTime::ymd(2012, 2, 29), {"2008-03-01", {0, 0, 0, 1}}},
        {DateTime::ymd(2013, 2, 28), {"2012-02-29", {1, 1, 1, 1}}},
    };
    Import import(kLiveAu);
    const auto& kind = kKinds[0];
    for (const auto& row : rows) {
        const Response& response =
            import.report(dated(kind.record, row.event.date), "", row.response_date);
        EXPECT_EQ(response.statistics(kind.family).years, row.event.years) << row.event.date;
    }
}

}  // namespace
}  // namespace zr::test
