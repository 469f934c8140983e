// A machine whose memory ends: every allocation of a task fails once, one run a point, each in a
// process of its own, and what a host then sees is told apart.
//     failing_allocator FOLDER [TASK...] [--from] [--step N | --at POINT]
// FOLDER holds examples/ and xslt/. With --from every allocation after the point fails too; with
// --step only each Nth point is tried, with --at one in this process, and its result is shown.
// ZR_POINTS in the environment shows the points that went wrong. A line a task: its name, the
// points tried, and how many ended right, with a clean failure, wrong, in an exception, in a crash.
// Exit status 1 when any of the last three occurred.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/json_form.h"
#include "support/fake_bureau.h"
#include "support/loopback_server.h"
#include "zrcreditbureau/vedaxml_services.h"

namespace {

constinit bool armed = false;
constinit bool keeps_failing = false;
constinit long to_go = 0;
constinit bool reached = false;

bool fails() {
    if (!armed || --to_go > 0) return false;
    if (to_go < 0 && !keeps_failing) return false;
    reached = true;
    errno = ENOMEM;
    return true;
}

}  // namespace

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

void* malloc(std::size_t size) noexcept { return fails() ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) noexcept {
    return fails() ? nullptr : __libc_realloc(block, size);
}
}

namespace zr::test {
namespace {

enum Outcome : std::uint8_t { kRight, kClean, kWrong, kException, kNotReached, kCrash };

std::string content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What is prepared before memory ends, what is done then, and what came of it.
struct Task {
    std::function<bool()> act;  // false: a failure was told
    std::function<std::string()> result;
    std::function<std::string()> reason;
};

bool is_red_page(const std::string& html) { return html.find("color:red") != std::string::npos; }

std::string without_page(std::string text) {
    const std::size_t at = text.find("\"ResponseHTML\":\"");
    if (at == std::string::npos) return text;
    const std::size_t end = text.find('"', text.find("</html>", at));
    return text.replace(at, end - at, "red");
}

struct Enquiry {
    FakeBureau bureau;
    std::string reply;

    Enquiry(const std::string& folder, std::string_view country, std::string_view service,
            const std::string& name, bool with_sheet)
        : bureau(country), reply(content(folder + "/examples/" + name)) {
        bureau.ask(country == "AU" ? "consumer-enquiry" : "enquiry_individual", service);
        bureau.script().reply.body = reply;
        auto& settings = bureau.service(service);
        if (with_sheet) {
            automation::JsonValue json = automation::JsonValue::object();
            const std::string sheet = country == "AU" ? "vedaxml_au.xsl" : "vedaxml_nz.xsl";
            json.members().emplace_back("XSLTFileName",
                                        automation::JsonValue::text(folder + "/xslt/" + sheet));
            automation::read_settings(json, settings);
        }
    }

