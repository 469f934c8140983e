#include "cli/doctor.h"

#include <netdb.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <ostream>
#include <string>

#include "automation/json_form.h"
#include "cli/countries.h"
#include "cli/failure.h"
#include "cli/guards.h"
#include "cli/operation.h"
#include "cli/report_text.h"
#include "cli/sheets.h"
#include "platform/style_sheet.h"
#include "values/text.h"
#include "zrcreditbureau/error.h"

namespace zr::cli {
namespace {

constexpr std::time_t kDay = std::time_t{24} * 60 * 60;

/// What to do about a kind of failure of the connection test.
constexpr struct {
    FailureKind kind;
    std::string_view advice;
} kAdvice[] = {
    {FailureKind::kConfiguration, "mend address, user, password or proxy in the settings"},
    {FailureKind::kNetwork, "see to network, firewall and ProxyServer, or try later"},
    {FailureKind::kTimeOut, "see to the network; TimeOutSeconds may be too short"},
    {FailureKind::kCertificate,
     "name the authority's certificates in SSL_CERT_FILE; see to this machine's clock"},
    {FailureKind::kReply, "what answers is not the bureau: mend the address or the proxy"},
    {FailureKind::kRefused, "ask the bureau about the user, the subscriber and their rights"},
    {FailureKind::kContent, "ask the bureau about the subscriber and the products"},
};

std::string advice(FailureKind kind) {
    for (const auto& row : kAdvice) {
        if (row.kind == kind) {
            return std::string(row.advice);
        }
    }
    return "see docs/errors.md";
}

std::time_t time_of(const std::string& text, const char* format) {
    std::tm parts{};
    return ::strptime(text.c_str(), format, &parts) == nullptr ? 0 : ::timegm(&parts);
}

/// The host in an address.
std::string host_of(const std::string& url) {
    const std::size_t scheme = url.find("://");
    const std::size_t begin = scheme == std::string::npos ? 0 : scheme + 3;
    return url.substr(begin, url.find_first_of(":/?", begin) - begin);
}

class Examination {
  public:
    Examination(const Job& job, std::ostream& out)
        : job_(job),
          out_(out),
          bureau_(performer_.bureau(job)),
          service_(bureau_.Services().Item(request_text(job, "ServiceName"))) {}

    bool run() {
        if (service_.setting("RequestURLTest") == nullptr) {
            say(true, "settings", "this service sends nothing");
            sheet();
            return good_;
        }
        settings();
        sheet();
        if (name()) {
            exchange();
        }
        return good_;
    }

  private:
    void say(bool good, std::string_view what, const std::string& text) {
        good_ = good_ && good;
        std::string line = good ? "ok    " : "WRONG ";
        line.append(what).append(": ").append(text);
        out_ << printable(line) << '\n' << std::flush;
    }

    std::string setting(std::string_view name) const { return setting_text(service_, name); }

    void settings() {
        std::string missing;
        for (const std::string_view name :
             {"UserId", "UserPassword", "SubscriberId", "SubscriberSecurityCode"}) {
            if (service_.setting(name) != nullptr && setting(name).empty()) {
                missing.append(missing.empty() ? "" : ", ").append(told(name));
            }
        }
        say(missing.empty(), "settings",
            missing.empty() ? "user and subscriber are set" : "give " + missing);
    }

    void sheet() {
        std::string file = setting("XSLTFileName");
        file = file.empty() ? installed_sheet(service_.ServiceName()) : file;
        if (file.empty()) {
            say(true, "style sheet", "none: there will be no HTML");
            return;
        }
        try {
            StyleSheets sheets;
            (void)sheets.transform("<BCAmessage/>", file);
            say(true, "style sheet", file + " compiles");
        } catch (const std::exception& error) {
            say(false, "style sheet",
                "mend or leave out " + told("XSLTFileName") + ": " + error_text(error));
        }
    }

    /// Whether there is somebody to connect to.
    bool name() {
        const std::string_view setting_name = bureau_.TestMode() ? "RequestURLTest" : "RequestURL";
        const std::string url = setting(setting_name);
        const std::string host = host_of(url);
        if (host.empty() || host.ends_with(".invalid")) {
            say(false, "address", "not set: give " + told(setting_name));
            return false;
        }
        say(url.starts_with("https://"), "address",
            url.starts_with("https://") ? url : url + " is not https: mend " + told(setting_name));
        const std::string proxy = setting("ProxyServer");
        if (!proxy.empty()) {
            say(true, "proxy",
                proxy == "[PRECONFIG]" ? "the environment's" : proxy.substr(proxy.rfind('@') + 1));
            return true;
        }
        say(true, "proxy", "none");
        addrinfo* found = nullptr;
        const int code = ::getaddrinfo(host.c_str(), nullptr, nullptr, &found);
        if (found != nullptr) {
            ::freeaddrinfo(found);
        }
        say(code == 0, "name",
            code == 0
                ? host + " resolves"
                : host + " does not resolve (" + ::gai_strerror(code) + "): mend " +
                      told(setting_name) + " or this machine's name servers, or name a proxy");
        return code == 0;
    }

    void exchange() {
        const Outcome outcome = performer_.perform(job_);
        const HttpRecord& record = *performer_.record();
        if (!record.tls.empty()) {
            certificate(record);
        }
        if (record.date.empty()) {
            say(true, "clock", "no server has told the time");
        } else {
            clock(record);
        }
        say(outcome.result, "connection test",
            outcome.result ? "the bureau answers"
                           : std::string(failure_kind_name(outcome.failure.kind)) + " " +
                                 outcome.failure.code + ", " + advice(outcome.failure.kind) +
                                 "; the bureau or the exchange said: " +
                                 text::replace_all(outcome.error_message, "\r\n", " "));
    }

    void certificate(const HttpRecord& record) {
        constexpr std::time_t kEnough = 14;
        const std::time_t end = time_of(record.expires, "%b %d %H:%M:%S %Y");
        const std::time_t days = (end - std::time(nullptr)) / kDay;
        say(days >= kEnough, "certificate",
            record.tls + "; of " + record.subject + ", by " + record.issuer + ", " +
                std::to_string(days) + " days left" +
                (days >= kEnough ? "" : ": tell whoever runs the server or proxy"));
    }

    void clock(const HttpRecord& record) {
        constexpr std::time_t kMost = 300;
        const std::time_t ahead =
            std::time(nullptr) - time_of(record.date, "%a, %d %b %Y %H:%M:%S");
        const bool good = std::abs(ahead) <= kMost;
        say(good, "clock",
            std::to_string(ahead) + " s from the server's" +
                (good ? "" : ": set this machine's clock; statistics count back from its day"));
    }

    const Job& job_;
    std::ostream& out_;
    Performer performer_{Operation::kVerify};
    ZRCreditBureau& bureau_;
    const Service& service_;
    bool good_ = true;
};

}  // namespace

bool examine(const Job& job, std::ostream& out) {
    const std::string service(request_text(job, "ServiceName"));
    if (country_of_service(service) != text::upper(job.country)) {
        throw MisuseError("Service '" + std::string(text::first(service, 64)) +
                          "' does not exist.");
    }
    return Examination(job, out).run();
}

}  // namespace zr::cli
