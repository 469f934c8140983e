#include "cli/given.h"

#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <utility>

#include "cli/countries.h"
#include "cli/database.h"
#include "cli/failure.h"
#include "cli/files.h"
#include "cli/nearest.h"
#include "cli/option_table.h"
#include "cli/option_values.h"
#include "cli/output.h"
#include "cli/reply_files.h"
#include "cli/result_form.h"
#include "cli/sheets.h"
#include "values/convert.h"
#include "values/text.h"

namespace zr::cli {
namespace {

using automation::JsonValue;

void set_if_given(std::optional<std::string>& target, const std::string& text) {
    if (!text.empty()) {
        target = text;
    }
}

JsonValue product_options_value(const std::vector<std::string>& texts) {
    JsonValue options = JsonValue::object();
    for (const std::string& text : texts) {
        const std::size_t equals = text.find('=');
        JsonValue option = JsonValue::object();
        if (equals == std::string::npos) {
            add_member(option, "Checked", JsonValue::boolean(true));
        } else {
            add_member(option, "Value",
                       option_value(ValueType::kText, text.substr(equals + 1), "--option"));
        }
        add_member(options, text.substr(0, equals), std::move(option));
    }
    return options;
}

/// The form asked for, or that the command starts with.
Format format_of(std::string_view text, const Command& command) {
    constexpr std::pair<std::string_view, Format> kFormats[] = {{"json", Format::kJson},
                                                                {"html", Format::kHtml},
                                                                {"csv", Format::kCsv},
                                                                {"sqlite", Format::kSqlite}};
    for (const Option* const option : options_of(command)) {
        text = text.empty() && option->names == "--format" ? option->start : text;
    }
    for (const auto& [name, format] : kFormats) {
        if (text::equal_ignoring_case(name, text)) {
            return format;
        }
    }
    return Format::kText;
}

std::uint32_t number_of_workers(const std::string& text) {
    constexpr std::uint32_t kMostWorkers = 256;
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || number < 1 || number > kMostWorkers) {
        throw MisuseError("--jobs must be a whole number from 1 to 256.");
    }
    return number;
}

/// The settings file in the user's configuration folder; "" where there is none.
std::string usual_settings_file() {
    const char* const configuration = std::getenv("XDG_CONFIG_HOME");
    const char* const home = std::getenv("HOME");
    std::string folder;
    if (configuration != nullptr && *configuration == '/') {
        folder = configuration;
    } else if (home != nullptr && *home == '/') {
        folder = std::string(home) + "/.config";
    }
    const std::string path = folder + "/zrcreditbureau/settings.json";
    return !folder.empty() && ::access(path.c_str(), F_OK) == 0 ? path : "";
}

/// What the options say about many replies at once.
void complete_batch(Given& given) {
    Invocation& invocation = given;
    Batch& batch = invocation.batch;
    batch.database = invocation.format == Format::kSqlite;
    if (!given.files_from.empty()) {
        const std::set<std::string> files = earlier_files(given.files_from, true);
        given.reply_files.insert(given.reply_files.end(), files.begin(), files.end());
    }
    for (const std::string& output : given.only_new) {
        batch.done.merge(earlier_files(output, false));
    }
    invocation.many = invocation.command->id == kCheck || batch.database || batch.may_be_none ||
                      given.jobs || given.shard || batch.resume || !batch.input.empty() ||
                      given.reply_files.size() > 1 ||
                      std::any_of(given.reply_files.begin(), given.reply_files.end(), is_folder);
    if (!invocation.many) {
        return;
    }
    batch.workers = given.jobs ? number_of_workers(*given.jobs) : 1;
    batch.shard = given.shard ? parse_shard(*given.shard) : Shard();
    if (batch.resume && batch.csv) {
        throw MisuseError("--resume goes on with JSON results, not with csv.");
    }
    if (batch.database && place_of(invocation.output_path) != Place::kFile) {
        throw MisuseError("--format sqlite writes a file: name it with --output.");
    }
    if (batch.resume && place_of(invocation.output_path) != Place::kFile) {
        throw MisuseError("--resume goes on with a file: name it with --output.");
    }
    invocation.ndjson = invocation.ndjson || !batch.input.empty();
    if (invocation.ndjson && batch.may_be_none) {
        throw MisuseError("--files-from and --only-new are for replies in files, not for jobs.");
    }
    if (!invocation.ndjson && given.reply_files.empty() && given.files_from.empty()) {
        throw MisuseError("Name files or folders of replies, or --input FILE of jobs.");
    }
    if (!invocation.beside.empty() ||
        (invocation.command->id != kCheck && !given.format_name.empty() &&
         invocation.format != Format::kJson && !batch.csv && !batch.database)) {
        throw MisuseError(
            "Many replies give one JSON result a line, csv or sqlite: no other --format, no file "
            "of "
            "another form.");
    }
    if (std::find(given.reply_files.begin(), given.reply_files.end(), "-") !=
        given.reply_files.end()) {
        throw MisuseError("Standard input (-) is one reply, which stands alone.");
    }
}

/// What the command line leaves out and the named service tells: its country, and the product under
/// which a stored reply is translated. A product that it does not have is refused.
void complete_from_service(Job& job, bool translates) {
    const std::string service(request_text(job, "ServiceName"));
    if (job.country.empty()) {
        job.country = country_of_service(service);
    }
    const std::vector<std::string> products = products_of(service);
    const std::string_view given = request_text(job, "ProductId");
    if (translates && given.empty()) {
        JsonValue product = JsonValue::object();
        add_member(product, "ProductId", JsonValue::text(products.empty() ? "" : products.front()));
        job.requests.push_back(std::move(product));
    } else if (!given.empty() && !products.empty() &&
               std::ranges::none_of(products, [given](const std::string& product) {
                   return text::equal_ignoring_case(product, given);
               })) {
        throw MisuseError("Product '" + std::string(text::first(given, 64)) + "' does not exist." +
                          valid_names(given, products));
    }
}

/// Where HTML is asked for, the installed sheet of the service stands below every other setting.
void complete_sheet(Invocation& invocation) {
    const auto& beside = invocation.beside;
    const auto is_html = [](const auto& document) { return document.format == Format::kHtml; };
    if (invocation.format != Format::kHtml && std::ranges::none_of(beside, is_html)) {
        return;
    }
    Job& job = invocation.job;
    const std::string service(request_text(job, "ServiceName"));
    const std::string sheet = installed_sheet(service);
    if (!sheet.empty()) {
        JsonValue settings = JsonValue::object();
        add_member(settings, "XSLTFileName", JsonValue::text(sheet));
        JsonValue services = JsonValue::object();
        add_member(services, service, std::move(settings));
        job.services.insert(job.services.begin(),
                            {SettingsLayer::Scope::kNamedIfThere, std::move(services)});
    }
}

}  // namespace

