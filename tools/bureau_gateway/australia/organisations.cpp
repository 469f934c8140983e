#include "bureau_gateway/australia/organisations.h"

#include <array>
#include <string>

#include "bureau_gateway/ascii.h"
#include "bureau_gateway/australia/vocabulary.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::australia {
namespace {

/// A kind of organisation: its code, what the business register calls it ("" when the register
/// says nothing), and the heading of its number ("" when it has a business number only).
struct KindRow {
    std::string_view code;
    std::string_view register_text;
    std::string_view heading;
};
constexpr std::array kKinds = {
    KindRow{"P/L", "Australian Private Company", "ACN"},
    KindRow{"LTD", "Australian Public Company", "ACN"},
    KindRow{"PTY", "", "ACN"},
    KindRow{"R/B", "", ""},
    KindRow{"INC", "Other Incorporated Entity", ""},
    KindRow{"R/B", "Trading Trust", "ARBN"},
};
constexpr auto kStatuses = std::to_array<std::string_view>(
    {"REGISTERED", "REGISTERED", "EXTERNALLY ADMINISTERED", "DEREGISTERED", ""});
constexpr auto kSuffixes = std::to_array<std::string_view>(
    {"", "HOLDINGS", "SERVICES", "AUSTRALIA", "GROUP", "TRADING", "NOMINEES", "INVESTMENTS"});

struct Candidate {
    std::string name;
    std::string reference;
    std::string number;
    std::string business_number;
    KindRow kind{};
    std::string_view status;
    std::string_view state;
};

Candidate invent(Random& random, const std::string& name) {
    Candidate made;
    made.kind = random.pick(std::span(kKinds));
    made.name = name;
    made.name.append(" ").append(made.kind.code);
    made.reference = random.digits(9);
    made.number = random.digits(9);
    made.business_number = random.digits(2) + made.number;
    made.status = random.pick(std::span(kStatuses));
    made.state = random.pick(words::states());
    return made;
}

void write(XmlWriter& xml, const Candidate& candidate) {
    const XmlScope scope(xml, "org-id-result");
    xml.leaf("match-name", candidate.name);
    {
        const XmlScope report(xml, "bureau-report");
        xml.leaf("bureau-reference", candidate.reference);
    }
    xml.leaf("organisation-type", candidate.kind.code);
    {
        const XmlScope report(xml, "australian-business-register-report");
        xml.leaf_if("EntityTypeText", candidate.kind.register_text);
    }
    if (!candidate.kind.heading.empty()) {
        xml.leaf("organisation-number-heading", candidate.kind.heading);
        xml.leaf("organisation-number", candidate.number);
    }
    xml.leaf("australian-business-number", candidate.business_number);
    if (!candidate.status.empty()) {
        const XmlScope report(xml, "asic-report");
        xml.leaf("asic-status", candidate.status);
    }
    xml.leaf("state", candidate.state);
}

void write_by_name(XmlWriter& xml, const std::string& name) {
    Random random(hash(name), "candidates");
    const int count = name == "NOTHING" ? 0 : random.between(1, 8);
    for (int i = 0; i < count; ++i) {
        const std::string_view suffix = kSuffixes[static_cast<std::size_t>(i) % kSuffixes.size()];
        std::string full = name;
        write(xml, invent(random, suffix.empty() ? full : full.append(" ").append(suffix)));
    }
}

/// A number that ends with "000" is nobody's.
void write_by_number(XmlWriter& xml, std::string_view element, const std::string& number) {
    if (number.ends_with("000")) {
        return;
    }
    Random random(hash(number), "candidate");
    Candidate found = invent(random, to_upper(random.pick(words::businesses())));
    if (element == "organisation-number") {
        found.number = number;
        found.business_number = random.digits(2) + number;
    } else if (element == "australian-business-number") {
        found.business_number = number;
        found.number = number.size() > 2 ? number.substr(2) : number;
    } else {
        found.reference = number;
    }
    write(xml, found);
}

}  // namespace

void write_candidates(XmlWriter& xml, const Element& working_with) {
    const Element& wanted = working_with.children.front();
    if (wanted.name == "org-name") {
        write_by_name(xml, to_upper(wanted.text));
    } else {
        write_by_number(xml, wanted.name, wanted.text);
    }
}

}  // namespace zr::gateway::australia
