// The bureau gateway stand-in as a program: starts a gateway and waits for the end.
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <iostream>

#include "bureau_gateway/files.h"
#include "bureau_gateway/gateway.h"
#include "bureau_gateway/options.h"

namespace {

using namespace zr::gateway;

/// The signals that end the program, blocked in every thread and waited for in one.
sigset_t block_end_signals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    signal(SIGPIPE, SIG_IGN);
    return signals;
}

/// Waits for a signal, the end of the program's time, or the end of its parent.
void wait_for_end(const sigset_t& signals, const Options& options, pid_t parent) {
    const auto start = std::chrono::steady_clock::now();
    constexpr timespec kLook{0, 250'000'000};
    while (sigtimedwait(&signals, nullptr, &kLook) < 0) {
        const bool late =
            options.lifetime && std::chrono::steady_clock::now() - start >= *options.lifetime;
        if (late || (options.exit_with_parent && getppid() != parent)) {
            return;
        }
    }
}

int run(const Options& options, pid_t parent) {
    const sigset_t signals = block_end_signals();
    Gateway gateway(options.settings);
    if (!options.ready_file.empty()) {
        write_file_atomically(options.ready_file, gateway.address() + "\n");
    }
    std::cout << gateway.address() << std::endl;
    std::cerr << "Listening; clients must trust " << gateway.certificate_file().string() << '\n';
    wait_for_end(signals, options, parent);
    gateway.stop();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const pid_t parent = getppid();
    try {
        const auto options = parse_options(argc, argv);
        if (const int* status = std::get_if<int>(&options)) {
            return *status;
        }
        return run(std::get<Options>(options), parent);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bureau_gateway: %s\n", error.what());
        return 1;
    }
}
