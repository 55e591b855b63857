#include "platform/portable/zone_record.h"

#include <algorithm>

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

struct Change {
    chrono::sys_seconds at;
    chrono::seconds before;  // offsets
    chrono::seconds after;
};

/// Where the offset changes in a year of the zone's, in order.
std::vector<Change> changesIn(const Zone& zone, chrono::year year, chrono::seconds offset) {
    std::vector<Change> changes;
    const auto add = [&](chrono::sys_seconds at) {
        const Change change{at, zone.offsetAt(at - chrono::seconds(1)), zone.offsetAt(at)};
        if (change.before != change.after) changes.push_back(change);
    };
    const chrono::sys_seconds begin = chrono::sys_days(year / 1 / 1) - offset;
    const chrono::sys_seconds end = chrono::sys_days((year + chrono::years(1)) / 1 / 1) - offset;
    const auto isBefore = [](const OffsetChange& change, chrono::sys_seconds time) {
        return change.at < time;
    };
    auto listed = std::lower_bound(zone.changes.begin(), zone.changes.end(), begin, isBefore);
    for (; listed != zone.changes.end() && listed->at < end; ++listed) add(listed->at);
    if (zone.rule) {
        for (const chrono::sys_seconds at : {zone.rule->beginIn(year), zone.rule->endIn(year)}) {
            if (zone.changes.empty() || zone.changes.back().at < at) add(at);
        }
    }
    std::sort(changes.begin(), changes.end(), [](const Change& a, const Change& b) { return a.at < b.at; });
    return changes;
}

std::uint16_t narrow(auto number) { return static_cast<std::uint16_t>(number); }

SystemTime weekOfMonth(unsigned month, unsigned week, unsigned weekday, chrono::seconds time) {
    const chrono::hh_mm_ss clock(time);
    return {.year = 0,
            .month = narrow(month),
            .dayOfWeek = narrow(weekday),
            .day = narrow(week),
            .hour = narrow(clock.hours().count()),
            .minute = narrow(clock.minutes().count()),
            .second = narrow(clock.seconds().count()),
            .milliseconds = 0};
}

bool fitsRecord(const YearlyChange& change) {
    return change.kind == YearlyChange::Day::WeekOfMonth && change.time >= chrono::seconds(0);
}

SystemTime dateOf(const Change& change, const std::optional<ZoneRule>& rule, chrono::year year) {
    if (rule) {
        const bool begins = change.at == rule->beginIn(year), ends = change.at == rule->endIn(year);
        const YearlyChange& yearly = begins ? rule->begins : rule->ends;
        if ((begins || ends) && fitsRecord(yearly)) {
            return weekOfMonth(yearly.month, yearly.week, yearly.weekday, yearly.time);
        }
    }
    const chrono::sys_seconds local = change.at + change.before;
    const auto day = chrono::floor<chrono::days>(local);
    const chrono::year_month_day date(day);
    const unsigned week = (static_cast<unsigned>(date.day()) - 1) / 7 + 1;
    return weekOfMonth(static_cast<unsigned>(date.month()), week, chrono::weekday(day).c_encoding(),
                       local - day);
}

std::int32_t biasOf(chrono::seconds offset) {
    return static_cast<std::int32_t>(-chrono::round<chrono::minutes>(offset).count());
}

}  // namespace

TimeZoneInformation zoneRecord(const Zone& zone, chrono::sys_seconds now) {
    const chrono::seconds offset = zone.offsetAt(now);
    const chrono::year year = chrono::year_month_day(chrono::floor<chrono::days>(now + offset)).year();
    const std::vector<Change> changes = changesIn(zone, year, offset);
    TimeZoneInformation record{.bias = biasOf(offset)};
    if (changes.size() < 2) return record;

    const auto isLater = [&](const Change& change) { return change.at > now; };
    const auto next = std::find_if(changes.begin() + 1, changes.end() - 1, isLater);
    const Change &first = *std::prev(next), &second = *next;
    if (first.before != second.after) return record;
    const bool beginsFirst = first.before < first.after;
    const Change& begins = beginsFirst ? first : second;
    const Change& ends = beginsFirst ? second : first;
    record.bias = biasOf(ends.after);
    record.standardDate = dateOf(ends, zone.rule, year);
    record.daylightDate = dateOf(begins, zone.rule, year);
    record.daylightBias = biasOf(ends.before) - record.bias;
    return record;
}

}  // namespace t_genproc::portable
