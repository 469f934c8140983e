// The score: worse for more adverse records, and always the same for the same file.
#include <algorithm>
#include <array>

#include "bureau_gateway/australia/report.h"
#include "bureau_gateway/australia/vocabulary.h"
#include "bureau_gateway/invention/amounts.h"

namespace zr::gateway::australia {
namespace {

int adverse_records(const BureauFile& file) {
    std::size_t records = file.public_data.bankruptcies.size() * 3 +
                          file.public_data.court_actions.size() +
                          file.public_data.disqualifications.size();
    for (const auto* each : {&file.consumer, &file.commercial}) {
        records += *each ? (*each)->defaults.size() : 0;
    }
    return static_cast<int>(records);
}

struct Impact {
    std::string_view level;
    std::string_view effect;
};
constexpr std::array kImpacts = {
    Impact{"High", "increases"}, Impact{"Medium", "increases"}, Impact{"Low", "increases"},
    Impact{"Low", "decreases"},  Impact{"Medium", "decreases"},
};
constexpr auto kAreaLevels =
    std::to_array<std::string_view>({"very low", "low", "average", "high", "very high"});

void write_risk_factors(XmlWriter& xml, Random& random) {
    const auto factors = words::risk_factors();
    const auto first = static_cast<std::size_t>(random.between(0, 6));
    const int count = random.between(2, 4);
    for (int i = 0; i < count; ++i) {
        const Impact& impact = random.pick(std::span(kImpacts));
        const XmlScope factor(xml, "risk-factor");
        xml.attribute("impact-level", impact.level);
        xml.attribute("impact-effect", impact.effect);
        xml.text(factors[(first + static_cast<std::size_t>(i)) % factors.size()]);
    }
}

}  // namespace

void write_score(XmlWriter& xml, const Blueprint& plan, const BureauFile& file) {
    Random random = plan.random("score");
    const int index =
        std::clamp(860 - adverse_records(file) * 45 + random.between(-60, 60), 30, 995);
    {
        const XmlScope data(xml, "score-data");
        const XmlScope score(xml, "score");
        xml.attribute("type", file.consumer ? "consumer" : "commercial");
        xml.leaf("scorecard-name", plan.enquiry.area_level_risk ? "Sample Consumer with Area Risk"
                                   : file.consumer              ? "Sample Consumer"
                                                                : "Sample Commercial");
        xml.leaf("relative-risk", hundredths(100'000 / (index + 20)));
        xml.leaf("relative-risk-index", std::to_string(index));
        xml.leaf("risk-odds", hundredths(index * index / 120));
        write_risk_factors(xml, random);
        if (random.percent(70)) {
            const XmlScope population(xml, "population");
            xml.attribute("population-name", "All applicants of the last 12 months");
            xml.leaf("population-odds", hundredths(random.between(900, 2'600)));
        }
    }
    if (plan.enquiry.area_level_risk) {
        xml.open("area-level-risk");
        xml.attribute("indicator", random.pick(std::span(kAreaLevels)));
        xml.close();
    }
}

}  // namespace zr::gateway::australia
