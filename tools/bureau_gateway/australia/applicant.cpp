#include "bureau_gateway/australia/applicant.h"

namespace zr::gateway::australia {
namespace {

std::string text(const Element* parent, std::string_view name) {
    return parent ? std::string(parent->child_text(name)) : std::string();
}

Address read_address(const Element& element, Date created) {
    Address address;
    address.type = element.attribute("type") == "residential-current" ? "residential-current"
                                                                      : "residential-previous";
    address.created = created;
    address.unit = text(&element, "unit-number");
    address.number = text(&element, "street-number");
    address.property = text(&element, "property");
    address.street = text(&element, "street-name");
    if (const Element* street_type = element.child("street-type")) {
        address.street_type = street_type->attribute("code").value_or("");
    }
    address.suburb = text(&element, "suburb");
    address.state = text(&element, "state");
    address.postcode = text(&element, "postcode");
    return address;
}

}  // namespace

Individual read_individual(const Element& element, Date today) {
    Individual individual;
    const Element* name = element.child("individual-name");
    individual.name = {text(name, "family-name"), text(name, "first-given-name"),
                       text(name, "other-given-name")};
    if (const Element* gender = element.child("gender")) {
        individual.gender = gender->attribute("type").value_or("");
    }
    individual.date_of_birth = parse_date(element.child_text("date-of-birth"));
    individual.licence_number = text(&element, "drivers-licence-number");
    for (const Element& each : element.children) {
        if (each.name == "address") {
            individual.addresses.push_back(read_address(each, today));
        }
    }
    if (const Element* employment = element.child("employment")) {
        individual.employments.push_back(
            {today, text(employment, "employer"), text(employment, "occupation")});
    }
    return individual;
}

}  // namespace zr::gateway::australia
