// Results that are ready in any order, written in the order of their jobs.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "checks/reply_check.h"

namespace zr::cli {

/// The results of a few jobs that stand one behind the other.
struct BatchResult {
    std::string lines;
    std::size_t bytes = 0;  ///< of the jobs, as they were waited for
    std::uint64_t translated = 0;
    std::uint64_t failed = 0;
    std::uint64_t doubtful = 0;         ///< of those translated
    std::vector<std::string> messages;  ///< of each job that failed or is doubtful
    /// Of each job that was checked, its source and what was found.
    std::vector<std::pair<std::string, std::vector<Finding>>> checked;
    bool last = false;  ///< the run was stopped: nothing behind it is written
};

/// A window of results, so that no more are held than workers need to stay busy, and none but the
/// one that is due while many bytes are being worked on. Whoever delivers
/// the result that is due writes it, and those behind it that are ready; one thread at a time
/// writes, and nobody waits for it.
class OrderedResults {
  public:
    using Write = std::function<void(BatchResult&&)>;

    /// `pause` is called when nothing more is ready to be written.
    OrderedResults(std::size_t window, Write write, std::function<void()> pause)
        : slots_(window), write_(std::move(write)), pause_(std::move(pause)) {}

    /// Waits until a result with this number may be delivered; false when no more are written.
    bool wait_for_room(std::uint64_t number);
    /// Waits until jobs of so many bytes may be worked on beside the others; likewise.
    bool wait_for_bytes(std::size_t bytes);
    /// Takes the result with this number, counted from 0. Throws what writing throws; nothing is
    /// written afterwards.
    void deliver(std::uint64_t number, BatchResult result);
    /// Writes nothing more.
    void close();

  private:
    std::optional<BatchResult>& slot(std::uint64_t number) {
        return slots_[number % slots_.size()];
    }

    std::mutex mutex_;
    std::condition_variable room_;
    std::vector<std::optional<BatchResult>> slots_;
    std::uint64_t due_ = 0;
    std::size_t bytes_ = 0;  // of the jobs whose results are not written yet
    bool writing_ = false;
    bool closed_ = false;
    Write write_;
    std::function<void()> pause_;
};

}  // namespace zr::cli
