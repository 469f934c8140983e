// The result of one enquiry.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "zrcreditbureau/company_selections.h"
#include "zrcreditbureau/property.h"
#include "zrcreditbureau/response_elements.h"

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

/// What is counted of one kind of record. A count that would pass 32767 stays there.
struct FamilyStatistics {
    std::int16_t total = 0;
    /// Records of the last 1, 2, 3 and 4 years before ResponseDate: each includes those before it.
    std::array<std::int16_t, 4> years{};
    /// Unpaid, undischarged or adverse records, as the kind has it.
    std::int16_t open = 0;
    /// The records' amounts as first lodged, and what is outstanding of them.
    Currency loaded_value;
    Currency loaded_balance;

    bool operator==(const FamilyStatistics&) const = default;
};

/// What the bureau replied: the reply itself, whom it is about, counts and amounts of adverse
/// records, the report's lines and a company search's candidates. A property that the reply does
/// not fill is empty, 0, or null. A response that a host holds is a snapshot: the next enquiry
/// makes another one.
class Response {
  public:
    Response(const Response&) = delete;
    Response& operator=(const Response&) = delete;

    /// The bureau's identifier of the enquiry.
    ReadOnly<std::string> RequestId;
    /// The day on which the reply was received, from which the counts of years go back; of a
    /// company search also the time. Null while there is no reply.
    ReadOnly<DateTime> ResponseDate;
    /// The bureau's reply as text in UTF-8, also where it could not be read.
    ReadOnly<std::string> ResponseXML;
    /// The page that the service's style sheet makes of the reply; "" without a sheet. Where the
    /// sheet fails it is a page that says so.
    ReadOnly<std::string> ResponseHTML;
    /// What the bureau says of the outcome, to be shown as it stands; New Zealand only.
    ReadOnly<std::string> ResponseMessage;
    /// The bureau's file number of the subject; "" where it has no file.
    ReadOnly<std::string> BureauFileId;
    /// How sure the bureau is of the subject, in its own words.
    ReadOnly<std::string> MatchType;
    /// Whether the report is about a person.
    ReadOnly<bool> Individual;
    /// Always the negation of Individual.
    bool Company() const { return !Individual(); }
    /// "LastName, FirstName" of a person (the separator always stands), CompanyName of a company.
    std::string Name() const;

    // Whom the report is about, as the bureau has it on file.

    ReadOnly<std::string> CompanyName;
    /// Registration number.
    ReadOnly<std::string> CompanyNumber;
    /// A date or null; an empty text before a person's details are read.
    ReadOnly<DateOrNull> DateOfBirth;
    ReadOnly<std::string> Employer;
    ReadOnly<std::string> FirstName;
    ReadOnly<std::string> Gender;
    ReadOnly<std::string> LastName;
    ReadOnly<std::string> MaritalStatus;
    /// Other given names, as one text.
    ReadOnly<std::string> MiddleNames;
    ReadOnly<std::string> Occupation;
    ReadOnly<std::string> DriversLicenceNumber;

    // The current address.

    /// In New Zealand what stands before the slash of "7/12".
    ReadOnly<std::string> UnitNumber;
    ReadOnly<std::string> StreetNumber;
    /// Name of the property or building.
    ReadOnly<std::string> PropertyName;
    ReadOnly<std::string> StreetName;
    /// What the bureau's code stands for in the table StreetTypes; "" for a code it does not have.
    ReadOnly<std::string> StreetType;
    /// The address as one line, where the bureau sends it so.
    ReadOnly<std::string> StreetAddress;
    ReadOnly<std::string> Suburb;
    ReadOnly<std::string> City;
    ReadOnly<std::string> State;
    ReadOnly<std::string> Postcode;
    ReadOnly<std::string> Country;

    /// How old the bureau's file is, as New Zealand replies tell it; 0 where none is told.
    ReadOnly<std::int16_t> BureauFileAge;
    /// Directors whose reports came with the company's.
    ReadOnly<std::int16_t> DirectorsCount;
    /// Until when the person may not be a director, by the latest record; null where there is none.
    ReadOnly<DateOrNull> DisqualifiedDirectorshipUntil;
    /// Court fines that are overdue, in all; New Zealand only.
    ReadOnly<Currency> MOJFinesAmount;

    // What is counted, a block a kind of record: in all, of the last one to four years, then what
    // is open of it and its amounts.

    /// Bankruptcies and other insolvencies.
    std::int16_t BankruptcyCount() const { return statistics(RecordFamily::kBankruptcy).total; }
    std::int16_t BankruptcyCount1Y() const {
        return statistics(RecordFamily::kBankruptcy).years[0];
    }
    std::int16_t BankruptcyCount2Y() const {
        return statistics(RecordFamily::kBankruptcy).years[1];
    }
    std::int16_t BankruptcyCount3Y() const {
        return statistics(RecordFamily::kBankruptcy).years[2];
    }
    std::int16_t BankruptcyCount4Y() const {
        return statistics(RecordFamily::kBankruptcy).years[3];
    }
    /// Those not discharged.
    std::int16_t BankruptcyCountUndischarged() const {
        return statistics(RecordFamily::kBankruptcy).open;
    }