    /// The response as JSON; its page apart, since the red page is right as well.
    std::string result() const {
        const Response& response = *bureau.request->Response();
        automation::JsonWriter json;
        automation::write_response(json, response);
        std::string text(json.view());
        if (is_red_page(response.ResponseHTML())) text = without_page(std::move(text));
        return text;
    }
};

Task translation(const std::string& folder, const std::string& reply, bool with_sheet) {
    const bool australian = reply.starts_with("vedaxml_au");
    auto enquiry =
        std::make_shared<Enquiry>(folder, australian ? "AU" : "NZ",
                                  australian ? "VedaXMLAU" : "VedaXMLNZ", reply, with_sheet);
    return {[enquiry] {
                return enquiry->bureau.facade.BuildResponse(*enquiry->bureau.request,
                                                            kClock.date_only(), enquiry->reply);
            },
            [enquiry] { return enquiry->result(); },
            [enquiry] { return enquiry->bureau.facade.ErrorMessage(); }};
}

Task enquiry(const std::string& folder) {
    auto made = std::make_shared<Enquiry>(folder, "AU", "VedaXMLAU", "vedaxml_au_clean.xml", false);
    return {[made] { return made->bureau.facade.ExecuteCreditEnquiry(*made->bureau.request); },
            [made] { return std::string(made->bureau.request->RequestXML()) + made->result(); },
            [made] { return made->bureau.facade.ErrorMessage(); }};
}

/// An enquiry over a connection of its own, with all that the HTTP library allocates for it.
Task exchange(const std::string& folder) {
    static LoopbackServer server(
        LoopbackServer::answering([body = content(folder + "/examples/vedaxml_au_clean.xml")](
                                      const ReceivedRequest& request) {
            return request.header("Authorization").empty()
                       ? reply("401 Who", "", "WWW-Authenticate: Basic realm=\"r\"\r\n")
                       : reply("200 OK", body);
        }));
    struct Live {
        ZRCreditBureau facade{
            [] { return std::make_unique<Runtime>(make_http_transport(), [] { return kClock; }); }};
        std::unique_ptr<Request> request = facade.CreateRequest();
    };
    auto live = std::make_shared<Live>();
    live->facade.Initialise("AU");
    auto& service = dynamic_cast<ServiceVedaXMLAU&>(live->facade.Services().Item("VedaXMLAU"));
    service.RequestURLTest(server.url());
    service.UserId("user");
    service.UserPassword("word");
    live->request->ServiceName("VedaXMLAU");
    live->request->ProductId("consumer-enquiry");
    return {[live] { return live->facade.ExecuteCreditEnquiry(*live->request); },
            [live] {
                automation::JsonWriter json;
                automation::write_response(json, *live->request->Response());
                return std::string(json.view());
            },
            [live] { return live->facade.ErrorMessage(); }};
}

Task initialisation(const std::string& country) {
    auto facade = std::make_shared<ZRCreditBureau>();
    return {[facade, country] { return facade->Initialise(country); },
            [facade] {
                automation::JsonWriter json;
                automation::write_catalogue(json, *facade);
                return std::string(json.view());
            },
            [facade] { return facade->ErrorMessage(); }};
}

Task json(const std::string& folder) {
    auto made = std::make_shared<Enquiry>(folder, "AU", "VedaXMLAU", "vedaxml_au_clean.xml", false);
    made->bureau.facade.BuildResponse(*made->bureau.request, kClock.date_only(), made->reply);
    auto written = std::make_shared<std::string>(made->result());
    auto again = std::make_shared<std::string>();
    // Functions, not the interface: an exception is how they tell of it.
    return {[=] {
                try {
                    const automation::JsonValue value = automation::parse_json(*written);
                    const std::string read = value.find("ResponseXML")->text();
                    *again = made->result() + read;
                } catch (const std::bad_alloc&) {
                    return false;
                }
                return true;
            },
            [again] { return *again; }, [] { return std::string("Not enough memory."); }};
}

const struct {
    const char* name;
    Task (*prepare)(const std::string& folder);
} kTasks[] = {
    {"translate",
     [](const std::string& f) { return translation(f, "vedaxml_au_adverse.xml", false); }},
    {"html-au", [](const std::string& f) { return translation(f, "vedaxml_au_clean.xml", true); }},
    {"html-nz", [](const std::string& f) { return translation(f, "vedaxml_nz_person.xml", true); }},
    {"compose", enquiry},
    {"exchange", exchange},
    {"initialise-au", [](const std::string&) { return initialisation("AU"); }},
    {"initialise-nz", [](const std::string&) { return initialisation("NZ"); }},
    {"json", json},
};

const bool shows_points = std::getenv("ZR_POINTS") != nullptr;

Outcome attempt(const Task& task, const std::string& expected, long point) {
    to_go = point;
    armed = true;
    bool done = false;
    try {
        done = task.act();
    } catch (...) {
        armed = false;
        return kException;
    }
    armed = false;
    if (!reached) return kNotReached;
    if (!done) {  // a clean failure, behind which it can be had
        return !task.reason().empty() && task.act() && task.result() == expected ? kClean : kWrong;
    }
    const std::string result = task.result();
    if (result == expected) return kRight;
    if (result == without_page(expected)) return kClean;
    if (shows_points) {
        const auto at = static_cast<std::size_t>(
            std::mismatch(result.begin(), result.end(), expected.begin(), expected.end()).first -
            result.begin());
        std::printf("  not %.80s\n  but %.80s\n",
                    expected.substr(std::min(at, expected.size())).c_str(), result.c_str() + at);
        std::fflush(stdout);
    }
    return kWrong;
}

/// True when nothing worse than a clean failure occurred.
bool run(const char* name, const std::function<Task()>& prepare, long step, long only) {
    const Task reference = prepare();
    const bool done = reference.act();
    const std::string expected = reference.result();
    if (only != 0) {  // here, for a debugger
        const Task task = prepare();
        std::printf("%s at %ld: %d\n", name, only, attempt(task, expected, only));
        std::printf("%s\n", task.result().c_str());
        return true;
    }
    std::array<long, 6> counts{};
    long first_bad = 0;
    for (long point = 1; done; point += step) {
        const pid_t child = fork();
        if (child == 0) {
            std::fclose(stderr);
            _exit(attempt(prepare(), expected, point));
        }
        int status = 0;
        waitpid(child, &status, 0);
        const Outcome outcome =
            WIFEXITED(status) ? static_cast<Outcome>(WEXITSTATUS(status)) : kCrash;
        if (outcome == kNotReached) break;
        ++counts.at(outcome);
        const bool bad = outcome != kRight && outcome != kClean;
        if (bad && first_bad == 0) first_bad = point;
        if (bad && shows_points) std::printf("  %ld: %d\n", point, outcome);
    }
    const long tried =
        counts[kRight] + counts[kClean] + counts[kWrong] + counts[kException] + counts[kCrash];
    std::printf("%-14s tried %5ld  right %5ld  clean %5ld  wrong %3ld  exception %3ld  crash %3ld",
                name, tried, counts[kRight], counts[kClean], counts[kWrong], counts[kException],
                counts[kCrash]);
    std::printf(first_bad != 0 ? "  first at %ld\n" : "\n", first_bad);
    std::fflush(stdout);
    return tried > 0 && first_bad == 0;
}

}  // namespace
}  // namespace zr::test

int main(int argc, char** argv) {
    using namespace zr::test;
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    std::vector<std::string_view> wanted;
    long step = 1;
    long only = 0;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--from") {
            keeps_failing = true;
        } else if (arguments[i] == "--step" && i + 1 < arguments.size()) {
            step = std::max(1L, std::strtol(argv[++i + 1], nullptr, 10));
        } else if (arguments[i] == "--at" && i + 1 < arguments.size()) {
            only = std::strtol(argv[++i + 1], nullptr, 10);
        } else {
            wanted.push_back(arguments[i]);
        }
    }
    if (wanted.empty()) {
        std::fputs("usage: failing_allocator FOLDER [TASK...] [--from] [--step N]\n", stderr);
        return 2;
    }
    const std::string folder(wanted.front());
    bool held = true;
    for (const auto& task : kTasks) {
        const bool asked = wanted.size() == 1 ||
                           std::find(wanted.begin() + 1, wanted.end(), task.name) != wanted.end();
        if (asked)
            held = run(
                       task.name, [&] { return task.prepare(folder); }, step, only) &&
                   held;
    }
    return held ? 0 : 1;
}
