#include "cli/commands.h"

#include <exception>
#include <iostream>
#include <list>

#include "automation/json_form.h"
#include "cli/catalogue_text.h"
#include "cli/completion.h"
#include "cli/doctor.h"
#include "cli/explanation_form.h"
#include "cli/failure.h"
#include "cli/interruption.h"
#include "cli/layout_text.h"
#include "cli/manual.h"
#include "cli/output.h"
#include "cli/report_text.h"
#include "cli/result_diff.h"
#include "cli/result_form.h"
#include "cli/schema.h"
#include "facade/reports.h"
#include "values/text.h"

namespace zr::cli {
namespace {

void write_document(Output& output, std::string_view document) {
    output.write(document);
    output.write(document.empty() || document.ends_with('\n') ? "" : "\n");
}

/// Writes a JSON document as it is made.
template <class Write>
void write_json(Output& output, Write write) {
    automation::JsonWriter json([&output](std::string_view text) { output.write(text); });
    write(json);
    write_document(output, json.view());
}

std::string outcome_text(Operation operation, const Outcome& outcome) {
    switch (operation) {
        case Operation::kCompose:
            // The document's line breaks are carriage returns, which XML reads as line feeds.
            return text::replace_all(outcome.request_xml, "\r", "\n");
        case Operation::kVerify:
            return "The connection works.";
        case Operation::kList:
            return report_text(*outcome.response, "No companies were found.");
        case Operation::kEnquire:
        case Operation::kTranslate:
            break;
    }
    return (outcome.warning.empty() ? "" : outcome.warning + "\n\n") +
           report_text(*outcome.response, "The reply holds no report lines.") +
           (outcome.explanation ? "\n" + explanation_text(*outcome.response, *outcome.explanation)
                                : "");
}

/// Whether the outcome has this form; one that failed has no report.
bool exists(Format format, const Outcome& outcome) {
    switch (format) {
        case Format::kReply:
            return !outcome.response->ResponseXML().empty();
        case Format::kJson:
        case Format::kCsv:
        case Format::kSqlite:
            return true;
        case Format::kHtml:
            return outcome.response != nullptr && !outcome.response->ResponseHTML().empty();
        case Format::kText:
            break;
    }
    // What is refused for being doubtful is reported all the same.
    return outcome.result || !outcome.warning.empty();
}

/// What a table calls the one reply.
std::string source_of(const Invocation& invocation) {
    const bool stored = invocation.command->operation == Operation::kTranslate;
    return stored ? invocation.inputs.back() : "";
}

void write_form(Output& output, Format format, const Invocation& invocation,
                const Outcome& outcome) {
    const Operation operation = *invocation.command->operation;
    const automation::ResponseFields& fields = invocation.fields;
    switch (format) {
        case Format::kCsv: {
            const CsvForm form(fields, "File");
            std::string rows = form.header();
            form.append(rows, outcome, source_of(invocation));
            output.write(rows);
            return;
        }
        case Format::kReply:
            output.write(outcome.response->ResponseXML());
            return;
        case Format::kJson:
        case Format::kSqlite:  // is made of many
            write_json(output, [&](automation::JsonWriter& json) {
                write_result(json, operation, outcome, fields);
            });
            return;
        case Format::kHtml:
            write_document(output, outcome.response->ResponseHTML());
            return;
        case Format::kText:
            break;
    }
    write_document(output, outcome_text(operation, outcome));
}

void require_country(const Invocation& invocation) {
    const std::string_view service = request_text(invocation.job, "ServiceName");
    if (invocation.job.country.empty() && !service.empty()) {
        throw MisuseError("Service '" + std::string(text::first(service, 64)) +
                          "' does not exist.");
    }
    if (invocation.job.country.empty()) {
        throw MisuseError("Name the country with --country, for example --country AU.");
    }
}

void require_service(const Invocation& invocation) {
    if (request_text(invocation.job, "ServiceName").empty()) {
        throw MisuseError("Name the service with --service, for example --service VedaXMLAU.");
    }
}

int run_catalogue(const Invocation& invocation) {
    require_country(invocation);
    ZRCreditBureau bureau;
    if (!bureau.Initialise(invocation.job.country)) {
        throw MisuseError(bureau.ErrorMessage());
    }
    constexpr mode_t kForAll = 0666;
    Output output(invocation.output_path, kForAll);
    if (invocation.format == Format::kText) {
        write_document(output, catalogue_text(bureau));
    } else {
        write_json(output, [&](automation::JsonWriter& json) {
            automation::write_catalogue(json, bureau);
        });
    }
    output.finish();
    return kDone;
}

int run_layout(const Invocation& invocation) {
    require_service(invocation);
    const std::string_view service = request_text(invocation.job, "ServiceName");
    const ReportDefinition* report = find_report(service);
    if (report == nullptr) {
        throw MisuseError("Service '" + std::string(text::first(service, 64)) +
                          "' does not exist.");
    }
    constexpr mode_t kForAll = 0666;
    Output output(invocation.output_path, kForAll);
    if (invocation.format == Format::kText) {
        write_document(output, layout_text(*report));
    } else {
        write_json(output, [&](automation::JsonWriter& json) { write_layout(json, *report); });
    }
    output.finish();
    return kDone;
}

/// A form of the outcome on its way to where it goes.
struct Delivery {
    Delivery(const Document& document, bool is_main)
        : format(document.format), main(is_main), output(document.path) {}

