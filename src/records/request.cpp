#include "records/request.h"

#include <array>
#include <utility>

#include "values/convert.h"

namespace zr {

Request::Request() : DefaultOccurredDate_(DateTime::now().date_only()) {}

Request::~Request() { wipe(request_xml_); }

void Request::Gender(std::string_view value) {
    const std::string code = text::upper(value);
    std::string_view gender = "unknown";
    if (code == "MALE" || code == "M") {
        gender = "Male";
    } else if (code == "FEMALE" || code == "F") {
        gender = "Female";
    }
    assign(Gender_, gender);
}

void Request::DateOfBirth(const DateOrNull& value) {
    const auto date = convert::read_date(value);
    assign(DateOfBirth_, date ? DateOrNull(*date) : DateOrNull(Null{}));
}

void Request::DefaultNewDate(const DateOrNull& value) {
    const DateOrNull given = convert::read_date(value) ? value : DateOrNull(Null{});
    if (is_null(DefaultNewDate_) || is_null(given) || DefaultNewDate_ != given) {
        DefaultNewDate_ = given;
        dirty_ = true;
    }
}

std::shared_ptr<const zr::Response> Request::Response() {
    (void)RequestInternals::Response(*this);
    return response_;
}

void Request::Response(const std::shared_ptr<const zr::Response>& response) {
    // Every response is created non-const by the component; hosts only see it as const.
    response_ = std::const_pointer_cast<zr::Response>(response);
}

zr::Response& RequestInternals::Response(Request& request) {
    if (request.response_ == nullptr) {
        request.response_ = std::make_shared<zr::Response>();
    }
    return *request.response_;
}

const Request::Option* Request::find_option(std::string_view option_id) const {
    const auto found = options_.find(option_id);
    return found == options_.end() ? nullptr : &found->second;
}

std::pair<Request::Option&, bool> Request::option(std::string_view option_id) {
    const auto [entry, created] = options_.try_emplace(std::string(option_id));
    return {entry->second, created};
}

bool Request::OptionChecked(std::string_view option_id) const {
    const Option* found = find_option(option_id);
    return found != nullptr && found->checked;
}

void Request::OptionChecked(std::string_view option_id, bool checked) {
    auto [entry, created] = option(option_id);
    assign(entry.checked, checked);
    dirty_ = dirty_ || created;
}

std::string_view Request::OptionValue(std::string_view option_id) const {
    const Option* found = find_option(option_id);
    return found != nullptr ? std::string_view(found->value) : std::string_view();
}

void Request::OptionValue(std::string_view option_id, std::string_view value) {
    auto [entry, created] = option(option_id);
    assign(entry.value, value);
    dirty_ = dirty_ || created;
}

std::string_view Request::OptionTag(std::string_view option_id) const {
    const Option* found = find_option(option_id);
    return found != nullptr ? std::string_view(found->tag) : std::string_view();
}

void Request::OptionTag(std::string_view option_id, std::string_view tag) {
    option(option_id).first.tag = tag;
}

void Request::OptionsClear() { options_.clear(); }

void Request::Clear(bool clear_all) {
    if (clear_all) {
        dirty_ = false;
        response_.reset();
        for (std::string* field :
             {&ServiceName_, &ProductId_, &TransactionReference_, &request_xml_}) {
            field->clear();
        }
    }
    for (std::string* field : {&BureauFileId_,  &Purpose_,
                               &AccountType_,   &EnquiryReference_,
                               &ClientId_,      &XRMApplicationId_,
                               &CompanyType_,   &CompanyName_,
                               &CompanyNumber_, &DriverLicenceNumber_,
                               &Employer_,      &FirstName_,
                               &Gender_,        &LastName_,
                               &MaritalStatus_, &MiddleNames_,
                               &Occupation_,    &UnitNumber_,
                               &StreetNumber_,  &PropertyName_,
                               &StreetName_,    &StreetType_,
                               &StreetAddress_, &Suburb_,
                               &City_,          &State_,
                               &Postcode_,      &Country_,
                               &PhoneAreaCode_, &PhoneNumber_}) {
        field->clear();
    }
    EnquiryAmount_ = Currency();
    XRMApplicantIndex_ = 0;
    DateOfBirth_ = Null{};
    OptionsClear();
}

namespace {

#define ZR_TYPE_Text ValueType::kText
#define ZR_TYPE_Gender ValueType::kText
#define ZR_TYPE_Count ValueType::kCount
#define ZR_TYPE_Money ValueType::kCurrency
#define ZR_TYPE_Date ValueType::kDate
#define ZR_TYPE_DateOfBirth ValueType::kDateOrNull
#define ZR_TYPE_DateAsGiven ValueType::kDateOrNull

#define ZR_FROM_Text(value) text_of(value)
#define ZR_FROM_Gender(value) text_of(value)
#define ZR_FROM_Count(value) std::get<std::int32_t>(value)
#define ZR_FROM_Money(value) std::get<Currency>(value)
#define ZR_FROM_Date(value) std::get<DateTime>(value)
#define ZR_FROM_DateOfBirth(value) property_detail::to_date_or_null(value)
#define ZR_FROM_DateAsGiven(value) property_detail::to_date_or_null(value)

constexpr Property<Request> kProperties[] = {
#define ZR_PROPERTY(Kind, Name, meaning)                                               \
    {#Name, ZR_TYPE_##Kind, meaning,                                                   \
     [](const Request& request) { return property_detail::to_value(request.Name()); }, \
     [](Request& request, const Value& value) { request.Name(ZR_FROM_##Kind(value)); }},
#include "records/request_properties.inc"
#undef ZR_PROPERTY
    {"Dirty", ValueType::kBoolean, "whether anything changed since the last successful enquiry",
     [](const Request& request) { return property_detail::to_value(request.Dirty()); }, nullptr},
    {"RequestXML", ValueType::kText, "the document that the service built for the last enquiry",
     [](const Request& request) { return property_detail::to_value(request.RequestXML()); },
     nullptr},
};

}  // namespace

std::span<const Property<Request>> request_properties() { return kProperties; }

}  // namespace zr
