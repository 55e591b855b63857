#include "table_reporter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

namespace t_genproc::bench {
namespace {

template <class... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 100> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::string timeText(double microseconds) {
    if (microseconds < 10) return formatted("%.2f µs", microseconds);
    if (microseconds < 1000) return formatted("%.0f µs", microseconds);
    return formatted(microseconds < 10000 ? "%.2f ms" : "%.0f ms", microseconds / 1000);
}

void addOnce(std::vector<std::string>& names, const std::string& name) {
    if (std::ranges::find(names, name) == names.end()) names.push_back(name);
}

}  // namespace

std::string cellName(const std::string& table, const std::string& column, const std::string& row) {
    return table + "/" + column + "/" + row;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        const std::string& name = run.run_name.function_name;
        const std::size_t column = name.find('/') + 1;
        const std::size_t row = name.find('/', column) + 1;
        Cell& cell = tables_[name.substr(0, column - 1)][run.family_index];
        cell.column = name.substr(column, row - column - 1);
        cell.row = name.substr(row);
        cell.times.push_back(run.GetAdjustedRealTime());
    }
}

void TableReporter::Finalize() {
    for (auto& [name, table] : tables_) {
        out_ << "\n| " << name;
        for (auto& [index, cell] : table) std::ranges::sort(cell.times);
        print(table);
    }
}

void TableReporter::print(const Table& table) {
    std::vector<std::string> columns, rows;
    for (const auto& [index, cell] : table) {
        addOnce(columns, cell.column);
        addOnce(rows, cell.row);
    }
    for (const std::string& column : columns) out_ << " | " << column;
    out_ << " |\n|---";
    for (std::size_t i = 0; i < columns.size(); ++i) out_ << "|---";
    out_ << "|\n";

    std::map<std::string, double> base;  // of each column
    for (const std::string& row : rows) {
        out_ << "| " << row;
        for (const auto& [index, cell] : table) {
            if (cell.row != row) continue;
            const double median = cell.times[cell.times.size() / 2];
            const double first = base.try_emplace(cell.column, median).first->second;
            out_ << " | " << timeText(median) << ", "
                 << formatted("%.2f (%.2f-%.2f)", median / first, cell.times.front() / first,
                              cell.times.back() / first);
        }
        out_ << " |\n";
    }
}

}  // namespace t_genproc::bench
