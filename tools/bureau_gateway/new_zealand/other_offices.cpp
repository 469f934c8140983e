// Reports of other offices: the register of licences and the collector of fines.
#include "bureau_gateway/new_zealand/individual_report.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

struct Component {
    std::string_view type;
    std::string_view description;
    std::string_view status;
};
constexpr std::array kComponents = {
    Component{"1F", "Car, full", "Current"},
    Component{"2L", "Medium rigid vehicle, learner", "Current"},
    Component{"6R", "Motorcycle, restricted", "Expired"},
    Component{"P", "Passenger endorsement", "Suspended"},
};
constexpr auto kLicenceStatuses =
    std::to_array<std::string_view>({"Current", "Current", "Expired", "Suspended"});
constexpr auto kLicenceVerified = std::to_array<std::string_view>({"Y", "N", "X", "", "Q"});

struct FinesMessage {
    std::string_view code;
    std::string_view text;
    bool balance;  ///< a balance comes with it
};
constexpr std::array kFinesMessages = {
    FinesMessage{"FSR1", "The balance of overdue fines follows.", true},
    FinesMessage{"FSR2", "No overdue fines were found.", false},
    FinesMessage{"ERR1", "Please try again later.", false},
    FinesMessage{"ERR2", "The reporting user has no account.", false},
    FinesMessage{"ERR3", "The date of birth is not valid.", false},
    FinesMessage{"INF1", "Fines of the last five days are not included.", false},
};

void write_components(Section& section) {
    XmlWriter& xml = section.xml;
    const XmlScope components(xml, "driver-licence-component-details");
    for (int i = section.random.between(0, 3); i > 0; --i) {
        const Component& row = section.random.pick(std::span(kComponents));
        const XmlScope component(xml, "driver-licence-component");
        xml.leaf("component-type", row.type);
        xml.leaf("component-description", row.description);
        section.date("start-date", section.next_date());
        section.maybe_date(70, "end-date", section.later_date());
        xml.leaf("status", row.status);
    }
}

void write_fined_individual(Section& section, const Applicant& applicant) {
    XmlWriter& xml = section.xml;
    const XmlScope details(xml, "moj-fines-individual-details-confirmation");
    section.write_name(applicant.name);
    xml.coded("gender", "type", applicant.gender);
    xml.leaf_if("date-of-birth", to_iso(applicant.date_of_birth));
    if (!applicant.licence_number.empty()) {
        const XmlScope licence(xml, "driver-licence-details");
        xml.leaf("licence-number", applicant.licence_number);
        xml.leaf_if("licence-version-number", applicant.licence_version);
        xml.leaf("driver-licence-verified", section.random.pick(std::span(kLicenceVerified)));
    }
    if (!applicant.employer.empty() || !applicant.occupation.empty()) {
        const XmlScope employment(xml, "employment");
        xml.leaf_if("occupation", applicant.occupation);
        xml.leaf_if("employer", applicant.employer);
    }
    xml.leaf("external-transaction-reference", "FT" + section.random.digits(9));
    xml.leaf("request-timestamp", to_iso(section.subject.today) + "T09:30:00");
}

void write_balance(Section& section) {
    XmlWriter& xml = section.xml;
    const XmlScope balance(xml, "moj-overdue-fines-balance");
    xml.leaf("fines-indicator", "Y");
    section.money("fines-amount", section.cents(40, 6'000));
    section.date("asatdate", section.subject.today);
    for (int i = section.random.between(0, 2); i > 0; --i) {
        const XmlScope message(xml, "fines-message");
        xml.leaf("fines-message-text",
                 i == 1 ? "Reparation is included." : "Court costs are not included.");
    }
}

}  // namespace

void write_licence_check(Section& section, const Applicant& applicant) {
    XmlWriter& xml = section.xml;
    const XmlScope report(xml, "licencecheck-report");
    if (section.random.percent(20)) {
        xml.leaf("licencecheck-message", "The register of licences does not answer.");
        return;
    }
    if (section.random.percent(80)) {
        section.write_name(applicant.name);
    }
    {
        const XmlScope details(xml, "driver-licence-details");
        xml.leaf("driver-licence", applicant.licence_number);
    }
    const std::string_view status = section.random.pick(std::span(kLicenceStatuses));
    xml.leaf("licence-status", status);
    xml.leaf("active-status-flag", status == "Current" ? "Y" : "N");
    write_components(section);
}

void write_fines(Section& section, const Applicant& applicant) {
    XmlWriter& xml = section.xml;
    const XmlScope report(xml, "moj-fines-report");
    xml.leaf("moj-fines-balance-banner", "Ministry of Examples: overdue fines");
    write_fined_individual(section, applicant);
    {
        const XmlScope addresses(xml, "moj-fines-address-details-confirmation");
        for (const Address& each : applicant.addresses) {
            write_address(xml, each);
        }
    }
    // who has much on file has fines
    const FinesMessage& first = section.subject.burden == Burden::kHeavy
                                    ? kFinesMessages.front()
                                    : section.random.pick(std::span(kFinesMessages));
    {
        const XmlScope messages(xml, "moj-messages");
        const auto write = [&](const FinesMessage& row) {
            const XmlScope message(xml, "moj-message");
            xml.leaf("moj-message-code", row.code);
            xml.leaf("message-text", row.text);
        };
        write(first);
        if (section.random.percent(30)) {
            write(kFinesMessages.back());
        }
    }
    if (first.balance) {
        write_balance(section);
    }
}

}  // namespace zr::gateway::new_zealand
