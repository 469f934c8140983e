#include "cli/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <iostream>

namespace zr::cli {
namespace {

std::size_t terminal_width() {
    constexpr std::size_t kUsual = 80;
    winsize size{};
    if (::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return kUsual;
    }
    return size.ws_col;
}

std::string two_digits(std::int64_t number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string clock_text(std::chrono::seconds duration) {
    const std::int64_t seconds = duration.count();
    const std::string rest = two_digits(seconds / 60 % 60) + ":" + two_digits(seconds % 60);
    return seconds < 3600 ? rest : std::to_string(seconds / 3600) + ":" + rest;
}

std::string progress_line(const Standing& standing, double first_share, double seconds,
                          std::size_t width) {
    const std::uint64_t done = standing.translated + standing.failed;
    std::string figures = std::to_string(done) + " " + std::string(standing.done);
    if (seconds > 0) {
        figures += ", " + std::to_string(std::llround(static_cast<double>(done) / seconds)) + "/s";
    }
    if (standing.failed > 0) {
        figures += ", " + std::to_string(standing.failed) + " failed";
    }
    std::string line;
    if (standing.share >= 0) {
        const double gained = standing.share - first_share;
        if (gained > 0) {
            const double left = seconds * (1 - standing.share) / gained;
            figures += ", " + clock_text(std::chrono::seconds(std::llround(left))) + " left";
        }
        line = std::to_string(static_cast<int>(standing.share * 100)) + "% ";
        line.insert(0, 5 - std::min<std::size_t>(line.size(), 5), ' ');
        constexpr std::size_t kLongestBar = 40;
        const std::size_t used = line.size() + figures.size() + 3;
        if (width >= used + 5) {
            const std::size_t bar = std::min(width - used, kLongestBar);
            const auto full = static_cast<std::size_t>(standing.share * static_cast<double>(bar));
            line += "[" + std::string(full, '#') + std::string(bar - full, '.') + "] ";
        }
    }
    line += figures;
    line.resize(std::min(line.size(), width));
    return line;
}

Progress::Progress(bool quiet) : shown_(!quiet && ::isatty(STDERR_FILENO) != 0) {}

Progress::~Progress() { clear(); }

double Progress::seconds() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

void Progress::draw(const Standing& standing) {
    if (!shown_) {
        return;
    }
    const std::lock_guard lock(mutex_);
    if (!first_share_) {
        first_share_ = standing.share;
    }
    // The last column stays free: some terminals break the line behind it.
    std::string line = progress_line(standing, *first_share_, seconds(),
                                     std::max<std::size_t>(terminal_width(), 2) - 1);
    const std::size_t columns = line.size();
    line.append(drawn_ > columns ? drawn_ - columns : 0, ' ');
    std::cerr << "\r" + line << std::flush;
    drawn_ = columns;
}

void Progress::erase() {
    if (drawn_ > 0) {
        std::cerr << "\r" + std::string(drawn_, ' ') + "\r";
        drawn_ = 0;
    }
}

void Progress::say(std::string_view message) {
    const std::lock_guard lock(mutex_);
    erase();
    std::cerr << std::string(message) + "\n" << std::flush;
}

void Progress::clear() {
    const std::lock_guard lock(mutex_);
    erase();
    std::cerr << std::flush;
}

}  // namespace zr::cli
