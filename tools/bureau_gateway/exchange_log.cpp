#include "bureau_gateway/exchange_log.h"

#include <chrono>
#include <iomanip>
#include <stdexcept>

#include "bureau_gateway/dates.h"

namespace zr::gateway {

ExchangeLog::ExchangeLog(const std::filesystem::path& file) {
    if (file.empty()) {
        return;
    }
    stream_.open(file, std::ios::app);
    if (!stream_) {
        throw std::runtime_error("The log '" + file.string() + "' cannot be written.");
    }
}

void ExchangeLog::write(std::string_view path, std::string_view service_code,
                        std::string_view outcome) {
    if (!stream_.is_open()) {
        return;
    }
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto today = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::hh_mm_ss time(now - today);
    const std::lock_guard lock(mutex_);
    stream_ << to_iso(Date(today)) << 'T' << std::setfill('0') << std::setw(2)
            << time.hours().count() << ':' << std::setw(2) << time.minutes().count() << ':'
            << std::setw(2) << time.seconds().count() << "Z " << path << ' ' << service_code << ' '
            << outcome << std::endl;
}

}  // namespace zr::gateway
