// Reads the command line with CLI11, which no other file includes.
#include "zrcreditbureau/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <utility>

#include "zrcreditbureau/countries.h"
#include "zrcreditbureau/failure.h"
#include "zrcreditbureau/given.h"
#include "zrcreditbureau/names.h"
#include "zrcreditbureau/nearest.h"
#include "zrcreditbureau/option_values.h"
#include "zrcreditbureau/request.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

using automation::JsonValue;

constexpr const char* kGeneralGroup = "Credit bureau";
constexpr const char* kRequestGroup = "Request fields";
constexpr const char* kSettingsGroup = "Service settings";
constexpr const char* kBatchGroup = "Many replies";
constexpr const char* kOutputGroup = "Output";

/// Request properties whose option is not just their name: --country is the bureau's.
constexpr struct {
    std::string_view property;
    const char* names;
} kRequestOptionNames[] = {
    {"Country", "--address-country"},
    {"ServiceName", "--service,--service-name"},
    {"ProductId", "--product,--product-id"},
};

/// Forms of the outcome that can have a file of their own beside the report.
constexpr struct {
    Format format;
    const char* option;
    const char* meaning;
} kDocuments[] = {
    {Format::kReply, "--reply",
     "File for the bureau's reply, also where it fails: a charged reply can be translated again"},
    {Format::kText, "--text", "File for the text, beside the report"},
    {Format::kJson, "--json", "File for the JSON result, beside the report"},
    {Format::kHtml, "--html",
     "File for the HTML of the reply, beside the report; made by the service's\n"
     "installed sheet unless --xslt-file-name names another"},
};

std::string request_option_names(std::string_view property) {
    for (const auto& row : kRequestOptionNames) {
        if (row.property == property) {
            return row.names;
        }
    }
    return "--" + option_name(property);
}

const char* type_name(ValueType type) {
    switch (type) {
        case ValueType::kText:
            return "TEXT";
        case ValueType::kBoolean:
            return "true|false";
        case ValueType::kCount:
        case ValueType::kInteger:
            return "NUMBER";
        case ValueType::kCurrency:
            return "AMOUNT";
        case ValueType::kDate:
        case ValueType::kDateOrNull:
            break;
    }
    return "DATE";
}

bool takes_field(const Command& command, std::string_view property) {
    switch (command.fields) {
        case Command::Fields::kNone:
            return false;
        case Command::Fields::kService:
            return property == "ServiceName";
        case Command::Fields::kServiceAndProduct:
            return property == "ServiceName" || property == "ProductId";
        case Command::Fields::kAll:
            break;
    }
    return true;
}

/// An option that becomes a member of a JSON object.
CLI::Option* add_value_option(CLI::App& app, const std::string& names, ValueType type,
                              std::string_view property, std::string_view meaning,
                              JsonValue& object) {
    const std::string option = names.substr(0, names.find(','));
    return app
        .add_option_function<std::string>(
            names,
            [type, property, option, &object](const std::string& text) {
                add_member(object, property, option_value(type, text, option));
            },
            std::string(meaning))
        ->type_name(type_name(type));
}

void add_request_options(CLI::App& app, const Command& command, Given& given) {
    for (const Property<Request>& property : request_properties()) {
        if (property.write != nullptr && takes_field(command, property.name)) {
            add_value_option(app, request_option_names(property.name), property.type, property.name,
                             property.meaning, given.request)
                ->group(kRequestGroup);
        }
    }
    if (command.fields == Command::Fields::kAll) {
        app.add_option("--option", given.product_options,
                       "A product option: ID to select it, ID=TEXT to give it a text")
            ->type_name("ID[=TEXT]")
            ->allow_extra_args(false)
            ->group(kRequestGroup);
    }
}

/// A setting that is called as a request property is stands behind "setting".
std::string setting_option_name(const CLI::App& app, std::string_view setting) {
    const std::string name = "--" + option_name(setting);
    return app.get_option_no_throw(name) == nullptr ? name : "--setting-" + option_name(setting);
}

void add_settings_options(CLI::App& app, const std::vector<KnownSetting>& settings, Given& given) {
    for (const KnownSetting& setting : settings) {
        add_value_option(app, setting_option_name(app, setting.name), setting.type, setting.name,
                         setting.meaning, given.settings)
            ->envname(environment_name(setting.name))
            ->group(kSettingsGroup);
    }
    app.add_option("--settings", given.settings_file,
                   "JSON file of settings by service: {\"VedaXMLAU\":{\"UserId\":\"...\"}};\n"
                   "else ~/.config/zrcreditbureau/settings.json where that is there")
        ->type_name("FILE")
        ->envname("ZR_SETTINGS")
        ->group(kSettingsGroup);
    app.footer(
        "Other users of this machine can see a command line: give passwords in a --settings file\n"
        "or in the environment. An option wins over the environment, which wins over the file.");
}

