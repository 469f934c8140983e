// The reports on an individual, written as a response's content.
#pragma once

#include "bureau_gateway/new_zealand/applicant.h"
#include "bureau_gateway/new_zealand/section.h"

namespace zr::gateway::new_zealand {

/// Writes all that an enquiry on an individual is answered with: the message, the enquiry-report,
/// and the reports of other offices that the options ask for.
void write_individual_reports(XmlWriter& xml, const Applicant& applicant, const Options& options,
                              Date today, std::size_t least_bytes);

/// Writes an individual's report, without the element around it.
void write_individual_report(XmlWriter& xml, const Applicant& applicant, const FileKey& key,
                             const Options& options, Date today, std::size_t least_bytes);

// The parts of the reports.
void write_identity(Section& section, const Applicant& applicant);
void write_verification(Section& section, const Applicant& applicant, const Options& options);
void write_address(XmlWriter& xml, const Address& address);
void write_summary(XmlWriter& xml, const Subject& subject, const Totals& totals);
void write_negative_block(XmlWriter& xml, const Subject& subject, const Totals& totals);
void write_score(Section& section);
void write_licence_check(Section& section, const Applicant& applicant);
void write_fines(Section& section, const Applicant& applicant);

/// A message that some replies begin with.
void write_general_message(XmlWriter& xml, std::uint64_t seed);

}  // namespace zr::gateway::new_zealand
