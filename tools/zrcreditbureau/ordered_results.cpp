#include "zrcreditbureau/ordered_results.h"

#include <utility>

namespace zr::cli {

bool OrderedResults::wait_for_room(std::uint64_t number) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] { return closed_ || number - due_ < slots_.size(); });
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
        lock.unlock();
        try {
            write_(std::move(due));
        } catch (...) {
            close();
            throw;
        }
        lock.lock();
        ++due_;
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
