#include "bureau_gateway/new_zealand/section.h"

#include <algorithm>

#include "bureau_gateway/invention/amounts.h"
#include "bureau_gateway/new_zealand/catalogue.h"
#include "bureau_gateway/new_zealand/vocabulary.h"

namespace zr::gateway::new_zealand {

Date Section::next_date(int least, int most) {
    constexpr int kOldest = 9 * 365;  // the records of a large report start anew
    age_ += random.between(least, most);
    age_ = age_ > kOldest ? age_ - kOldest : age_;
    const Date date = days_before(subject.today, age_);
    totals.oldest = std::min(totals.oldest.value_or(date), date);
    return date;
}

void Section::next_id() { id_ = random.digits(random.between(3, 7)); }

void Section::money(std::string_view element, long cents) { xml.leaf(element, hundredths(cents)); }

void Section::write_name(const PersonName& name) {
    const XmlScope scope(xml, "individual-name");
    xml.leaf("family-name", name.family);
    xml.leaf("first-given-name", name.first);
    xml.leaf_if("other-given-name", name.other);
}

void Section::write_address_lines() {
    const Address address = invent_address(random, "", subject.today);
    const XmlScope scope(xml, "free-format-address");
    xml.leaf("address-line", address.number + " " + address.street + " STREET");
    xml.leaf_if("address-line", address.suburb);
    xml.leaf_if("address-line", address.city);
}

void Section::write_address_text() {
    const Address address = invent_address(random, "", subject.today);
    xml.leaf("free-format-address", address.number + " " + address.street + " ROAD, " +
                                        (address.city.empty() ? address.suburb : address.city));
}

void Section::write_corrections(int chance) {
    if (!random.percent(chance)) {
        return;
    }
    const XmlScope scope(xml, "corrections");
    for (int i = random.between(1, 3); i > 0; --i) {
        const XmlScope correction(xml, "correction");
        xml.leaf("correction-reference", "CR" + random.digits(6));
        xml.open("correction-status");
        xml.attribute("code", random.pick(correction_statuses()));
        if (random.percent(70)) {
            xml.attribute("date", to_iso(later_date()));
        }
        xml.close();
        const XmlScope detail(xml, "correction-text-detail");
        for (int line = random.between(0, 3); line > 0; --line) {
            xml.leaf("correction-text", random.pick(words::correction_texts()));
        }
    }
}

void write_sections(XmlWriter& xml, const Subject& subject, std::span<const SectionRow> rows,
                    Totals& totals, std::size_t least_bytes) {
    for (const SectionRow& row : rows) {
        Section section(xml, subject, row.file, totals);
        int left = row.amounts[static_cast<std::size_t>(subject.burden)].draw(section.random);
        const std::size_t wanted = row.fills && least_bytes != 0 ? xml.size() + least_bytes : 0;
        if (left == 0 && wanted == 0) {
            continue;
        }
        const XmlScope file(xml, row.file);
        for (; left > 0 || xml.size() < wanted; --left) {
            const XmlScope record(xml, row.record);
            row.write(section);
        }
    }
}

}  // namespace zr::gateway::new_zealand
