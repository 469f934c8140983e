#include "automation/invoke.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "automation/describe.h"
#include "values/convert.h"

namespace zr::automation {
namespace {

[[noreturn]] void raise(Misuse misuse, std::string_view what, std::string_view text) {
    throw InvocationError(misuse, std::string(what) + std::string(text));
}

/// The number in a value, in ten-thousandths; none where there is no number, or none in this range.
std::optional<double> number_in(const Variant& value) {
    if (const auto* small = std::get_if<std::int16_t>(&value)) {
        return *small;
    }
    if (const auto* whole = std::get_if<std::int32_t>(&value)) {
        return *whole;
    }
    const auto* real = std::get_if<double>(&value);
    return real != nullptr ? std::optional(*real) : std::nullopt;
}

/// A whole number; one between two goes to the even one.
Variant whole(const Variant& value, std::string_view name) {
    const std::optional<double> number = number_in(value);
    if (!number) {
        raise(Misuse::kWrongType, name, " takes a whole number.");
    }
    const double rounded = std::nearbyint(*number);
    using Range = std::numeric_limits<std::int32_t>;
    if (!(rounded >= Range::min() && rounded <= Range::max())) {
        raise(Misuse::kOutOfRange, name, " takes a whole number of 32 bits.");
    }
    return static_cast<std::int32_t>(rounded);
}

Variant amount(const Variant& value, std::string_view name) {
    const std::optional<double> number = number_in(value);
    if (!number) {
        raise(Misuse::kWrongType, name, " takes an amount.");
    }
    const double units = std::nearbyint(*number * Currency::kUnitsPerWhole);
    constexpr double kEnd = 9223372036854775808.0;  // the first beyond 64 bits
    if (!(units >= -kEnd && units < kEnd)) {
        raise(Misuse::kOutOfRange, name, " takes an amount up to 922,337,203,685,477.5807.");
    }
    return Currency::from_units(static_cast<std::int64_t>(units));
}

bool is_real_date(const Variant& value) {
    const DateTime* date = std::get_if<DateTime>(&value);
    return date != nullptr && date->is_date();
}

/// The value as one of the type; the name is for the reason why it is none.
Variant converted(const Variant& value, const Type& type, std::string_view name) {
    const auto must = [name](bool fits, std::string_view reason) {
        if (!fits) {
            raise(Misuse::kWrongType, name, reason);
        }
    };
    switch (type.kind) {
        case TypeKind::kText:
            must(is_text(value), " takes a text.");
            return text_in(value);
        case TypeKind::kBoolean:
            must(std::holds_alternative<bool>(value), " takes a Boolean.");
            return value;
        case TypeKind::kCount:
        case TypeKind::kInteger:
        case TypeKind::kEnumeration:
            return whole(value, name);
        case TypeKind::kCurrency:
            return std::holds_alternative<Currency>(value) ? value : amount(value, name);
        case TypeKind::kDate:
            must(is_real_date(value), " takes a date.");
            return value;
        case TypeKind::kDateOrNull:
            if (is_text(value)) {
                return text_in(value);
            }
            must(is_real_date(value) || std::holds_alternative<Null>(value),
                 " takes a date, a text or null.");
            return value;
        case TypeKind::kIndex:
            return is_text(value) ? Variant(text_in(value)) : whole(value, name);
        case TypeKind::kObject: {
            const Object* object = std::get_if<Object>(&value);
            must(object != nullptr && (!*object || object->type().name == type.name),
                 " takes an object of its class.");
            return value;
        }
        case TypeKind::kNothing:
        case TypeKind::kEnumerator:
            break;
    }
    raise(Misuse::kWrongType, name, " takes no value.");
}

/// The value that the text of a default stands for.
Variant default_of(const Argument& argument) {
    switch (argument.type.kind) {
        case TypeKind::kBoolean:
            return argument.default_value == "True";
        case TypeKind::kText:
            return argument.default_value;
        default:
            return static_cast<std::int32_t>(convert::to_number(argument.default_value, 0));
    }
}

/// The arguments of a call, complete and of their types.
class Arguments {
  public:
    Arguments(const Member& member, std::span<const Variant> given) {
        for (const Argument& argument : member.arguments) {
            const bool left_out =
                size_ >= given.size() || std::holds_alternative<Empty>(given[size_]);
            if (left_out && !argument.optional) {
                raise(Misuse::kArgumentMissing, member.name,
                      " needs its argument " + std::string(argument.name) + ".");
            }
            add(left_out ? default_of(argument)
                         : converted(given[size_], argument.type, argument.name));
        }
    }

