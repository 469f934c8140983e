// The layout of a report as data: sections, the lines of each, and where their values are.
//
// A section names its group and sub-group, the records it walks and the lines of each record. A
// line is a label and a value, each made of pieces; a piece is a value of the reply in some form
// with constant text around it, written when all its conditions hold. writer.h writes the lines.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "reports/runs.h"

namespace zr::layout {

/// The form in which a value of the reply is written.
enum class Form : std::uint8_t {
    kText,         ///< as it stands
    kDate,         ///< a date in the facade's DateFormat; nothing when it is missing or no date
    kGeneralDate,  ///< a date in the platform's general form
    kMoney,        ///< an amount (0 when missing) in the facade's CurrencyFormat
    kMoneySymbol,  ///< an amount (0 when missing) in the facade's CurrencyFormatSymbol
    kMoneyText,    ///< the same of a text that is an amount; any other as it stands
    kNumber,       ///< a number (0 when missing) in the platform's default form
    kNumberText,   ///< the same of a text that is a number; any other as it stands
    kCount,        ///< an amount (0 when missing) as a grouped whole number
    kPercent,      ///< a fraction (0 when missing) as a percentage with two decimals
    kPersonName,   ///< the names of the person at the path, joined by blanks
};

struct Piece;
struct Case;

// What a piece can be. Paths are relative to the record; "." is the record itself.

struct Constant {
    std::string_view text;
};
struct Value {
    Form form;
    std::string_view path;
};
/// The description that a code table gives for the code at the path.
struct Lookup {
    std::string_view table;
    std::string_view path;
};
/// The record's 1-based position in its section.
struct Position {};
/// Several pieces as one.
struct All {
    std::vector<Piece> parts;
};
/// The parts once for each node at the path; nothing of a node whose parts are empty.
struct Each {
    std::string_view path;
    std::vector<Piece> parts;
    std::string_view separator;
};
/// The same for each record of the run that the section merged.
struct EachOfRun {
    std::vector<Piece> parts;
    std::string_view separator;
};
/// The first case for the value at the path, "" when it is missing; nothing when none is for it.
struct Choice {
    std::string_view path;
    std::vector<Case> cases;
};

/// What must hold for a piece to be written.
struct Condition {
    enum class Kind : std::uint8_t {
        kNode,           ///< there is a node at the path
        kEqual,          ///< the value at the path is this one, in any letter case
        kUnless,         ///< it is not this one
        kUnlessExactly,  ///< it is not this one, letter case included
        kAmount,         ///< the amount at the path is not 0
        kOtherBirth,     ///< the date at the path is one, and not the subject's date of birth
    };
    Kind kind;
    std::string_view path;
    std::string_view value{};
};

struct Piece {
    using What = std::variant<Constant, Value, Lookup, Position, All, Each, EachOfRun, Choice>;

    Piece(What its);
    Piece(const char* text);

    What what;
    std::string_view separator{};  ///< stands only behind an earlier piece
    std::string_view before{};     ///< constant text before the value
    std::string_view after{};      ///< and after it
    bool needs_value = false;      ///< nothing at all is written of an empty value
    bool needs_any_value = false;  ///< nor when no part has a value, whatever stands around them
    std::vector<Condition> conditions{};
};

/// The piece of one code. A code of the reply is compared as it stands.
struct Case {
    std::string_view code;
    Piece piece;
    bool otherwise = false;  ///< for every code that no case before it names
};
// Behind the case, which a choice must know whole.
inline Piece::Piece(What its) : what(std::move(its)) {}
inline Piece::Piece(const char* text) : what(Constant{text}) {}

inline Case otherwise(Piece piece) { return {{}, std::move(piece), true}; }

struct Date : Value {};
struct Amount : Value {};

/// A piece of a known kind while it is being described: what can be said of it depends on the kind.
/// What is said adds up.
template <class Kind>
class Of : public Piece {
  public:
    explicit Of(What its) : Piece(std::move(its)) {}

