#include "zrcreditbureau/request.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "records/component.h"
#include "records/property_rows.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr {
namespace {

/// A property, and where it notes that it changed.
struct TrackedProperty {
    Property<Request> row;
    bool& (*changed)(Request&);
};

template <auto member>
constexpr TrackedProperty tracked(std::string_view name, std::string_view meaning) {
    return {property<member>(name, meaning),
            [](Request& request) -> bool& { return Component::changed(request.*member); }};
}

constexpr TrackedProperty kTracked[] = {
    tracked<&Request::ServiceName>("ServiceName",
                                   "name of the service to use, for example \"VedaXMLAU\""),
    tracked<&Request::ProductId>("ProductId", "id of the chosen product of that service"),
    tracked<&Request::TransactionReference>("TransactionReference",
                                            "the host's reference for the enquiry transaction"),
    tracked<&Request::BureauFileId>(
        "BureauFileId",
        "the number under which the bureau keeps the subject's file; empty where it is not known"),
    tracked<&Request::ClientId>("ClientId", "the host's client identifier for the subject"),
    tracked<&Request::XRMApplicationId>("XRMApplicationId",
                                        "the loan application that the enquiry belongs to"),
    tracked<&Request::XRMApplicantIndex>("XRMApplicantIndex",
                                         "which applicant of that application the enquiry is for"),
    tracked<&Request::Purpose>("Purpose",
                               "purpose: a description in the product's Purposes table, sent as "
                               "its code; any other text is sent as an empty code"),
    tracked<&Request::AccountType>(
        "AccountType",
        "account type: a description in the product's AccountTypes table, sent as its code; any "
        "other text is sent as an empty code"),
    tracked<&Request::EnquiryReference>("EnquiryReference",
                                        "the enquirer's own reference sent to the bureau"),
    tracked<&Request::EnquiryAmount>("EnquiryAmount", "amount of credit applied for"),
    tracked<&Request::DefaultOccurredDate>("DefaultOccurredDate",
                                           "date on which a default to be lodged occurred"),
    tracked<&Request::DefaultOriginalAmount>("DefaultOriginalAmount",
                                             "original amount of the default to lodge"),
    tracked<&Request::DefaultStatus>("DefaultStatus", "status code of the default to lodge"),
    tracked<&Request::DefaultNewAmount>("DefaultNewAmount", "new amount of a lodged default"),
    tracked<&Request::DefaultNewStatus>("DefaultNewStatus", "new status code of a lodged default"),
    tracked<&Request::DefaultNewDate>("DefaultNewDate", "date of that new status, or null"),
    tracked<&Request::CompanyType>("CompanyType", "type of company enquired about"),
    tracked<&Request::CompanyName>("CompanyName", "company name"),
    tracked<&Request::CompanyNumber>("CompanyNumber", "company registration number"),
    tracked<&Request::DateOfBirth>("DateOfBirth", "subject's date of birth, or null"),
    tracked<&Request::DriverLicenceNumber>("DriverLicenceNumber", "driver licence number"),
    tracked<&Request::Employer>("Employer", "employer's name"),
    tracked<&Request::FirstName>("FirstName", "first given name"),
    tracked<&Request::Gender>("Gender", "\"Male\", \"Female\" or \"unknown\" after a write"),
    tracked<&Request::LastName>("LastName", "family name"),
    tracked<&Request::MaritalStatus>("MaritalStatus", "marital status code"),
    tracked<&Request::MiddleNames>("MiddleNames", "other given names"),
    tracked<&Request::Occupation>("Occupation", "occupation"),
    tracked<&Request::UnitNumber>("UnitNumber", "current address: unit number"),
    tracked<&Request::StreetNumber>("StreetNumber", "current address: street number"),
    tracked<&Request::PropertyName>("PropertyName", "current address: property or building name"),
    tracked<&Request::StreetName>("StreetName", "current address: street name"),
    tracked<&Request::StreetType>(
        "StreetType",
        "current address: a description in the service's StreetTypes table, sent as its code; any "
        "other text is sent as an empty code"),
    tracked<&Request::StreetAddress>("StreetAddress", "current address as one unparsed line"),
    tracked<&Request::Suburb>("Suburb", "current address: suburb"),
    tracked<&Request::City>("City", "current address: city or town"),
    tracked<&Request::State>("State", "current address: state code"),
    tracked<&Request::Postcode>("Postcode", "current address: postcode"),
    tracked<&Request::Country>("Country", "current address: country"),
    tracked<&Request::PrevUnitNumber>("PrevUnitNumber", "previous address: unit number"),
    tracked<&Request::PrevStreetNumber>("PrevStreetNumber", "previous address: street number"),
    tracked<&Request::PrevPropertyName>("PrevPropertyName",
                                        "previous address: property or building name"),
    tracked<&Request::PrevStreetName>("PrevStreetName", "previous address: street name"),
    tracked<&Request::PrevStreetType>(
        "PrevStreetType",
        "previous address: a description in the service's StreetTypes table, sent as its code; any "
        "other text is sent as an empty code"),
    tracked<&Request::PrevStreetAddress>("PrevStreetAddress", "previous address as one line"),
    tracked<&Request::PrevSuburb>("PrevSuburb", "previous address: suburb"),
    tracked<&Request::PrevCity>("PrevCity", "previous address: city"),
    tracked<&Request::PrevState>("PrevState", "previous address: state code"),
    tracked<&Request::PrevPostCode>("PrevPostCode", "previous address: postcode"),
    tracked<&Request::PrevCountry>("PrevCountry", "previous address: country"),
    tracked<&Request::PhoneAreaCode>("PhoneAreaCode", "telephone area code"),
    tracked<&Request::PhoneNumber>("PhoneNumber", "telephone number"),
};

constexpr auto kRequestProperties = [] {
    std::array<Property<Request>, std::size(kTracked) + 2> rows{};
    std::ranges::transform(kTracked, rows.begin(), &TrackedProperty::row);
    rows[std::size(kTracked)] = property<&Request::Dirty>(
        "Dirty", "whether anything changed since the last successful enquiry");
    rows[std::size(kTracked) + 1] = property<&Request::RequestXML>(
        "RequestXML", "the document that the service built for the last enquiry");
    return rows;
}();

}  // namespace

