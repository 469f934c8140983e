// What the records of a report add up to: summary, negative block, score.
#include <algorithm>

#include "bureau_gateway/invention/amounts.h"
#include "bureau_gateway/new_zealand/individual_report.h"

namespace zr::gateway::new_zealand {
namespace {

int adverse_records(const Totals& totals) {
    return totals.defaults + totals.collections + totals.judgements + totals.insolvencies * 3;
}

int months_on_file(const Subject& subject, const Totals& totals) {
    return totals.oldest ? whole_months(*totals.oldest, subject.today) : 0;
}

/// Writes items with a name, a type and a value, all of one element.
class Items {
  public:
    Items(XmlWriter& xml, std::string_view element) : xml_(xml), element_(element) {}

    void add(std::string_view name, std::string_view type, const std::string& value) {
        const XmlScope item(xml_, element_);
        xml_.attribute("name", name);
        xml_.attribute("type", type);
        xml_.text(value);
    }
    void count(std::string_view name, int value) { add(name, "count", std::to_string(value)); }
    void amount(std::string_view name, long cents) { add(name, "amount", hundredths(cents)); }
    void boolean(std::string_view name, bool value) { add(name, "boolean", value ? "Y" : "N"); }

  private:
    XmlWriter& xml_;
    std::string_view element_;
};

}  // namespace

void write_summary(XmlWriter& xml, const Subject& subject, const Totals& totals) {
    const XmlScope scope(xml, "summary-data");
    Items items(xml, "summary");
    if (subject.date_of_birth) {
        items.add("Age", "years",
                  std::to_string(whole_months(*subject.date_of_birth, subject.today) / 12));
    }
    items.add("Age of file", "months", std::to_string(months_on_file(subject, totals)));
    items.count("Enquiries", totals.enquiries);
    items.count("Enquiries in the last 12 months", totals.enquiries_of_last_year);
    items.amount("Amount of enquiries", totals.enquiry_amount);
    items.count("Defaults", totals.defaults);
    items.count("Collections", totals.collections);
    items.amount("Balance of defaults and collections", totals.default_balance);
    items.count("Judgements", totals.judgements);
    items.count("Insolvencies and bankruptcies", totals.insolvencies);
    items.count("Public notices", totals.notices);
    items.add("File status", "string",
              adverse_records(totals) == 0 ? "No adverse records" : "Adverse records");
}

void write_negative_block(XmlWriter& xml, const Subject& subject, const Totals& totals) {
    const XmlScope scope(xml, "negative-block");
    Items items(xml, "characteristic");
    items.add("age-of-oldest-file", "months", std::to_string(months_on_file(subject, totals)));
    items.boolean("adverse-on-file", adverse_records(totals) != 0);
    items.count("number-of-defaults", totals.defaults + totals.collections);
    items.amount("balance-of-defaults", totals.default_balance);
    items.add("time-on-file", "years", std::to_string(months_on_file(subject, totals) / 12));
    items.add("worst-record", "string",
              totals.insolvencies != 0 ? "Insolvency"
              : totals.judgements != 0 ? "Judgement"
              : totals.defaults != 0   ? "Default"
                                       : "None");
}

void write_score(Section& section) {
    XmlWriter& xml = section.xml;
    const XmlScope scope(xml, "score-data");
    const int index = std::clamp(
        820 - adverse_records(section.totals) * 40 + section.random.between(-60, 60), 30, 995);
    xml.leaf("scorecard-name", "Sample Consumer New Zealand");
    xml.leaf("relative-risk", hundredths(100'000 / (index + 20)));
    xml.leaf("relative-risk-index", std::to_string(index));
    xml.leaf("risk-odds", hundredths(index * index / 120));
}

}  // namespace zr::gateway::new_zealand
