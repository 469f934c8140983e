#include "cli/telling_transport.h"

#include <cstdio>
#include <iostream>
#include <string>

#include "cli/report_text.h"
#include "zrcreditbureau/error.h"

namespace zr::cli {
namespace {

void tell(const std::string& line) { std::cerr << "zrcreditbureau: " + printable(line) + "\n"; }

std::string times_text(const HttpRecord& record) {
    const std::pair<const char*, std::chrono::microseconds> phases[] = {
        {"resolved", record.resolved},
        {"connected", record.connected},
        {"secured", record.secured},
        {"answered", record.answered},
        {"ended", record.ended}};
    std::string text = "after ms:";
    for (const auto& [name, time] : phases) {
        if (time.count() != 0) {
            char figure[32];
            (void)std::snprintf(figure, sizeof figure, " %.1f",
                                static_cast<double>(time.count()) / 1000);
            text.append(text.ends_with(':') ? " " : ", ").append(name).append(figure);
        }
    }
    return text;
}

void tell_record(const HttpRecord& record) {
    if (!record.peer.empty()) {
        tell("connected to " + record.peer + (record.tls.empty() ? "" : ", " + record.tls));
    }
    if (!record.subject.empty()) {
        tell("certificate of " + record.subject + ", issued by " + record.issuer + ", until " +
             record.expires);
    }
    tell(times_text(record));
}

}  // namespace

std::string proxy_text(const HttpProxy& proxy) {
    if (proxy.mode == HttpProxy::Mode::kNamed) {
        return proxy.server.substr(proxy.server.rfind('@') + 1);
    }
    return proxy.mode == HttpProxy::Mode::kDirect ? "none" : "the environment's";
}

HttpReply TellingTransport::exchange(const HttpRequest& request) {
    record = {};
    if (!verbose) {
        return transport_->exchange(request);
    }
    tell(request.method + " " + request.url.substr(0, request.url.find('?')) + ", " +
         std::to_string(request.body.size()) + " bytes, proxy " + proxy_text(request.proxy));
    try {
        HttpReply reply = transport_->exchange(request);
        tell_record(record);
        tell("status " + std::to_string(reply.status) + " " + reply.status_text + ", " +
             std::to_string(reply.body.size()) + " bytes");
        return reply;
    } catch (...) {
        tell_record(record);
        tell("failed: " + current_error_text());
        throw;
    }
}

}  // namespace zr::cli
