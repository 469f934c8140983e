// Who an enquiry on an individual is about.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/invention/file_key.h"
#include "bureau_gateway/message/xml_reader.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::new_zealand {

struct Address {
    std::string_view type = "current";
    Date created{};
    std::string number;  ///< with the unit, as 2/14
    std::string street;
    std::string street_type;  ///< a code
    std::string suburb;
    std::string city;
};

struct Applicant {
    PersonName name;
    std::string gender;
    std::optional<Date> date_of_birth;
    std::vector<Address> addresses;
    std::string employer;
    std::string occupation;
    std::string licence_number;
    std::string licence_version;
};

/// What a request's product asks for beyond the file.
struct Options {
    bool score = false;
    bool white_pages = false;
    bool driver_licence = false;
    bool property_ownership = false;
    bool summary = false;
    bool licence_check = false;
    bool fines = false;
};

/// The individual as the request gives it.
Applicant read_applicant(const Element& individual, Date today);

Options read_options(const Element& product);

/// Somebody whom no request described.
Applicant invent_applicant(Random& random, Date today);

Address invent_address(Random& random, std::string_view type, Date created);

PersonName invent_name(Random& random);

}  // namespace zr::gateway::new_zealand
