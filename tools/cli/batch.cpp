#include "cli/batch.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <exception>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "cli/countries.h"
#include "cli/database.h"
#include "cli/failure.h"
#include "cli/files.h"
#include "cli/fingerprint.h"
#include "cli/job_source.h"
#include "cli/ndjson.h"
#include "cli/ordered_results.h"
#include "cli/output.h"
#include "cli/part_file.h"
#include "cli/progress.h"
#include "cli/report_text.h"
#include "cli/result_form.h"
#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::cli {
namespace {

/// Results held for each worker: enough that one slow reply does not stop the others.
constexpr std::size_t kResultsPerWorker = 4;

/// Few enough that workers share the jobs evenly, many enough that sharing costs nothing.
constexpr std::size_t kMostItems = 8;

/// What is told of single jobs on standard error: enough to see what is wrong.
constexpr std::uint64_t kMostMessages = 20;

/// Translates the reply in a file; whatever is wrong with it is its outcome.
Outcome translate_file(Performer& performer, const Job& base, const std::string& path) {
    Outcome outcome;
    try {
        Job job = base;
        job.response_xml = read_text_file(path, job.encoding);
        return performer.perform(job);
    } catch (const MisuseError& error) {
        outcome.error_message = error.what();
        outcome.failure = misuse("file");
    } catch (const automation::JsonError& error) {
        outcome.error_message = error.what();
        outcome.failure = misuse("job");
    } catch (const std::exception& error) {
        outcome.error_message = error_text(error);
        outcome.failure = current_failure();
    }
    return outcome;
}

/// The message in one line.
std::string one_line(std::string_view message) {
    std::string line;
    bool broken = false;
    for (const char character : printable_error(message)) {
        if (character == '\n') {
            broken = !line.empty();
            continue;
        }
        line += broken ? " " : "";
        line += character;
        broken = false;
    }
    return line;
}

std::size_t bytes_of(const std::vector<BatchItem>& items) {
    std::size_t bytes = 0;
    for (const BatchItem& item : items) {
        bytes += item.bytes;
    }
    return bytes;
}

/// The workers and what they share.
class Run {
  public:
    Run(const Batch& batch, JobSource& source, const Job& base, Output& output, Progress& progress,
        Event& stop)
        : batch_(batch),
          source_(source),
          base_(base),
          output_(output),
          progress_(progress),
          stop_(stop),
          csv_(batch.fields, source.files() ? "File" : "Line"),
          results_(
              batch.workers * kResultsPerWorker, [this](BatchResult&& result) { write(result); },
              [this] { output_.flush(); }) {
        // Parts put one behind the other have one header.
        if (batch_.csv && batch_.shard.part == 1) {
            output_.write(csv_.header());
        }
    }

    /// Works until there is nothing more to do, or a signal came; its number. Throws what a worker
    /// met.
    int go(Interruption& interruption);

    Standing standing() const;

  private:
    void work();
    bool take(std::vector<BatchItem>& items, std::uint64_t& number);
    BatchResult perform(Performer& performer, const std::vector<BatchItem>& items);
    void write(const BatchResult& result);
    void tell(const std::vector<std::string>& messages);

