#include "bureau_gateway/new_zealand/individual_report.h"

#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {
namespace {

Subject subject_of(const Applicant& applicant, const FileKey& key, Date today) {
    return {key.seed, key.burden, today, applicant.name, applicant.date_of_birth};
}

std::string_view match_type(const Subject& subject, bool possible) {
    Random random(subject.seed, "match");
    return possible ? "possible" : random.percent(75) ? "exact" : "partial";
}

}  // namespace

void write_general_message(XmlWriter& xml, std::uint64_t seed) {
    Random random(seed, "message");
    if (random.percent(30)) {
        xml.leaf("general-message", random.pick(words::general_messages()));
    }
}

void write_individual_report(XmlWriter& xml, const Applicant& applicant, const FileKey& key,
                             const Options& options, Date today, std::size_t least_bytes) {
    const Subject subject = subject_of(applicant, key, today);
    Totals totals;
    const auto section = [&](std::string_view purpose) {
        return Section(xml, subject, purpose, totals);
    };
    xml.coded("file-id", "match-type", match_type(subject, key.possible_match), key.reference);
    auto identity = section("identity");
    write_identity(identity, applicant);
    auto verification = section("verification");
    write_verification(verification, applicant, options);
    write_sections(xml, subject, credit_sections(), totals, least_bytes);
    write_sections(xml, subject, public_sections(), totals, 0);
    if (options.summary) {
        write_summary(xml, subject, totals);
    }
    write_negative_block(xml, subject, totals);
    if (options.score) {
        auto score = section("score");
        write_score(score);
    }
}

void write_individual_reports(XmlWriter& xml, const Applicant& applicant, const Options& options,
                              Date today, std::size_t least_bytes) {
    const FileKey key = key_of_person(applicant.name, applicant.date_of_birth);
    write_general_message(xml, key.seed);
    {
        const XmlScope report(xml, "enquiry-report");
        write_individual_report(xml, applicant, key, options, today, least_bytes);
    }
    const Subject subject = subject_of(applicant, key, today);
    Totals totals;
    if (options.licence_check) {
        Section section(xml, subject, "licence check", totals);
        write_licence_check(section, applicant);
    }
    if (options.fines) {
        Section section(xml, subject, "fines", totals);
        write_fines(section, applicant);
    }
}

}  // namespace zr::gateway::new_zealand
