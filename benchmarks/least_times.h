// How the benchmarks measure: interleaved repetitions, of which the fastest counts.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace zr::bench {

/// Keeps the least time of every benchmark: what the work costs when the machine does nothing else.
class LeastTimes : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration) {
                const double time = run.GetAdjustedCPUTime();
                auto [entry, created] = times_.try_emplace(run.run_name.function_name, time);
                entry->second = std::min(entry->second, time);
            }
        }
    }
    double of(const std::string& name) const { return times_.at(name); }

  private:
    std::map<std::string, double> times_;
};

/// Starts the benchmark library with our repetitions and the options of the command line.
inline void initialise(int argc, char** argv) {
    std::vector<std::string> options = {argv[0], "--benchmark_repetitions=9",
                                        "--benchmark_min_time=0.05",
                                        "--benchmark_enable_random_interleaving=true"};
    options.insert(options.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& option : options) {
        pointers.push_back(option.data());
    }
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
}

}  // namespace zr::bench
