// The layout of a report as data: sections, the lines of each, and where their values are.
//
// A section names its group and sub-group, the records it walks and the lines of each record. A
// line is a label and a value, each made of pieces; a piece is a value of the reply in some form
// with constant text around it. report_writer.h writes the lines.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "reports/runs.h"

namespace zr::layout {

/// The form in which a value of the reply is written.
enum class Form : std::uint8_t {
    kConstant,     ///< no value: only the text around it
    kText,         ///< as it stands
    kDate,         ///< a date in the facade's DateFormat; nothing when it is missing or no date
    kGeneralDate,  ///< a date in the platform's general form
    kMoney,        ///< an amount (0 when missing) in the facade's CurrencyFormat
    kMoneySymbol,  ///< an amount (0 when missing) in the facade's CurrencyFormatSymbol
    kMoneyText,    ///< the same of a text that is an amount; any other as it stands
    kNumber,       ///< a number (0 when missing) in the platform's default form
    kNumberText,   ///< the same of a text that is a number; any other as it stands
    kLookup,       ///< the description that a code table gives for the code
    kPersonName,   ///< the names of the person at the path, joined by blanks
    kId,           ///< an identifier without its leading zeros
    kCount,        ///< an amount (0 when missing) as a grouped whole number
    kPercent,      ///< a fraction (0 when missing) as a percentage with two decimals
    kPosition,     ///< the record's 1-based position in its section
    kAll,          ///< the pieces of `parts`, one after the other
    kEach,         ///< the pieces of `parts` for each node at the path, `other` between them
    kRun,          ///< the same for each record of the run, in a section that merges runs
    kChoice,       ///< the piece of `cases` for the value at the path
};

/// When a piece is written at all.
enum class When : std::uint8_t {
    kAlways,
    kIfValue,        ///< its value is not empty
    kIfAnyValue,     ///< the value of one of its parts is not empty, whatever stands around them
    kIfAmount,       ///< its amount is not 0
    kIfOtherBirth,   ///< its date is one, and not the subject's date of birth
    kIfNode,         ///< the node at `condition` is present
    kIfEqual,        ///< the upper-cased value at `condition` is `other`
    kUnless,         ///< the upper-cased value at `condition` is not `other`
    kUnlessExactly,  ///< the value at `condition` is not `other`, letter case included
    kJoined,         ///< its value is not empty; `before` stands only behind an earlier piece
};

struct Case;

struct Piece {
    Form form = Form::kConstant;
    std::string_view path{};    ///< relative to the record; "." is the record itself
    std::string_view before{};  ///< constant text before the value
    std::string_view after{};   ///< and after it
    When when = When::kAlways;
    std::string_view condition{};  ///< path of kIfNode, kIfEqual and kUnless
    /// Of kIfEqual and kUnless; the code table of kLookup; the separator of kEach and kRun.
    std::string_view other{};
    std::span<const Piece> parts{};
    std::span<const Case> cases{};

    constexpr bool is_constant() const { return form == Form::kConstant && when == When::kAlways; }
    constexpr bool used() const { return form != Form::kConstant || !before.empty(); }

    /// The piece with text before and after it.
    constexpr Piece within(std::string_view text_before, std::string_view text_after = {}) const {
        Piece piece = *this;
        piece.before = text_before;
        piece.after = text_after;
        return piece;
    }
    /// The piece, written only when its value is not empty.
    constexpr Piece if_value() const {
        Piece piece = *this;
        piece.when = When::kIfValue;
        return piece;
    }
    /// The piece, written only when a value of its parts is not empty: never its constants alone.
    constexpr Piece if_any_value() const {
        Piece piece = *this;
        piece.when = When::kIfAnyValue;
        return piece;
    }
    /// The piece, written only when its amount is not 0.
    constexpr Piece if_amount() const {
        Piece piece = *this;
        piece.when = When::kIfAmount;
        return piece;
    }
    /// The piece, written only when it is a date and not the subject's date of birth.
    constexpr Piece if_other_birth() const {
        Piece piece = *this;
        piece.when = When::kIfOtherBirth;
        return piece;
    }
    /// The piece, written only when the value at this path is this one in any letter case.
    constexpr Piece if_equal(std::string_view path_of_value, std::string_view value) const {
        Piece piece = *this;
        piece.when = When::kIfEqual;
        piece.condition = path_of_value;
        piece.other = value;
        return piece;
    }
    /// The piece, written only when there is a node at this path.
    constexpr Piece if_node(std::string_view path_of_node) const {
        Piece piece = *this;
        piece.when = When::kIfNode;
        piece.condition = path_of_node;
        return piece;
    }
    /// The piece, left out when the value at this path is this one in any letter case.
    constexpr Piece unless(std::string_view path_of_value, std::string_view value) const {
        Piece piece = *this;
        piece.when = When::kUnless;
        piece.condition = path_of_value;
        piece.other = value;
        return piece;
    }
    /// The piece, left out when its own value is exactly this one.
    constexpr Piece unless_exactly(std::string_view value) const {
        Piece piece = *this;
        piece.when = When::kUnlessExactly;
        piece.condition = path;
        piece.other = value;
        return piece;
    }
    /// The piece, joined to what stands before it: neither value nor separator when it is empty, no
    /// separator when it is the first.
    constexpr Piece joined(std::string_view separator) const {
        Piece piece = *this;
        piece.when = When::kJoined;
        piece.before = separator;
        return piece;
    }
};

constexpr Piece constant(std::string_view text) { return {.before = text}; }
constexpr Piece text_at(std::string_view path) { return {.form = Form::kText, .path = path}; }
constexpr Piece date_at(std::string_view path) { return {.form = Form::kDate, .path = path}; }
constexpr Piece general_date_at(std::string_view path) {
    return {.form = Form::kGeneralDate, .path = path};
}
constexpr Piece lookup_at(std::string_view table, std::string_view path) {
    return {.form = Form::kLookup, .path = path, .other = table};
}
constexpr Piece id_at(std::string_view path) { return {.form = Form::kId, .path = path}; }
constexpr Piece of(Form form, std::string_view path) { return {.form = form, .path = path}; }
inline constexpr Piece kRecordPosition{.form = Form::kPosition};

/// Several pieces as one.
constexpr Piece all(std::span<const Piece> parts) { return {.form = Form::kAll, .parts = parts}; }

/// The pieces once for each node at the path; nothing of a node whose pieces are empty.
constexpr Piece each_at(std::string_view path, std::span<const Piece> parts,
                        std::string_view separator) {
    return {.form = Form::kEach, .path = path, .other = separator, .parts = parts};
}

/// The pieces once for each record of the run that the section merged; nothing of a record whose
/// pieces are empty.
constexpr Piece each_of_run(std::span<const Piece> parts, std::string_view separator) {
    return {.form = Form::kRun, .other = separator, .parts = parts};
}

/// One piece of a choice. A code of the reply is compared as it stands.
struct Case {
    std::string_view code;
    Piece piece;
    bool otherwise = false;  ///< for every code that no case before it names
};

constexpr Case otherwise(const Piece& piece) { return {{}, piece, true}; }

/// The piece for the value at the path, "" when it is missing; nothing when no case is for it.
constexpr Piece choice_at(std::string_view path, std::span<const Case> cases) {
    return {.form = Form::kChoice, .path = path, .cases = cases};
}

inline constexpr Piece kOwnText[] = {text_at(".")};

/// The texts of the nodes at the path on lines of their own, empty ones left out.
constexpr Piece lines_at(std::string_view path) { return each_at(path, kOwnText, "\r\n"); }

/// Pieces written one after the other: a few of its own, or a named array of them.
struct Pieces {
    std::array<Piece, 3> own{};
    std::span<const Piece> named{};

