// The record of one enquiry: what the host asks, about whom, and with which options.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zrcreditbureau/collection.h"
#include "zrcreditbureau/property.h"
#include "zrcreditbureau/response.h"

namespace zr {

class ZRCreditBureau;

namespace kind {

/// "MALE" and "M" in any letter case become "Male", "FEMALE" and "F" "Female", all else "unknown".
struct Gender : Text {
    static std::string_view kept(TextArg text);
};

/// A date, or a text that reads as one, is kept as a date; anything else as null.
struct DateOfBirth {
    using Stored = DateOrNull;
    using Given = const DateArg&;
    static constexpr bool kSecret = false;
    static DateOrNull kept(const DateArg& date);
};

/// A date, or a text that reads as one, is kept as it was given; anything else as null, which
/// counts as a change even where null was before.
struct DateAsGiven : DateOfBirth {
    static DateOrNull kept(const DateArg& date);
    static bool changes(const DateOrNull& before, const DateOrNull& kept);
};

}  // namespace kind

/// Everything that the host supplies for one enquiry; `ZRCreditBureau.CreateRequest` hands it out.
/// It starts with empty texts, amounts and counts of 0, and null dates. Which properties a product
/// uses its RequestOptions tell. The bureau has room for so much of each text and gets no more of
/// it.
class Request {
  public:
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    // What is asked.

    /// The service to use, by its ServiceName, for example "VedaXMLAU".
    Writable<kind::Text> ServiceName;
    /// The product of that service, by its ProductId.
    Writable<kind::Text> ProductId;
    /// The host's reference for the transaction, sent with the enquiry.
    Writable<kind::Text> TransactionReference;
    /// The number under which the bureau keeps the subject's file; "" where it is not known.
    Writable<kind::Text> BureauFileId;
    /// The host's own number of the subject; kept for the host.
    Writable<kind::Text> ClientId;
    /// The loan application that the enquiry belongs to; kept for the host.
    Writable<kind::Text> XRMApplicationId;
    /// Which applicant of that application it is about; kept for the host.
    Writable<kind::Count> XRMApplicantIndex;
    /// Why the bureau is asked: a description in the product's table Purposes, sent as its code.
    /// Any other text is sent as an empty code.
    Writable<kind::Text> Purpose;
    /// What kind of credit it is for: a description in the product's table AccountTypes, sent as
    /// its code. Any other text is sent as an empty code.
    Writable<kind::Text> AccountType;
    /// The host's reference that the bureau files with the enquiry.
    Writable<kind::Text> EnquiryReference;
    /// Amount of credit applied for; sent without its cents.
    Writable<kind::Money> EnquiryAmount;

    // A default to lodge.

    /// When the default occurred; starts as today.
    Writable<kind::Date> DefaultOccurredDate{DateTime::now().date_only()};
    Writable<kind::Money> DefaultOriginalAmount;
    /// The bureau's code of its status.
    Writable<kind::Text> DefaultStatus;
    /// Amount and status that replace those of a default lodged before, and the date of the change.
    Writable<kind::Money> DefaultNewAmount;
    Writable<kind::Text> DefaultNewStatus;
    Writable<kind::DateAsGiven> DefaultNewDate;

    // A company.

    Writable<kind::Text> CompanyType;
    Writable<kind::Text> CompanyName;
    /// Registration number: in Australia an ACN, an ABN or the bureau's reference.
    Writable<kind::Text> CompanyNumber;

    // A person.

    Writable<kind::DateOfBirth> DateOfBirth;
    /// The number; in New Zealand the card's version may follow behind blanks.
    Writable<kind::Text> DriverLicenceNumber;
    Writable<kind::Text> Employer;
    Writable<kind::Text> FirstName;
    Writable<kind::Gender> Gender;
    Writable<kind::Text> LastName;
    /// The bureau's code.
    Writable<kind::Text> MaritalStatus;
    /// Other given names, as one text.
    Writable<kind::Text> MiddleNames;
    Writable<kind::Text> Occupation;

