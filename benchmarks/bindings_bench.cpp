// What a host of another language pays: translating a reply and reading all its lines through the C
// library, beside the translation alone from C++. Ratios measured in one run.

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "least_times.h"
#include "reply_maker.h"
#include "zrcreditbureau/zr_credit_bureau.h"
#include "zrcreditbureau5.h"

namespace zr::bench {
namespace {

constexpr const char* kLineMembers[] = {"ResponseGroup", "ResponseGroupSort", "ResponseSubGroup",
                                        "ResponseName", "ResponseDescription"};

void must(bool right, const char* what) {
    if (!right) {
        std::fprintf(stderr, "bench_bindings: %s failed\n", what);
        std::exit(1);
    }
}

/// The same translation from C++, in a facade that stays or in a new one each time.
class FromCpp {
  public:
    explicit FromCpp(const ReplyKind& kind) : kind_(kind) {
        must(bureau_.Initialise(kind.country), "Initialise");
        request_ = bureau_.CreateRequest();
        request_->ServiceName(kind.service);
        request_->ProductId(kind.product);
    }

    void translate(const std::string& reply) {
        must(bureau_.BuildResponse(*request_, DateTime::ymd(2014, 6, 15), reply), "BuildResponse");
    }

  private:
    const ReplyKind& kind_;
    ZRCreditBureau bureau_;
    std::unique_ptr<Request> request_;
};

zr_value text(std::string_view value) {
    zr_value made{};
    made.type = ZR_TEXT;
    made.as.text = {value.data(), value.size()};
    return made;
}

/// A host in C that has looked its members' ids up once.
class FromC {
  public:
    explicit FromC(const ReplyKind& kind) {
        must(zr_create("ZRCreditBureau", &bureau_) == ZR_OK, "zr_create");
        const zr_value country = text(kind.country);
        must(zr_get_by_name(bureau_, "Initialise", &country, 1, nullptr) == ZR_OK, "Initialise");
        zr_value request{};
        must(zr_get_by_name(bureau_, "CreateRequest", nullptr, 0, &request) == ZR_OK, "request");
        request_ = request.as.object;
        const zr_value service = text(kind.service);
        const zr_value product = text(kind.product);
        must(zr_put_by_name(request_, "ServiceName", &service, 1) == ZR_OK, "ServiceName");
        must(zr_put_by_name(request_, "ProductId", &product, 1) == ZR_OK, "ProductId");
    }
    FromC(const FromC&) = delete;
    FromC& operator=(const FromC&) = delete;
    ~FromC() {
        zr_release(request_);
        zr_release(bureau_);
    }

    /// Translates and gives the lines.
    zr_handle translate(const std::string& reply) {
        std::array<zr_value, 3> values{};
        values[0].type = ZR_OBJECT;
        values[0].as.object = request_;
        values[1].type = ZR_DATE;
        values[1].as.date = {2014, 6, 15, 0, 0, 0};
        values[2] = text(reply);
        zr_value result{};
        must(zr_get_by_name(bureau_, "BuildResponse", values.data(), 3, &result) == ZR_OK &&
                 result.as.boolean != 0,
             "BuildResponse");
        zr_value response{};
        zr_value lines{};
        zr_get_by_name(request_, "Response", nullptr, 0, &response);
        zr_get_by_name(response.as.object, "ResponseElements", nullptr, 0, &lines);
        zr_release(response.as.object);
        return lines.as.object;
    }

    void read_by_id(zr_handle lines) {
        look_up(lines);
        zr_value count{};
        zr_get_by_name(lines, "Count", nullptr, 0, &count);
        zr_value position{};
        position.type = ZR_INT32;
        std::size_t bytes = 0;
        for (std::int32_t i = 1; i <= count.as.int32; ++i) {
            position.as.int32 = i;
            zr_value line{};
            zr_get(lines, 0, &position, 1, &line);
            for (const std::int32_t id : ids_) {
                zr_value value{};
                zr_get(line.as.object, id, nullptr, 0, &value);
                bytes += value.as.text.size;
            }
            zr_release(line.as.object);
        }
        must(bytes > 0, "reading by id");
        zr_release(lines);
    }

    void read_at_once(zr_handle lines) {
        look_up(lines);
        zr_handle owner = 0;
        zr_table table{};
        must(zr_read_table(lines, ids_.data(), ids_.size(), &owner, &table) == ZR_OK, "the table");
        benchmark::DoNotOptimize(table.bytes);
        zr_release(owner);
        zr_release(lines);
    }

  private:
    void look_up(zr_handle lines) {
        if (ids_[0] != 0) return;
        zr_value position{};
        position.type = ZR_INT32;
        position.as.int32 = 1;
        zr_value line{};
        must(zr_get(lines, 0, &position, 1, &line) == ZR_OK, "the first line");
        for (std::size_t i = 0; i < ids_.size(); ++i) {
            must(zr_member_id(line.as.object, kLineMembers[i], &ids_[i]) == ZR_OK, "an id");
        }
        zr_release(line.as.object);
    }

    zr_handle bureau_ = 0;
    zr_handle request_ = 0;
    std::array<std::int32_t, std::size(kLineMembers)> ids_{};
};

struct Case {
    const char* name;
    const char* bar;  ///< of its time beside the translation's
    std::function<void()> run;
};

std::vector<Case> cases(const ReplyKind& kind, const std::string& reply) {
    auto cpp = std::make_shared<FromCpp>(kind);
    auto c = std::make_shared<FromC>(kind);
    return {
        {"C++: translate", "", [cpp, &reply] { cpp->translate(reply); }},
        {"C++: create and initialise a facade", "0.05",
         [&kind] { ZRCreditBureau().Initialise(kind.country); }},
        {"C: translate and read by id", "2.1", [c, &reply] { c->read_by_id(c->translate(reply)); }},
        {"C: translate and read at once", "1.2",
         [c, &reply] { c->read_at_once(c->translate(reply)); }},
        {"C: the same with a new facade", "", [&kind, &reply] {
             FromC host(kind);
             host.read_at_once(host.translate(reply));
         }}};
}

void measure(int argc, char** argv) {
    initialise(argc, argv);
    const ReplyKind& kind = *find_reply_kind("au-person");
    const std::string reply = kind.make(75'000);
    const std::vector<Case> measured = cases(kind, reply);
    for (const Case& each : measured) {
        benchmark::RegisterBenchmark(each.name, [&each](benchmark::State& state) {
            for (auto _ : state) {
                each.run();
            }
        })->Unit(benchmark::kMicrosecond);
    }
    LeastTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    std::printf("%-38s %10s %12s %10s\n", "au-person, 75 KB", "us", "/translate", "(at most)");
    for (const Case& each : measured) {
        std::printf("%-38s %10.1f %12.3f %10s\n", each.name, times.of(each.name),
                    times.of(each.name) / times.of(measured[0].name), each.bar);
    }
}

}  // namespace
}  // namespace zr::bench

int main(int argc, char** argv) {
    zr::bench::measure(argc, argv);
    return 0;
}