    /// Text before and after the value.
    Of within(std::string_view text_before, std::string_view text_after = {}) &&
        requires(!std::same_as<Kind, Constant>) {
        before = text_before;
        after = text_after;
        return std::move(*this);
    }
    /// Only when its value is not empty.
    Of if_value() && requires(!std::same_as<Kind, Constant>) {
        needs_value = true;
        return std::move(*this);
    }
    /// Only when a value of its parts is not empty: never its constants alone.
    Of if_any_value() && requires std::same_as<Kind, All> {
        needs_any_value = true;
        return std::move(*this);
    }
    /// Joined to what stands before it: neither value nor separator when it is empty, no separator
    /// when it is the first.
    Of joined(std::string_view by) && requires(!std::same_as<Kind, Constant>) {
        separator = by;
        needs_value = true;
        return std::move(*this);
    }
    Of if_node(std::string_view path) && {
        return std::move(*this).when(Condition::Kind::kNode, path);
    }
    Of if_equal(std::string_view path, std::string_view value) && {
        return std::move(*this).when(Condition::Kind::kEqual, path, value);
    }
    Of unless(std::string_view path, std::string_view value) && {
        return std::move(*this).when(Condition::Kind::kUnless, path, value);
    }
    /// Not when its own value is exactly this one.
    Of unless_exactly(std::string_view value) && requires std::same_as<Kind, Value> {
        return std::move(*this).when(Condition::Kind::kUnlessExactly, path(), value);
    }
    /// Only when its amount is not 0.
    Of if_amount() && requires std::same_as<Kind, Amount> {
        return std::move(*this).when(Condition::Kind::kAmount, path());
    }
    /// Only when it is a date and not the subject's date of birth.
    Of if_other_birth() && requires std::same_as<Kind, Date> {
        return std::move(*this).when(Condition::Kind::kOtherBirth, path());
    }

  private:
    std::string_view path() const { return std::get<Value>(what).path; }
    Of when(Condition::Kind kind, std::string_view path, std::string_view value = {}) && {
        conditions.push_back({kind, path, value});
        return std::move(*this);
    }
};

inline Of<Constant> constant(std::string_view text) { return Of<Constant>(Constant{text}); }
inline Of<Value> text_at(std::string_view path) { return Of<Value>(Value{Form::kText, path}); }
inline Of<Value> name_at(std::string_view path) {
    return Of<Value>(Value{Form::kPersonName, path});
}
inline Of<Date> date_at(std::string_view path) { return Of<Date>(Value{Form::kDate, path}); }
inline Of<Date> general_date_at(std::string_view path) {
    return Of<Date>(Value{Form::kGeneralDate, path});
}
/// An amount in one of the forms for amounts and numbers.
inline Of<Amount> amount_at(Form form, std::string_view path) {
    return Of<Amount>(Value{form, path});
}
inline Of<Lookup> lookup_at(std::string_view table, std::string_view path) {
    return Of<Lookup>(Lookup{table, path});
}
inline Of<Position> record_position() { return Of<Position>(Position{}); }
inline Of<All> all(std::vector<Piece> parts) { return Of<All>(All{std::move(parts)}); }
inline Of<Each> each_at(std::string_view path, std::vector<Piece> parts,
                        std::string_view separator) {
    return Of<Each>(Each{path, std::move(parts), separator});
}
inline Of<EachOfRun> each_of_run(std::vector<Piece> parts, std::string_view separator) {
    return Of<EachOfRun>(EachOfRun{std::move(parts), separator});
}
inline Of<Choice> choice_at(std::string_view path, std::vector<Case> cases) {
    return Of<Choice>(Choice{path, std::move(cases)});
}
/// The texts of the nodes at the path on lines of their own, empty ones left out.
inline Of<Each> lines_at(std::string_view path) { return each_at(path, {text_at(".")}, "\r\n"); }

/// Pieces written one after the other.
struct Text {
    Text(const char* text) : pieces{Piece(text)} {}
    Text(Piece piece) : pieces{std::move(piece)} {}
    Text(std::initializer_list<Piece> parts) : pieces(parts) {}

