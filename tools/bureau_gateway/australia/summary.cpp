// Totals of a file: summary-data.
#include <algorithm>
#include <string>

#include "bureau_gateway/australia/report.h"

namespace zr::gateway::australia {
namespace {

class Totals {
  public:
    Totals(const BureauFile& file, Date today) : today_(today) {
        for (const auto* each : {&file.consumer, &file.commercial}) {
            if (*each) {
                add(**each);
            }
        }
    }

    int defaults = 0;
    long default_amount = 0;
    int enquiries = 0;
    int enquiries_of_last_year = 0;
    long enquiry_amount = 0;
    std::optional<Date> newest_default;
    std::optional<Date> oldest_enquiry;

  private:
    void add(const CreditFile& file) {
        for (const Default& each : file.defaults) {
            ++defaults;
            default_amount += each.original.amount;
            newest_default =
                std::max(newest_default.value_or(each.original.recorded), each.original.recorded);
        }
        for (const PastEnquiry& each : file.enquiries) {
            ++enquiries;
            enquiries_of_last_year += each.date > days_before(today_, 365);
            enquiry_amount += each.amount;
            oldest_enquiry = std::min(oldest_enquiry.value_or(each.date), each.date);
        }
    }

    Date today_;
};

}  // namespace

void write_summary(XmlWriter& xml, const BureauFile& file, Date today) {
    const Totals totals(file, today);
    const XmlScope scope(xml, "summary-data");
    const auto item = [&](std::string_view name, std::string_view type, const std::string& value) {
        const XmlScope summary(xml, "summary");
        xml.attribute("name", name);
        xml.attribute("type", type);
        xml.text(value);
    };
    const auto months_since = [&](std::optional<Date> date) {
        return date ? std::to_string(whole_months(*date, today)) : std::string();
    };
    const auto& birth = file.individual.date_of_birth;
    item("Age of applicant", "years",
         birth ? std::to_string(whole_months(*birth, today) / 12) : std::string());
    item("Age of file", "months", months_since(totals.oldest_enquiry));
    item("Credit enquiries", "count", std::to_string(totals.enquiries));
    item("Credit enquiries, last 12 months", "count",
         std::to_string(totals.enquiries_of_last_year));
    item("Amount of credit enquiries", "amount", std::to_string(totals.enquiry_amount));
    item("Defaults", "count", std::to_string(totals.defaults));
    item("Amount of defaults", "amount", std::to_string(totals.default_amount));
    item("Time since last default", "months", months_since(totals.newest_default));
    item("Court actions", "count", std::to_string(file.public_data.court_actions.size()));
    item("Bankruptcies", "count", std::to_string(file.public_data.bankruptcies.size()));
    item("File status", "text", totals.defaults == 0 ? "No adverse credit history" : "Adverse");
}

}  // namespace zr::gateway::australia