void add_general_options(CLI::App& app, const Command& command, Given& given) {
    if (command.operation || command.fields == Command::Fields::kNone) {
        app.add_option("--country", given.country, "AU or NZ")
            ->type_name("CODE")
            ->group(kGeneralGroup);
    }
    if (!command.operation) {
        return;
    }
    app.add_flag("--production", given.production,
                 "Address the bureau's production system instead of its test system")
        ->group(kGeneralGroup);
    if (*command.operation == Operation::kEnquire || *command.operation == Operation::kTranslate) {
        app.add_flag("--strict", given.strict, "A reply without a matched file is a failure")
            ->group(kGeneralGroup);
    }
    if (*command.operation == Operation::kEnquire || *command.operation == Operation::kList) {
        app.add_flag("--no-guard", given.no_guard,
                     "Send also what is probably a mistake: unknown options and descriptions, an\n"
                     "enquiry about nobody, an address that is not set")
            ->group(kGeneralGroup);
    }
    const std::pair<const char*, std::string*> formats[] = {
        {"--date-format", &given.date_format},
        {"--currency-format", &given.currency_format},
        {"--currency-format-symbol", &given.currency_format_symbol}};
    const char* const meanings[] = {"Pattern of dates in the report, \"medium date\" to begin with",
                                    "Pattern of amounts, \"currency\" to begin with",
                                    "Pattern of summary amounts, \"currency\" to begin with"};
    for (std::size_t row = 0; row < std::size(formats); ++row) {
        app.add_option(formats[row].first, *formats[row].second, meanings[row])
            ->type_name("PATTERN")
            ->group(kGeneralGroup);
    }
}

void add_output_options(CLI::App& app, const Command& command, Given& given,
                        Invocation& invocation) {
    const std::string choices = command.html ? "text, json, html or csv" : "text or json";
    const char* const begin = command.format == Format::kJson ? "json" : "text";
    app.add_option("--format", given.format, choices + "; " + begin + " to begin with")
        ->type_name("FORMAT")
        ->group(kOutputGroup);
    app.add_option("--output", invocation.output_path,
                   "File to write, which appears when it is complete; standard output otherwise")
        ->type_name("FILE")
        ->group(kOutputGroup);
    if (command.html) {
        app.add_option("--fields", given.fields,
                       "What json and csv results hold: summary, lines, or names of the response,\n"
                       "joined by commas; a csv row is a reply, or with lines a line of its report")
            ->type_name("NAMES")
            ->group(kOutputGroup);
    }
    for (const auto& row : kDocuments) {
        if (command.html && (row.format != Format::kReply || asks_bureau(*command.operation))) {
            const auto add = [&invocation, format = row.format](const std::string& path) {
                invocation.beside.push_back({format, path});
            };
            app.add_option_function<std::string>(row.option, add, row.meaning)
                ->type_name("FILE")
                ->group(kOutputGroup);
        }
    }
    if (command.operation) {
        app.add_flag("--ndjson", invocation.ndjson,
                     "For programs: one JSON job a line on standard input, one JSON result a line")
            ->group(kOutputGroup);
    }
}

void add_batch_options(CLI::App& app, Given& given, Batch& batch) {
    app.add_option("--jobs", given.jobs, "Translate on so many workers; 1 to begin with")
        ->type_name("N");
    app.add_option("--input", batch.input,
                   "File of jobs, one JSON job a line; - for standard input")
        ->type_name("FILE");
    app.add_option(
           "--shard", given.shard,
           "Only the i-th of n parts of the input; the parts' results one behind the other\n"
           "are the results of the whole")
        ->type_name("i/n");
    app.add_flag("--resume", batch.resume,
                 "Go on where an interrupted run with the same --output stopped");
    app.add_flag("--quiet", batch.quiet, "Neither a progress bar nor a summary");
    for (const char* const option : {"--jobs", "--input", "--shard", "--resume", "--quiet"}) {
        app.get_option(option)->group(kBatchGroup);
    }
    app.footer(
        "Many replies (several files, a folder, or any of --jobs, --input, --shard, --resume) "
        "give\n"
        "one JSON result a line in the order of the input, headed by \"File\" where replies are\n"
        "files. A reply that fails is told on standard error and the run goes on. Exit status: 0\n"
        "when all were translated, 1 when any failed, 130 or 143 when interrupted.");
}

