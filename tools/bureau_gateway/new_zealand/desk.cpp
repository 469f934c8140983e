#include "bureau_gateway/new_zealand/desk.h"

#include <utility>

#include "bureau_gateway/invention/demonstration.h"
#include "bureau_gateway/new_zealand/applicant.h"
#include "bureau_gateway/new_zealand/company_register.h"
#include "bureau_gateway/new_zealand/company_report.h"
#include "bureau_gateway/new_zealand/individual_report.h"
#include "bureau_gateway/new_zealand/request_rules.h"

namespace zr::gateway::new_zealand {
namespace {

Answer reject(const Enquiry& enquiry, std::vector<Violation> violations) {
    return rejected(enquiry, std::move(violations), ErrorForm::kDescribed);
}

/// The complaints that the name INVALID gets.
Answer reject_sample(const Enquiry& enquiry) {
    const Element& request = enquiry.message.request;
    return reject(enquiry,
                  {complaint(request, "E901", "Details do not agree with each other", "value"),
                   complaint(request, "E902", "Enquiry is above the client's limit", "value")});
}

Answer answer_individual(const Enquiry& enquiry) {
    const Element& request = enquiry.message.request;
    const Applicant applicant = read_applicant(*request.child("individual"), enquiry.today);
    const Demonstration wanted = demonstration(applicant.name.family);
    return demonstrate(
        enquiry, wanted, [&] { return reject_sample(enquiry); },
        [&] {
            return respond(enquiry, "report", [&](XmlWriter& xml) {
                write_individual_reports(xml, applicant, read_options(*request.child("product")),
                                         enquiry.today, wanted.large_bytes);
            });
        });
}

Answer answer_company(const Enquiry& enquiry, bool with_directors) {
    const Element& request = enquiry.message.request;
    const auto company = find_company(request.child_text("registration-number"));
    if (!company) {
        return reject(enquiry, {complaint(request, "E701",
                                          "Registration number is not on the register", "value")});
    }
    const bool summary = request.child("product")->attribute("summary") == "yes";
    return respond(enquiry, "report", [&](XmlWriter& xml) {
        write_company_report(xml, *company, with_directors, summary, enquiry.today);
    });
}

Answer answer_company_search(const Enquiry& enquiry) {
    const Element& request = enquiry.message.request;
    const Demonstration wanted = demonstration(request.child_text("company-name"));
    return demonstrate(
        enquiry, wanted, [&] { return reject_sample(enquiry); },
        [&] {
            return respond(enquiry, "candidates", [&](XmlWriter& xml) {
                write_candidates(xml, request, wanted.large_bytes);
            });
        });
}

}  // namespace

Answer answer(const Enquiry& enquiry) {
    const Element& request = enquiry.message.request;
    if (enquiry.message.service_code == "PING") {
        return request.name.empty()
                   ? respond(enquiry, "pong", [](XmlWriter&) {})
                   : reject(enquiry,
                            {complaint(request, "E501", "Element 'request' is not expected here",
                                       "structure")});
    }
    auto violations = check_request(request);
    if (!violations.empty()) {
        return reject(enquiry, std::move(violations));
    }
    const std::string_view product = product_of(request);
    if (product == products::kIndividual) {
        return answer_individual(enquiry);
    }
    if (product == products::kCompanySearch) {
        return answer_company_search(enquiry);
    }
    return answer_company(enquiry, product == products::kCompanyWithDirectors);
}

}  // namespace zr::gateway::new_zealand
