// The enquiry report: bureau files, summary and score, written as a reply's content.
#pragma once

#include "bureau_gateway/australia/file_builder.h"
#include "bureau_gateway/message/xml_writer.h"

namespace zr::gateway::australia {

/// Writes one file as `element`: primary-match or possible-match.
void write_file(XmlWriter& xml, std::string_view element, const BureauFile& file);

/// Writes the totals of a file.
void write_summary(XmlWriter& xml, const BureauFile& file, Date today);

/// Writes the score that the records of a file deserve.
void write_score(XmlWriter& xml, const Blueprint& plan, const BureauFile& file);

/// Writes the whole enquiry-report. `individual` null: the enquiry was on a reference. The report
/// is made at least `least_bytes` large with more enquiries of the past.
void write_report(XmlWriter& xml, const Blueprint& plan, const Individual* individual,
                  bool with_summary, std::size_t least_bytes);

}  // namespace zr::gateway::australia
