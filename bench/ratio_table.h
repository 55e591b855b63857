/// The results as a Markdown table: a row for each work, a column for each peer.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <vector>

namespace t_genproc::bench {

/// The counters that make a cell: a time in microseconds, and its ratio to another one.
inline constexpr const char* kTime = "time";
inline constexpr const char* kRatio = "ratio";

double median(std::vector<double> values);

/// Takes benchmarks named "work/peer", registered row by row. A cell holds the medians of all repetitions
/// and, in brackets, the smallest and the largest ratio.
class RatioTable : public benchmark::BenchmarkReporter {
   public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

   private:
    std::map<std::int64_t, std::vector<Run>> cells_;  // by the order of registration
};

}  // namespace t_genproc::bench
