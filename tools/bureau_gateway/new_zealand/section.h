// The sections of a report: records of one kind, each section with a random sequence of its own.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "bureau_gateway/dates.h"
#include "bureau_gateway/invention/file_key.h"
#include "bureau_gateway/message/xml_writer.h"
#include "bureau_gateway/new_zealand/applicant.h"
#include "bureau_gateway/random.h"

namespace zr::gateway::new_zealand {

/// What the records of a report add up to. Amounts are in cents.
struct Totals {
    int enquiries = 0;
    int enquiries_of_last_year = 0;
    long enquiry_amount = 0;
    int defaults = 0;
    long default_balance = 0;
    int collections = 0;
    int judgements = 0;
    int insolvencies = 0;  ///< bankruptcies too
    int notices = 0;
    std::optional<Date> oldest;  ///< record of any kind
};

/// Whom a report is about and how it is made up.
struct Subject {
    std::uint64_t seed = 0;
    Burden burden = Burden::kAverage;
    Date today{};
    PersonName name;  ///< none for a company
    std::optional<Date> date_of_birth;
};

/// Where one section's records are written.
class Section {
  public:
    Section(XmlWriter& writer, const Subject& about, std::string_view purpose, Totals& sums)
        : xml(writer), subject(about), random(about.seed, purpose), totals(sums) {}

    XmlWriter& xml;
    const Subject& subject;
    Random random;
    Totals& totals;

    /// The date of the next record: records come newest first.
    Date next_date(int least = 10, int most = 400);

    /// A date between the record's and today.
    Date later_date() { return days_before(subject.today, random.between(0, age_)); }

    /// A date before the record's.
    Date earlier_date(int most) {
        return days_before(subject.today, age_ + random.between(1, most));
    }

    /// An identifier with and without leading zeros; the next one is another.
    void next_id();
    /// The same identifier again, perhaps with other zeros.
    std::string id() { return std::string(random.percent(50) ? 3 : 0, '0') + id_; }
    bool has_id() const { return !id_.empty(); }

    void date(std::string_view element, Date value) { xml.leaf(element, to_iso(value)); }
    void money(std::string_view element, long cents);
    void write_name(const PersonName& name);

    /// As leaf, for so many of a hundred records.
    void maybe(int chance, std::string_view element, std::string_view value) {
        if (random.percent(chance)) {
            xml.leaf(element, value);
        }
    }
    void maybe_date(int chance, std::string_view element, Date value) {
        maybe(chance, element, to_iso(value));
    }

    /// An amount in cents.
    long cents(int least_dollars, int most_dollars) {
        return random.between(least_dollars, most_dollars) * 100L +
               (random.percent(30) ? random.between(1, 99) : 0);
    }

    /// A free-format-address of lines, or of one text.
    void write_address_lines();
    void write_address_text();

    /// Nothing, or up to three corrections.
    void write_corrections(int chance = 20);

  private:
    int age_ = 0;
    std::string id_;
};

/// A kind of record: the file that its records stand in, how many there are, what is in one.
struct SectionRow {
    std::string_view file;
    std::string_view record;
    std::array<Range, 3> amounts;  ///< clean, average, heavy
    void (*write)(Section&);       ///< attributes and content of one record
    bool fills = false;            ///< makes up the size of a large report
};

/// Writes the sections in their order; those that fill go on until they are `least_bytes` large.
void write_sections(XmlWriter& xml, const Subject& subject, std::span<const SectionRow> rows,
                    Totals& totals, std::size_t least_bytes);

std::span<const SectionRow> credit_sections();  ///< of an individual
std::span<const SectionRow> public_sections();  ///< of an individual
std::span<const SectionRow> company_sections();

}  // namespace zr::gateway::new_zealand
