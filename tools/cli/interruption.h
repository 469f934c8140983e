// Interrupting a run: a request to stop that every thread can wait for.
#pragma once

#include <atomic>
#include <csignal>
#include <functional>

namespace zr::cli {

/// An event that threads can poll for beside their input. It stays once it has come.
class Event {
  public:
    Event();
    ~Event();
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void set();
    bool is_set() const { return set_; }
    /// Becomes readable when the event comes.
    int descriptor() const { return descriptor_; }

  private:
    std::atomic<bool> set_ = false;
    int descriptor_;
};

/// Holds back the signals that end a run, from when it is made until it is gone; threads started in
/// between hold them back too. A signal that is ignored already stays so.
class Interruption {
  public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    /// Waits for a signal or the event, for up to so long; the signal's number, 0 when none came.
    int wait(const Event& event, int milliseconds);
    /// Lets the next signal end the process at once.
    void release();

  private:
    sigset_t signals_{};
    sigset_t before_{};
    int descriptor_;
};

/// Does the work on another thread. The first signal that ends a run becomes the event `stop`, the
/// next one ends the process. The number of the first, 0 when none came. `tick` is called ten times
/// a second. Throws what the work throws.
int hold_signals(Interruption& interruption, Event& stop, const std::function<void()>& work,
                 const std::function<void()>& tick);

/// Waits until `descriptor` can be read; false when the event comes first.
bool wait_readable(int descriptor, const Event& stop);

}  // namespace zr::cli