    const Batch& batch_;
    JobSource& source_;
    const Job& base_;
    Output& output_;
    Progress& progress_;
    Event& stop_;
    std::mutex source_mutex_;
    std::uint64_t next_number_ = 0;  // of a result; under source_mutex_
    CsvForm csv_;
    OrderedResults results_;
    std::atomic<std::uint64_t> translated_ = 0;
    std::atomic<std::uint64_t> failed_ = 0;
    std::atomic<std::uint64_t> doubtful_ = 0;
    std::uint64_t told_ = 0;  // of the one that writes
    std::mutex failure_mutex_;
    std::exception_ptr failure_;
};

bool Run::take(std::vector<BatchItem>& items, std::uint64_t& number) {
    const std::lock_guard lock(source_mutex_);
    // What the bureau is asked waits for nothing, and nothing waits for it.
    const std::size_t most = asks_bureau(batch_.operation) ? 1 : kMostItems;
    if (stop_.is_set() || !results_.wait_for_room(next_number_) || !source_.take(items, most)) {
        return false;
    }
    number = next_number_++;
    return results_.wait_for_bytes(bytes_of(items));
}

BatchResult Run::perform(Performer& performer, const std::vector<BatchItem>& items) {
    BatchResult result;
    result.bytes = bytes_of(items);
    automation::JsonWriter json([&result](std::string_view text) { result.lines += text; });
    for (const BatchItem& item : items) {
        if (stop_.is_set()) {
            result.last = true;
            break;
        }
        Outcome outcome = source_.files() ? translate_file(performer, base_, item.text)
                                          : answer(performer, base_, item.text, item.too_long);
        const std::string number = std::to_string(item.number);
        const std::string name = source_.files() ? item.text : "line " + number;
        if (batch_.checks != nullptr && outcome.result) {
            result.checked.emplace_back(name, std::move(outcome.findings));
        }
        if (batch_.csv) {
            csv_.append(result.lines, outcome, source_.files() ? name : number);
        } else if (batch_.has_results) {
            write_result(json, batch_.operation, outcome, batch_.fields,
                         source_.files() ? item.text : std::string());
            result.lines.append(json.view()).append("\n");
            json.clear();
        }
        ++(outcome.result ? result.translated : result.failed);
        result.doubtful += outcome.result && !outcome.warning.empty() ? 1 : 0;
        const std::string& message = outcome.result ? outcome.warning : outcome.error_message;
        if (!message.empty()) {
            result.messages.push_back(std::string(name).append(": ").append(message));
        }
    }
    return result;
}

void Run::write(const BatchResult& result) {
    if (asks_bureau(batch_.operation)) {
        write_or_rescue(
            output_, [&](Output& output) { output.write(result.lines); }, &Output::sync);
    } else {
        output_.write(result.lines);
    }
    for (const auto& [source, findings] : result.checked) {
        batch_.checks->add(findings, source);
    }
    if (batch_.checks != nullptr) {
        batch_.checks->add_failed(result.failed);
    }
    translated_ += result.translated;
    failed_ += result.failed;
    doubtful_ += result.doubtful;
    if (!batch_.results_only) {
        tell(result.messages);
    }
}

void Run::tell(const std::vector<std::string>& messages) {
    for (const std::string& message : messages) {
        if (told_ < kMostMessages) {
            progress_.say("zrcreditbureau: " + one_line(message));
        } else if (told_ == kMostMessages) {
            progress_.say("zrcreditbureau: what else there is to say is in the results only.");
        }
        ++told_;
    }
}

void Run::work() {
    try {
        Performer performer(batch_.operation);
        std::vector<BatchItem> items;
        std::uint64_t number = 0;
        while (take(items, number)) {
            if (asks_bureau(batch_.operation)) {
                output_.need_room();
            }
            results_.deliver(number, perform(performer, items));
        }
    } catch (...) {
        const std::lock_guard lock(failure_mutex_);
        failure_ = failure_ ? failure_ : std::current_exception();
        stop_.set();
        results_.close();
    }
}

Standing Run::standing() const {
    Standing standing{translated_, failed_, doubtful_};
    const std::optional<std::uint64_t> total = source_.total();
    standing.share = !total ? -1
                     : *total == 0
                         ? 1
                         : static_cast<double>(source_.taken()) / static_cast<double>(*total);
    return standing;
}

int Run::go(Interruption& interruption) {
    const auto work = [this] {
        std::vector<std::jthread> threads;
        for (std::uint32_t worker = batch_.workers; worker > 0; --worker) {
            threads.emplace_back([this] { this->work(); });
        }
    };
    const int signal =
        hold_signals(interruption, stop_, work, [this] { progress_.draw(standing()); });
    progress_.clear();
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    return signal;
}

bool is_secret(std::string_view name) {
    static const std::vector<Property<Service>> kSettings = known_settings();
    return std::ranges::any_of(kSettings, [name](const Property<Service>& setting) {
        return setting.secret && text::equal_ignoring_case(setting.name, name);
    });
}

void add_value(Fingerprint& fingerprint, const automation::JsonValue& value) {
    fingerprint.add(value.text());
    fingerprint.add(value.boolean() ? "1" : "0");
    for (const auto& [name, member] : value.members()) {
        if (!is_secret(name)) {
            fingerprint.add(name);
            add_value(fingerprint, member);
        }
    }
}

/// What the run's results depend on besides the input; not the day, which is kept beside it.
std::string options_identity(const Job& job, const automation::ResponseFields& fields) {
    Fingerprint fingerprint;
    fingerprint.add(job.country);
    fingerprint.add(job.date_format.value_or("-"));
    fingerprint.add(job.currency_format.value_or("-"));
    fingerprint.add(job.currency_format_symbol.value_or("-"));
    for (const Property<Response>* const property : fields.properties) {
        fingerprint.add(property->name);
    }
    fingerprint.add(fields.elements ? "lines" : "-");
    fingerprint.add(fields.selections ? "companies" : "-");
    fingerprint.add(job.strict ? "strict" : "-");
    fingerprint.add(job.response_date ? job.response_date->to_iso() : "-");
    for (const SettingsLayer& layer : job.services) {
        add_value(fingerprint, layer.settings);
    }
    for (const automation::JsonValue& request : job.requests) {
        add_value(fingerprint, request);
    }
    return fingerprint.text();
}

/// What a line says its job's result was; nothing where it is not the result of this job.
std::optional<bool> read_result(std::string_view line, std::string_view file) {
    try {
        const automation::JsonValue result = automation::parse_json(line);
        const automation::JsonValue* const name = result.find("File");
        const automation::JsonValue* const outcome = result.find("Result");
        if ((name == nullptr ? std::string_view() : name->text()) == file && outcome != nullptr &&
            outcome->kind() == automation::JsonValue::Kind::kBoolean &&
            result.find("Response") != nullptr) {
            return outcome->boolean();
        }
    } catch (const automation::JsonError&) {
        // no result at all
    }
    return std::nullopt;
}

/// Where the results go: a part file where the run could be gone on with, or its results could not
/// be had again, else as every output.
struct Target {
    Target(const Batch& batch, Job& base, JobSource& source, const std::string& path) {
        const bool file = place_of(path) == Place::kFile;
        if (asks_bureau(batch.operation) && file) {
            part.emplace(path);
        } else if (batch.results_only || batch.csv || !batch.has_results || !file ||
                   !source.identity()) {
            plain.emplace(path);
        }
        if (batch.results_only) {
            return;
        }
        if (!source.identity() && (batch.resume || batch.database)) {
            throw MisuseError(
                std::string(batch.resume ? "--resume" : "--format sqlite") +
                " needs an input that can be read again: name files, folders or --input "
                "FILE.");
        }
        const DateTime today = base.response_date.value_or(DateTime::now().date_only());
        if (plain) {
            base.response_date = today;
        } else {
            gather(batch, base, source, path, today);
        }
    }

