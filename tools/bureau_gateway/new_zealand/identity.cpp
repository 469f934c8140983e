// Who the individual is: names, addresses, verifications.
#include "bureau_gateway/new_zealand/individual_report.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

constexpr auto kMatches = std::to_array<std::string_view>({"Match", "Match", "No Match"});
constexpr auto kVerified = std::to_array<std::string_view>({"Yes", "Yes", "No"});
constexpr auto kPhoneTypes = std::to_array<std::string_view>({"Residential", "Business"});

/// Now and then another date of birth goes with another name.
void write_alias(Section& section) {
    Random& random = section.random;
    PersonName name = section.subject.name;
    if (random.percent(50)) {
        name.family = random.pick(words::family_names());
    } else {
        name.first = random.pick(words::given_names()).name;
    }
    const XmlScope scope(section.xml, "alias");
    section.xml.attribute("create-date", to_iso(section.next_date()));
    section.write_name(name);
    const Date other = section.earlier_date(80 * 365);
    section.maybe(80, "date-of-birth",
                  random.percent(50) ? to_iso(section.subject.date_of_birth) : to_iso(other));
}

void write_property_ownership(Section& section, const Applicant& applicant) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const XmlScope ownership(xml, "property-ownership");
    const XmlScope result(xml, "property-ownership-verification-result");
    const bool verified = random.pick(std::span(kVerified)) == "Yes";
    xml.attribute("verified", verified ? "Yes" : "No");
    if (!verified) {
        return;
    }
    const Place& place = random.pick(words::places());
    xml.leaf("property-owner", applicant.name.family + " " + applicant.name.first);
    const int number = random.between(1, 200);
    xml.leaf("street-number-from", std::to_string(number));
    section.maybe(40, "street-number-to", std::to_string(number + 4));
    xml.leaf("street-name", applicant.addresses.front().street);
    xml.leaf("city-district", place.city.empty() ? place.suburb : place.city);
    xml.leaf("region-description", "Sample Region");
    xml.leaf("property-reference", "PR" + random.digits(8));
}

void write_white_pages(Section& section) {
    XmlWriter& xml = section.xml;
    Random& random = section.random;
    const XmlScope pages(xml, "electronic-white-pages");
    const bool found = random.percent(70);
    xml.leaf("electronic-white-pages-result-status", found ? "Verified" : "Not Verified");
    if (found) {
        xml.leaf("displayed-data", section.subject.name.family + " " +
                                       section.subject.name.first.substr(0, 1) + ", listed");
        xml.leaf("phone-type", random.pick(std::span(kPhoneTypes)));
    }
    section.maybe(50, "narrative", "Listings are those of last month.");
}

void write_driver_licence(Section& section) {
    XmlWriter& xml = section.xml;
    const XmlScope licence(xml, "driver-licence");
    for (const char* each :
         {"driver-licence-indicator", "family-name-indicator", "first-given-name-indicator",
          "other-given-name-indicator", "date-of-birth"}) {
        xml.coded(each, "match", section.random.pick(std::span(kMatches)));
    }
    section.maybe(40, "general-message", "Checked against the register of licences.");
}

}  // namespace

void write_address(XmlWriter& xml, const Address& address) {
    const XmlScope scope(xml, "address");
    xml.attribute("type", address.type);
    xml.attribute("create-date", to_iso(address.created));
    xml.leaf_if("street-number", address.number);
    xml.leaf("street-name", address.street);
    xml.coded("street-type", "code", address.street_type);
    xml.leaf_if("suburb", address.suburb);
    xml.leaf_if("city", address.city);
}

void write_identity(Section& section, const Applicant& applicant) {
    XmlWriter& xml = section.xml;
    const XmlScope scope(xml, "individual");
    section.write_name(applicant.name);
    xml.coded("gender", "type", applicant.gender);
    xml.leaf_if("date-of-birth", to_iso(applicant.date_of_birth));
    for (const Address& each : applicant.addresses) {
        write_address(xml, each);
    }
    for (int i = section.random.between(0, 2); i > 0; --i) {
        write_address(xml, invent_address(section.random, "previous", section.next_date(300, 900)));
    }
    for (int i = section.random.between(0, 2); i > 0; --i) {
        write_alias(section);
    }
    section.write_corrections();
}

void write_verification(Section& section, const Applicant& applicant, const Options& options) {
    if (!options.property_ownership && !options.white_pages && !options.driver_licence) {
        return;
    }
    const XmlScope scope(section.xml, "identity-verification");
    if (options.property_ownership) {
        write_property_ownership(section, applicant);
    }
    if (options.white_pages) {
        write_white_pages(section);
    }
    if (options.driver_licence) {
        write_driver_licence(section);
    }
}

}  // namespace zr::gateway::new_zealand
