// The result of one enquiry.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "records/company_selections.h"
#include "records/property.h"
#include "records/response_elements.h"

namespace zr {

/// The kinds of record that the statistics count.
enum class RecordFamily : std::uint8_t {
    kBankruptcy,
    kCollection,
    kDefault,
    kJudgement,
    kPublicNotice,
    kEnquiry,
};
inline constexpr std::size_t kRecordFamilies = 6;

/// Adds 1 to a count, which stays at 32767.
constexpr void increment(std::int16_t& count) {
    if (count < std::numeric_limits<std::int16_t>::max()) {
        ++count;
    }
}

/// What is counted of one kind of record.
struct FamilyStatistics {
    std::int16_t total = 0;
    /// Records of the last 1, 2, 3 and 4 years: cumulative.
    std::array<std::int16_t, 4> years{};
    /// Unpaid, undischarged or adverse records, as the kind has it.
    std::int16_t open = 0;
    /// The records' amounts as first lodged, and what is outstanding of them.
    Currency loaded_value;
    Currency loaded_balance;

    bool operator==(const FamilyStatistics&) const = default;
};

/// What the bureau replied: the reply itself, whom it is about, counts and amounts of adverse
/// records, the report's lines and a company search's candidates. Read-only to hosts, who see it as
/// const. A property that the reply does not fill is empty, 0, or null.
class Response {
  public:
    // Name() reads each property of the list.
#define ZR_RESPONSE_READ_Text(Name) \
    const std::string& Name() const { return Name##_; }
#define ZR_RESPONSE_READ_Boolean(Name) \
    bool Name() const { return Name##_; }
#define ZR_RESPONSE_READ_Count(Name) \
    std::int16_t Name() const { return Name##_; }
#define ZR_RESPONSE_READ_Money(Name) \
    Currency Name() const { return Name##_; }
#define ZR_RESPONSE_READ_Date(Name) \
    const DateTime& Name() const { return Name##_; }
#define ZR_RESPONSE_READ_DateOrNull(Name) \
    const DateOrNull& Name() const { return Name##_; }
#define ZR_PROPERTY(Kind, Name, meaning) ZR_RESPONSE_READ_##Kind(Name)
#define ZR_COMPUTED(Kind, Name, meaning)
#define ZR_FAMILY(Family, Prefix)                                                            \
    std::int16_t Prefix##Count() const { return statistics(RecordFamily::k##Family).total; } \
    std::int16_t Prefix##Count1Y() const { return years(RecordFamily::k##Family, 1); }       \
    std::int16_t Prefix##Count2Y() const { return years(RecordFamily::k##Family, 2); }       \
    std::int16_t Prefix##Count3Y() const { return years(RecordFamily::k##Family, 3); }       \
    std::int16_t Prefix##Count4Y() const { return years(RecordFamily::k##Family, 4); }
#define ZR_FAMILY_COUNT(Family, Name, meaning) \
    std::int16_t Name() const { return statistics(RecordFamily::k##Family).open; }
#define ZR_FAMILY_AMOUNT(Family, field, Name, meaning) \
    Currency Name() const { return statistics(RecordFamily::k##Family).field; }
#include "records/response_properties.inc"
#undef ZR_PROPERTY
#undef ZR_COMPUTED
#undef ZR_FAMILY
#undef ZR_FAMILY_COUNT
#undef ZR_FAMILY_AMOUNT

    /// Always the negation of Individual.
    bool Company() const { return !Individual_; }
    /// "LastName, FirstName" of a person (the separator always stands), CompanyName of a company.
    std::string Name() const;

    /// The report's lines; an empty collection when there are none.
    const zr::ResponseElements& ResponseElements() const { return *elements_; }
    /// A company search's candidates; an empty collection when there are none.
    const zr::CompanySelections& CompanySelections() const { return *selections_; }

    /// What is counted of one kind of record.
    const FamilyStatistics& statistics(RecordFamily family) const {
        return families_[static_cast<std::size_t>(family)];
    }

    // Component-internal from here on: services fill the record.

    // Name(value) stores each property of the list.
#define ZR_RESPONSE_WRITE_Text(Name) \
    void Name(std::string value) { Name##_ = std::move(value); }
#define ZR_RESPONSE_WRITE_Boolean(Name) \
    void Name(bool value) { Name##_ = value; }
#define ZR_RESPONSE_WRITE_Count(Name) \
    void Name(std::int16_t value) { Name##_ = value; }
#define ZR_RESPONSE_WRITE_Money(Name) \
    void Name(Currency value) { Name##_ = value; }
#define ZR_RESPONSE_WRITE_Date(Name) \
    void Name(const DateTime& value) { Name##_ = value; }
#define ZR_RESPONSE_WRITE_DateOrNull(Name) \
    void Name(DateOrNull value) { Name##_ = std::move(value); }
#define ZR_PROPERTY(Kind, Name, meaning) ZR_RESPONSE_WRITE_##Kind(Name)
#define ZR_COMPUTED(Kind, Name, meaning)
#define ZR_FAMILY(Family, Prefix)
#define ZR_FAMILY_COUNT(Family, Name, meaning)
#define ZR_FAMILY_AMOUNT(Family, field, Name, meaning)
#include "records/response_properties.inc"
#undef ZR_PROPERTY
#undef ZR_COMPUTED
#undef ZR_FAMILY
#undef ZR_FAMILY_COUNT
#undef ZR_FAMILY_AMOUNT

    FamilyStatistics& statistics(RecordFamily family) {
        return families_[static_cast<std::size_t>(family)];
    }
    zr::ResponseElements& elements() { return *elements_; }
    zr::CompanySelections& selections() { return *selections_; }

    /// Resets everything, so that nothing of an earlier reply survives: ResponseDate to now,
    /// Individual to true, DateOfBirth to empty text, all else to nothing.
    void Clear();

  private:
    std::int16_t years(RecordFamily family, std::size_t count) const {
        return statistics(family).years[count - 1];
    }

#define ZR_RESPONSE_STORE_Text(Name) std::string Name##_;
#define ZR_RESPONSE_STORE_Boolean(Name) bool Name##_ = false;
#define ZR_RESPONSE_STORE_Count(Name) std::int16_t Name##_ = 0;
#define ZR_RESPONSE_STORE_Money(Name) Currency Name##_;
#define ZR_RESPONSE_STORE_Date(Name) DateTime Name##_;
#define ZR_RESPONSE_STORE_DateOrNull(Name) DateOrNull Name##_;
#define ZR_PROPERTY(Kind, Name, meaning) ZR_RESPONSE_STORE_##Kind(Name)
#define ZR_COMPUTED(Kind, Name, meaning)
#define ZR_FAMILY(Family, Prefix)
#define ZR_FAMILY_COUNT(Family, Name, meaning)
#define ZR_FAMILY_AMOUNT(Family, field, Name, meaning)
#include "records/response_properties.inc"
#undef ZR_PROPERTY
#undef ZR_COMPUTED
#undef ZR_FAMILY
#undef ZR_FAMILY_COUNT
#undef ZR_FAMILY_AMOUNT

    std::array<FamilyStatistics, kRecordFamilies> families_{};
    std::shared_ptr<zr::ResponseElements> elements_ = std::make_shared<zr::ResponseElements>();
    std::shared_ptr<zr::CompanySelections> selections_ = std::make_shared<zr::CompanySelections>();
};

/// Every public property of a response but its two collections, by name, in the order of the public
/// interface.
std::span<const Property<Response>> response_properties();

}  // namespace zr
