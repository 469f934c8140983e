// Reads the command line with CLI11, which no other file includes.
#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>
#include <utility>

#include "cli/failure.h"
#include "cli/given.h"
#include "cli/help_text.h"
#include "cli/nearest.h"
#include "cli/option_table.h"
#include "cli/option_values.h"
#include "values/text.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

/// Puts the value of an option where it goes.
void take(const Option& option, const std::string& text, Given& given) {
    const std::vector<std::string> values = words_of(option.values, '|');
    const auto is = [&](const std::string& value) {
        return text::equal_ignoring_case(value, text);
    };
    if (option.is_choice() && std::ranges::none_of(values, is)) {
        throw MisuseError(option.name() + " must be " + option.choice() + "." +
                          did_you_mean(text, values));
    }
    struct {
        const Option& option;
        const std::string& text;
        Given& given;

        void operator()(bool Given::*flag) const { given.*flag = true; }
        void operator()(std::string Given::*target) const { given.*target = text; }
        void operator()(std::optional<std::string> Given::*target) const { given.*target = text; }
        void operator()(std::vector<std::string> Given::*target) const {
            (given.*target).push_back(text);
        }
        void operator()(Format format) const { given.beside.push_back({format, text}); }
        void operator()(const MemberTarget& member) const {
            add_member(given.*member.object, member.name,
                       option_value(member.type, text, option.name()));
        }
    } const taking{option, text, given};
    std::visit(taking, option.target);
}

void add_option(CLI::App& app, const Option& option, Given& given) {
    if (option.argument.empty()) {
        app.add_flag_callback(option.names, [&] { take(option, {}, given); });
        return;
    }
    const auto all = [&](const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            take(option, text, given);
        }
        return true;
    };
    CLI::Option* const added = app.add_option(option.names, all)->envname(option.environment);
    if (std::holds_alternative<std::vector<std::string> Given::*>(option.target)) {
        added->expected(1, CLI::detail::expected_max_vector_size)
            ->allow_extra_args(option.is_positional());
    }
}

/// The command that is called so.
const Command* command_of(std::string_view name) {
    const auto found = std::ranges::find(commands(), name, &Command::name);
    return found == commands().end() ? nullptr : &*found;
}

/// What there is to name: options of a command, or commands.
std::vector<std::string> known_names(const CLI::App* part) {
    std::vector<std::string> names;
    if (part != nullptr) {
        for (const CLI::Option* const option : part->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
        return names;
    }
    for (const Command& command : commands()) {
        names.emplace_back(command.name);
    }
    return names;
}

/// A message about the command line that shows no value: one may be a password.
[[noreturn]] void refuse(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    const CLI::App* const part = parsed.empty() ? nullptr : parsed.front();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::vector<std::string> extras = app.remaining(true);
        for (const std::string& extra : extras) {
            if (extra.starts_with("--")) {
                const std::string name = extra.substr(0, extra.find('='));
                throw MisuseError("Unknown option " + name + "." +
                                  did_you_mean(name, known_names(part != nullptr ? part : &app)));
            }
        }
        throw MisuseError(part != nullptr ? "An argument was not expected."
                                          : "The first argument is no command; --help lists them." +
                                                did_you_mean(extras.front(), known_names(nullptr)));
    }
    // "--name: 1 required TEXT missing", in our words
    if (const std::string text = error.what(); dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
        throw MisuseError(text.substr(0, text.find(':')) +
                          (text.ends_with("missing") ? " needs a value." : " is given twice."));
    }
    throw MisuseError("A value was given to an option that takes none.");
}

/// The arguments last first, as CLI11 takes them, with "--name=" as an empty value and
/// "help COMMAND" as "COMMAND --help".
std::vector<std::string> reversed_arguments(int argc, const char* const* argv) {
    std::vector<std::string> arguments;
    for (int at = argc - 1; at > 0; --at) {
        std::string argument = argv[at];
        if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
            argument.pop_back();
            arguments.emplace_back();
        }
        arguments.push_back(std::move(argument));
    }
    if (!arguments.empty() && arguments.back() == "help") {
        arguments.pop_back();
        arguments.insert(arguments.begin(), "--help");
    }
    return arguments;
}

}  // namespace

std::optional<Invocation> read_command_line(int argc, const char* const* argv, int& status) {
    CLI::App app("", "zrcreditbureau");
    app.set_version_flag("--version", ZRCreditBureau::Version());
    app.require_subcommand(0, 1);
    app.formatter_fn([](const CLI::App* part, const std::string&, CLI::AppFormatMode) {
        return help_text(command_of(part->get_name()));
    });
    // One for each command: the options of one command must not touch another's.
    std::vector<std::unique_ptr<Given>> parts;
    for (const Command& command : commands()) {
        CLI::App* const part = app.add_subcommand(std::string(command.name));
        parts.push_back(std::make_unique<Given>());
        for (const Option* const option : options_of(command)) {
            add_option(*part, *option, *parts.back());
        }
    }
    try {
        app.parse(reversed_arguments(argc, argv));
    } catch (const CLI::Success& help) {
        status = app.exit(help);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        refuse(app, error);
    }
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    if (parsed.empty()) {
        std::cerr << help_text(nullptr);
        status = kMisuse;
        return std::nullopt;
    }
    const Command* const command = command_of(parsed.front()->get_name());
    Given& given = *parts[static_cast<std::size_t>(command - commands().data())];
    given.command = command;
    return complete(given);
}

}  // namespace zr::cli
