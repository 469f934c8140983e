#include "cli/interruption.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <thread>

#include "cli/failure.h"

namespace zr::cli {

namespace {

int checked(int descriptor) {
    if (descriptor < 0) {
        throw OutputError(std::string("Cannot wait for signals: ") + std::strerror(errno) + ".");
    }
    return descriptor;
}

}  // namespace

Event::Event() : descriptor_(checked(::eventfd(0, EFD_CLOEXEC))) {}

Event::~Event() { ::close(descriptor_); }

void Event::set() {
    set_ = true;
    const std::uint64_t one = 1;
    (void)!::write(descriptor_, &one, sizeof one);  // nobody reads it out again
}

Interruption::Interruption() {
    sigemptyset(&signals_);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        if (::sigaction(number, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) {
            sigaddset(&signals_, number);
        }
    }
    descriptor_ = checked(::signalfd(-1, &signals_, SFD_CLOEXEC | SFD_NONBLOCK));
    ::pthread_sigmask(SIG_BLOCK, &signals_, &before_);
}

Interruption::~Interruption() {
    release();
    ::close(descriptor_);
}

int Interruption::wait(const Event& event, int milliseconds) {
    pollfd polls[] = {{descriptor_, POLLIN, 0}, {event.descriptor(), POLLIN, 0}};
    signalfd_siginfo signal{};
    if (::poll(polls, 2, milliseconds) <= 0 || polls[0].revents == 0 ||
        ::read(descriptor_, &signal, sizeof signal) != sizeof signal) {
        return 0;
    }
    return static_cast<int>(signal.ssi_signo);
}

void Interruption::release() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

int hold_signals(Interruption& interruption, Event& stop, const std::function<void()>& work,
                 const std::function<void()>& tick) {
    constexpr int kBetweenTicks = 100;  // milliseconds
    int signal = 0;
    Event done;
    std::exception_ptr failure;
    {
        const std::jthread worker([&] {
            try {
                work();
            } catch (...) {
                failure = std::current_exception();
            }
            done.set();
        });
        while (!done.is_set()) {
            tick();
            const int came = interruption.wait(done, kBetweenTicks);
            if (came != 0 && signal == 0) {
                signal = came;
                stop.set();
                interruption.release();
            }
        }
    }
    if (failure) {
        std::rethrow_exception(failure);
    }
    return signal;
}

bool wait_readable(int descriptor, const Event& stop) {
    pollfd polls[] = {{descriptor, POLLIN, 0}, {stop.descriptor(), POLLIN, 0}};
    for (;;) {
        const int ready = ::poll(polls, 2, -1);
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (polls[1].revents != 0) {
            return false;
        }
        if (ready < 0 || polls[0].revents != 0) {
            return true;  // an error is the read's to report
        }
    }
}

}  // namespace zr::cli
