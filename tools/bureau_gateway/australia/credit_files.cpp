// The consumer and the commercial credit file.
#include <algorithm>
#include <array>

#include "bureau_gateway/australia/file_builder.h"
#include "bureau_gateway/australia/vocabulary.h"

namespace zr::gateway::australia {
namespace {

constexpr int kYear = 365;

/// How many records of each kind are on a credit file.
struct Amounts {
    Range cross_references;
    Range defaults;
    Range notes;
    Range providers;
    Range enquiries;
    Range messages;
};
// clean, average, heavy
constexpr std::array kConsumerAmounts = {
    Amounts{{0, 0}, {0, 0}, {0, 0}, {0, 2}, {0, 4}, {0, 0}},
    Amounts{{0, 1}, {0, 2}, {0, 1}, {0, 3}, {2, 12}, {0, 1}},
    Amounts{{1, 3}, {3, 9}, {1, 3}, {1, 3}, {8, 30}, {1, 2}},
};
constexpr std::array kCommercialAmounts = {
    Amounts{{0, 0}, {0, 0}, {0, 0}, {0, 1}, {0, 2}, {0, 0}},
    Amounts{{0, 1}, {0, 1}, {0, 1}, {0, 2}, {0, 6}, {0, 1}},
    Amounts{{0, 2}, {1, 4}, {1, 2}, {1, 2}, {3, 12}, {1, 2}},
};

constexpr std::array kStatuses = {
    CodeRow{"", ""},      CodeRow{"", ""},         CodeRow{"O", "Outstanding"},
    CodeRow{"P", "Paid"}, CodeRow{"S", "Settled"},
};
constexpr auto kRoles = std::to_array<std::string_view>({"principal", "joint", "guarantor", ""});
constexpr auto kEnquiryTypes =
    std::to_array<std::string_view>({"credit-application", "credit-enquiry", "authorised-agent"});

/// Makes one credit file; the commercial one draws from sequences of its own.
class CreditFileMaker {
  public:
    CreditFileMaker(const Blueprint& plan, const Individual& individual, bool commercial)
        : plan_(plan),
          individual_(individual),
          commercial_(commercial),
          amounts_((commercial ? kCommercialAmounts
                               : kConsumerAmounts)[static_cast<std::size_t>(plan.key.burden)]) {}

    CreditFile make() const {
        CreditFile file;
        fill(file.cross_references, "cross references", amounts_.cross_references,
             &CreditFileMaker::cross_reference);
        fill(file.defaults, "defaults", amounts_.defaults, &CreditFileMaker::one_default);
        fill(file.notes, "notes", amounts_.notes, &CreditFileMaker::note);
        fill(file.providers, "providers", amounts_.providers, &CreditFileMaker::provider);
        fill(file.enquiries, "enquiries", amounts_.enquiries, &CreditFileMaker::enquiry);
        fill(file.messages, "messages", amounts_.messages, &CreditFileMaker::message);
        std::stable_sort(
            file.enquiries.begin(), file.enquiries.end(),
            [](const PastEnquiry& a, const PastEnquiry& b) { return a.date > b.date; });
        return file;
    }

  private:
    template <class Record>
    void fill(std::vector<Record>& records, std::string_view section, Range amount,
              Record (CreditFileMaker::*one)(Random&) const) const {
        Random random =
            plan_.random((commercial_ ? "commercial " : "consumer ") + std::string(section));
        for (int i = amount.draw(random); i > 0; --i) {
            records.push_back((this->*one)(random));
        }
    }

    CodeRow account_type(Random& random) const {
        return random.pick(commercial_ ? commercial_account_types() : consumer_account_types());
    }

    CrossReference cross_reference(Random& random) const {
        CrossReference reference;
        reference.created = plan_.days_ago(random, 10, 6 * kYear);
        reference.reference = random.digits(9);
        reference.name = individual_.name;
        reference.name.first = random.pick(words::given_names()).name;
        return reference;
    }

    Default one_default(Random& random) const {
        Default made;
        made.account_type = account_type(random);
        made.role = random.pick(std::span(kRoles));
        made.client_reference = "AC" + random.digits(7);
        made.status = random.pick(std::span(kStatuses));
        const int age = random.between(20, 5 * kYear);
        made.original = {days_before(plan_.today, age), random.between(150, 24'000),
                         random.pick(words::default_reasons()),
                         random.pick(words::credit_providers())};
        if (made.status.code == "P" || made.status.code == "S") {
            made.status_date = plan_.days_ago(random, 1, age);
        }
        if (random.percent(80)) {
            made.current = made.original;
            made.current->recorded = plan_.days_ago(random, 1, age);
            made.current->amount = random.percent(30) ? 0 : random.between(50, 24'000);
        }
        return made;
    }

    Note note(Random& random) const {
        return {plan_.days_ago(random, 1, 5 * kYear), random.pick(words::file_notes())};
    }

    CreditProvider provider(Random& random) const {
        return {plan_.days_ago(random, 1, 7 * kYear), random.pick(words::credit_providers()),
                random.percent(60) ? "CP" + random.digits(6) : std::string()};
    }

    PastEnquiry enquiry(Random& random) const {
        return build_enquiry(plan_, random, commercial_, 1);
    }

    std::string_view message(Random& random) const { return random.pick(words::file_messages()); }

    const Blueprint& plan_;
    const Individual& individual_;
    bool commercial_;
    const Amounts& amounts_;
};

}  // namespace

PastEnquiry build_enquiry(const Blueprint& plan, Random& random, bool commercial, int age) {
    PastEnquiry made;
    made.date = plan.days_ago(random, age, age + 5 * kYear);
    made.type = random.pick(std::span(kEnquiryTypes));
    made.enquirer = random.pick(words::credit_providers());
    made.client_reference = random.percent(70) ? "EN" + random.digits(6) : std::string();
    made.account_type =
        random.pick(commercial ? commercial_account_types() : consumer_account_types());
    made.role = random.pick(std::span(kRoles));
    made.amount = random.between(0, 120) * 500;
    return made;
}

CreditFile build_consumer_file(const Blueprint& plan, const Individual& individual) {
    return CreditFileMaker(plan, individual, false).make();
}

CreditFile build_commercial_file(const Blueprint& plan, const Individual& individual) {
    return CreditFileMaker(plan, individual, true).make();
}

}  // namespace zr::gateway::australia
