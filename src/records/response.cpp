#include "records/response.h"

namespace zr {

std::string Response::Name() const {
    return Individual_ ? LastName_ + ", " + FirstName_ : CompanyName_;
}

void Response::Clear() {
    *this = Response();
    ResponseDate_ = DateTime::now();
    Individual_ = true;
    DateOfBirth_ = std::string();
}

namespace {

#define ZR_TYPE_Text ValueType::kText
#define ZR_TYPE_Boolean ValueType::kBoolean
#define ZR_TYPE_Count ValueType::kCount
#define ZR_TYPE_Money ValueType::kCurrency
#define ZR_TYPE_Date ValueType::kDate
#define ZR_TYPE_DateOrNull ValueType::kDateOrNull

#define ZR_ROW(Type, Name, meaning)                                                       \
    {#Name, Type, meaning,                                                                \
     [](const Response& response) { return property_detail::to_value(response.Name()); }, \
     nullptr},
#define ZR_PROPERTY(Kind, Name, meaning) ZR_ROW(ZR_TYPE_##Kind, Name, meaning)
#define ZR_COMPUTED(Kind, Name, meaning) ZR_COMPUTED_##Kind(Name, meaning)
#define ZR_COMPUTED_Boolean(Name, meaning) ZR_ROW(ValueType::kBoolean, Name, meaning)
#define ZR_COMPUTED_Text(Name, meaning) ZR_ROW(ValueType::kText, Name, meaning)
#define ZR_FAMILY(Family, Prefix)                                               \
    ZR_ROW(ValueType::kCount, Prefix##Count, "records of this kind in all")     \
    ZR_ROW(ValueType::kCount, Prefix##Count1Y, "those of the last year")        \
    ZR_ROW(ValueType::kCount, Prefix##Count2Y, "those of the last two years")   \
    ZR_ROW(ValueType::kCount, Prefix##Count3Y, "those of the last three years") \
    ZR_ROW(ValueType::kCount, Prefix##Count4Y, "those of the last four years")
#define ZR_FAMILY_COUNT(Family, Name, meaning) ZR_ROW(ValueType::kCount, Name, meaning)
#define ZR_FAMILY_AMOUNT(Family, field, Name, meaning) ZR_ROW(ValueType::kCurrency, Name, meaning)

constexpr Property<Response> kProperties[] = {
#include "records/response_properties.inc"
};

}  // namespace

std::span<const Property<Response>> response_properties() { return kProperties; }

}  // namespace zr