    std::vector<Piece> pieces;
};

/// A line of a record, or one for each node at `each`, to which its paths are then relative.
struct Line {
    Text label;
    Text value;
    std::string_view each{};
};

inline Line line(Text label, Text value) { return {std::move(label), std::move(value)}; }
inline Line line_for_each(std::string_view each, Text label, Text value) {
    return {std::move(label), std::move(value), each};
}
inline Line text(Text label, std::string_view path) { return {std::move(label), text_at(path)}; }
inline Line date(Text label, std::string_view path) { return {std::move(label), date_at(path)}; }
inline Line money(Text label, std::string_view path) {
    return {std::move(label), amount_at(Form::kMoney, path)};
}
inline Line number(Text label, std::string_view path) {
    return {std::move(label), amount_at(Form::kNumber, path)};
}
inline Line lookup(Text label, std::string_view table, std::string_view path) {
    return {std::move(label), lookup_at(table, path)};
}
inline Line person_name(Text label, std::string_view path = ".") {
    return {std::move(label), name_at(path)};
}

using Lines = std::vector<Line>;

/// How a section's group is made of the prefix that the writer is given.
struct Group {
    enum class Kind : std::uint8_t { kPlain, kPerson, kPrefixed };
    Kind kind;
    std::string_view word;
};
/// The word alone.
constexpr Group plain(std::string_view word) { return {Group::Kind::kPlain, word}; }
/// The prefix, or the word when there is none.
constexpr Group person(std::string_view word) { return {Group::Kind::kPerson, word}; }
/// The prefix and ": ", then the word.
constexpr Group prefixed(std::string_view word) { return {Group::Kind::kPrefixed, word}; }

/// The words of a sub-group, and what follows them.
struct SubGroup {
    enum class Numbering : std::uint8_t { kNone, kPosition, kId, kTrimmedId };
    constexpr SubGroup(const char* its_words) : words(its_words) {}
    constexpr SubGroup(std::string_view its_words, Numbering its_numbering, std::string_view its_id)
        : words(its_words), numbering(its_numbering), id(its_id) {}

    std::string_view words;
    Numbering numbering = Numbering::kNone;
    std::string_view id{};  ///< path of the record's identifier
};
/// A blank and the record's 1-based position in the section.
constexpr SubGroup numbered(std::string_view words) {
    return {words, SubGroup::Numbering::kPosition, {}};
}
/// A blank and the record's identifier, as unique_id reads it.
constexpr SubGroup with_id(std::string_view words, std::string_view id) {
    return {words, SubGroup::Numbering::kId, id};
}
/// The same, with no blank at the end when there is no identifier.
constexpr SubGroup with_trimmed_id(std::string_view words, std::string_view id) {
    return {words, SubGroup::Numbering::kTrimmedId, id};
}

/// What a line shows of an amount or a number that the record does not have, or has empty.
enum class MissingAmounts : std::uint8_t {
    kZero,
    kNoLine,
};

/// A section of a report.
struct Section {
    Group group;
    SubGroup sub_group;
    std::string_view records;  ///< under the section's source, in document order
    Lines lines;
    std::uint8_t source = 0;     ///< which of the writer's source nodes `records` starts from
    Runs runs = Runs::kNone;     ///< the records that follow each other and are one
    std::string_view without{};  ///< no section where the source has a node here

    Section from(std::uint8_t its_source) && {
        source = its_source;
        return std::move(*this);
    }
    Section merging(Runs its_runs) && {
        runs = its_runs;
        return std::move(*this);
    }
    Section unless_there_is(std::string_view node) && {
        without = node;
        return std::move(*this);
    }
};

using Sections = std::vector<Section>;

}  // namespace zr::layout