std::string_view kind::Gender::kept(TextArg text) {
    const std::string code = text::upper(text);
    if (code == "MALE" || code == "M") {
        return "Male";
    }
    return code == "FEMALE" || code == "F" ? "Female" : "unknown";
}

DateOrNull kind::DateOfBirth::kept(const DateArg& date) {
    const auto read = convert::read_date(date);
    return read ? DateOrNull(*read) : DateOrNull(Null{});
}

DateOrNull kind::DateAsGiven::kept(const DateArg& date) {
    return convert::read_date(date) ? DateOrNull(date) : DateOrNull(Null{});
}

bool kind::DateAsGiven::changes(const DateOrNull& before, const DateOrNull& kept) {
    return is_null(before) || is_null(kept) || before != kept;
}

Request::Request() = default;

bool Request::Dirty() const {
    // The notes are found in a request that can be written; here they are only looked at.
    auto& request = const_cast<Request&>(*this);
    return dirty_ || std::ranges::any_of(kTracked, [&request](const TrackedProperty& property) {
               return property.changed(request);
           });
}

void Component::Dirty(Request& request, bool dirty) {
    request.dirty_ = dirty;
    for (const TrackedProperty& property : kTracked) {
        property.changed(request) = false;
    }
}

std::shared_ptr<const zr::Response> Request::Response() {
    if (response_ == nullptr) {
        response_ = Component::make<zr::Response>();
    }
    return response_;
}

void Request::Response(std::shared_ptr<const zr::Response> response) {
    response_ = std::move(response);
}

zr::Response& Component::new_response(Request& request) {
    const auto made = make<zr::Response>();
    set(made->ResponseDate, DateTime::now());
    set(made->Individual, true);
    set(made->DateOfBirth, std::string());
    request.response_ = made;
    return *made;
}

const Request::Option& Request::option(std::string_view option_id) const {
    static const Option kNone;
    const std::size_t found = option_index_.find(option_id);
    return found == KeyIndex::kNone ? kNone : options_[found];
}

Request::Option& Request::make_option(std::string_view option_id, bool tells) {
    const std::size_t found = option_index_.find(option_id);
    if (found != KeyIndex::kNone) {
        return options_[found];
    }
    options_.emplace_back();
    option_index_.add(option_id, options_.size() - 1);
    dirty_ = dirty_ || tells;
    return options_.back();
}

bool Request::OptionChecked(TextArg option_id) const { return option(option_id).checked; }

void Request::OptionChecked(TextArg option_id, FlagArg checked) {
    bool& is_checked = make_option(option_id, true).checked;
    dirty_ = dirty_ || is_checked != checked.value;
    is_checked = checked;
}

std::string_view Request::OptionValue(TextArg option_id) const { return option(option_id).value; }

void Request::OptionValue(TextArg option_id, TextArg value) {
    std::string& held = make_option(option_id, true).value;
    dirty_ = dirty_ || held != value;
    held = value;
}

std::string_view Request::OptionTag(TextArg option_id) const { return option(option_id).tag; }

void Request::OptionTag(TextArg option_id, TextArg tag) { make_option(option_id, false).tag = tag; }

void Request::OptionsClear() {
    options_.clear();
    option_index_.clear();
}

void Request::Clear(FlagArg clear_all) {
    const auto forget = [](auto&... properties) { (Component::forget(properties), ...); };
    if (clear_all) {
        forget(ServiceName, ProductId, TransactionReference);
        Component::RequestXML(*this, {});
        Component::Dirty(*this, false);
        response_.reset();
    }
    forget(BureauFileId, Purpose, AccountType, EnquiryReference, EnquiryAmount, ClientId,
           XRMApplicationId, XRMApplicantIndex, CompanyType, CompanyName, CompanyNumber,
           DateOfBirth, DriverLicenceNumber, Employer, FirstName, Gender, LastName, MaritalStatus,
           MiddleNames, Occupation, UnitNumber, StreetNumber, PropertyName, StreetName, StreetType,
           StreetAddress, Suburb, City, State, Postcode, Country, PhoneAreaCode, PhoneNumber);
    OptionsClear();
}

std::span<const Property<Request>> request_properties() { return kRequestProperties; }

}  // namespace zr