    // The current address.

    Writable<kind::Text> UnitNumber;
    Writable<kind::Text> StreetNumber;
    /// Name of the property or building.
    Writable<kind::Text> PropertyName;
    Writable<kind::Text> StreetName;
    /// A description in the service's table StreetTypes, sent as its code. Any other text is sent
    /// as an empty code.
    Writable<kind::Text> StreetType;
    /// The whole street address as one line.
    Writable<kind::Text> StreetAddress;
    Writable<kind::Text> Suburb;
    Writable<kind::Text> City;
    /// In Australia the usual short form: "NSW".
    Writable<kind::Text> State;
    Writable<kind::Text> Postcode;
    Writable<kind::Text> Country;

    // The address before it, property by property the same.

    Writable<kind::Text> PrevUnitNumber;
    Writable<kind::Text> PrevStreetNumber;
    Writable<kind::Text> PrevPropertyName;
    Writable<kind::Text> PrevStreetName;
    Writable<kind::Text> PrevStreetType;
    Writable<kind::Text> PrevStreetAddress;
    Writable<kind::Text> PrevSuburb;
    Writable<kind::Text> PrevCity;
    Writable<kind::Text> PrevState;
    Writable<kind::Text> PrevPostCode;
    Writable<kind::Text> PrevCountry;

    // A telephone.

    Writable<kind::Text> PhoneAreaCode;
    Writable<kind::Text> PhoneNumber;

    /// True when a property or an option changed since creation, Clear(true) or the last enquiry
    /// that succeeded. An enquiry of a request that is not dirty sends nothing and succeeds.
    bool Dirty() const;

    /// The document that was composed for the last enquiry; "" before. It holds the passwords, and
    /// is wiped with the request.
    ReadOnly<SecretText> RequestXML;

    /// The result: of the last enquiry, or what was attached, else a new and empty one. It stays as
    /// it is for as long as the host holds it.
    std::shared_ptr<const zr::Response> Response();
    /// Attaches a response of another request, or none; does not touch Dirty.
    void Response(std::shared_ptr<const zr::Response> response);

    /// Whether the option is selected; false for an option never written. A write creates it.
    bool OptionChecked(TextArg option_id) const;
    void OptionChecked(TextArg option_id, FlagArg checked);
    /// The option's value; "" for an option never written. A write creates it. The view is valid
    /// until the next write of an option.
    std::string_view OptionValue(TextArg option_id) const;
    void OptionValue(TextArg option_id, TextArg value);
    /// A free value of the host's. A write creates the option and never changes Dirty.
    std::string_view OptionTag(TextArg option_id) const;
    void OptionTag(TextArg option_id, TextArg tag);

    /// Forgets every option; does not change Dirty.
    void OptionsClear();

    /// Prepares the request for another subject. With `clear_all` the service, product, reference,
    /// document, response and Dirty are reset too. The previous address and the details of a
    /// default to lodge keep their values in both modes.
    void Clear(FlagArg clear_all = true);

    /// The facade that created the request; kept for automation hosts, which may only write it.
    void Application(ZRCreditBureau* application) { application_ = application; }

  private:
    friend struct Component;

    struct Option {
        bool checked = false;
        std::string tag;
        std::string value;
    };

    Request();
    const Option& option(std::string_view option_id) const;
    /// The option, which is made, and Dirty then told of it where asked, when there is none.
    Option& make_option(std::string_view option_id, bool tells);

    bool dirty_ = false;  // for what is no property
    std::shared_ptr<const zr::Response> response_;
    KeyIndex option_index_;
    std::vector<Option> options_;
    ZRCreditBureau* application_ = nullptr;
};

/// Every property of a request by name, in the order of the public interface; those that hosts only
/// read (Dirty, RequestXML) come last.
std::span<const Property<Request>> request_properties();

}  // namespace zr
