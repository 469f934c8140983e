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

#include "cli/answer.h"
#include "cli/batch_text.h"
#include "cli/failure.h"
#include "cli/interruption.h"
#include "cli/job_source.h"
#include "cli/ordered_results.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "cli/rescue.h"
#include "cli/result_form.h"
#include "cli/run_target.h"

namespace zr::cli {
namespace {

/// Results held for each worker: enough that one slow reply does not stop the others.
constexpr std::size_t kResultsPerWorker = 4;

/// Few enough that workers share the jobs evenly, many enough that sharing costs nothing.
constexpr std::size_t kMostItems = 8;

/// What is told of single jobs on standard error: enough to see what is wrong.
constexpr std::uint64_t kMostMessages = 20;

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
        Outcome outcome = source_.files() ? answer_file(performer, base_, item.text)
                                          : answer_line(performer, base_, item.text, item.too_long);
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

/// As Run::go; where the output fails, people learn where the results before it are.
int go(Run& run, Interruption& interruption, const Batch& batch, const RunTarget& target) {
    try {
        return run.go(interruption);
    } catch (const OutputError&) {
        const Standing standing = run.standing();
        if (asks_bureau(batch.operation) && target.part() != nullptr &&
            standing.translated + standing.failed > 0) {
            std::cerr << "zrcreditbureau: " + answered(standing) + left_in(batch, target) + ".\n";
        }
        throw;
    }
}

/// Completes the output, which takes long where it is a database; the number of a signal that ended
/// that.
int finish(const Batch& batch, RunTarget& target, const std::string& path,
           Interruption& interruption, Event& stop) {
    if (!batch.database) {
        (void)target.finish(batch, path, {});
        return 0;
    }
    Progress progress(batch.quiet);
    std::atomic<std::uint64_t> results = 0;
    std::atomic<double> share = 0;
    const auto goes_on = [&](std::uint64_t done, double its_share) {
        results = done;
        share = its_share;
        return !stop.is_set();
    };
    return hold_signals(
        interruption, stop, [&] { (void)target.finish(batch, path, goes_on); },
        [&] { progress.draw({.translated = results, .share = share, .done = "in the database"}); });
}

}  // namespace

int run_batch(const Batch& batch, Job base, const std::string& output_path) {
    Event stop;
    Interruption interruption;
    const std::unique_ptr<JobSource> source =
        !batch.input.empty() ? make_line_source(batch.input, batch.shard, stop)
                             : make_file_source(batch.names, batch.shard, output_path, batch.done,
                                                batch.may_be_none);
    RunTarget target(batch, base, *source, output_path);
    Progress progress(batch.quiet || batch.results_only);
    remark(progress, source->remarks());
    if (target.part() != nullptr && target.part()->dropped()) {
        remark(progress,
               {target.part()->path() + " has other things behind its first " +
                std::to_string(target.part()->finished()) + " results: they are made again."});
    }
    Run run(batch, *source, base, target.output(), progress, stop);
    int signal = go(run, interruption, batch, target);
    const Standing standing = run.standing();
    if (signal == 0) {
        signal = finish(batch, target, output_path, interruption, stop);
    }
    if (signal == 0 && !batch.results_only) {
        remark(progress, source->additions());
    }
    if (batch.results_only ? signal != 0 : !batch.quiet) {
        progress.say(summary(batch, standing, progress.seconds(), target, signal));
    }
    if (signal != 0) {
        return ended_by(signal);
    }
    const std::uint64_t failed =
        standing.failed + (target.part() != nullptr ? target.part()->failed() : 0);
    return failed == 0 || batch.results_only ? kDone : kFailed;
}

}  // namespace zr::cli
