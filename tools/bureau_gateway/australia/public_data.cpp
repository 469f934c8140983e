// The public data file: directorships, proprietorships, bankruptcies, court actions.
#include <array>
#include <string>

#include "bureau_gateway/australia/file_builder.h"
#include "bureau_gateway/australia/vocabulary.h"

namespace zr::gateway::australia {
namespace {

constexpr int kYear = 365;

struct Amounts {
    Range directorships;
    Range disqualifications;
    Range proprietorships;
    Range bankruptcies;
    Range court_actions;
    Range messages;
};
// clean, average, heavy
constexpr std::array kAmounts = {
    Amounts{{0, 1}, {0, 0}, {0, 1}, {0, 0}, {0, 0}, {0, 0}},
    Amounts{{0, 2}, {0, 0}, {0, 1}, {0, 0}, {0, 1}, {0, 1}},
    Amounts{{1, 4}, {1, 2}, {0, 2}, {1, 3}, {2, 8}, {1, 2}},
};

constexpr auto kBankruptcyTypes = std::to_array<std::string_view>(
    {"Debtor's Petition", "Creditor's Petition", "Part IX Debt Agreement"});
constexpr std::array kDischarges = {
    CodeRow{"undischarged", "Undischarged"},
    CodeRow{"discharged", "Discharged"},
    CodeRow{"completed", "Completed"},
    CodeRow{"annulled", "Annulled"},
};
constexpr auto kActionTypes =
    std::to_array<std::string_view>({"default-judgement", "writ", "summons"});
constexpr std::array kActionStatuses = {
    CodeRow{"", ""},      CodeRow{"", ""},         CodeRow{"D", "Discontinued"},
    CodeRow{"P", "Paid"}, CodeRow{"S", "Settled"},
};

Directorship directorship(const Blueprint& plan, Random& random) {
    Directorship made;
    const bool current = random.percent(60);
    made.type = current ? "current" : "previous";
    made.reference = random.digits(9);
    const CodeRow& type = random.pick(organisation_types());
    made.name = std::string(random.pick(words::businesses())) + " " + std::string(type.code);
    made.organisation_type = type.code;
    made.number = random.digits(9);
    made.status = current ? "Registered" : "Deregistered";
    made.business_number = random.percent(70) ? random.digits(11) : std::string();
    const int age = random.between(400, 15 * kYear);
    made.appointed = days_before(plan.today, age);
    if (!current) {
        made.ceased = plan.days_ago(random, 30, age);
    }
    if (random.percent(50)) {
        made.last_known = plan.days_ago(random, 1, 365);
    }
    return made;
}

Disqualification disqualification(const Blueprint& plan, Random& random) {
    const int age = random.between(100, 4 * kYear);
    return {days_before(plan.today, age),
            days_before(plan.today, age - random.between(1, 5) * kYear)};
}

Proprietorship proprietorship(const Blueprint& plan, Random& random) {
    Proprietorship made;
    made.appointed = plan.days_ago(random, 60, 12 * kYear);
    made.reference = random.digits(9);
    made.name = std::string(random.pick(words::businesses())) + " Trading";
    made.business_number = random.percent(70) ? random.digits(11) : std::string();
    made.state = random.pick(words::states());
    made.number = "BN" + random.digits(7);
    return made;
}

Bankruptcy bankruptcy(const Blueprint& plan, Random& random) {
    Bankruptcy made;
    made.type = random.pick(std::span(kBankruptcyTypes));
    const int age = random.between(60, 6 * kYear);
    made.declared = days_before(plan.today, age);
    made.narrative = random.pick(words::bankruptcy_narratives());
    made.state = random.pick(words::states());
    made.year = static_cast<int>(made.declared.year());
    made.number = random.digits(4);
    made.discharge = random.pick(std::span(kDischarges));
    if (made.discharge.code != "undischarged") {
        made.discharged = plan.days_ago(random, 1, age);
    }
    if (random.percent(40)) {
        made.co_borrower = std::string(random.pick(words::given_names()).name) + " " +
                           std::string(random.pick(words::family_names()));
    }
    return made;
}

CourtAction court_action(const Blueprint& plan, Random& random) {
    CourtAction made;
    made.type = random.pick(std::span(kActionTypes));
    const int age = random.between(15, 5 * kYear);
    made.date = days_before(plan.today, age);
    made.creditor = random.pick(words::credit_providers());
    made.court = random.pick(words::courts());
    made.plaint = random.digits(5) + "/" + std::to_string(static_cast<int>(made.date.year()));
    made.amount = random.between(300, 60'000);
    made.status = random.pick(std::span(kActionStatuses));
    if (!made.status.code.empty()) {
        made.status_date = plan.days_ago(random, 1, age);
    }
    return made;
}

template <class Record, class Make>
std::vector<Record> records(const Blueprint& plan, std::string_view section, Range amount,
                            Make make) {
    Random random = plan.random(section);
    std::vector<Record> made;
    for (int i = amount.draw(random); i > 0; --i) {
        made.push_back(make(plan, random));
    }
    return made;
}

}  // namespace

PublicFile build_public_file(const Blueprint& plan) {
    const Amounts& amounts = kAmounts[static_cast<std::size_t>(plan.key.burden)];
    PublicFile file;
    file.directorships =
        records<Directorship>(plan, "directorships", amounts.directorships, directorship);
    file.disqualifications = records<Disqualification>(plan, "disqualifications",
                                                       amounts.disqualifications, disqualification);
    file.proprietorships =
        records<Proprietorship>(plan, "proprietorships", amounts.proprietorships, proprietorship);
    file.bankruptcies = records<Bankruptcy>(plan, "bankruptcies", amounts.bankruptcies, bankruptcy);
    file.court_actions =
        records<CourtAction>(plan, "court actions", amounts.court_actions, court_action);
    file.messages = records<std::string_view>(
        plan, "public messages", amounts.messages,
        [](const Blueprint&, Random& random) { return random.pick(words::public_messages()); });
    return file;
}

}  // namespace zr::gateway::australia
