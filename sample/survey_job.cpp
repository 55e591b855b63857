#include "survey_job.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <map>
#include <numbers>
#include <span>
#include <sstream>
#include <stdexcept>

#include "runtime/number_text.h"

namespace tavoru {
namespace {

/// One line of a job: the stations that it names and the numbers behind them.
struct Observation {
    std::vector<std::string> stations;
    std::vector<double> numbers;
};
using Observations = std::span<const Observation>;
using Vector = std::array<double, 3>;

constexpr double kSeconds = 3600;
constexpr double kMillimetres = 1000;

std::string fixed(double value, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str();
}

std::string counted(std::size_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string kilometres(double metres) { return fixed(metres / 1000, 3) + " km"; }

double degrees(std::span<const double> dms) { return dms[0] + dms[1] / 60 + dms[2] / kSeconds; }

double length(const Vector& v) { return std::hypot(v[0], v[1], v[2]); }

// ---- The kinds of jobs

/// Interior angles and sides of a closed figure. The figure is closed with the angles balanced.
void reportTraverse(Observations stations, SurveyJob& job) {
    const auto count = static_cast<double>(stations.size());
    double excess = -(count - 2) * 180;
    double perimeter = 0;
    for (const Observation& at : stations) {
        excess += degrees(at.numbers);
        perimeter += at.numbers[3];
    }

    double east = 0;
    double north = 0;
    double bearing = 0;
    for (const Observation& at : stations) {
        bearing += 180 - (degrees(at.numbers) - excess / count);
        east += at.numbers[3] * std::sin(bearing * std::numbers::pi / 180);
        north += at.numbers[3] * std::cos(bearing * std::numbers::pi / 180);
    }
    const double gap = std::hypot(east, north);

    job.extent = counted(stations.size(), "station") + ", " + kilometres(perimeter);
    job.closure = "angles close to " + fixed(excess * kSeconds, 1) + " seconds, the figure to " +
                  fixed(gap * kMillimetres, 0) + " mm";
    if (gap > 0) job.closure += ", 1 in " + fixed(std::floor(perimeter / gap / 100) * 100, 0);
}

/// Runs of levels that follow one another back to where they began.
void reportLevelling(Observations runs, SurveyJob& job) {
    double rise = 0;
    double path = 0;
    const Observation* previous = &runs.back();
    for (const Observation& run : runs) {
        if (run.stations[0] != previous->stations[1]) {
            throw std::runtime_error("no run leads to " + run.stations[0]);
        }
        rise += run.numbers[0];
        path += run.numbers[1];
        previous = &run;
    }
    job.extent = counted(runs.size(), "run") + ", " + kilometres(path);
    job.closure = "the loop closes to " + fixed(rise * kMillimetres, 1) +
                  " mm; 12 mm per root kilometre allow " + fixed(12 * std::sqrt(path / 1000), 1) + " mm";
}

/// Differences between stations. Each one between two stations that others have reached closes a loop.
void reportBaselines(Observations baselines, SurveyJob& job) {
    std::map<std::string, Vector> positions{{baselines.front().stations[0], Vector{}}};
    double total = 0;
    double widest = 0;
    std::size_t loops = 0;
    for (const Observation& baseline : baselines) {
        const auto from = positions.find(baseline.stations[0]);
        if (from == positions.end()) {
            throw std::runtime_error("no baseline leads to " + baseline.stations[0]);
        }
        Vector reached{};
        for (std::size_t i = 0; i < 3; ++i) reached[i] = from->second[i] + baseline.numbers[i];
        total += length({baseline.numbers[0], baseline.numbers[1], baseline.numbers[2]});

        const auto [to, isNew] = positions.emplace(baseline.stations[1], reached);
        if (isNew) continue;
        ++loops;
        const Vector gap{reached[0] - to->second[0], reached[1] - to->second[1], reached[2] - to->second[2]};
        widest = std::max(widest, length(gap));
    }
    job.extent = counted(positions.size(), "station") + ", " + counted(baselines.size(), "baseline") + ", " +
                 kilometres(total);
    job.closure = counted(loops, "loop") + ", the widest gap " + fixed(widest * kMillimetres, 1) + " mm";
}

void reportTriangles(Observations triangles, SurveyJob& job) {
    double worst = 0;
    for (const Observation& triangle : triangles) {
        const std::span<const double> angles(triangle.numbers);
        const double excess =
            degrees(angles.subspan(0)) + degrees(angles.subspan(3)) + degrees(angles.subspan(6)) - 180;
        if (std::abs(excess) > std::abs(worst)) worst = excess;
    }
    job.extent = counted(triangles.size(), "triangle");
    job.closure = "the worst triangle closes to " + fixed(worst * kSeconds, 1) + " seconds";
}

struct Kind {
    std::string_view name;
    std::size_t stations;  // in a line
    std::size_t numbers;
    void (*report)(Observations, SurveyJob&);
};
constexpr Kind kKinds[] = {
    {"Traverse", 1, 4,
     reportTraverse},  // interior angle (degrees, minutes, seconds), distance to the next station
    {"Levelling", 2, 2, reportLevelling},      // from, to; rise, length of the run
    {"GNSS", 2, 3, reportBaselines},           // from, to; dX, dY, dZ
    {"Triangulation", 3, 9, reportTriangles},  // the angle at each station
};

// ---- Reading

Observation readObservation(const std::string& line) {
    Observation observation;
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        if (const auto number = t_genproc::parseNumber(word)) {
            observation.numbers.push_back(*number);
        } else {
            observation.stations.push_back(word);
        }
    }
    return observation;
}

bool readHeading(const std::string& line, SurveyJob& job) {
    std::istringstream words(line);
    std::string name;
    std::string value;
    words >> name;
    std::getline(words >> std::ws, value);
    if (name == "Title")
        job.title = value;
    else if (name == "Kind")
        job.kind = value;
    else if (name == "Surveyed")
        job.surveyed = value;
    else
        return false;
    return true;
}

}  // namespace

SurveyJob readSurveyJob(const std::string& fileName, const std::vector<std::string>& lines) try {
    SurveyJob job;
    std::vector<Observation> observations;
    for (const std::string& line : lines) {
        const bool isNote = line.empty() || line.front() == '#';
        if (!isNote && !readHeading(line, job)) observations.push_back(readObservation(line));
    }

    const auto* const kind = std::ranges::find(kKinds, job.kind, &Kind::name);
    if (kind == std::end(kKinds)) throw std::runtime_error("no known kind of survey");
    if (observations.empty()) throw std::runtime_error("no observations");
    for (const Observation& each : observations) {
        if (each.stations.size() != kind->stations || each.numbers.size() != kind->numbers) {
            throw std::runtime_error("an incomplete observation");
        }
    }
    kind->report(observations, job);
    return job;
} catch (const std::runtime_error& error) {
    throw std::runtime_error(fileName + " is no survey job: " + error.what());
}

}  // namespace tavoru