    /// Debts at a collection agency.
    std::int16_t CollectionCount() const { return statistics(RecordFamily::kCollection).total; }
    std::int16_t CollectionCount1Y() const {
        return statistics(RecordFamily::kCollection).years[0];
    }
    std::int16_t CollectionCount2Y() const {
        return statistics(RecordFamily::kCollection).years[1];
    }
    std::int16_t CollectionCount3Y() const {
        return statistics(RecordFamily::kCollection).years[2];
    }
    std::int16_t CollectionCount4Y() const {
        return statistics(RecordFamily::kCollection).years[3];
    }
    /// Those with a balance outstanding.
    std::int16_t CollectionCountUnpaid() const {
        return statistics(RecordFamily::kCollection).open;
    }
    /// Their amounts as first lodged, and what is outstanding of them.
    Currency CollectionLoadedValue() const {
        return statistics(RecordFamily::kCollection).loaded_value;
    }
    Currency CollectionLoadedBalance() const {
        return statistics(RecordFamily::kCollection).loaded_balance;
    }

    /// Payment defaults.
    std::int16_t DefaultCount() const { return statistics(RecordFamily::kDefault).total; }
    std::int16_t DefaultCount1Y() const { return statistics(RecordFamily::kDefault).years[0]; }
    std::int16_t DefaultCount2Y() const { return statistics(RecordFamily::kDefault).years[1]; }
    std::int16_t DefaultCount3Y() const { return statistics(RecordFamily::kDefault).years[2]; }
    std::int16_t DefaultCount4Y() const { return statistics(RecordFamily::kDefault).years[3]; }
    /// Those with a balance outstanding.
    std::int16_t DefaultCountUnpaid() const { return statistics(RecordFamily::kDefault).open; }
    /// Their amounts as first lodged, and what is outstanding of them.
    Currency DefaultLoadedValue() const { return statistics(RecordFamily::kDefault).loaded_value; }
    Currency DefaultLoadedBalance() const {
        return statistics(RecordFamily::kDefault).loaded_balance;
    }

    /// Court judgements.
    std::int16_t JudgementCount() const { return statistics(RecordFamily::kJudgement).total; }
    std::int16_t JudgementCount1Y() const { return statistics(RecordFamily::kJudgement).years[0]; }
    std::int16_t JudgementCount2Y() const { return statistics(RecordFamily::kJudgement).years[1]; }
    std::int16_t JudgementCount3Y() const { return statistics(RecordFamily::kJudgement).years[2]; }
    std::int16_t JudgementCount4Y() const { return statistics(RecordFamily::kJudgement).years[3]; }
    /// Those with a balance outstanding.
    std::int16_t JudgementCountUnpaid() const { return statistics(RecordFamily::kJudgement).open; }
    /// Their amounts as first lodged, and what is outstanding of them.
    Currency JudgementLoadedValue() const {
        return statistics(RecordFamily::kJudgement).loaded_value;
    }
    Currency JudgementLoadedBalance() const {
        return statistics(RecordFamily::kJudgement).loaded_balance;
    }

    /// Public notices.
    std::int16_t PublicNoticeCount() const { return statistics(RecordFamily::kPublicNotice).total; }
    std::int16_t PublicNoticeCount1Y() const {
        return statistics(RecordFamily::kPublicNotice).years[0];
    }
    std::int16_t PublicNoticeCount2Y() const {
        return statistics(RecordFamily::kPublicNotice).years[1];
    }
    std::int16_t PublicNoticeCount3Y() const {
        return statistics(RecordFamily::kPublicNotice).years[2];
    }
    std::int16_t PublicNoticeCount4Y() const {
        return statistics(RecordFamily::kPublicNotice).years[3];
    }
    /// Those that the bureau marks as adverse.
    std::int16_t PublicNoticeAdverseCount() const {
        return statistics(RecordFamily::kPublicNotice).open;
    }

    /// Enquiries that credit providers made about the subject.
    std::int16_t EnquiryCount() const { return statistics(RecordFamily::kEnquiry).total; }
    std::int16_t EnquiryCount1Y() const { return statistics(RecordFamily::kEnquiry).years[0]; }
    std::int16_t EnquiryCount2Y() const { return statistics(RecordFamily::kEnquiry).years[1]; }
    std::int16_t EnquiryCount3Y() const { return statistics(RecordFamily::kEnquiry).years[2]; }
    std::int16_t EnquiryCount4Y() const { return statistics(RecordFamily::kEnquiry).years[3]; }

    /// The same by kind of record, for who treats all alike.
    const FamilyStatistics& statistics(RecordFamily family) const {
        return families_[static_cast<std::size_t>(family)];
    }

    /// The report's lines; none when there is no report.
    const zr::ResponseElements& ResponseElements() const { return *elements_; }
    /// A company search's candidates; none of an enquiry.
    const zr::CompanySelections& CompanySelections() const { return *selections_; }

  private:
    friend struct Component;
    Response();

    std::array<FamilyStatistics, kRecordFamilies> families_{};
    std::shared_ptr<zr::ResponseElements> elements_;
    std::shared_ptr<zr::CompanySelections> selections_;
};

/// Every public property of a response but its two collections, by name, in the order of the public
/// interface.
std::span<const Property<Response>> response_properties();

}  // namespace zr
