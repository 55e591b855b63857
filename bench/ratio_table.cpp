#include "ratio_table.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iostream>

namespace t_genproc::bench {
namespace {

constexpr const char *kTime = "microseconds", *kRatio = "ratio";

std::string number(double value) {
    std::string text = std::to_string(value < 10 ? std::round(value * 100) / 100 : std::round(value));
    return text.substr(0, text.find('.') + (value < 10 ? 3 : 0));
}

std::string time(double microseconds) {
    return microseconds < 1000 ? number(microseconds) + " µs" : number(microseconds / 1000) + " ms";
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
}

double microseconds(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

void run(benchmark::State& state, const Work& base, const Work& own) {
    static bool baseFirst = false;
    std::vector<double> times, ratios;
    for (auto _ : state) {
        baseFirst = !baseFirst;
        const double first = microseconds(baseFirst ? base : own);
        const double second = microseconds(baseFirst ? own : base);
        times.push_back(baseFirst ? second : first);
        ratios.push_back(baseFirst ? second / first : first / second);
        state.SetIterationTime((first + second) / 1e6);
    }
    state.counters[kTime] = median(times);
    state.counters[kRatio] = median(ratios);
}

}  // namespace

benchmark::internal::Benchmark* compare(const std::string& name, const Work& base, const Work& own) {
    const auto body = [=](benchmark::State& state) { run(state, base, own); };
    return benchmark::RegisterBenchmark(name.c_str(), body)->UseManualTime();
}

Work thousand(const Work& work) {
    return [work] {
        for (int i = 0; i < 1000; ++i) work();
    };
}

void row(const std::string& name, const Peers& peers) {
    for (const auto& [peer, work] : peers) {
        compare(name + "/" + peer, thousand(peers.front().second), thousand(work));
    }
}

void printTable(const std::string& heading, const std::string& rows) {
    std::cout << '\n' << heading << '\n';
    for (auto columns = std::ranges::count(heading, '|'); columns > 1; --columns) std::cout << "|---";
    std::cout << "|\n";
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table, rows);
}

void RatioTable::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration) cells_[run.family_index].push_back(run);
    }
}

void RatioTable::Finalize() {
    std::string row;
    for (const auto& [index, runs] : cells_) {
        const std::string name = runs.front().run_name.function_name;
        const std::string work = name.substr(0, name.find('/'));
        if (work != row) std::cout << (row.empty() ? "| " : " |\n| ") << work;
        row = work;

        std::vector<double> times, ratios;
        for (const Run& run : runs) {
            times.push_back(run.counters.at(kTime));
            ratios.push_back(run.counters.at(kRatio));
        }
        const auto [least, most] = std::ranges::minmax(ratios);
        std::cout << " | " << time(median(times)) << ", " << number(median(ratios)) << " (" << number(least)
                  << "-" << number(most) << ")";
    }
    std::cout << " |\n";
}

}  // namespace t_genproc::bench
