// How the records keep what they hold. A member is called to read it, `request.LastName()`, and
// called with a value to write it, `request.LastName("Citizen")`. Every record also has its
// properties as rows by name, for hosts that find out at run time what there is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "zrcreditbureau/argument.h"
#include "zrcreditbureau/currency.h"
#include "zrcreditbureau/date_time.h"

namespace zr {

/// A text that is overwritten in memory before its room is given back.
class SecretText : public std::string {
  public:
    SecretText() = default;
    SecretText(const SecretText&) = delete;
    SecretText& operator=(const SecretText&) = delete;
    SecretText& operator=(std::string_view text);
    SecretText& operator=(std::string&& text);
    ~SecretText();
};

/// What a property may hold, and what becomes of a value that is written to it.
namespace kind {

/// Text as it was given.
struct Text {
    using Stored = std::string;
    using Given = TextArg;
    static constexpr bool kSecret = false;
    static std::string_view kept(TextArg text) { return text; }
};

/// A password or code: its room is wiped when it is replaced and when the record ends.
struct Secret : Text {
    using Stored = SecretText;
    static constexpr bool kSecret = true;
};

struct Flag {
    using Stored = bool;
    using Given = FlagArg;
    static constexpr bool kSecret = false;
    static bool kept(FlagArg flag) { return flag; }
};

/// A whole number in 16 bits; one beyond their range stays at its end.
struct Count {
    using Stored = std::int16_t;
    using Given = NumberArg;
    static constexpr bool kSecret = false;
    static std::int16_t kept(NumberArg number) { return number.clamped(); }
};

struct Money {
    using Stored = Currency;
    using Given = Currency;
    static constexpr bool kSecret = false;
    static Currency kept(Currency amount) { return amount; }
};

/// A date; what is none (30 February) is kept as null.
struct Date {
    using Stored = DateTime;
    using Given = const DateTime&;
    static constexpr bool kSecret = false;
    static DateTime kept(const DateTime& date) { return date.is_date() ? date : DateTime(); }
};

/// Whether what is kept differs from what was there; a kind may say otherwise.
template <class Kind, class Kept>
constexpr bool changes(const typename Kind::Stored& before, const Kept& kept) {
    if constexpr (requires { Kind::changes(before, kept); }) {
        return Kind::changes(before, kept);
    } else {
        return !(before == kept);
    }
}

}  // namespace kind

struct Component;  // what belongs to the component itself, out of the reach of hosts

/// A property that hosts read and write.
template <class K>
class Writable {
  public:
    using Kind = K;

    Writable() = default;
    explicit Writable(typename K::Given start) { value_ = K::kept(start); }
    Writable(const Writable&) = delete;
    Writable& operator=(const Writable&) = delete;

    /// The value, valid until it is written again and as long as its record.
    const typename K::Stored& operator()() const { return value_; }

    void operator()(typename K::Given given) {
        auto kept = K::kept(given);
        if (kind::changes<K>(value_, kept)) {
            value_ = std::move(kept);
            changed_ = true;
        }
    }

  private:
    friend struct Component;
    typename K::Stored value_{};
    bool changed_ = false;
};

/// A property that hosts read.
template <class T>
class ReadOnly {
  public:
    ReadOnly() = default;
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;

    /// The value, valid as long as its record.
    const T& operator()() const { return value_; }

  private:
    friend struct Component;
    T value_{};
};

/// The type of a property as automation hosts see it.
enum class ValueType : std::uint8_t {
    kText,
    kBoolean,
    kCount,       ///< 16-bit signed integer
    kInteger,     ///< 32-bit signed integer
    kCurrency,    ///< fixed point, four decimals
    kDate,        ///< date with time of day
    kDateOrNull,  ///< a date, null or text
};

/// A value of any of these types, counts and integers alike as 32-bit integers. A text is a view
/// into the record it was read from, or its own where the record only computes it.
using Value =
    std::variant<Null, std::string_view, std::string, bool, std::int32_t, Currency, DateTime>;

/// The text that a value holds; "" when it holds none.
inline std::string_view text_of(const Value& value) {
    if (const std::string* own = std::get_if<std::string>(&value)) {
        return *own;
    }
    const std::string_view* view = std::get_if<std::string_view>(&value);
    return view != nullptr ? *view : std::string_view();
}

inline bool holds_text(const Value& value) {
    return std::holds_alternative<std::string_view>(value) ||
           std::holds_alternative<std::string>(value);
}

/// One property of a record, by name.
template <class Record>
struct Property {
    std::string_view name;
    ValueType type;
    std::string_view meaning;      ///< in a few words
    std::string_view enumeration;  ///< whose value a kInteger is; "" for a plain number
    bool secret;                   ///< not to be shown or logged
    Value (*read)(const Record&);
    /// Stores a value of the property's type (a date, a text or null for kDateOrNull) and raises
    /// std::bad_variant_access for any other; null where hosts may only read.
    void (*write)(Record&, const Value&);
};

}  // namespace zr
