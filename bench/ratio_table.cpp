#include "ratio_table.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <string>

namespace t_genproc::bench {
namespace {

std::string number(double value) {
    std::string text = std::to_string(value < 10 ? std::round(value * 100) / 100 : std::round(value));
    return text.substr(0, text.find('.') + (value < 10 ? 3 : 0));
}

std::string time(double microseconds) {
    return microseconds < 1000 ? number(microseconds) + " µs" : number(microseconds / 1000) + " ms";
}

}  // namespace

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
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
