// Records of an individual's credit: notes, enquiries, defaults.
#include "bureau_gateway/new_zealand/catalogue.h"
#include "bureau_gateway/new_zealand/section.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

constexpr auto kYesNo = std::to_array<std::string_view>({"Y", "N", "N", ""});
constexpr auto kDefaultStatuses = std::to_array<std::string_view>({"O", "S", "W"});
constexpr auto kRelationships = std::to_array<std::string_view>({"DF", "DF", "GU"});

void write_note(Section& section) {
    section.next_id();
    section.xml.attribute("unique-id", section.id());
    section.xml.attribute("create-date", to_iso(section.next_date()));
    section.xml.attribute("type", section.random.pick(note_types()));
    section.xml.text(section.random.pick(words::notes()));
}

void write_enquiry(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const Date date = section.next_date(3, 200);
    xml.attribute("create-date", to_iso(date));
    xml.leaf("credit-enquirer", random.pick(words::credit_providers()));
    const CodeRow& type = random.pick(account_types());
    xml.coded("account-type", "code", type.code, type.text);
    const long amount = random.percent(20) ? 0 : section.cents(200, 60'000);
    section.money("enquiry-amount", amount);
    section.maybe(70, "client-reference", "EN" + random.digits(6));
    section.write_corrections(15);
    ++section.totals.enquiries;
    section.totals.enquiries_of_last_year += date > days_before(section.subject.today, 365);
    section.totals.enquiry_amount += amount;
}

void write_default(Section& section, std::span<const std::string_view> providers) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    section.next_id();
    xml.attribute("defaulter-detail-number", section.id());
    xml.attribute("joint-liability", random.pick(std::span(kYesNo)));
    xml.attribute("company-loan", random.pick(std::span(kYesNo)));
    section.date("load-date", section.next_date());
    section.date("default-date", section.earlier_date(60));
    xml.leaf("credit-provider", random.pick(providers));
    section.maybe(70, "ANZSIC-industry", random.pick(words::industries()));
    const long original = section.cents(100, 24'000);
    const long balance = random.percent(35) ? 0 : original * random.between(10, 110) / 100;
    section.money("default-original-amount", original);
    section.money("default-balance-amount", balance);
    section.money("total-loan-amount", random.percent(40) ? 0 : original * 2);
    xml.coded("account-type", "code", random.pick(account_type_codes()));
    section.maybe_date(60, "account-opened-date", section.earlier_date(2'000));
    xml.open("default-status");
    xml.attribute("code", balance == 0 ? "P" : random.pick(std::span(kDefaultStatuses)));
    if (random.percent(60)) {
        xml.attribute("date", to_iso(section.later_date()));
    }
    xml.close();
    section.maybe(80, "client-account-reference-id", "AC" + random.digits(7));
    section.write_name(section.subject.name);
    section.maybe(70, "date-of-birth", to_iso(section.subject.date_of_birth));
    xml.coded("consumer-default-relationship", "type", random.pick(std::span(kRelationships)));
    section.write_corrections();
    section.totals.default_balance += balance;
}

void write_provider_default(Section& section) {
    write_default(section, words::credit_providers());
    ++section.totals.defaults;
}

void write_collector_default(Section& section) {
    write_default(section, words::collectors());
    ++section.totals.collections;
}

constexpr std::array kSections = {
    SectionRow{"note-file", "note", {{{0, 0}, {0, 1}, {1, 3}}}, write_note},
    SectionRow{"credit-file", "credit-enquiry", {{{0, 4}, {2, 9}, {6, 20}}}, write_enquiry, true},
    SectionRow{"default-file", "default", {{{0, 0}, {0, 2}, {2, 6}}}, write_provider_default},
    SectionRow{"default-collection-agency-file",
               "default",
               {{{0, 0}, {0, 1}, {1, 3}}},
               write_collector_default},
};

}  // namespace

std::span<const SectionRow> credit_sections() { return kSections; }

}  // namespace zr::gateway::new_zealand
