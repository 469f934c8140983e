#include "cli/delivery.h"

#include <exception>
#include <iostream>

#include "cli/explanation_form.h"
#include "cli/failure.h"
#include "cli/report_text.h"
#include "cli/rescue.h"
#include "cli/result_form.h"
#include "values/text.h"

namespace zr::cli {
namespace {

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

}  // namespace

void write_document(Output& output, std::string_view document) {
    output.write(document);
    output.write(document.empty() || document.ends_with('\n') ? "" : "\n");
}

void write_json(Output& output, const std::function<void(automation::JsonWriter&)>& write) {
    automation::JsonWriter json([&output](std::string_view text) { output.write(text); });
    write(json);
    write_document(output, json.view());
}

std::string source_of(const Invocation& invocation) {
    const bool stored = invocation.command->operation == Operation::kTranslate;
    return stored ? invocation.inputs.back() : "";
}

Deliveries::Deliveries(const Invocation& invocation) : invocation_(invocation) {
    deliveries_.emplace_back(Document{invocation.format, invocation.output_path}, true);
    for (const Document& document : invocation.beside) {
        deliveries_.emplace(
            document.format == Format::kReply ? deliveries_.begin() : deliveries_.end(), document,
            false);
    }
}

void Deliveries::need_room() {
    for (Delivery& delivery : deliveries_) {
        delivery.output.need_room();
    }
}

void Deliveries::deliver(Delivery& delivery, const Outcome& outcome) {
    Format format = delivery.format;
    if (format == Format::kHtml && outcome.result && !exists(format, outcome)) {
        std::cerr << "There is no HTML without a style sheet: name one with --xslt-file-name.\n";
        // What was paid for is not thrown away.
        format = delivery.main ? Format::kText : format;
    }
    if (!exists(format, outcome)) {
        return;
    }
    const auto write = [&](Output& output) { write_form(output, format, invocation_, outcome); };
    if (asks_bureau(*invocation_.command->operation)) {
        write_or_rescue(delivery.output, write, &Output::finish);
    } else {
        write(delivery.output);
        delivery.output.finish();
    }
}

int Deliveries::report(const Outcome& outcome) {
    std::exception_ptr failure;
    for (Delivery& delivery : deliveries_) {
        try {
            deliver(delivery, outcome);
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
    if (invocation_.command->operation == Operation::kCompose && outcome.result &&
        outcome.request_xml.empty()) {
        std::cerr << "Nothing was composed: the request has not been filled in.\n";
    }
    return outcome.result ? kDone : kFailed;
}

}  // namespace zr::cli
