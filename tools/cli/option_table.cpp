#include "cli/option_table.h"

#include <algorithm>
#include <utility>

#include "cli/countries.h"
#include "cli/names.h"
#include "values/text.h"
#include "zrcreditbureau/request.h"

namespace zr::cli {
namespace {

constexpr std::string_view kGeneral = "Credit bureau";
constexpr std::string_view kOutput = "Output";
constexpr std::string_view kMany = "Many replies";
constexpr std::string_view kSettings = "Service settings";

constexpr CommandSet kReporting = kEnquire | kList | kTranslate;
constexpr CommandSet kSending = kEnquire | kList;
constexpr CommandSet kRequesting = kCompose | kSending;
constexpr CommandSet kStored = kTranslate | kCheck;
constexpr CommandSet kOperations = kRequesting | kVerify | kStored;
constexpr CommandSet kConnecting = kOperations | kDoctor;
constexpr CommandSet kShowing = kCatalogue | kLayout;

const std::vector<Option>& own_options() {
    static const std::vector<Option> kRows = {
        {kGeneral, kTranslate, "FILE", "FILE",
         "The stored reply, - for standard input; or many, and folders of *.xml",
         &Given::reply_files},
        {kGeneral, kCheck, "FILE", "FILE", "Stored replies, and folders of *.xml",
         &Given::reply_files},
        {kGeneral, kDiff, "FILE", "FILE", "Results, one a line: those before, then those after",
         &Given::reply_files},
        {kGeneral, kCompletion, "SHELL", "SHELL", "The shell", &Given::subject, "bash|zsh|fish"},
        {kGeneral, kSchema, "DOCUMENT", "DOCUMENT", "What is described", &Given::subject,
         "job|result"},
        {kGeneral, kCatalogue | kDoctor | kOperations, "--country", "CODE",
         "Country of the credit bureau", &Given::country, "AU|NZ"},
        {kGeneral, kOperations | kDoctor, "--production", "",
         "Address the bureau's production system instead of its test system", &Given::production},
        {kGeneral, kEnquire | kTranslate, "--strict", "",
         "A reply without a matched file is a failure", &Given::strict},
        {kGeneral, kCheck, "--strict", "",
         "Findings are a failure, and so is a reply without a matched file", &Given::strict},
        {kGeneral, kStored, "--known", "FILE",
         "Pass over the findings in this result of check --format json", &Given::known_path},
        {kGeneral, kSending, "--no-guard", "",
         "Send also what is probably a mistake: unknown options and descriptions, an enquiry "
         "about nobody, an address that is not set",
         &Given::no_guard},
        {kGeneral, kSending | kVerify, "--verbose", "",
         "Tell of each exchange: address, proxy, TLS, certificate, times, status and sizes; no "
         "secrets and nothing of the applicant's",
         &Given::verbose},
        {kGeneral, kOperations, "--date-format", "PATTERN", "Pattern of dates in the report",
         &Given::date_format, "", "\"medium date\""},
        {kGeneral, kOperations, "--currency-format", "PATTERN", "Pattern of amounts in the report",
         &Given::currency_format, "", "\"currency\""},
        {kGeneral, kOperations, "--currency-format-symbol", "PATTERN", "Pattern of summary amounts",
         &Given::currency_format_symbol, "", "\"currency\""},
        {kGeneral, kStored, "--date,--response-date", "DATE",
         "Day from which the statistics count back; today when not given", &Given::response_date},
        {kGeneral, kCompose, "--operation", "NAME", "What to compose", &Given::operation,
         "CreditEnquiry|GetList|VerifyConnection", "CreditEnquiry"},
        {kGeneral, kRequesting, "--request", "FILE",
         "JSON file of request properties by name, or a job document; options win",
         &Given::request_file},
        {kGeneral, kRequesting, "--option", "ID[=TEXT]",
         "A product option: ID to select it, ID=TEXT to give it a text; any number",
         &Given::product_options, known_values("Options")},
        {kOutput, kCatalogue, "--format", "FORMAT", "Form", &Given::format_name, "text|json",
         "json"},
        {kOutput, kLayout | kCompose | kVerify | kCheck | kDiff, "--format", "FORMAT", "Form",
         &Given::format_name, "text|json", "text"},
        {kOutput, kSending, "--format", "FORMAT", "Form", &Given::format_name, "text|json|html|csv",
         "text"},
        {kOutput, kTranslate, "--format", "FORMAT", "Form", &Given::format_name,
         "text|json|html|csv|sqlite", "text"},
        {kOutput, kOperations | kShowing | kDiff, "--output", "FILE",
         "File to write, which appears when it is complete; standard output otherwise",
         &Given::output_path},
        {kOutput, kReporting, "--fields", "NAMES",
         "What json and csv results hold: summary, lines, or names of the response, joined by "
         "commas; a csv row is a reply, or with lines a line of its report",
         &Given::field_names},
        {kOutput, kSending, "--reply", "FILE",
         "File for the bureau's reply, also where it fails: a charged reply can be translated "
         "again",
         Format::kReply},
        {kOutput, kReporting, "--text", "FILE", "File for the text, beside the report",
         Format::kText},
        {kOutput, kReporting, "--json", "FILE", "File for the JSON result, beside the report",
         Format::kJson},
        {kOutput, kReporting, "--html", "FILE",
         "File for the HTML of the reply, beside the report; made by the service's installed "
         "sheet unless --xslt-file-name names another",
         Format::kHtml},
        {kOutput, kDiff, "--totals", "", "Only how often each field and label changed",
         &Given::totals_only},
        {kOutput, kTranslate, "--check", "FILE",
         "File for what check --format json tells of the replies, beside the report",
         &Given::check_path},
        {kOutput, kTranslate, "--explain", "",
         "Tell for each field and line, in text and json, where in the reply it comes from",
         &Given::explain},
        {kOutput, kRequesting | kVerify | kTranslate, "--ndjson", "",
         "For programs: one JSON job a line on standard input, one JSON result a line",
         &Given::ndjson},
        {kMany, kStored, "--jobs", "N", "Translate on so many workers", &Given::jobs, "", "1"},
        {kMany, kStored, "--input", "FILE",
         "File of jobs, one JSON job a line; - for standard input", &Given::input},
        {kMany, kTranslate, "--files-from", "FILE",
         "File that names replies, one a line, or an earlier output, of which those that failed "
         "are translated again",
         &Given::files_from},
        {kMany, kTranslate, "--only-new", "FILE",
         "Pass over the replies that this earlier output has, of json or sqlite, or all outputs "
         "in this folder; any number",
         &Given::only_new},
        {kMany, kStored, "--shard", "i/n",
         "Only the i-th of n parts of the input; the parts' results one behind the other are the "
         "results of the whole",
         &Given::shard},
        {kMany, kTranslate, "--resume", "",
         "Go on where an interrupted run with the same --output stopped", &Given::resume},
        {kMany, kStored, "--quiet", "", "Neither a progress bar nor a summary", &Given::quiet},
    };
    return kRows;
}

/// Request properties whose option is not just their name, --country being the bureau's, and the
/// commands that have it beside those with a whole request.
constexpr struct {
    std::string_view property;
    std::string_view names;
    CommandSet more_commands;
} kRequestOptions[] = {
    {"Country", "--address-country", kNoCommand},
    {"ServiceName", "--service,--service-name", kVerify | kDoctor | kLayout | kStored},
    {"ProductId", "--product,--product-id", kStored},
};

/// Where a section of request properties begins.
constexpr struct {
    std::string_view first;
    std::string_view section;
} kRequestSections[] = {
    {"", "Request"},
    {"DefaultOccurredDate", "Default to lodge"},
    {"CompanyType", "Company and person"},
    {"UnitNumber", "Current address"},
    {"PrevUnitNumber", "Previous address"},
    {"PhoneAreaCode", "Telephone"},
};

/// What a value is called, by ValueType.
constexpr std::string_view kArguments[] = {"TEXT",   "true|false", "NUMBER", "NUMBER",
                                           "AMOUNT", "DATE",       "DATE"};

/// The option of a property or setting.
Option member_option(std::string_view section, CommandSet commands, std::string names,
                     automation::JsonValue Given::*object, std::string_view name, ValueType type,
                     std::string_view meaning) {
    Option option{section,
                  commands,
                  std::move(names),
                  std::string(kArguments[static_cast<std::size_t>(type)]),
                  std::string(meaning),
                  MemberTarget{object, name, type}};
    if (type == ValueType::kBoolean) {
        option.values = "true|false";
    }
    return option;
}

void add_request_options(std::vector<Option>& all) {
    std::string_view section = kRequestSections[0].section;
    for (const Property<Request>& property : request_properties()) {
        for (const auto& row : kRequestSections) {
            section = row.first == property.name ? row.section : section;
        }
        if (property.write == nullptr) {
            continue;
        }
        Option& option = all.emplace_back(
            member_option(section, kRequesting, "--" + option_name(property.name), &Given::request,
                          property.name, property.type, property.meaning));
        for (const auto& row : kRequestOptions) {
            if (row.property == property.name) {
                option.names = row.names;
                option.commands = option.commands | row.more_commands;
                option.values = known_values(property.name);
            }
        }
    }
}

/// A setting that is called as a request property is stands behind "setting" where both are.
void add_settings_options(std::vector<Option>& all) {
    for (const Property<Service>& setting : known_settings()) {
        const std::string name = option_name(setting.name);
        CommandSet taken = kNoCommand;
        for (const Option& option : all) {
            taken = option.names == "--" + name ? taken | option.commands : taken;
        }
        const std::pair<const char*, CommandSet> rows[] = {
            {"--", CommandSet(kConnecting & ~taken)},
            {"--setting-", CommandSet(kConnecting & taken)}};
        for (const auto& [prefix, commands] : rows) {
            if (commands != kNoCommand) {
                all.push_back(member_option(kSettings, commands, prefix + name, &Given::settings,
                                            setting.name, setting.type, setting.meaning));
                all.back().environment = environment_name(setting.name);
            }
        }
    }
    all.push_back({kSettings, kConnecting, "--settings", "FILE",
                   "JSON file of settings by service: {\"VedaXMLAU\":{\"UserId\":\"...\"}}; else "
                   "~/.config/zrcreditbureau/settings.json where that is there",
                   &Given::settings_file, "", "", "ZR_SETTINGS"});
}

std::vector<Option> all_options() {
    std::vector<Option> all = own_options();
    add_request_options(all);
    add_settings_options(all);
    return all;
}

}  // namespace

std::vector<std::string> words_of(std::string_view text, char separator) {
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(separator, begin), text.size());
        words.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

std::string Option::choice() const {
    const std::size_t last = values.rfind('|');
    return text::replace_all(values.substr(0, last), "|", ", ") + " or " + values.substr(last + 1);
}

std::string Option::description() const {
    std::string text = meaning;
    if (is_choice()) {
        text += ": " + choice();
    }
    if (!start.empty()) {
        text.append("; ").append(start).append(" to begin with");
    }
    return environment.empty() ? text : text + " [" + environment + "]";
}

const std::vector<Option>& options() {
    static const std::vector<Option> kAll = all_options();
    return kAll;
}

std::vector<const Option*> options_of(const Command& command) {
    std::vector<const Option*> found;
    for (const Option& option : options()) {
        if ((option.commands & command.id) != 0) {
            found.push_back(&option);
        }
    }
    return found;
}

}  // namespace zr::cli
