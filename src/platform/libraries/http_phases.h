// The clock of one exchange: which phase it is in, and how long that may still last.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "zrcreditbureau/http.h"

namespace zr {

enum class HttpPhase { kResolve, kConnect, kSend, kReceive };

/// Starts in kResolve. The time of a phase counts from its beginning; in kSend and kReceive it
/// counts from the last byte that moved. The whole exchange ends after kWholeMultiple times the
/// four limits together, so that a challenge and its answer may each take all the time they have.
class HttpPhaseClock {
  public:
    using Clock = std::chrono::steady_clock;

    static constexpr int kWholeMultiple = 2;

    HttpPhaseClock(const HttpTimeouts& timeouts, Clock::time_point now)
        : timeouts_(timeouts),
          since_(now),
          end_(now + kWholeMultiple *
                         (timeouts.resolve + timeouts.connect + timeouts.send + timeouts.receive)) {
    }

    void enter(HttpPhase phase, Clock::time_point now) {
        phase_ = phase;
        since_ = now;
    }

    /// Tells the clock how many bytes were sent of a body of `body_size`, and how many were
    /// received. The counts may start again when a challenge is answered.
    void note_bytes(std::int64_t sent, std::int64_t body_size, std::int64_t received,
                    Clock::time_point now) {
        const bool heard = received != received_;
        if (heard || sent != sent_) since_ = now;
        sent_ = sent;
        received_ = received;
        if (phase_ == HttpPhase::kSend && (heard || sent >= body_size))
            enter(HttpPhase::kReceive, now);
    }

    /// What is left of the phase's limit or of the whole's, the lesser; zero or less when it has
    /// passed.
    Clock::duration left(Clock::time_point now) const {
        return std::min(since_ + limit(), end_) - now;
    }

    HttpPhase phase() const { return phase_; }

  private:
    std::chrono::milliseconds limit() const {
        switch (phase_) {
            case HttpPhase::kResolve:
                return timeouts_.resolve;
            case HttpPhase::kConnect:
                return timeouts_.connect;
            case HttpPhase::kSend:
                return timeouts_.send;
            case HttpPhase::kReceive:
                break;
        }
        return timeouts_.receive;
    }

    HttpTimeouts timeouts_;
    HttpPhase phase_ = HttpPhase::kResolve;
    Clock::time_point since_;
    Clock::time_point end_;
    std::int64_t sent_ = 0;
    std::int64_t received_ = 0;
};

}  // namespace zr
