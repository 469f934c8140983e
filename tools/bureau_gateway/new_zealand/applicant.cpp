#include "bureau_gateway/new_zealand/applicant.h"

#include "bureau_gateway/new_zealand/catalogue.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

std::string text(const Element* parent, std::string_view name) {
    return parent ? std::string(parent->child_text(name)) : std::string();
}

Address read_address(const Element& element, Date today) {
    Address address;
    address.type = element.attribute("type") == "current" ? "current" : "previous";
    address.created = today;
    address.number = text(&element, "street-number");
    address.street = text(&element, "street-name");
    if (const Element* street_type = element.child("street-type")) {
        address.street_type = street_type->attribute("code").value_or("");
    }
    address.suburb = text(&element, "suburb");
    address.city = text(&element, "city");
    return address;
}

}  // namespace

Applicant read_applicant(const Element& individual, Date today) {
    Applicant applicant;
    const Element* name = individual.child("individual-name");
    applicant.name = {text(name, "family-name"), text(name, "first-given-name"),
                      text(name, "other-given-name")};
    applicant.gender = individual.child("gender")->attribute("type").value_or("");
    applicant.date_of_birth = parse_date(individual.child_text("date-of-birth"));
    for (const Element& each : individual.children) {
        if (each.name == "address") {
            applicant.addresses.push_back(read_address(each, today));
        }
    }
    applicant.employer = text(individual.child("employment"), "employer");
    applicant.occupation = text(individual.child("employment"), "occupation");
    const Element* licence = individual.child("driver-licence-details");
    applicant.licence_number = text(licence, "licence-number");
    applicant.licence_version = text(licence, "licence-version-number");
    return applicant;
}

Options read_options(const Element& product) {
    const auto asked = [&](std::string_view name) { return product.attribute(name) == "yes"; };
    return {asked("score"),          asked("ewp"),
            asked("driver-licence"), asked("property-ownership"),
            asked("summary"),        asked("licencecheck"),
            asked("moj-fines")};
}

Address invent_address(Random& random, std::string_view type, Date created) {
    const Place& place = random.pick(words::places());
    Address address;
    address.type = type;
    address.created = created;
    address.number = random.percent(30) ? std::to_string(random.between(1, 12)) + "/" : "";
    address.number += std::to_string(random.between(1, 240));
    address.street = random.pick(words::streets());
    address.street_type = random.pick(street_type_codes());
    address.suburb = place.suburb;
    address.city = place.city;
    return address;
}

PersonName invent_name(Random& random) {
    PersonName name;
    name.family = random.pick(words::family_names());
    name.first = random.pick(words::given_names()).name;
    name.other = random.percent(50) ? random.pick(words::given_names()).name : "";
    return name;
}

Applicant invent_applicant(Random& random, Date today) {
    const GivenName& given = random.pick(words::given_names());
    Applicant applicant;
    applicant.name = invent_name(random);
    applicant.name.first = given.name;
    applicant.gender = given.gender;
    applicant.date_of_birth = days_before(today, random.between(19 * 365, 80 * 365));
    applicant.addresses.push_back(
        invent_address(random, "current", days_before(today, random.between(30, 900))));
    return applicant;
}

}  // namespace zr::gateway::new_zealand
