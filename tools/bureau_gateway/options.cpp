#include "bureau_gateway/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bureau_gateway/dates.h"

namespace zr::gateway {
namespace {

constexpr const char* kAbout =
    "A stand-in for the credit bureau's gateway: an HTTPS server on this machine that checks\n"
    "enquiries as the bureau would and answers them with invented reports. The same applicant\n"
    "always gets the same report.\n\n"
    "To try it:\n"
    "  bureau_gateway --port 8443 --certificate-file /tmp/bureau.pem &\n"
    "  curl --cacert /tmp/bureau.pem -H 'Content-Type: text/xml' --data-binary @request.xml \\\n"
    "       https://127.0.0.1:8443/cta/sys1\n"
    "Clients that use OpenSSL trust it with SSL_CERT_FILE=/tmp/bureau.pem.\n\n"
    "Where requests go:  production    test\n"
    "  Australia         /sys1         /cta/sys1\n"
    "  New Zealand       /nz/sys1      /nz/cta/sys1";

constexpr const char* kSurnames =
    "\nSurnames for demonstrations (any letter case):\n"
    "  CLEAN          nothing adverse on file\n"
    "  ADVERSE        defaults, court actions, judgements, bankruptcies\n"
    "  POSSIBLE       a possible match, in Australia beside the primary one\n"
    "  REFUSED        the gateway refuses the message\n"
    "  INVALID        the bureau rejects the content with two errors\n"
    "  LARGE-n        a report of about n KB, up to 32768\n"
    "  FAULT-SPEC     a fault of this one exchange, for example FAULT-HTML, FAULT-STATUS=503\n"
    "Australian organisation searches: NOTHING and numbers that end with 000 find nothing.\n"
    "New Zealand companies: a search finds names of the register such as Bellbird Holdings, Clean\n"
    "Motors, Adverse Foods, and takes the names above from REFUSED on; words may be cut short.\n"
    "Every number of up to seven digits is a company's, unless it ends with 000.\n";

constexpr const char* kOwnReplies =
    "\nReplies of your own: FOLDER/KEY.xml, or FOLDER/australia/KEY.xml and\n"
    "FOLDER/new_zealand/KEY.xml for one country, answers a request that is in order and whose\n"
    "bureau reference, company number, client reference, surname or company name is KEY, in any\n"
    "letter case. It is sent as it stands; a template (root t:reply) is filled in first.\n";

std::string faults_help() {
    std::string text = "\nFaults, KIND[=VALUE][@COUNT]; COUNT: only the first so many times:\n";
    for (const FaultRow& row : fault_rows()) {
        std::string name(row.name);
        if (row.value == FaultValue::kNumber) {
            name += "=N";
        } else if (row.value == FaultValue::kText) {
            name += "=NAME";
        } else if (row.value == FaultValue::kOptional) {
            name += "[=NAME]";
        }
        name.resize(std::max<std::size_t>(name.size() + 1, 22), ' ');
        text += "  " + name + std::string(row.help) + (row.whole_server ? " *\n" : "\n");
    }
    return text + "  * of the whole server; not for a surname\n";
}

HttpAuth http_auth_of(std::string_view name) {
    if (name == "basic") {
        return HttpAuth::kBasic;
    }
    return name == "digest" ? HttpAuth::kDigest : HttpAuth::kNone;
}

void require_date(const std::string& text, Settings& settings) {
    settings.today = parse_date(text);
    if (!settings.today) {
        throw std::invalid_argument("--today needs a date of the form yyyy-mm-dd.");
    }
}

}  // namespace

std::variant<Options, int> parse_options(int argc, char** argv) {
    Options options;
    Settings& settings = options.settings;
    std::vector<std::string> faults;
    std::string today;
    std::string http_auth = "none";
    long seconds = 0;

    CLI::App app(kAbout, "bureau_gateway");
    app.footer(std::string(kSurnames) + kOwnReplies + faults_help());
    app.add_option("--host", settings.host, "loopback address to listen at")->capture_default_str();
    app.add_option("--port", settings.port, "port to listen at; 0: a free one")
        ->capture_default_str();
    app.add_option("--ready-file", options.ready_file,
                   "written with the address once the gateway listens");
    app.add_option("--certificate-file", settings.certificate_file,
                   "written with the certificate (PEM) that clients must trust");
    app.add_option("--user", settings.user, "access code that is accepted")
        ->envname("BUREAU_GATEWAY_USER")
        ->capture_default_str();
    app.add_option("--password", settings.password, "password that is accepted [demo-secret]")
        ->envname("BUREAU_GATEWAY_PASSWORD");
    app.add_option("--http-auth", http_auth, "challenge in HTTP itself")
        ->check(CLI::IsMember({"none", "basic", "digest"}))
        ->capture_default_str();
    app.add_option("--today", today, "yyyy-mm-dd: day that reports are dated back from");
    app.add_option("--fault", faults, "a deliberate failure (below); may be repeated")
        ->allow_extra_args(false);
    app.add_option("--replies", settings.replies_folder,
                   "folder of replies of your own, sent before invented ones (below)");
    app.add_option("--data", settings.data_folder,
                   "folder of schemas and templates [beside the program]");
    app.add_option("--log", settings.log_file, "one line an exchange is appended to this file");
    app.add_option("--max-seconds", seconds, "stop after so many seconds")
        ->check(CLI::Range(1, 86'400));
    app.add_flag("--exit-with-parent", options.exit_with_parent,
                 "stop when the program that started the gateway has gone");
    try {
        app.parse(argc, argv);
        for (const std::string& each : faults) {
            settings.faults.push_back(parse_fault(each));
        }
        if (!today.empty()) {
            require_date(today, settings);
        }
        settings.http_auth = http_auth_of(http_auth);
    } catch (const CLI::ParseError& error) {
        return app.exit(error);
    } catch (const std::invalid_argument& error) {
        std::cerr << "bureau_gateway: " << error.what() << '\n';
        return 2;
    }
    if (seconds != 0) {
        options.lifetime = std::chrono::seconds(seconds);
    }
    return options;
}

}  // namespace zr::gateway
