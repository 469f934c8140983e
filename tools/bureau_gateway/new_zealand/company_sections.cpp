// Records of a company.
#include "bureau_gateway/invention/amounts.h"
#include "bureau_gateway/new_zealand/company_register.h"
#include "bureau_gateway/new_zealand/section.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

constexpr auto kDocuments = std::to_array<std::string_view>(
    {"Annual Return", "Particulars of Directors", "Change of Registered Office", "Constitution",
     "Particulars of Shareholding"});
constexpr auto kTerms =
    std::to_array<std::string_view>({"7 days", "20th of the month following", "30 days"});
constexpr auto kDefaultStatuses =
    std::to_array<std::string_view>({"Outstanding", "Outstanding", "Paid", "Part Paid"});
constexpr auto kBodyTypes = std::to_array<std::string_view>({"Limited Company", "Trust Board"});

void write_document(Section& section) {
    section.date("date-registered", section.next_date());
    section.xml.leaf("document-name", section.random.pick(std::span(kDocuments)));
    section.xml.leaf("barcode", section.random.digits(10));
}

void write_credit_reference(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    xml.attribute("create-date", to_iso(section.next_date()));
    xml.leaf("supplier-industry", random.pick(words::industries()));
    section.money("turnover-amount", section.cents(1'000, 90'000));
    xml.leaf("terms-of-trade", random.pick(std::span(kTerms)));
    section.maybe_date(80, "account-opened-date", section.earlier_date(3'000));
    xml.leaf("referee-name", std::string(random.pick(words::given_names()).name) + " " +
                                 std::string(random.pick(words::family_names())));
    section.maybe(70, "referee-phone-number", "0999 " + random.digits(7));
    const XmlScope comment(xml, "comment");
    for (int i = random.between(0, 2); i > 0; --i) {
        xml.leaf("narrative", i == 1 ? "Pays within terms." : "Account is used rarely.");
    }
}

/// A notice may be continued by the next one, under the same identifier.
void write_public_notice(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const bool continued = section.has_id() && random.percent(40);
    if (!continued) {
        section.next_id();
        ++section.totals.notices;
    }
    xml.attribute("unique-id", section.id());
    xml.attribute("create-date", to_iso(section.next_date(continued ? 0 : 10, 300)));
    xml.leaf("notice-type", random.pick(words::notice_types()));
    xml.coded("adverse", "indicator", random.percent(40) ? "YES" : "NO");
    section.maybe(90, "narrative", random.pick(words::narratives()));
}

void write_enquirer(Section& section) {
    const Date date = section.next_date(5, 300);
    section.xml.attribute("enquiry-date", to_iso(date));
    section.xml.text(section.random.pick(words::credit_providers()));
    ++section.totals.enquiries;
    section.totals.enquiries_of_last_year += date > days_before(section.subject.today, 365);
}

void write_default(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    section.next_id();
    xml.attribute("unique-id", section.id());
    xml.attribute("create-date", to_iso(section.next_date()));
    xml.leaf("credit-provider", random.pick(words::credit_providers()));
    section.maybe_date(80, "date-account-opened", section.earlier_date(2'000));
    xml.leaf("account-terms", random.pick(std::span(kTerms)));
    const std::string_view status = random.pick(std::span(kDefaultStatuses));
    xml.open("company-default-status");
    if (random.percent(60)) {
        xml.attribute("last-update-date", to_iso(section.later_date()));
    }
    xml.text(status);
    xml.close();
    const long amount = section.cents(200, 80'000);
    const long balance = status == "Paid" ? 0 : amount * random.between(20, 110) / 100;
    if (status == "Paid") {
        section.date("date-paid", section.later_date());
    }
    section.money("default-amount", amount);
    section.money("default-balance", balance);
    section.write_address_lines();
    if (random.percent(50)) {
        const XmlScope officer(xml, "company-officer");
        section.write_name(invent_name(random));
    }
    section.maybe(50, "narrative", random.pick(words::narratives()));
    ++section.totals.defaults;
    section.totals.default_balance += balance;
}

void write_judgement(Section& section) {
    section.next_id();
    section.xml.attribute("unique-id", section.id());
    section.date("publication-date", section.next_date());
    section.xml.leaf("creditor", section.random.pick(words::credit_providers()));
    section.money("judgement-amount", section.cents(500, 90'000));
    section.maybe(60, "narrative", section.random.pick(words::narratives()));
    section.maybe(50, "gazette-narrative", section.random.pick(words::narratives()));
    ++section.totals.judgements;
}

void write_affiliation(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const Company company = *find_company(random.digits(6) + "1");
    xml.leaf("company-name", company.name);
    xml.leaf("registration-number", company.number);
    xml.leaf("company-status", company.status);
    xml.leaf("body-type", random.pick(std::span(kBodyTypes)));
    xml.leaf("number-of-shares-owned", std::to_string(random.between(1, 2'000'000)));
    xml.leaf("percentage-of-shares-owned", hundredths(random.between(1, 100)));
}

constexpr std::array kSections = {
    SectionRow{"document-history", "document-details", {{{1, 4}, {1, 8}, {2, 12}}}, write_document},
    SectionRow{"company-credit-reference-file",
               "company-credit-reference",
               {{{0, 2}, {0, 2}, {0, 3}}},
               write_credit_reference},
    SectionRow{"company-public-notice-file",
               "company-public-notice",
               {{{0, 0}, {0, 3}, {1, 8}}},
               write_public_notice},
    SectionRow{"company-credit-file",
               "company-credit-enquirer",
               {{{0, 4}, {1, 9}, {4, 20}}},
               write_enquirer},
    SectionRow{
        "company-default-file", "company-default", {{{0, 0}, {0, 2}, {2, 6}}}, write_default},
    SectionRow{
        "company-judgement-file", "company-judgement", {{{0, 0}, {0, 1}, {1, 4}}}, write_judgement},
    SectionRow{
        "known-affiliation", "affiliated-company", {{{0, 1}, {0, 3}, {0, 4}}}, write_affiliation},
};

}  // namespace

std::span<const SectionRow> company_sections() { return kSections; }

}  // namespace zr::gateway::new_zealand
