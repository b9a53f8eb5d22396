#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// The rows of the table that the bench programs print.
namespace bench {

/// Keeps the seconds of every repetition instead of printing them.
class Collector final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                m_seconds[run.run_name.function_name].push_back(run.real_accumulated_time);
    }

    double median(const std::string& name) {
        std::vector<double>& seconds = m_seconds.at(name);
        std::sort(seconds.begin(), seconds.end());
        return seconds[seconds.size() / 2];
    }

private:
    std::map<std::string, std::vector<double>> m_seconds;
};

/// Repeats `ours` and `peer` in random turns, so that a busy moment of the machine meets both, and prints one row with
/// the medians. Each returns the seconds of one run; the peer may be ours at another size. `goal` is the largest ratio
/// wanted.
inline void Row(const std::string& name, double goal, const std::function<double()>& ours,
                const std::function<double()>& peer, int runs = 31) {
    static const bool interleaved = [] {
        char program[] = "bench";
        char flag[] = "--benchmark_enable_random_interleaving=true";
        char* arguments[] = {program, flag, nullptr};
        int count = 2;
        benchmark::Initialize(&count, arguments);
        return true;
    }();
    static_cast<void>(interleaved);

    benchmark::ClearRegisteredBenchmarks();
    const auto add = [runs](const char* side, const std::function<double()>& run) {
        run();  // the first run warms up
        benchmark::RegisterBenchmark(side,
                                     [&run](benchmark::State& state) {
                                         for (auto _ : state)
                                             state.SetIterationTime(run());
                                     })
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(runs);
    };
    add("ours", ours);
    add("peer", peer);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    const double our = collector.median("ours");
    const double other = collector.median("peer");
    std::printf("%s | %.3f ms | %.3f ms | %.2f | <= %.2f\n", name.c_str(), our * 1e3, other * 1e3, our / other, goal);
    std::fflush(stdout);
}

}  // namespace bench
