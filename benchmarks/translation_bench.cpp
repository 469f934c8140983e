// What translating a reply costs, beside xmlReadMemory alone and beside reading every value with an
// XPath string: ratios measured in one run.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "least_times.h"
#include "naive_reader.h"
#include "platform/style_sheet.h"
#include "reply_maker.h"
#include "zrcreditbureau/zr_credit_bureau.h"

namespace zr::bench {
namespace {

/// A facade with a request on which replies of a kind are translated again and again.
class Translator {
  public:
    explicit Translator(const ReplyKind& kind) {
        bureau_.Initialise(kind.country);
        request_ = bureau_.CreateRequest();
        request_->ServiceName(kind.service);
        request_->ProductId(kind.product);
    }

    void translate(const std::string& reply) {
        if (!bureau_.BuildResponse(*request_, DateTime::ymd(2014, 6, 15), reply)) {
            std::fprintf(stderr, "%s\n", bureau_.ErrorMessage().c_str());
            std::exit(1);
        }
        benchmark::DoNotOptimize(request_->Response()->ResponseElements().Count());
    }

  private:
    ZRCreditBureau bureau_;
    std::unique_ptr<Request> request_;
};

constexpr std::size_t kSizes[] = {8'000, 75'000, 740'000};

struct Case {
    const char* name;
    std::function<void(const std::string&)> run;
};

/// The sheet of a kind's reports; "" for one that is rendered like another.
std::string sheet_of(const ReplyKind& kind) {
    static const std::map<std::string_view, const char*> kSheets = {
        {"au-person", "vedaxml_au.xsl"},
        {"nz-person", "vedaxml_nz.xsl"},
        {"nz-company", "vedaxml_nz.xsl"},
        {"b2bay-nz", "b2bay_nz.xsl"},
    };
    const auto found = kSheets.find(kind.name);
    return found == kSheets.end() ? "" : std::string(ZR_SHEETS) + found->second;
}

/// The page of a reply.
std::string render(const ReplyKind& kind, const std::string& reply) {
    static StyleSheets sheets;
    return sheets.transform(
        reply, sheet_of(kind),
        {{"response-date", "2014-06-15"}, {"service", std::string(kind.service)}});
}

std::vector<Case> cases(const ReplyKind& kind) {
    auto translator = std::make_shared<Translator>(kind);
    std::vector<Case> result = {
        {"parse", read_and_free},
        {"translate", [translator](const std::string& reply) { translator->translate(reply); }},
        {"naive",
         [service = kind.service](const std::string& reply) { read_naively(reply, service); }}};
    if (!sheet_of(kind).empty()) {
        result.push_back({"render", [kind](const std::string& reply) {
                              benchmark::DoNotOptimize(render(kind, reply));
                          }});
    }
    return result;
}

std::string key(const ReplyKind& kind, std::string_view name, std::size_t size) {
    return std::string(kind.name) + " " + std::string(name) + " " + std::to_string(size);
}

void print_ratios(const ReplyKind& kind, const LeastTimes& times) {
    double previous = 0;
    for (const std::size_t size : kSizes) {
        const std::size_t length = kind.make(size).size();
        const double parse = times.of(key(kind, "parse", size));
        const double translate = times.of(key(kind, "translate", size));
        const double naive = times.of(key(kind, "naive", size));
        const double per_byte = translate / static_cast<double>(length);
        std::printf("%-12.*s %8zu %10.1f %12.1f %10.1f %16.2f %16.1f",
                    static_cast<int>(kind.name.size()), kind.name.data(), length, parse, translate,
                    naive, translate / parse, naive / translate);
        if (previous > 0) {
            std::printf(" %12.2f", per_byte / previous);
        }
        std::printf("\n");
        previous = per_byte;
    }
}

/// The rendering beside the translation, and the size of the page beside the reply's.
void print_rendering(const ReplyKind& kind, const LeastTimes& times) {
    for (const std::size_t size : kSizes) {
        const std::string reply = kind.make(size);
        const std::size_t page = render(kind, reply).size();
        const double translate = times.of(key(kind, "translate", size));
        const double rendering = times.of(key(kind, "render", size));
        std::printf("%-12.*s %8zu %12.1f %12.1f %16.1f %10zu %12.2f\n",
                    static_cast<int>(kind.name.size()), kind.name.data(), reply.size(), translate,
                    rendering, rendering / translate, page,
                    static_cast<double>(page) / static_cast<double>(reply.size()));
    }
}

void measure(int argc, char** argv) {
    initialise(argc, argv);
    for (const ReplyKind& kind : reply_kinds()) {
        for (const std::size_t size : kSizes) {
            const auto reply = std::make_shared<const std::string>(kind.make(size));
            for (const Case& each : cases(kind)) {
                benchmark::RegisterBenchmark(key(kind, each.name, size).c_str(),
                                             [reply, run = each.run](benchmark::State& state) {
                                                 for (auto _ : state) {
                                                     run(*reply);
                                                 }
                                             })
                    ->Unit(benchmark::kMicrosecond);
            }
        }
    }
    LeastTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    std::printf("%-12s %8s %10s %12s %10s %16s %16s %12s\n", "reply", "bytes", "parse us",
                "translate us", "naive us", "translate/parse", "naive/translate", "cost growth");
    std::printf("%-12s %8s %10s %12s %10s %16s %16s %12s\n", "", "", "", "", "", "(at most 0.8)",
                "(at least 5)", "/size growth");
    for (const ReplyKind& kind : reply_kinds()) {
        print_ratios(kind, times);
    }
    std::printf("\n%-12s %8s %12s %12s %16s %10s %12s\n", "reply", "bytes", "translate us",
                "render us", "render/translate", "page", "page/reply");
    std::printf("%-12s %8s %12s %12s %16s %10s %12s\n", "", "", "", "", "", "", "(at most 2)");
    for (const ReplyKind& kind : reply_kinds()) {
        if (!sheet_of(kind).empty()) print_rendering(kind, times);
    }
}

/// Runs one case a number of times and prints the reply's size and the process's peak memory: what
/// instruction counters and memory meters are put around.
int run_once(std::string_view kind_name, std::string_view name, std::size_t size, int times) {
    const ReplyKind* const kind = find_reply_kind(kind_name);
    if (kind == nullptr) {
        std::fprintf(stderr, "bench_translation: no such kind of reply\n");
        return 2;
    }
    const std::string reply = kind->make(size);
    for (const Case& each : cases(*kind)) {
        if (each.name == name) {
            for (int round = 0; round < times; ++round) {
                each.run(reply);
            }
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            std::printf("%zu %ld\n", reply.size(), usage.ru_maxrss * 1024);
            return 0;
        }
    }
    std::fprintf(stderr, "bench_translation: no such case\n");
    return 2;
}

}  // namespace
}  // namespace zr::bench

// bench_translation [--benchmark_...], or bench_translation --run KIND CASE BYTES TIMES, or
// bench_translation --reply KIND BYTES, which writes the reply that is measured
int main(int argc, char** argv) {
    if (argc == 4 && std::string_view(argv[1]) == "--reply") {
        const zr::bench::ReplyKind* const kind = zr::bench::find_reply_kind(argv[2]);
        if (kind == nullptr) return 2;
        std::fputs(kind->make(std::strtoul(argv[3], nullptr, 10)).c_str(), stdout);
        return 0;
    }
    if (argc == 6 && std::string_view(argv[1]) == "--run") {
        return zr::bench::run_once(argv[2], argv[3], std::strtoul(argv[4], nullptr, 10),
                                   std::atoi(argv[5]));
    }
    zr::bench::measure(argc, argv);
    return 0;
}
