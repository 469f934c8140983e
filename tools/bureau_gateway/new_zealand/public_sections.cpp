// Public records of an individual: courts, insolvencies, notices, documents lost, companies.
#include "bureau_gateway/new_zealand/catalogue.h"
#include "bureau_gateway/new_zealand/company_register.h"
#include "bureau_gateway/new_zealand/section.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

struct IdType {
    std::string_view text;
    std::string_view detail;
};
constexpr std::array kIdTypes = {
    IdType{"Passport", "New Placeholder"},
    IdType{"Driver Licence", ""},
    IdType{"Birth Certificate", "copy"},
    IdType{"Credit Card", ""},
};
constexpr auto kLostOrStolen = std::to_array<std::string_view>({"L", "S", ""});
constexpr auto kReported = std::to_array<std::string_view>({"Y", "N"});
constexpr std::array kJudgementStatuses = {CodeRow{"", ""}, CodeRow{"", ""}, CodeRow{"PD", "Paid"},
                                           CodeRow{"SA", "Set Aside"}};
constexpr auto kSources = std::to_array<std::string_view>({"Sample Gazette", "Official Assignee"});
constexpr auto kConditions = std::to_array<std::string_view>(
    {"Not to manage a company for three years.", "Payments of $50.00 a week."});

void write_judgement(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    section.next_id();
    xml.attribute("unique-id", section.id());
    section.date("load-date", section.next_date());
    xml.leaf("creditor", random.pick(words::credit_providers()));
    section.money("judgement-amount", section.cents(300, 60'000));
    xml.leaf("court-type", random.pick(words::courts()));
    const CodeRow& status = random.pick(std::span(kJudgementStatuses));
    xml.coded("judgement-status", "code", status.code, status.text);
    if (status.code == "PD") {
        section.date("date-paid", section.later_date());
    }
    section.write_name(section.subject.name);
    section.maybe(60, "narrative", random.pick(words::narratives()));
    section.write_corrections();
    ++section.totals.judgements;
}

void write_insolvency(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const auto coded = [&](std::string_view element, std::string_view code) {
        const XmlScope scope(xml, element);
        xml.leaf("code", code);
    };
    section.next_id();
    xml.attribute("unique-id", section.id());
    xml.leaf("insolvency-number", random.digits(6));
    xml.coded("insolvency-type", "code", random.pick(insolvency_types()));
    coded("insolvency-status", random.pick(insolvency_statuses()));
    section.maybe_date(90, "adjudication-date", section.next_date(60, 700));
    coded("adjudication-court", random.pick(insolvency_courts()));
    section.maybe_date(50, "discharged-date", section.later_date());
    section.maybe(40, "conditions", random.pick(std::span(kConditions)));
    if (random.percent(30)) {
        xml.leaf("partnership-group-number", random.digits(5));
        xml.leaf("partnership-group-name",
                 std::string(random.pick(words::family_names())) + " & Company");
    }
    section.write_corrections();
    ++section.totals.insolvencies;
}

void write_person_and_addresses(Section& section) {
    section.write_name(section.subject.name);
    for (int i = section.random.between(0, 2); i > 0; --i) {
        section.write_address_text();
    }
}

void write_bankruptcy(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    section.next_id();
    xml.attribute("unique-id", section.id());
    section.date("load-date", section.next_date(60, 900));
    xml.leaf("source", random.pick(std::span(kSources)));
    section.maybe_date(50, "date-discharged", section.later_date());
    write_person_and_addresses(section);
    for (int i = random.between(0, 2); i > 0; --i) {
        const XmlScope narrative(xml, "narrative");
        xml.leaf("unique-id", std::to_string(i));
        xml.text(random.pick(words::narratives()));
    }
    section.write_corrections();
    ++section.totals.insolvencies;
}

void write_public_notice(Section& section) {
    section.next_id();
    section.xml.attribute("unique-id", section.id());
    section.date("load-date", section.next_date());
    section.xml.leaf("notice-type", section.random.pick(words::notice_types()));
    write_person_and_addresses(section);
    section.maybe(80, "narrative", section.random.pick(words::narratives()));
    section.write_corrections();
    ++section.totals.notices;
}

void write_lost_id(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const IdType& type = random.pick(std::span(kIdTypes));
    xml.attribute("create-date", to_iso(section.next_date()));
    xml.attribute("lost-or-stolen", random.pick(std::span(kLostOrStolen)));
    xml.attribute("reported-to-police", random.pick(std::span(kReported)));
    xml.coded("id-type", "id-detail", type.detail, type.text);
    section.maybe(60, "issuer", "Department of Examples");
    section.maybe(50, "narrative", "Taken from a parked car.");
    section.write_corrections();
}

void write_company_office(Section& section) {
    XmlWriter& xml = section.xml;
    const Company company = *find_company(section.random.digits(6) + "1");
    xml.attribute("create-date", to_iso(section.next_date()));
    xml.leaf("company-name", company.name);
    xml.leaf("registration-number", company.number);
    xml.leaf("registration-area", company.area);
    xml.leaf("company-status", company.status);
    section.write_name(section.subject.name);
    section.write_corrections(10);
}

constexpr std::array kSections = {
    SectionRow{"judgement-file", "judgement", {{{0, 0}, {0, 1}, {1, 5}}}, write_judgement},
    SectionRow{"insolvency-file", "insolvency", {{{0, 0}, {0, 0}, {0, 3}}}, write_insolvency},
    SectionRow{"bankruptcy-file", "bankruptcy", {{{0, 0}, {0, 0}, {0, 2}}}, write_bankruptcy},
    SectionRow{
        "public-notice-file", "public-notice", {{{0, 0}, {0, 1}, {1, 3}}}, write_public_notice},
    SectionRow{"lost-stolen-id-file", "lost-stolen-id", {{{0, 0}, {0, 1}, {0, 2}}}, write_lost_id},
    SectionRow{"company-officer-details",
               "company-officer",
               {{{0, 1}, {0, 2}, {1, 4}}},
               write_company_office},
};

}  // namespace

std::span<const SectionRow> public_sections() { return kSections; }

}  // namespace zr::gateway::new_zealand