    void add(Variant value) { values_[size_++] = std::move(value); }
    std::span<Variant> values() { return {values_.data(), size_}; }

  private:
    std::array<Variant, kMostArguments> values_;
    std::size_t size_ = 0;
};

void check_count(const Member& member, std::size_t given, std::size_t most) {
    if (given > most) {
        raise(Misuse::kWrongCount, member.name,
              " takes " + std::to_string(most) + (most == 1 ? " value." : " values."));
    }
}

/// Of no use to hosts but to be asked for the next item.
const Class& walk_class() {
    static const Class kClass = make_class("Enumerator", "walks over a collection", {});
    return kClass;
}

}  // namespace

InvocationError::InvocationError(Misuse misuse, std::string description)
    : PlatformError(error_number::from_hresult(static_cast<std::uint32_t>(misuse)),
                    std::move(description), std::string(library().name)),
      misuse_(misuse) {}

Object create(std::string_view class_name) {
    const Class* found = library().find(class_name);
    if (found == nullptr || found->create == nullptr) {
        raise(Misuse::kUnknownClass, "", "There is no class of this name that hosts create.");
    }
    return found->create();
}

const Member& member_of(const Object& self, std::string_view name) {
    const Member* found = self.type().find(name);
    if (found == nullptr) {
        raise(Misuse::kUnknownMember, self.type().name, " has no member of this name.");
    }
    return *found;
}

const Member& member_of(const Object& self, std::int32_t id) {
    const Member* found = self.type().find(id);
    if (found == nullptr) {
        raise(Misuse::kUnknownMember, self.type().name, " has no member of this number.");
    }
    return *found;
}

Variant read(const Object& self, const Member& member, std::span<const Variant> given) {
    if (member.read == nullptr) {
        raise(Misuse::kNotReadable, member.name, " is only written.");
    }
    check_count(member, given.size(), member.arguments.size());
    Arguments arguments(member, given);
    return member.read(self, member.property, arguments.values());
}

void write(const Object& self, const Member& member, std::span<const Variant> given) {
    if (member.write == nullptr) {
        raise(Misuse::kNotWritable, member.name, " is only read.");
    }
    const std::size_t places = member.arguments.size() + 1;
    check_count(member, given.size(), places);
    if (given.size() < places) {
        raise(Misuse::kWrongCount, member.name, " needs a value.");
    }
    Arguments arguments(member, given.first(places - 1));
    arguments.add(converted(given.back(), member.type, member.name));
    member.write(self, member.property, arguments.values());
}

std::vector<Variant> in_their_places(const Member& member, std::span<const Variant> given,
                                     std::span<const std::string_view> names) {
    const std::size_t by_position = given.size() - names.size();
    check_count(member, given.size(), member.arguments.size());
    std::vector<Variant> placed(given.begin(),
                                given.begin() + static_cast<std::ptrdiff_t>(by_position));
    placed.resize(member.arguments.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::size_t place = 0;
        while (place < placed.size() && !SameName()(member.arguments[place].name, names[i])) {
            ++place;
        }
        if (place == placed.size()) {
            raise(Misuse::kUnknownArgument, member.name, " has no argument of this name.");
        }
        if (place < by_position || !std::holds_alternative<Empty>(placed[place])) {
            raise(Misuse::kWrongCount, member.arguments[place].name, " is given twice.");
        }
        placed[place] = given[by_position + i];
    }
    return placed;
}

Object walk_over(const Object& collection) {
    return {walk_class(), std::make_shared<Walk>(collection)};
}

bool is_walk(const Object& object) { return &object.type() == &walk_class(); }

Walk::Walk(Object collection)
    : collection_(std::move(collection)),
      count_(member_of(collection_, "Count")),
      item_(member_of(collection_, kDefaultMemberId)) {}

bool Walk::next(Variant& item) {
    const Variant count = read(collection_, count_, {});
    if (position_ >= std::get<std::int32_t>(count)) {
        return false;
    }
    const Variant position = ++position_;
    item = read(collection_, item_, {&position, 1});
    return true;
}

}  // namespace zr::automation
