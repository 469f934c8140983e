// A country's desk at the bureau: what the envelope's rules hand over to and get back.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/faults.h"
#include "bureau_gateway/message/envelope.h"

namespace zr::gateway {

/// What a request is answered with.
struct Answer {
    std::string reply;            ///< the whole document, in UTF-8
    std::string service_code;     ///< for the log; only ever a code that is known
    std::string_view outcome;     ///< for the log: report, candidates, pong, errors, refused
    std::vector<Fault> faults{};  ///< asked for by the applicant's surname
};

/// A message that the desk gets, with what it needs to answer it.
struct Enquiry {
    const Message& message;
    std::string_view request_id;
    Date today;
};

/// A service code and the version of it that is supported.
struct ServiceRow {
    std::string_view code;
    std::string_view version;
};

/// One country's side of the gateway.
struct Desk {
    EnvelopeForm envelope;
    std::span<const ServiceRow> services;
    Answer (*answer)(const Enquiry&);
};

/// The usual answers. Complaints come in the order of the document.
Answer refused(const Enquiry& enquiry, const Refusal& refusal);
Answer rejected(const Enquiry& enquiry, std::vector<Violation> violations,
                ErrorForm form = ErrorForm::kLocated);

/// A response whose content `body` writes.
template <class Body>
Answer respond(const Enquiry& enquiry, std::string_view outcome, Body body) {
    const std::string& code = enquiry.message.service_code;
    return {write_reply(code, enquiry.request_id,
                        [&](XmlWriter& xml) {
                            const XmlScope response(xml, "response");
                            body(xml);
                        }),
            code, outcome};
}

}  // namespace zr::gateway
