/// The results as a Markdown table: a row for each work, a column for each peer.
#pragma once

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace t_genproc::bench {

using Work = std::function<void()>;

/// Registers a benchmark `name`, "work/peer", that runs both works by turns, so that what else happens on the
/// machine meets both alike. Its cell holds the time of `own`, and its ratio to that of `base`.
benchmark::internal::Benchmark* compare(const std::string& name, const Work& base, const Work& own);

/// Ends the program otherwise: what gives no right result need not be measured.
inline void require(bool isSo) {
    if (!isSo) std::abort();
}

/// The work a thousand times: the clock takes longer than one.
Work thousand(const Work& work);

using Peers = std::vector<std::pair<std::string, Work>>;

/// Registers a row of a table: a thousand times each peer beside the first.
void row(const std::string& name, const Peers& peers);

/// Runs the rows whose name holds `rows`, and prints their table under the columns of `heading`.
void printTable(const std::string& heading, const std::string& rows);

/// Takes the benchmarks that compare has registered, row by row. A cell holds the medians of all repetitions
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
