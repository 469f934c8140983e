#include "bureau_gateway/australia/desk.h"

#include <utility>

#include "bureau_gateway/australia/applicant.h"
#include "bureau_gateway/australia/organisations.h"
#include "bureau_gateway/australia/report.h"
#include "bureau_gateway/australia/request_rules.h"
#include "bureau_gateway/invention/demonstration.h"

namespace zr::gateway::australia {
namespace {

Answer answer_ping(const Enquiry& enquiry) {
    auto violations = check_ping(enquiry.message);
    if (!violations.empty()) {
        return rejected(enquiry, std::move(violations));
    }
    return respond(enquiry, "pong", [](XmlWriter&) {});
}

Answer answer_organisation_search(const Enquiry& enquiry) {
    auto violations = check_organisation_search(enquiry.message);
    if (!violations.empty()) {
        return rejected(enquiry, std::move(violations));
    }
    return respond(enquiry, "candidates", [&](XmlWriter& xml) {
        write_candidates(xml, *enquiry.message.request.child("working-with-organisation"));
    });
}

/// The complaints that the surname INVALID gets.
std::vector<Violation> sample_violations(const Element& request) {
    const Element& individual = *request.child("individual");
    const Element& enquiry = *request.child("enquiry");
    return {complaint(individual, "E901", "Date of birth does not agree with the licence", "value"),
            complaint(enquiry, "E902", "Enquiry amount is above the subscriber's limit", "value")};
}

Answer report(const Enquiry& enquiry, const FileKey& key, const Individual* individual,
              std::size_t least_bytes) {
    const Element& product = *enquiry.message.request.child("product");
    const Blueprint plan{key, *find_enquiry(*product.attribute("name")), enquiry.today};
    return respond(enquiry, "report", [&](XmlWriter& xml) {
        write_report(xml, plan, individual, product.attribute("summary") == "yes", least_bytes);
    });
}

Answer answer_person(const Enquiry& enquiry, const Element& element) {
    const Individual individual = read_individual(element, enquiry.today);
    const Demonstration wanted = demonstration(individual.name.family);
    return demonstrate(
        enquiry, wanted,
        [&] { return rejected(enquiry, sample_violations(enquiry.message.request)); },
        [&] {
            const FileKey key = key_of_person(individual.name, individual.date_of_birth);
            return report(enquiry, key, &individual, wanted.large_bytes);
        });
}

Answer answer_credit_enquiry(const Enquiry& enquiry) {
    auto violations = check_credit_enquiry(enquiry.message);
    if (!violations.empty()) {
        return rejected(enquiry, std::move(violations));
    }
    const Element& request = enquiry.message.request;
    if (const Element* individual = request.child("individual")) {
        return answer_person(enquiry, *individual);
    }
    return report(enquiry, key_of_reference(request.child_text("bureau-reference")), nullptr, 0);
}

}  // namespace

Answer answer(const Enquiry& enquiry) {
    const std::string_view code = enquiry.message.service_code;
    if (code == "PING") {
        return answer_ping(enquiry);
    }
    if (code == "BCA020") {
        return answer_organisation_search(enquiry);
    }
    return answer_credit_enquiry(enquiry);
}

}  // namespace zr::gateway::australia
