// Every option of every command. What reads the command line, --help, the manual and the
// completions of shells are made from this table.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/given.h"
#include "zrcreditbureau/property.h"

namespace zr::cli {

/// A property of the request or a setting of services: a member of an object of `Given`.
struct MemberTarget {
    automation::JsonValue Given::*object;
    std::string_view name;
    ValueType type;
};

/// Where the value of an option goes; a form of the outcome gets a file of its own.
using OptionTarget =
    std::variant<bool Given::*, std::string Given::*, std::optional<std::string> Given::*,
                 std::vector<std::string> Given::*, Format, MemberTarget>;

struct Option {
    std::string_view section;
    CommandSet commands;   ///< those that have it
    std::string names;     ///< "--product,--product-id"; "FILE" of a value that stands alone
    std::string argument;  ///< what its value is called; "" for a switch
    std::string meaning;
    OptionTarget target;
    std::string values = {};       ///< "text|json": all that it takes, or those that are known
    std::string_view start = {};   ///< its value where it is not given, when that is one
    std::string environment = {};  ///< the variable that gives it too

    bool is_positional() const { return !names.starts_with('-'); }
    /// "--product"
    std::string name() const { return names.substr(0, names.find(',')); }
    /// Whether it takes nothing but `values`.
    bool is_choice() const {
        return !values.empty() && std::holds_alternative<std::string Given::*>(target);
    }
    /// "text, json or html", of a choice.
    std::string choice() const;
    /// The meaning with what it takes, how it starts and its variable.
    std::string description() const;
};

/// All options, by section.
const std::vector<Option>& options();

/// Those of a command.
std::vector<const Option*> options_of(const Command& command);

/// The words of a text that a character separates.
std::vector<std::string> words_of(std::string_view text, char separator);

}  // namespace zr::cli