    constexpr Pieces(const Piece& first, const Piece& second = {}, const Piece& third = {})
        : own{first, second, third} {}
    constexpr Pieces(std::string_view text) : own{constant(text)} {}
    constexpr Pieces(const char* text) : Pieces(std::string_view(text)) {}
    template <std::size_t n>
    constexpr Pieces(const Piece (&pieces)[n]) : named(pieces) {}

    constexpr std::span<const Piece> all() const {
        return named.empty() ? std::span<const Piece>(own) : named;
    }
};

/// A line of a record, or one for each node at `each`, to which its paths are then relative.
struct Line {
    Pieces label;
    Pieces value;
    std::string_view each{};
};

constexpr Line line(const Pieces& label, const Pieces& value) { return {label, value, {}}; }
constexpr Line line_for_each(std::string_view each, const Pieces& label, const Pieces& value) {
    return {label, value, each};
}
constexpr Line text(const Pieces& label, std::string_view path) {
    return line(label, text_at(path));
}
constexpr Line date(const Pieces& label, std::string_view path) {
    return line(label, date_at(path));
}
constexpr Line money(const Pieces& label, std::string_view path) {
    return line(label, of(Form::kMoney, path));
}
constexpr Line number(const Pieces& label, std::string_view path) {
    return line(label, of(Form::kNumber, path));
}
constexpr Line lookup(const Pieces& label, std::string_view table, std::string_view path) {
    return line(label, lookup_at(table, path));
}
constexpr Line person_name(const Pieces& label, std::string_view path = ".") {
    return line(label, of(Form::kPersonName, path));
}

/// The lines with another one in place of that with its label.
template <std::size_t n>
constexpr std::array<Line, n> with(const Line (&lines)[n], const Line& other) {
    std::array<Line, n> changed = std::to_array(lines);
    for (Line& line : changed) {
        const Piece& label = line.label.all().front();
        if (label.form == Form::kConstant && label.before == other.label.all().front().before) {
            line = other;
        }
    }
    return changed;
}

/// How a section's group is made of the prefix that the writer is given.
enum class Group : std::uint8_t {
    kPlain,     ///< the section's word alone
    kPerson,    ///< the prefix, or the section's word when there is none
    kPrefixed,  ///< the prefix and ": ", then the section's word
};

/// What a line shows of an amount or a number that the record does not have, or has empty.
enum class MissingAmounts : std::uint8_t {
    kZero,
    kNoLine,
};

/// What follows the words of a sub-group.
enum class Numbering : std::uint8_t {
    kNone,
    kPosition,   ///< a blank and the record's 1-based position in the section
    kId,         ///< a blank and the identifier at the section's `id`, as unique_id reads it
    kTrimmedId,  ///< the same, with no blank at the end when there is no identifier
};

/// A section of a report.
struct Section {
    Group group;
    std::string_view word;
    std::string_view sub_group;
    Numbering numbering;
    std::uint8_t source;       ///< which of the writer's source nodes `records` starts from
    std::string_view records;  ///< the records, in document order
    std::span<const Line> lines;
    std::string_view id{};       ///< where a record's identifier is
    Runs runs = Runs::kNone;     ///< the records that follow each other and are one
    std::string_view without{};  ///< no section where the source has a node here
};

}  // namespace zr::layout