    Format format;
    bool main;
    Output output;
};

/// Opens what is to be written: what cannot be fails before anything is sent. The reply comes
/// first, from which all else can be made again.
std::list<Delivery> open_deliveries(const Invocation& invocation) {
    std::list<Delivery> deliveries;
    deliveries.emplace_back(Document{invocation.format, invocation.output_path}, true);
    for (const Document& document : invocation.beside) {
        deliveries.emplace(
            document.format == Format::kReply ? deliveries.begin() : deliveries.end(), document,
            false);
    }
    return deliveries;
}

/// Writes a form of the outcome to its output, which is then complete.
void deliver(Delivery& delivery, const Invocation& invocation, const Outcome& outcome) {
    Format format = delivery.format;
    if (format == Format::kHtml && outcome.result && !exists(format, outcome)) {
        std::cerr << "There is no HTML without a style sheet: name one with --xslt-file-name.\n";
        // What was paid for is not thrown away.
        format = delivery.main ? Format::kText : format;
    }
    if (!exists(format, outcome)) {
        return;
    }
    const auto write = [&](Output& output) { write_form(output, format, invocation, outcome); };
    if (asks_bureau(*invocation.command->operation)) {
        write_or_rescue(delivery.output, write, &Output::finish);
    } else {
        write(delivery.output);
        delivery.output.finish();
    }
}

int report(const Invocation& invocation, const Outcome& outcome, std::list<Delivery>& deliveries) {
    const Operation operation = *invocation.command->operation;
    std::exception_ptr failure;
    for (Delivery& delivery : deliveries) {
        try {
            deliver(delivery, invocation, outcome);
        } catch (const RescuedError&) {
            failure = std::current_exception();  // the others are tried all the same
        }
    }
    if (!outcome.result) {
        std::cerr << printable_error(outcome.error_message) << '\n';
    } else if (!outcome.warning.empty()) {
        std::cerr << "zrcreditbureau: " + outcome.warning + "\n";
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
    if (operation == Operation::kCompose && outcome.result && outcome.request_xml.empty()) {
        std::cerr << "Nothing was composed: the request has not been filled in.\n";
    }
    return outcome.result ? kDone : kFailed;
}

void set_known(CheckTable& checks, const Invocation& invocation) {
    if (!invocation.known_path.empty()) {
        checks.set_known(invocation.known_path);
    }
}

int run_one(const Invocation& invocation, CheckTable& checks) {
    require_country(invocation);
    std::list<Delivery> deliveries = open_deliveries(invocation);
    Performer performer(*invocation.command->operation);
    if (!asks_bureau(performer.operation())) {
        set_known(checks, invocation);
        const Outcome outcome = performer.perform(invocation.job);
        if (outcome.result) {
            checks.add(outcome.findings, source_of(invocation));
        } else {
            checks.add_failed(1);
        }
        return report(invocation, outcome, deliveries);
    }
    for (Delivery& delivery : deliveries) {
        delivery.output.need_room();
    }
    // A signal does not end what the bureau has been asked already.
    Event stop;
    Interruption interruption;
    int status = kDone;
    const int signal = hold_signals(
        interruption, stop,
        [&] { status = report(invocation, performer.perform(invocation.job), deliveries); }, [] {});
    return signal == 0 ? status : ended_by(signal);
}

/// No output is an input, or another output.
void refuse_overwriting(const Invocation& invocation) {
    std::vector<std::string> named = invocation.inputs;
    for (const Document& document : invocation.beside) {
        for (const std::string& other : named) {
            refuse_same_file(other, document.path);
        }
        named.push_back(document.path);
    }
    const bool gathers = invocation.many || invocation.ndjson;
    for (const std::string_view ending : {"", ".part", ".part.run", ".part.db"}) {
        if (invocation.output_path.empty() || (!ending.empty() && !gathers)) {
            continue;
        }
        for (const std::string& other : named) {
            refuse_same_file(other, invocation.output_path + std::string(ending));
        }
    }
}

int run_many(const Invocation& invocation, CheckTable& checks, const std::string& output_path) {
    if (!invocation.ndjson) {
        require_country(invocation);
        require_service(invocation);
    }
    Batch batch = invocation.batch;
    batch.results_only = !invocation.many;
    if (invocation.job.check) {
        set_known(checks, invocation);
        batch.checks = &checks;
        batch.has_results = invocation.command->id != kCheck;
    }
    return run_batch(batch, invocation.job, output_path);
}

int run_operation(const Invocation& invocation) {
    refuse_overwriting(invocation);
    CheckTable checks;
    std::optional<Output> check_output;
    if (!invocation.check_path.empty()) {
        check_output.emplace(invocation.check_path);
    }
    const int status = invocation.many || invocation.ndjson
                           ? run_many(invocation, checks, invocation.output_path)
                           : run_one(invocation, checks);
    if (check_output && status <= kFailed) {
        write_json(*check_output, [&](automation::JsonWriter& json) { checks.write(json); });
        check_output->finish();
    }
    return status;
}

int run_check(const Invocation& invocation) {
    refuse_overwriting(invocation);
    Output output(invocation.output_path);
    CheckTable checks;
    const int status = run_many(invocation, checks, "");
    if (status > kFailed) {
        return status;
    }
    if (invocation.format == Format::kJson) {
        write_json(output, [&](automation::JsonWriter& json) { checks.write(json); });
    } else {
        write_document(output, checks.text());
    }
    output.finish();
    return invocation.job.strict && !checks.empty() ? int{kFailed} : status;
}

int run_diff(const Invocation& invocation) {
    const std::vector<std::string>& files = invocation.batch.names;
    if (files.size() != 2) {
        throw MisuseError("Name two files of results: those before, then those after.");
    }
    refuse_overwriting(invocation);
    try {
        Output output(invocation.output_path);
        ResultDiff diff(output, invocation.format == Format::kJson, invocation.totals_only);
        const bool different = diff.compare(files.front(), files.back());
        output.finish();
        return different ? kFailed : kDone;
    } catch (const BrokenPipe&) {
        throw;
    } catch (const OutputError& error) {
        throw MisuseError(error.what());  // 1 would mean that something changed
    }
}

int run_completion(const Invocation& invocation) {
    std::cout << completion_text(invocation.subject);
    return kDone;
}

int run_doctor(const Invocation& invocation) {
    require_service(invocation);
    require_country(invocation);
    return examine(invocation.job, std::cout) ? kDone : kFailed;
}

int run_schema(const Invocation& invocation) {
    Output output(invocation.output_path);
    write_json(output, [&](automation::JsonWriter& json) {
        invocation.subject == "job" ? write_job_schema(json) : write_result_schema(json);
    });
    output.finish();
    return kDone;
}

int run_manual(const Invocation& /*invocation*/) {
    std::cout << manual_text();
    return kDone;
}

constexpr Command kCommands[] = {
    {kCatalogue, "catalogue", "List a country's services, products, options and code tables",
     "zrcreditbureau catalogue --country AU --format text", std::nullopt, run_catalogue},
    {kCompose, "compose", "Compose the request document without sending anything",
     "zrcreditbureau compose --country AU --service VedaXMLAU --product consumer-enquiry\n"
     "      --last-name Smith --first-name Jane --date-of-birth 1970-01-02 --option score",
     Operation::kCompose, run_operation},
    {kEnquire, "enquire", "Send an enquiry and report the reply",
     "zrcreditbureau enquire --country AU --settings bureau.json --request applicant.json",
     Operation::kEnquire, run_operation},
    {kList, "list", "Search for companies",
     "zrcreditbureau list --country AU --settings bureau.json --service VedaXMLAU\n"
     "      --company-name \"Acme Holdings\"",
     Operation::kList, run_operation},
    {kVerify, "verify", "Test the connection of a service",
     "zrcreditbureau verify --country AU --settings bureau.json --service VedaXMLAU",
     Operation::kVerify, run_operation},
    {kDoctor, "doctor", "Try a deployment step by step and say what to mend",
     "zrcreditbureau doctor --country AU --settings bureau.json --service VedaXMLAU", std::nullopt,
     run_doctor},
    {kLayout, "layout", "Show how a service's report is laid out and what it counts",
     "zrcreditbureau layout --service VedaXMLAU", std::nullopt, run_layout},
    {kTranslate, "translate", "Report a stored reply, or many",
     "zrcreditbureau translate reply.xml --service VedaXMLAU --product consumer-enquiry\n"
     "      --date 2012-06-15\n"
     "  zrcreditbureau translate replies/ --service VedaXMLAU --jobs 4 --output results.ndjson",
     Operation::kTranslate, run_operation},
    {kCheck, "check", "Tell what of stored replies their reports do not show",
     "zrcreditbureau check replies/ --service VedaXMLAU --jobs 4\n"
     "  zrcreditbureau check replies/ --service VedaXMLAU --known usual.json --strict",
     Operation::kTranslate, run_check},
    {kDiff, "diff", "Tell what changed between two translations of one archive",
     "zrcreditbureau diff before.ndjson after.ndjson\n"
     "  zrcreditbureau diff before.ndjson after.ndjson --totals",
     std::nullopt, run_diff},
    {kCompletion, "completion", "Print what makes a shell complete commands and options",
     "zrcreditbureau completion bash >~/.local/share/bash-completion/completions/zrcreditbureau",
     std::nullopt, run_completion},
    {kManual, "manual", "Print the manual page", "zrcreditbureau manual | man -l -", std::nullopt,
     run_manual},
    {kSchema, "schema", "Print the JSON Schema of jobs or of results",
     "zrcreditbureau schema result", std::nullopt, run_schema},
};

}  // namespace

std::span<const Command> commands() { return kCommands; }

int run_command(const Invocation& invocation) { return invocation.command->run(invocation); }

}  // namespace zr::cli
