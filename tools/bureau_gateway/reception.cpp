#include "bureau_gateway/reception.h"

#include <chrono>
#include <iomanip>
#include <stdexcept>

#include "bureau_gateway/ascii.h"

namespace zr::gateway {

Reception::Reception(const Settings& settings, FaultBoard& faults)
    : bureau_(settings),
      guard_(settings.http_auth, settings.user, settings.password),
      faults_(faults) {
    if (!settings.log_file.empty()) {
        log_.open(settings.log_file, std::ios::app);
        if (!log_) {
            throw std::runtime_error("The log '" + settings.log_file.string() +
                                     "' cannot be written.");
        }
    }
}

void Reception::log(std::string_view path, std::string_view service_code,
                    std::string_view outcome) {
    if (!log_.is_open()) {
        return;
    }
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto today = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::hh_mm_ss time(now - today);
    const std::lock_guard lock(mutex_);
    log_ << to_iso(Date(today)) << 'T' << std::setfill('0') << std::setw(2) << time.hours().count()
         << ':' << std::setw(2) << time.minutes().count() << ':' << std::setw(2)
         << time.seconds().count() << "Z " << path << ' ' << service_code << ' ' << outcome
         << std::endl;
}

std::optional<HttpReply> Reception::turn_away(const HttpExchange& exchange) const {
    if (exchange.refused_status) {
        return status_page(*exchange.refused_status);
    }
    if (!bureau_.serves(exchange.path)) {
        return status_page(404);
    }
    if (exchange.method != "POST") {
        HttpReply reply = status_page(405);
        reply.headers.emplace_back("Allow", "POST");
        return reply;
    }
    if (!guard_.admits(exchange.method, exchange.authorization)) {
        HttpReply reply = status_page(401);
        reply.headers.emplace_back("WWW-Authenticate", guard_.challenge());
        return reply;
    }
    const std::string_view content_type = exchange.content_type;
    if (to_lower(trim(content_type.substr(0, content_type.find(';')))) != "text/xml") {
        return status_page(415);
    }
    return std::nullopt;
}

Delivery Reception::answer(const HttpExchange& exchange) {
    if (auto reply = turn_away(exchange)) {
        const bool known_path = !exchange.refused_status && bureau_.serves(exchange.path);
        log(known_path ? exchange.path : "-", "-", std::to_string(reply->status));
        return deliver(std::move(*reply), {}, exchange.keep_alive);
    }
    Answer answer = bureau_.answer(exchange.path, exchange.body);
    std::vector<Fault> faults = faults_.take_exchange_faults();
    faults.insert(faults.end(), answer.faults.begin(), answer.faults.end());
    std::string outcome = answer.outcome;
    for (const Fault& fault : faults) {
        outcome += " fault:" + std::string(name_of(fault.kind));
    }
    log(exchange.path, answer.service_code, outcome);
    return deliver({.body = std::move(answer.reply)}, faults, exchange.keep_alive);
}

}  // namespace zr::gateway
