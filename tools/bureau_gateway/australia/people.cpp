// The individual of a file: names, addresses, employment.
#include "bureau_gateway/australia/file_builder.h"
#include "bureau_gateway/australia/vocabulary.h"

namespace zr::gateway::australia {
namespace {

Address invent_address(const Blueprint& plan, Random& random, std::string_view type, int age) {
    const Street& street = random.pick(words::streets());
    const Suburb& suburb = random.pick(words::suburbs());
    Address address;
    address.type = type;
    address.created = plan.days_ago(random, age, age + 900);
    address.unit = random.percent(30) ? std::to_string(random.between(1, 40)) : "";
    address.number = std::to_string(random.between(1, 240));
    address.property = random.percent(20) ? random.pick(words::properties()) : "";
    address.street = street.name;
    address.street_type = street.type;
    address.suburb = suburb.name;
    address.state = suburb.state;
    address.postcode = suburb.postcode;
    return address;
}

Employment invent_employment(const Blueprint& plan, Random& random, int age) {
    Employment employment;
    employment.created = plan.days_ago(random, age, age + 700);
    employment.employer = random.pick(words::employers());
    employment.occupation = random.percent(70) ? random.pick(words::occupations()) : "";
    return employment;
}

}  // namespace

Individual invent_individual(const Blueprint& plan) {
    Random random = plan.random("person");
    const GivenName& given = random.pick(words::given_names());
    Individual individual;
    individual.name = {
        std::string(random.pick(words::family_names())), std::string(given.name),
        random.percent(50) ? std::string(random.pick(words::given_names()).name) : std::string()};
    individual.gender = given.gender;
    individual.date_of_birth = plan.days_ago(random, 19 * 365, 80 * 365);
    individual.licence_number = random.percent(60) ? random.digits(8) : "";
    individual.addresses.push_back(invent_address(plan, random, "residential-current", 30));
    return individual;
}

void add_history(const Blueprint& plan, Individual& individual) {
    Random random = plan.random("history");
    for (int i = Range{0, 2}.draw(random), age = 1000; i > 0; --i, age += 1000) {
        individual.addresses.push_back(invent_address(plan, random, "residential-previous", age));
    }
    for (int i = Range{0, 2}.draw(random), age = 100; i > 0; --i, age += 800) {
        individual.employments.push_back(invent_employment(plan, random, age));
    }
}

BureauFile build_file(const Blueprint& plan, const Individual* individual) {
    BureauFile file;
    Random random = plan.random("match");
    file.match_type = individual ? (random.percent(75) ? "exact" : "partial") : "exact";
    file.reference = plan.key.reference;
    file.individual = individual ? *individual : invent_individual(plan);
    add_history(plan, file.individual);
    if (plan.enquiry.consumer_file) {
        file.consumer = build_consumer_file(plan, file.individual);
    }
    if (plan.enquiry.commercial_file) {
        file.commercial = build_commercial_file(plan, file.individual);
    }
    file.public_data = build_public_file(plan);
    return file;
}

BureauFile build_possible_match(const Blueprint& plan, const Individual& individual) {
    Random random = plan.random("possible match");
    const FileKey key = key_of_person(individual.name, plan.days_ago(random, 19 * 365, 80 * 365));
    const Blueprint other{key, plan.enquiry, plan.today};
    Individual somebody = invent_individual(other);
    somebody.name.family = individual.name.family;
    somebody.gender = individual.gender;
    BureauFile file = build_file(other, &somebody);
    file.match_type = "possible";
    return file;
}

}  // namespace zr::gateway::australia
