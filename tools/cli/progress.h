// What a run tells people while it goes on: on standard error.
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace zr::cli {

/// How far a run is.
struct Standing {
    std::uint64_t translated = 0;
    std::uint64_t failed = 0;
    std::uint64_t doubtful = 0;  ///< of those translated
    double share = 0;            ///< of the input, from 0 to 1; negative when its size is not known
    std::string_view done = "done";  ///< what is said of those
};

/// "01:05", or "1:02:03" from an hour on.
std::string clock_text(std::chrono::seconds duration);

/// One line of at most `width` characters: a bar, counts, rate and time left.
std::string progress_line(const Standing& standing, double first_share, double seconds,
                          std::size_t width);

/// A bar that is drawn again and again where standard error is a terminal, and messages that stand
/// above it. Any thread may call.
class Progress {
  public:
    explicit Progress(bool quiet);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Draws the bar anew; nothing where there is none.
    void draw(const Standing& standing);
    /// Writes one line of a message.
    void say(std::string_view message);
    /// Takes the bar away.
    void clear();

    double seconds() const;

  private:
    void erase();

    const bool shown_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::mutex mutex_;
    std::optional<double> first_share_;  ///< where the run began: past 0 when it was resumed
    std::size_t drawn_ = 0;              ///< columns of the bar that stands there
};

}  // namespace zr::cli
