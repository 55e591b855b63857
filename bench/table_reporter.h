/// The results as Markdown tables: medians, and how they compare with the first row.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace t_genproc::bench {

/// The name of a benchmark that fills one cell.
std::string cellName(const std::string& table, const std::string& column, const std::string& row);

/// Needs repetitions. Each cell holds the median time, its ratio to that of the first row in the same column,
/// and in brackets the ratios of the fastest and the slowest repetition to it. Columns and rows stand in the
/// order in which their benchmarks were registered.
class TableReporter : public benchmark::BenchmarkReporter {
   public:
    explicit TableReporter(std::ostream& out) : out_(out) {}
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

   private:
    struct Cell {
        std::string column, row;
        std::vector<double> times;  // of the repetitions, in microseconds
    };
    using Table = std::map<std::int64_t, Cell>;  // by family index: the order of registration

    void print(const Table& table);

    std::ostream& out_;
    std::map<std::string, Table> tables_;
};

}  // namespace t_genproc::bench
