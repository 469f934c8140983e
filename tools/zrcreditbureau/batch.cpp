#include "zrcreditbureau/batch.h"

#include <atomic>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "facade/zr_credit_bureau.h"
#include "platform/error.h"
#include "values/convert.h"
#include "values/text.h"
#include "zrcreditbureau/failure.h"
#include "zrcreditbureau/files.h"
#include "zrcreditbureau/fingerprint.h"
#include "zrcreditbureau/job_source.h"
#include "zrcreditbureau/ndjson.h"
#include "zrcreditbureau/ordered_results.h"
#include "zrcreditbureau/part_file.h"
#include "zrcreditbureau/progress.h"
#include "zrcreditbureau/report_text.h"

namespace zr::cli {
namespace {

/// Results held for each worker: enough that one slow reply does not stop the others.
constexpr std::size_t kResultsPerWorker = 4;

/// Failures told on standard error: enough to see what is wrong.
constexpr std::uint64_t kMostFailuresTold = 20;

/// Translates the reply in a file; whatever is wrong with it is its outcome.
Outcome translate_file(Performer& performer, const Job& base, const std::string& path) {
    Outcome outcome;
    try {
        Job job = base;
        job.response_xml = read_text_file(path);
        return performer.perform(job);
    } catch (const MisuseError& error) {
        outcome.error_message = error.what();
    } catch (const automation::JsonError& error) {
        outcome.error_message = error.what();
    } catch (const std::exception& error) {
        outcome.error_message = error_text(error);
    }
    return outcome;
}

/// The message in one line.
std::string one_line(std::string_view message) {
    std::string line;
    bool broken = false;
    for (const char character : printable(message)) {
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

/// The workers and what they share.
class Run {
  public:
    Run(JobSource& source, const Job& base, Output& output, Progress& progress, Event& stop,
        std::uint32_t workers)
        : source_(source),
          base_(base),
          output_(output),
          progress_(progress),
          stop_(stop),
          results_(
              workers * kResultsPerWorker, [this](BatchResult&& result) { write(result); },
              [this] { output_.flush(); }),
          working_(workers) {}

    /// Works until there is nothing more to do, or a signal came; its number. Throws what a worker
    /// met.
    int go(Interruption& interruption);

    Standing standing() const;

  private:
    void work();
    bool take(std::vector<BatchItem>& items, std::uint64_t& number);
    BatchResult perform(Performer& performer, automation::JsonWriter& json,
                        const std::vector<BatchItem>& items, std::size_t usual_size);
    void write(const BatchResult& result);

    JobSource& source_;
    const Job& base_;
    Output& output_;
    Progress& progress_;
    Event& stop_;
    std::mutex source_mutex_;
    std::uint64_t next_number_ = 0;  // of a result; under source_mutex_
    OrderedResults results_;
    std::atomic<std::uint64_t> translated_ = 0;
    std::atomic<std::uint64_t> failed_ = 0;
    std::atomic<std::uint32_t> working_;
    std::uint64_t told_ = 0;  // of the one that writes
    Event done_;
    std::mutex failure_mutex_;
    std::exception_ptr failure_;
};

bool Run::take(std::vector<BatchItem>& items, std::uint64_t& number) {
    const std::lock_guard lock(source_mutex_);
    if (stop_.is_set() || !results_.wait_for_room(next_number_) || !source_.take(items)) {
        return false;
    }
    number = next_number_++;
    return true;
}

BatchResult Run::perform(Performer& performer, automation::JsonWriter& json,
                         const std::vector<BatchItem>& items, std::size_t usual_size) {
    BatchResult result;
    result.lines.reserve(usual_size);
    for (const BatchItem& item : items) {
        if (stop_.is_set()) {
            result.last = true;
            break;
        }
        const Outcome outcome = source_.files()
                                    ? translate_file(performer, base_, item.text)
                                    : answer(performer, base_, item.text, item.too_long);
        write_result(json, Operation::kTranslate, outcome,
                     source_.files() ? item.text : std::string());
        result.lines.append(json.view()).append("\n");
        json.clear();
        if (outcome.result) {
            ++result.translated;
        } else {
            result.failures.push_back(
                (source_.files() ? item.text : "line " + std::to_string(item.number)) + ": " +
                outcome.error_message);
        }
    }
    return result;
}

void Run::write(const BatchResult& result) {
    output_.write(result.lines);
    translated_ += result.translated;
    failed_ += result.failures.size();
    for (const std::string& failure : result.failures) {
        if (told_ < kMostFailuresTold) {
            progress_.say("zrcreditbureau: " + one_line(failure));
        } else if (told_ == kMostFailuresTold) {
            progress_.say("zrcreditbureau: what else fails is told in the results only.");
        }
        ++told_;
    }
}

void Run::work() {
    try {
        Performer performer(Operation::kTranslate);
        automation::JsonWriter json;
        std::vector<BatchItem> items;
        std::uint64_t number = 0;
        std::size_t size = 0;  // of the last result: the next one is likely to be as long
        while (take(items, number)) {
            BatchResult result = perform(performer, json, items, size);
            size = result.lines.size();
            results_.deliver(number, std::move(result));
        }
    } catch (...) {
        const std::lock_guard lock(failure_mutex_);
        failure_ = failure_ ? failure_ : std::current_exception();
        stop_.set();
        results_.close();
    }
    if (--working_ == 0) {
        done_.set();
    }
}

Standing Run::standing() const {
    Standing standing{translated_, failed_};
    const std::optional<std::uint64_t> total = source_.total();
    standing.share = !total ? -1
                     : *total == 0
                         ? 1
                         : static_cast<double>(source_.taken()) / static_cast<double>(*total);
    return standing;
}

int Run::go(Interruption& interruption) {
    constexpr int kBetweenDrawings = 100;  // milliseconds
    int signal = 0;
    progress_.draw(standing());
    {
        std::vector<std::jthread> threads;
        for (std::uint32_t worker = working_; worker > 0; --worker) {
            threads.emplace_back([this] { work(); });
        }
        while (!done_.is_set()) {
            const int came = interruption.wait(done_, kBetweenDrawings);
            progress_.draw(standing());
            if (came != 0 && signal == 0) {
                signal = came;
                stop_.set();
                interruption.release();  // the next one is not waited for
            }
        }
    }
    progress_.clear();
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    return signal;
}

bool is_secret(std::string_view setting) {
    for (const std::string_view name :
         {"UserPassword", "SubscriberSecurityCode", "ProxyPassword"}) {
        if (text::equal_ignoring_case(name, setting)) {
            return true;
        }
    }
    return false;
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
std::string options_identity(const Job& job) {
    Fingerprint fingerprint;
    fingerprint.add(job.country);
    fingerprint.add(job.date_format.value_or("-"));
    fingerprint.add(job.currency_format.value_or("-"));
    fingerprint.add(job.currency_format_symbol.value_or("-"));
    fingerprint.add(job.response_date ? job.response_date->to_iso() : "-");
    for (const SettingsLayer& layer : job.services) {
        add_value(fingerprint, layer.settings);
    }
    for (const automation::JsonValue& request : job.requests) {
        add_value(fingerprint, request);
    }
    return fingerprint.text();
}

/// Where the results go: a part file where the run could be gone on with, else as every output.
struct Target {
    Target(const Batch& batch, Job& base, JobSource& source, const std::string& path) {
        const std::optional<std::string> input = source.identity();
        if (!input && batch.resume) {
            throw MisuseError(
                "--resume needs an input that can be read again: name files, folders or --input "
                "FILE.");
        }
        const DateTime today = base.response_date.value_or(DateTime::now().date_only());
        if (!input || !PartFile::is_possible(path)) {
            plain.emplace(path);
            base.response_date = today;
            return;
        }
        RunIdentity identity{"zrcreditbureau " + ZRCreditBureau::Version() + " " + *input + " " +
                                 options_identity(base),
                             today.to_iso()};
        part.emplace(path, batch.resume, identity);
        base.response_date = convert::to_date_time(identity.day).value_or(today);
        if (!source.skip(part->finished())) {
            throw MisuseError(path + ".part has more results than the input has replies.");
        }
    }

    Output& output() { return part ? part->output() : *plain; }
    void finish() { part ? part->finish() : plain->finish(); }

    std::optional<Output> plain;
    std::optional<PartFile> part;
};

std::string summary(const Standing& standing, double seconds, const Target& target, int signal) {
    const double rate = static_cast<double>(standing.translated + standing.failed) / seconds;
    char figures[64];
    (void)std::snprintf(figures, sizeof figures, " in %.2f s (%.0f a second)", seconds, rate);
    std::string text = "zrcreditbureau: ";
    text += signal != 0 ? "interrupted: " : "";
    text += std::to_string(standing.translated) + " translated, " +
            std::to_string(standing.failed) + " failed" + figures;
    if (target.part && target.part->finished() > 0) {
        text += ", after " + std::to_string(target.part->finished()) + " done before";
    }
    return text + (signal != 0 && target.part ? "; --resume goes on" : "") + ".";
}

}  // namespace

int run_batch(const Batch& batch, Job base, const std::string& output_path) {
    Event stop;
    Interruption interruption;
    const std::unique_ptr<JobSource> source =
        batch.names.empty()
            ? make_line_source(batch.input == "-" ? "" : batch.input, batch.shard, stop)
            : make_file_source(batch.names, batch.shard);
    Target target(batch, base, *source, output_path);
    Progress progress(batch.quiet);
    Run run(*source, base, target.output(), progress, stop, batch.workers);
    const int signal = run.go(interruption);
    const Standing standing = run.standing();
    if (signal == 0) {
        target.finish();
    }
    if (!batch.quiet) {
        progress.say(summary(standing, progress.seconds(), target, signal));
    }
    if (signal != 0) {
        constexpr int kEndedBySignal = 128;
        return kEndedBySignal + signal;
    }
    const std::uint64_t failed = standing.failed + (target.part ? target.part->failed() : 0);
    return failed == 0 ? kDone : kFailed;
}

}  // namespace zr::cli
