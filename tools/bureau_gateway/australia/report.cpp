#include "bureau_gateway/australia/report.h"

namespace zr::gateway::australia {
namespace {

/// Adds enquiries of the past until they take up so many bytes of a report.
void enlarge(const Blueprint& plan, BureauFile& file, std::size_t least_bytes) {
    constexpr std::size_t kBytesAnEnquiry = 270;  // less than an enquiry takes, so never too few
    Random random = plan.random("large");
    const bool commercial = !file.consumer;
    auto& enquiries = (commercial ? file.commercial : file.consumer)->enquiries;
    for (std::size_t i = 0; i < least_bytes / kBytesAnEnquiry; ++i) {
        enquiries.push_back(build_enquiry(plan, random, commercial, 1));
    }
}

}  // namespace

void write_report(XmlWriter& xml, const Blueprint& plan, const Individual* individual,
                  bool with_summary, std::size_t least_bytes) {
    BureauFile primary = build_file(plan, individual);
    if (least_bytes != 0) {
        enlarge(plan, primary, least_bytes);
    }
    const XmlScope report(xml, "enquiry-report");
    write_file(xml, "primary-match", primary);
    if (plan.key.possible_match) {
        write_file(xml, "possible-match", build_possible_match(plan, primary.individual));
    }
    if (with_summary) {
        write_summary(xml, primary, plan.today);
    }
    if (plan.enquiry.scored) {
        write_score(xml, plan, primary);
    }
}

}  // namespace zr::gateway::australia