    void gather(const Batch& batch, Job& base, JobSource& source, const std::string& path,
                const DateTime& today) {
        RunIdentity identity{"zrcreditbureau " + ZRCreditBureau::Version() + " " +
                                 *source.identity() + " " + options_identity(base, batch.fields),
                             today.to_iso()};
        part.emplace(path, batch.resume, identity,
                     [&](std::string_view line, std::uint64_t number) {
                         return read_result(line, source.file(number));
                     });
        base.response_date = convert::to_date_time(identity.day).value_or(today);
        if (!source.skip(part->finished())) {
            throw MisuseError(path + ".part has more results than the input has replies.");
        }
    }

    Output& output() { return part ? part->output() : *plain; }
    void finish(const Batch& batch, const std::string& path) {
        if (batch.database) {
            part->finish(
                [&](const std::string& results) { write_database(results, path, batch.fields); });
        } else {
            part ? part->finish() : plain->finish();
        }
    }

    std::optional<Output> plain;
    std::optional<PartFile> part;
};

std::string answered(const Standing& standing) {
    return std::to_string(standing.translated + standing.failed) + " answered";
}

/// Where results are that an interruption has left.
std::string left_in(const Batch& batch, const Target& target) {
    if (!target.part) {
        return {};
    }
    return asks_bureau(batch.operation) ? "; the results are in " + target.part->path()
                                        : "; --resume goes on";
}

std::string doubtful(const Standing& standing) {
    return standing.doubtful == 0
               ? ""
               : ", " + std::to_string(standing.doubtful) + " without a matched file";
}

std::string summary(const Batch& batch, const Standing& standing, double seconds,
                    const Target& target, int signal) {
    std::string text = signal != 0 ? "interrupted: " : "";
    if (batch.results_only) {
        text += answered(standing);
    } else {
        char figures[64];
        (void)std::snprintf(figures, sizeof figures, " in %.2f s (%.0f a second)", seconds,
                            static_cast<double>(standing.translated + standing.failed) / seconds);
        text += std::to_string(standing.translated) +
                (batch.has_results ? " translated, " : " checked, ") +
                std::to_string(standing.failed) + " failed" + doubtful(standing) + figures;
    }
    if (target.part && target.part->finished() > 0) {
        text += ", after " + std::to_string(target.part->finished()) + " done before";
    }
    return "zrcreditbureau: " + text + (signal != 0 ? left_in(batch, target) : "") + ".";
}

/// Tells what people should know about the input; not more than they can read.
void remark(Progress& progress, const std::vector<std::string>& remarks) {
    constexpr std::size_t kMost = 20;
    for (std::size_t at = 0; at < std::min(remarks.size(), kMost); ++at) {
        progress.say("zrcreditbureau: " + one_line(remarks[at]));
    }
    if (remarks.size() > kMost) {
        progress.say("zrcreditbureau: and " + std::to_string(remarks.size() - kMost) + " more.");
    }
}

/// As Run::go; where the output fails, people learn where the results before it are.
int go(Run& run, Interruption& interruption, const Batch& batch, const Target& target) {
    try {
        return run.go(interruption);
    } catch (const OutputError&) {
        const Standing standing = run.standing();
        if (asks_bureau(batch.operation) && target.part &&
            standing.translated + standing.failed > 0) {
            std::cerr << "zrcreditbureau: " + answered(standing) + left_in(batch, target) + ".\n";
        }
        throw;
    }
}

}  // namespace