Invocation complete(Given& given) {
    Invocation& invocation = given;
    Job& job = invocation.job;
    for (const Option* const option : options_of(*invocation.command)) {
        if (option->is_positional() && option->is_choice() && invocation.subject.empty()) {
            throw MisuseError("Name the " + option->names + ": " + option->choice() + ".");
        }
    }
    invocation.batch.input = given.input;
    invocation.batch.resume = given.resume;
    invocation.batch.quiet = given.quiet;
    if (given.settings_file.empty()) {
        given.settings_file = usual_settings_file();
    }
    if (!given.settings_file.empty()) {
        read_settings_file(given.settings_file, job);
    }
    if (!given.request_file.empty()) {
        read_request_file(given.request_file, job);
    }
    job.services.push_back({SettingsLayer::Scope::kEvery, std::move(given.settings)});
    if (!given.product_options.empty()) {
        add_member(given.request, "Options", product_options_value(given.product_options));
    }
    job.requests.push_back(std::move(given.request));
    if (!given.country.empty()) {
        job.country = given.country;
    }
    job.verbose = given.verbose;
    if (!invocation.known_path.empty() && invocation.command->id != kCheck &&
        invocation.check_path.empty()) {
        throw MisuseError("--known goes with --check.");
    }
    job.strict = given.strict;
    if (given.explain) {
        job.check = ReplyCheck::Depth::kExplanation;
    } else if (invocation.command->id == kCheck || !invocation.check_path.empty()) {
        job.check = ReplyCheck::Depth::kFindings;
    }
    job.guarded = !given.no_guard;
    if (given.production) {
        job.test_mode = false;
    }
    if (!given.operation.empty()) {
        job.operation = given.operation;
    }
    set_if_given(job.date_format, given.date_format);
    set_if_given(job.currency_format, given.currency_format);
    set_if_given(job.currency_format_symbol, given.currency_format_symbol);
    if (!given.response_date.empty()) {
        const JsonValue date = option_value(ValueType::kDate, given.response_date, "--date");
        job.response_date = convert::to_date_time(date.text());
        if (!job.response_date) {
            job.response_date = convert::to_host_date(date.text());
        }
        // A day more: it may be tomorrow elsewhere.
        const std::chrono::sys_days tomorrow =
            std::chrono::sys_days(DateTime::now().date) + std::chrono::days{1};
        if (job.response_date && std::chrono::sys_days(job.response_date->date) > tomorrow) {
            throw MisuseError(
                "--date is in the future: periods that count back from it are empty.");
        }
    }
    invocation.inputs = {given.settings_file, given.request_file, invocation.batch.input,
                         invocation.known_path, given.files_from};
    invocation.batch.may_be_none = !given.files_from.empty() || !given.only_new.empty();
    given.only_new = outputs_in(given.only_new);
    std::ranges::copy(given.only_new, std::back_inserter(invocation.inputs));
    for (const std::string& file : given.reply_files) {
        invocation.inputs.push_back(file);
    }
    invocation.batch.operation = invocation.command->operation.value_or(Operation::kTranslate);
    invocation.format = format_of(given.format_name, *invocation.command);
    const bool csv = invocation.format == Format::kCsv;
    if (given.field_names.empty() && csv) {
        given.field_names = "summary";
    } else if (given.field_names.empty() && invocation.format == Format::kSqlite) {
        given.field_names = "summary,lines";
    }
    invocation.fields = parse_fields(given.field_names);
    if (csv && (invocation.fields.selections && !invocation.fields.elements)) {
        throw MisuseError("A row has no room for CompanySelections: take json.");
    }
    invocation.batch.csv = csv;
    invocation.batch.fields = invocation.fields;
    if (invocation.command->id == kDiff) {
        invocation.batch.names = std::move(given.reply_files);
        return std::move(invocation);
    }
    complete_batch(given);
    if (invocation.ndjson) {
        if ((!given.format_name.empty() && !invocation.many) || !invocation.beside.empty() ||
            !given.reply_files.empty()) {
            throw MisuseError(
                "--ndjson reads and writes JSON: no FILE, --format or file of another form with "
                "it.");
        }
        return std::move(invocation);
    }
    const bool translates = invocation.command->operation == Operation::kTranslate;
    complete_from_service(job, translates);
    complete_sheet(invocation);
    if (invocation.many) {
        invocation.batch.names = std::move(given.reply_files);
    } else if (translates) {
        if (given.reply_files.empty()) {
            throw MisuseError("Name the file of the reply, or - for standard input.");
        }
        job.response_xml = read_text_file(given.reply_files.front(), job.encoding);
    }
    return std::move(invocation);
}

}  // namespace zr::cli
