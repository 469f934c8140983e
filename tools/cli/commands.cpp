#include "cli/commands.h"

#include <iostream>

#include "automation/json_form.h"
#include "cli/catalogue_text.h"
#include "cli/completion.h"
#include "cli/countries.h"
#include "cli/delivery.h"
#include "cli/doctor.h"
#include "cli/failure.h"
#include "cli/interruption.h"
#include "cli/layout_text.h"
#include "cli/manual.h"
#include "cli/nearest.h"
#include "cli/option_table.h"
#include "cli/result_diff.h"
#include "cli/schema.h"
#include "facade/reports.h"
#include "values/text.h"

namespace zr::cli {
namespace {

[[noreturn]] void refuse_service(std::string_view name) {
    throw MisuseError("Service '" + std::string(text::first(name, 64)) + "' does not exist." +
                      did_you_mean(name, words_of(known_values("ServiceName"), '|')));
}

void require_country(const Invocation& invocation) {
    const std::string_view service = request_text(invocation.job, "ServiceName");
    if (invocation.job.country.empty() && !service.empty()) {
        refuse_service(service);
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

/// Writes to the output of a command that shows what is known, to whoever may read it.
template <class AsText, class AsJson>
int show(const Invocation& invocation, AsText as_text, AsJson as_json) {
    constexpr mode_t kForAll = 0666;
    Output output(invocation.output_path, kForAll);
    if (invocation.format == Format::kText) {
        write_document(output, as_text());
    } else {
        write_json(output, as_json);
    }
    output.finish();
    return kDone;
}

int run_catalogue(const Invocation& invocation) {
    require_country(invocation);
    ZRCreditBureau bureau;
    if (!bureau.Initialise(invocation.job.country)) {
        throw MisuseError(bureau.ErrorMessage());
    }
    return show(
        invocation, [&] { return catalogue_text(bureau); },
        [&](automation::JsonWriter& json) { automation::write_catalogue(json, bureau); });
}

int run_layout(const Invocation& invocation) {
    require_service(invocation);
    const std::string_view service = request_text(invocation.job, "ServiceName");
    const ReportDefinition* report = find_report(service);
    if (report == nullptr) {
        refuse_service(service);
    }
    return show(
        invocation, [&] { return layout_text(*report); },
        [&](automation::JsonWriter& json) { write_layout(json, *report); });
}

void set_known(CheckTable& checks, const Invocation& invocation) {
    if (!invocation.known_path.empty()) {
        checks.set_known(invocation.known_path);
    }
}

int run_one(const Invocation& invocation, CheckTable& checks) {
    require_country(invocation);
    Deliveries deliveries(invocation);
    Performer performer(*invocation.command->operation);
    if (!asks_bureau(performer.operation())) {
        set_known(checks, invocation);
        const Outcome outcome = performer.perform(invocation.job);
        if (outcome.result) {
            checks.add(outcome.findings, source_of(invocation));
        } else {
            checks.add_failed(1);
        }
        return deliveries.report(outcome);
    }
    deliveries.need_room();
    // A signal does not end what the bureau has been asked already.
    Event stop;
    Interruption interruption;
    int status = kDone;
    const int signal = hold_signals(
        interruption, stop, [&] { status = deliveries.report(performer.perform(invocation.job)); },
        [] {});
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
    batch.input = invocation.ndjson && batch.input.empty() ? "-" : batch.input;
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
