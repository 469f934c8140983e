#include "cli/ordered_results.h"

#include <utility>

namespace zr::cli {

bool OrderedResults::wait_for_room(std::uint64_t number) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] { return closed_ || number - due_ < slots_.size(); });
    return !closed_;
}

bool OrderedResults::wait_for_bytes(std::size_t bytes) {
    constexpr std::size_t kMostBytes = std::size_t{32} << 20;
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] { return closed_ || bytes_ == 0 || bytes_ + bytes <= kMostBytes; });
    bytes_ += bytes;
    return !closed_;
}

void OrderedResults::deliver(std::uint64_t number, BatchResult result) {
    std::unique_lock lock(mutex_);
    slot(number) = std::move(result);
    if (writing_) {
        return;  // whoever writes finds it
    }
    writing_ = true;
    while (!closed_ && slot(due_)) {
        BatchResult due = std::move(*std::exchange(slot(due_), std::nullopt));
        const bool last = due.last;
        const std::size_t bytes = due.bytes;
        lock.unlock();
        try {
            write_(std::move(due));
        } catch (...) {
            close();
            throw;
        }
        lock.lock();
        ++due_;
        bytes_ -= bytes;
        closed_ = closed_ || last;
        room_.notify_all();
        if (closed_ || !slot(due_)) {
            lock.unlock();
            pause_();
            lock.lock();
        }
    }
    writing_ = false;
}

void OrderedResults::close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    room_.notify_all();
}

}  // namespace zr::cli
