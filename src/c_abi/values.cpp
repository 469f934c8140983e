#include "c_abi/values.h"

#include <string>
#include <type_traits>
#include <variant>

#include "automation/invoke.h"
#include "c_abi/handles.h"

namespace zr::c_abi {
namespace {

using automation::Empty;
using automation::InvocationError;
using automation::Misuse;
using automation::Object;
using automation::Variant;

zr_date c_date(const DateTime& date) {
    const auto seconds = static_cast<unsigned>(date.time_of_day.count());
    return {static_cast<std::int16_t>(static_cast<int>(date.date.year())),
            static_cast<std::uint8_t>(static_cast<unsigned>(date.date.month())),
            static_cast<std::uint8_t>(static_cast<unsigned>(date.date.day())),
            static_cast<std::uint8_t>(seconds / 3600),
            static_cast<std::uint8_t>(seconds / 60 % 60),
            static_cast<std::uint8_t>(seconds % 60)};
}

DateTime cpp_date(const zr_date& date) {
    const auto made =
        DateTime::checked(date.year, date.month, date.day, date.hour, date.minute, date.second);
    if (!made) {
        throw InvocationError(Misuse::kOutOfRange, "A date is no day of the calendar.");
    }
    return *made;
}

std::string_view cpp_text(const zr_text& text) {
    if (text.data == nullptr && text.size > 0) {
        throw InvocationError(Misuse::kWrongType, "A text has no address.");
    }
    return {text.size == 0 ? "" : text.data, text.size};
}

Object cpp_object(zr_handle handle) {
    if (handle == 0) {
        return {};
    }
    const Handles::Use object(Handles::all(), handle);
    if (!object) {
        throw InvocationError(Misuse::kWrongType, "An argument is no object that is held.");
    }
    return *object;
}

Variant cpp_value(const zr_value& value) {
    switch (value.type) {
        case ZR_EMPTY:
            return Empty();
        case ZR_NULL:
            return Null();
        case ZR_BOOLEAN:
            return value.as.boolean != 0;
        case ZR_INT16:
            return value.as.int16;
        case ZR_INT32:
            return value.as.int32;
        case ZR_DOUBLE:
            return value.as.real;
        case ZR_CURRENCY:
            return Currency::from_units(value.as.currency);
        case ZR_DATE:
            return cpp_date(value.as.date);
        case ZR_TEXT:
            return cpp_text(value.as.text);
        case ZR_OBJECT:
            return cpp_object(value.as.object);
        default:
            throw InvocationError(Misuse::kWrongType, "A value is of an unknown type.");
    }
}

/// Sets the type and the member of the union that goes with it.
struct ToC {
    zr_value& out;

    void operator()(Empty) const { out.type = ZR_EMPTY; }
    void operator()(Null) const { out.type = ZR_NULL; }
    void operator()(bool value) const { set(ZR_BOOLEAN, out.as.boolean, value ? 1 : 0); }
    void operator()(std::int16_t value) const { set(ZR_INT16, out.as.int16, value); }
    void operator()(std::int32_t value) const { set(ZR_INT32, out.as.int32, value); }
    void operator()(double value) const { set(ZR_DOUBLE, out.as.real, value); }
    void operator()(Currency value) const { set(ZR_CURRENCY, out.as.currency, value.units()); }
    void operator()(const DateTime& value) const { set(ZR_DATE, out.as.date, c_date(value)); }
    void operator()(std::string_view value) const {
        set(ZR_TEXT, out.as.text, zr_text{value.data(), value.size()});
    }
    void operator()(const std::string& value) const { (*this)(std::string_view(value)); }
    void operator()(Object& value) const {
        set(ZR_OBJECT, out.as.object, value ? Handles::all().add(std::move(value)) : 0);
    }

  private:
    template <class Field, class Value>
    void set(zr_type type, Field& field, const Value& value) const {
        field = static_cast<Field>(value);
        out.type = type;
    }
};

}  // namespace

zr_value to_c(Variant& value) {
    zr_value made = {};
    std::visit(ToC{made}, value);
    return made;
}

zr_value to_c(const Value& value, automation::TypeKind kind) {
    zr_value made = {};
    std::visit(ToC{made}, value);
    if (kind == automation::TypeKind::kCount) {
        ToC{made}(static_cast<std::int16_t>(made.as.int32));
    }
    return made;
}

Given::Given(std::span<const zr_value> values) : size_(values.size()) {
    if (size_ > values_.size()) {
        throw InvocationError(Misuse::kWrongCount, "No member takes so many values.");
    }
    for (std::size_t i = 0; i < size_; ++i) {
        values_[i] = cpp_value(values[i]);
    }
}

}  // namespace zr::c_abi
