// A bureau file as XML: which value is an element and which an attribute.
#include "bureau_gateway/australia/report.h"

namespace zr::gateway::australia {
namespace {

void write_name(XmlWriter& xml, const PersonName& name) {
    const XmlScope scope(xml, "individual-name");
    xml.leaf("family-name", name.family);
    xml.leaf("first-given-name", name.first);
    xml.leaf_if("other-given-name", name.other);
}

void write_coded(XmlWriter& xml, std::string_view element, std::string_view attribute,
                 const CodeRow& value) {
    const XmlScope scope(xml, element);
    xml.attribute(attribute, value.code);
    xml.text(value.text);
}

void write_role(XmlWriter& xml, std::string_view role) {
    if (!role.empty()) {
        const XmlScope scope(xml, "role");
        xml.attribute("type", role);
    }
}

void write_address(XmlWriter& xml, const Address& address) {
    const XmlScope scope(xml, "address");
    xml.attribute("type", address.type);
    xml.attribute("create-date", to_iso(address.created));
    xml.leaf_if("unit-number", address.unit);
    xml.leaf_if("street-number", address.number);
    xml.leaf_if("property", address.property);
    xml.leaf("street-name", address.street);
    xml.open("street-type");
    xml.attribute("code", address.street_type);
    xml.close();
    xml.leaf_if("suburb", address.suburb);
    xml.leaf_if("state", address.state);
    xml.leaf_if("postcode", address.postcode);
}

void write_individual(XmlWriter& xml, const Individual& individual) {
    const XmlScope scope(xml, "individual");
    write_name(xml, individual.name);
    xml.open("gender");
    xml.attribute("type", individual.gender);
    xml.close();
    xml.leaf_if("date-of-birth", to_iso(individual.date_of_birth));
    xml.leaf_if("drivers-licence-number", individual.licence_number);
    for (const Address& each : individual.addresses) {
        write_address(xml, each);
    }
    for (const Employment& each : individual.employments) {
        const XmlScope employment(xml, "employment");
        xml.attribute("create-date", to_iso(each.created));
        xml.leaf("employer", each.employer);
        xml.leaf_if("occupation", each.occupation);
    }
}

void write_default_state(XmlWriter& xml, std::string_view element, const DefaultState& state) {
    const XmlScope scope(xml, element);
    xml.leaf("date-recorded", to_iso(state.recorded));
    xml.leaf("default-amount", std::to_string(state.amount));
    xml.leaf("reason-to-report", state.reason);
    xml.leaf("credit-provider", state.provider);
}

void write_default(XmlWriter& xml, const Default& record) {
    const XmlScope scope(xml, "default");
    {
        const XmlScope details(xml, "account-details");
        write_coded(xml, "account-type", "code", record.account_type);
        write_role(xml, record.role);
        xml.leaf("client-reference", record.client_reference);
        if (!record.status.code.empty()) {
            const XmlScope status(xml, "default-status");
            xml.attribute("code", record.status.code);
            if (record.status_date) {
                xml.attribute("date", to_iso(record.status_date));
            }
            xml.text(record.status.text);
        }
    }
    write_default_state(xml, "original-default", record.original);
    if (record.current) {
        write_default_state(xml, "current-default", *record.current);
    }
}

void write_enquiry(XmlWriter& xml, const PastEnquiry& enquiry) {
    const XmlScope scope(xml, "credit-enquiry");
    xml.attribute("type", enquiry.type);
    xml.attribute("enquiry-date", to_iso(enquiry.date));
    xml.leaf("credit-enquirer", enquiry.enquirer);
    xml.leaf_if("client-reference", enquiry.client_reference);
    write_coded(xml, "account-type", "code", enquiry.account_type);
    write_role(xml, enquiry.role);
    xml.leaf("enquiry-amount", std::to_string(enquiry.amount));
}

void write_credit_file(XmlWriter& xml, std::string_view element, const CreditFile& file) {
    const XmlScope scope(xml, element);
    for (const CrossReference& each : file.cross_references) {
        const XmlScope reference(xml, "individual-cross-reference");
        xml.attribute("create-date", to_iso(each.created));
        xml.leaf("bureau-reference", each.reference);
        write_name(xml, each.name);
    }
    for (const Default& each : file.defaults) {
        write_default(xml, each);
    }
    for (const Note& each : file.notes) {
        const XmlScope note(xml, "file-note");
        xml.attribute("date-recorded", to_iso(each.recorded));
        xml.text(each.text);
    }
    for (const CreditProvider& each : file.providers) {
        const XmlScope provider(xml, "current-credit-provider");
        xml.attribute("date-provided", to_iso(each.provided));
        xml.leaf("credit-provider", each.name);
        xml.leaf_if("client-reference", each.client_reference);
    }
    for (const PastEnquiry& each : file.enquiries) {
        write_enquiry(xml, each);
    }
    for (const std::string_view each : file.messages) {
        xml.leaf("file-message", each);
    }
}

void write_directorship(XmlWriter& xml, const Directorship& record) {
    const XmlScope scope(xml, "directorship");
    xml.attribute("type", record.type);
    {
        const XmlScope organisation(xml, "organisation");
        xml.leaf("bureau-reference", record.reference);
        xml.leaf("organisation-name", record.name);
        xml.open("organisation-type");
        xml.attribute("code", record.organisation_type);
        xml.close();
        xml.leaf("organisation-number", record.number);
        xml.leaf_if("australian-business-number", record.business_number);
        const XmlScope details(xml, "organisation-details");
        xml.leaf("organisation-status", record.status);
    }
    xml.leaf("date-appointed", to_iso(record.appointed));
    xml.leaf_if("date-ceased", to_iso(record.ceased));
    xml.leaf_if("date-last-known-as-director", to_iso(record.last_known));
}

void write_proprietorship(XmlWriter& xml, const Proprietorship& record) {
    const XmlScope scope(xml, "proprietorship");
    xml.leaf("date-appointed", to_iso(record.appointed));
    const XmlScope business(xml, "business");
    xml.leaf("bureau-reference", record.reference);
    xml.leaf("business-name", record.name);
    xml.leaf_if("australian-business-number", record.business_number);
    const XmlScope registration(xml, "business-registration");
    xml.leaf("state", record.state);
    xml.leaf("number", record.number);
}

void write_bankruptcy(XmlWriter& xml, const Bankruptcy& record) {
    const XmlScope scope(xml, "bankruptcy");
    xml.leaf("bankruptcy-type", record.type);
    xml.leaf("date-declared", to_iso(record.declared));
    xml.leaf("narrative", record.narrative);
    {
        const XmlScope proceedings(xml, "proceedings");
        xml.leaf("state", record.state);
        xml.leaf("number", record.number);
        xml.leaf("year", std::to_string(record.year));
    }
    xml.open("discharge-status");
    xml.attribute("type", record.discharge.code);
    if (record.discharged) {
        xml.attribute("date", to_iso(record.discharged));
    }
    xml.text(record.discharge.text);
    xml.close();
    xml.leaf_if("co-borrower", record.co_borrower);
}

void write_court_action(XmlWriter& xml, const CourtAction& record) {
    const XmlScope scope(xml, "court-action");
    xml.attribute("type", record.type);
    xml.leaf("action-date", to_iso(record.date));
    xml.leaf("creditor", record.creditor);
    xml.leaf("court-type", record.court);
    xml.leaf("plaint-number", record.plaint);
    xml.leaf("court-action-amount", std::to_string(record.amount));
    if (!record.status.code.empty()) {
        const XmlScope status(xml, "court-action-status");
        xml.attribute("code", record.status.code);
        xml.attribute("date", to_iso(record.status_date));
        xml.text(record.status.text);
    }
}

void write_public_file(XmlWriter& xml, const PublicFile& file) {
    const XmlScope scope(xml, "individual-public-data-file");
    for (const Directorship& each : file.directorships) {
        write_directorship(xml, each);
    }
    for (const Disqualification& each : file.disqualifications) {
        const XmlScope disqualified(xml, "disqualified-directorship");
        xml.leaf("date-disqualified", to_iso(each.from));
        xml.leaf("date-disqualified-until", to_iso(each.until));
    }
    for (const Proprietorship& each : file.proprietorships) {
        write_proprietorship(xml, each);
    }
    for (const Bankruptcy& each : file.bankruptcies) {
        write_bankruptcy(xml, each);
    }
    for (const CourtAction& each : file.court_actions) {
        write_court_action(xml, each);
    }
    for (const std::string_view each : file.messages) {
        xml.leaf("file-message", each);
    }
}

}  // namespace

void write_file(XmlWriter& xml, std::string_view element, const BureauFile& file) {
    const XmlScope scope(xml, element);
    xml.attribute("type", file.match_type);
    xml.leaf("bureau-reference", file.reference);
    write_individual(xml, file.individual);
    if (file.consumer) {
        write_credit_file(xml, "individual-consumer-credit-file", *file.consumer);
    }
    if (file.commercial) {
        write_credit_file(xml, "individual-commercial-credit-file", *file.commercial);
    }
    write_public_file(xml, file.public_data);
}

}  // namespace zr::gateway::australia
