#include "bureau_gateway/new_zealand/company_report.h"

#include <array>
#include <vector>

#include "bureau_gateway/new_zealand/individual_report.h"
#include "bureau_gateway/new_zealand/section.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

constexpr auto kIndicators = std::to_array<std::string_view>({"Yes", "No"});
constexpr auto kBodyTypes = std::to_array<std::string_view>(
    {"Limited Company", "Co-operative Company", "Overseas Company"});
constexpr auto kAddressTypes =
    std::to_array<std::string_view>({"Registered Office", "Address for Service", "Postal Address"});
constexpr auto kOccupations = std::to_array<std::string_view>({"", "Company Director", "Farmer"});

struct Officer {
    std::string_view type;
    Applicant person;
};

/// The company's people: directors, and perhaps others.
std::vector<Officer> officers_of(const Company& company, Date today) {
    Random random(company.seed, "officers");
    std::vector<Officer> officers;
    for (int i = random.between(company.burden == Burden::kHeavy ? 2 : 1, 3); i > 0; --i) {
        officers.push_back({"Director", invent_applicant(random, today)});
    }
    if (random.percent(40)) {
        officers.push_back({"Secretary", invent_applicant(random, today)});
    }
    return officers;
}

void write_details(Section& section, const Company& company) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const auto indicator = [&](std::string_view element) {
        xml.coded(element, "indicator", random.pick(std::span(kIndicators)));
    };
    const XmlScope details(xml, "company-details");
    xml.leaf("company-status", company.status);
    xml.leaf("body-type", random.pick(std::span(kBodyTypes)));
    const int age = random.between(3'000, 20'000);
    const Date incorporated = days_before(section.subject.today, age);
    section.date("incorporation-date", incorporated);
    indicator("companies-act-1993-applies");
    if (company.status == "Removed") {
        section.date("date-archived", section.next_date());
    }
    section.maybe_date(20, "re-registered-date", section.earlier_date(2'000));
    indicator("constitution-filed");
    indicator("accounts-required");
    xml.coded("registration-act", "year", age > 7'000 ? "1955" : "1993");
}

void write_registration(Section& section, const Company& company) {
    XmlWriter& xml = section.xml;
    const XmlScope scope(xml, "company");
    xml.leaf("company-name", company.name);
    xml.leaf("registration-number", company.number);
    xml.leaf("registration-area", company.area);
    write_details(section, company);
    const auto types =
        std::span(kAddressTypes).first(static_cast<std::size_t>(section.random.between(1, 3)));
    for (const std::string_view type : types) {
        const Address address = invent_address(section.random, "", section.subject.today);
        const XmlScope lines(xml, "company-address");
        xml.attribute("type", type);
        xml.leaf("address-line", address.number + " " + address.street + " STREET");
        xml.leaf_if("address-line", address.suburb);
        xml.leaf_if("address-line", address.city);
    }
    for (const FormerName& each : company.former_names) {
        xml.coded("previous-company-name", "name-start-date",
                  to_iso(days_before(section.subject.today, each.days)), each.name);
    }
}

void write_shares(Section& section, const std::vector<Officer>& officers) {
    XmlWriter& xml = section.xml;
    const XmlScope shares(xml, "company-shares");
    const int each_holds = section.random.between(1, 20'000) * 50;
    const int issued = each_holds * static_cast<int>(officers.size());
    xml.leaf("number-of-shares-issued", std::to_string(issued));
    section.money("paid-capital", section.random.percent(20) ? 0 : issued * 100L);
    xml.coded("extensive-shareholdings", "indicator", section.random.pick(std::span(kIndicators)));
    for (const Officer& each : officers) {
        const XmlScope holder(xml, "shareholder");
        xml.leaf("shareholder-name", each.person.name.first + " " + each.person.name.family);
        section.write_address_lines();
        xml.leaf("number-of-shares", std::to_string(each_holds));
    }
}

void write_officers(Section& section, const std::vector<Officer>& officers) {
    const XmlScope scope(section.xml, "company-officers");
    for (const Officer& each : officers) {
        const XmlScope details(section.xml, "officer-details");
        section.xml.attribute("type", each.type);
        section.write_name(each.person.name);
        section.xml.leaf_if("occupation", section.random.pick(std::span(kOccupations)));
        section.write_address_lines();
    }
}

void write_company(XmlWriter& xml, const Company& company, const std::vector<Officer>& officers,
                   bool with_summary, Date today) {
    const Subject subject{company.seed, company.burden, today, {}, {}};
    Totals totals;
    const auto section = [&](std::string_view purpose) {
        return Section(xml, subject, purpose, totals);
    };
    auto registration = section("registration");
    write_registration(registration, company);
    if (company.seed % 8 != 0) {  // some have none on the register
        auto shares = section("shares");
        write_shares(shares, officers);
    }
    auto people = section("people");
    write_officers(people, officers);
    write_sections(xml, subject, company_sections(), totals, 0);
    if (with_summary) {
        write_summary(xml, subject, totals);
    }
}

}  // namespace

void write_company_report(XmlWriter& xml, const Company& company, bool with_directors,
                          bool with_summary, Date today) {
    const std::vector<Officer> officers = officers_of(company, today);
    write_general_message(xml, company.seed);
    const XmlScope report(xml, "enquiry-report");
    xml.coded("file-id", "match-type", "exact", "C" + company.number);
    {
        const XmlScope scope(xml, with_directors ? "company-report" : "company");
        write_company(xml, company, officers, with_summary, today);
    }
    for (const Officer& each : officers) {
        if (with_directors && each.type == "Director") {
            const FileKey key = key_of_person(each.person.name, each.person.date_of_birth);
            const XmlScope scope(xml, "director-report");
            write_individual_report(xml, each.person, key, {.summary = with_summary}, today, 0);
        }
    }
}

}  // namespace zr::gateway::new_zealand