void add_own_options(CLI::App& app, const Command& command, Given& given) {
    if (command.operation == Operation::kTranslate) {
        app.add_option("FILE", given.reply_files,
                       "The stored reply, - for standard input; or many, and folders of *.xml")
            ->type_name("");
        app.add_option("--date,--response-date", given.response_date,
                       "Day from which the statistics count back; today when not given")
            ->type_name("DATE")
            ->group(kGeneralGroup);
    }
    if (command.operation == Operation::kCompose) {
        app.add_option("--operation", given.operation,
                       "What to compose: CreditEnquiry, GetList or VerifyConnection; the first to "
                       "begin with")
            ->type_name("NAME")
            ->group(kGeneralGroup);
    }
    if (command.fields == Command::Fields::kAll) {
        app.add_option("--request", given.request_file,
                       "JSON file of request properties by name, or a job document; options win")
            ->type_name("FILE")
            ->group(kGeneralGroup);
    }
}

std::vector<std::string> option_names(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* const option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return names;
}

std::vector<std::string> command_names() {
    std::vector<std::string> names;
    for (const Command& command : commands()) {
        names.emplace_back(command.name);
    }
    return names;
}

/// A message about the command line that shows no value: one may be a password.
[[noreturn]] void refuse(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<CLI::App*> parsed = app.get_subcommands();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::vector<std::string> extras = app.remaining(true);
        for (const std::string& extra : extras) {
            if (extra.starts_with("--")) {
                const std::string name = extra.substr(0, extra.find('='));
                throw MisuseError(
                    "Unknown option " + name + "." +
                    did_you_mean(name, option_names(parsed.empty() ? app : *parsed.front())));
            }
        }
        throw MisuseError(parsed.empty() ? "The first argument is no command; --help lists them." +
                                               did_you_mean(extras.front(), command_names())
                                         : "An argument was not expected.");
    }
    // "--name: 1 required TEXT missing", in our words
    if (const std::string text = error.what(); dynamic_cast<const CLI::ArgumentMismatch*>(&error)) {
        throw MisuseError(text.substr(0, text.find(':')) +
                          (text.ends_with("missing") ? " needs a value." : " is given twice."));
    }
    if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
        throw MisuseError("A value was given to an option that takes none.");
    }
    throw MisuseError(error.what());
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
    CLI::App app("Credit-bureau enquiries from the command line.", "zrcreditbureau");
    app.set_version_flag("--version", ZRCreditBureau::Version());
    app.require_subcommand(0, 1);
    const std::vector<KnownSetting> settings = known_settings();
    Invocation invocation;
    // One for each command: the options of one command must not touch another's.
    std::vector<std::pair<CLI::App*, std::unique_ptr<Given>>> parts;
    std::string examples = "Examples:\n";
    for (const Command& command : commands()) {
        CLI::App* part =
            app.add_subcommand(std::string(command.name), std::string(command.summary));
        Given& given = *parts.emplace_back(part, std::make_unique<Given>()).second;
        add_general_options(*part, command, given);
        add_own_options(*part, command, given);
        add_request_options(*part, command, given);
        if (command.operation) {
            add_settings_options(*part, settings, given);
        }
        if (command.operation == Operation::kTranslate) {
            add_batch_options(*part, given, invocation.batch);
        }
        add_output_options(*part, command, given, invocation);
        examples.append("  ").append(command.example).append("\n");
    }
    app.footer(
        examples + "Every command explains itself: zrcreditbureau help COMMAND\n" +
        "Exit status: 0 for success, 1 when the operation fails, 2 for misuse, 3 when an answer\n"
        "that was charged for could not be written and is kept elsewhere.");
    try {
        app.parse(reversed_arguments(argc, argv));
    } catch (const CLI::Success& help) {
        status = app.exit(help);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        refuse(app, error);
    }
    for (std::size_t at = 0; at < parts.size(); ++at) {
        if (parts[at].first->parsed()) {
            invocation.command = &commands()[at];
            complete(invocation, *parts[at].second);
            return invocation;
        }
    }
    std::cerr << app.help();
    status = kMisuse;
    return std::nullopt;
}

}  // namespace zr::cli