int run_batch(const Batch& batch, Job base, const std::string& output_path) {
    Event stop;
    Interruption interruption;
    const std::unique_ptr<JobSource> source =
        batch.names.empty() && !batch.may_be_none
            ? make_line_source(batch.input == "-" ? "" : batch.input, batch.shard, stop)
            : make_file_source(batch.names, batch.shard, output_path, batch.done,
                               batch.may_be_none);
    Target target(batch, base, *source, output_path);
    Progress progress(batch.quiet || batch.results_only);
    remark(progress, source->remarks());
    if (target.part && target.part->dropped()) {
        remark(progress,
               {target.part->path() + " has other things behind its first " +
                std::to_string(target.part->finished()) + " results: they are made again."});
    }
    Run run(batch, *source, base, target.output(), progress, stop);
    const int signal = go(run, interruption, batch, target);
    const Standing standing = run.standing();
    if (signal == 0) {
        target.finish(batch, output_path);
        if (!batch.results_only) {
            remark(progress, source->additions());
        }
    }
    if (batch.results_only ? signal != 0 : !batch.quiet) {
        progress.say(summary(batch, standing, progress.seconds(), target, signal));
    }
    if (signal != 0) {
        return ended_by(signal);
    }
    const std::uint64_t failed = standing.failed + (target.part ? target.part->failed() : 0);
    return failed == 0 || batch.results_only ? kDone : kFailed;
}

}  // namespace zr::cli
