#include "platform/portable/zone_rule.h"

#include "platform/portable/instant.h"
#include "platform/portable/text_cursor.h"

namespace t_genproc::portable {
namespace {

namespace chrono = std::chrono;

constexpr int kMostHours = 24;           // between local time and UTC
constexpr int kMostHoursOfChange = 167;  // a week after its day, or before
constexpr chrono::hours kUsualShift(1), kUsualTime(2);
constexpr std::string_view kUsualDates = ",M3.2.0,M11.1.0";

constexpr auto isOfName = [](char c) { return isLetter(c) || isDigit(c) || c == '+' || c == '-'; };

class RuleReader {
   public:
    explicit RuleReader(std::string_view text) : text_(text) {}

    std::optional<ZoneRule> read() {
        if (!name() || !offset(rule_.standard)) return {};
        rule_.daylight = rule_.standard;
        if (text_.isAtEnd()) return rule_;
        if (!name()) return {};
        rule_.daylight += kUsualShift;
        const bool tellsOffset = !text_.isAtEnd() && text_.next() != ',';
        if (tellsOffset && !offset(rule_.daylight)) return {};
        if (text_.isAtEnd()) text_ = TextCursor(kUsualDates);
        if (!change(rule_.begins) || !change(rule_.ends) || !text_.isAtEnd()) return {};
        return rule_;
    }

   private:
    bool name() {
        constexpr std::size_t kShortest = 3;
        if (!text_.take('<')) return text_.takeAll(isLetter).size() >= kShortest;
        return text_.takeAll(isOfName).size() >= kShortest && text_.take('>');
    }

    /// The text counts what UTC is ahead.
    bool offset(chrono::seconds& result) {
        const std::optional<chrono::seconds> behind = time(kMostHours);
        if (behind) result = -*behind;
        return behind.has_value();
    }

    bool change(YearlyChange& result) {
        if (!text_.take(',') || !day(result)) return false;
        result.time = kUsualTime;
        if (!text_.take('/')) return true;
        const std::optional<chrono::seconds> told = time(kMostHoursOfChange);
        result.time = told.value_or(kUsualTime);
        return told.has_value();
    }

    bool day(YearlyChange& result) {
        using Day = YearlyChange::Day;
        if (text_.take('M')) {
            return number(result.month, 1, 12) && text_.take('.') && number(result.week, 1, 5) &&
                   text_.take('.') && number(result.weekday, 0, 6);
        }
        result.kind = text_.take('J') ? Day::OfYearWithoutLeapDay : Day::OfYear;
        const int first = result.kind == Day::OfYear ? 0 : 1;
        return number(result.day, first, 365);
    }

    /// "[+-]h[:m[:s]]"
    std::optional<chrono::seconds> time(int mostHours) {
        const bool isNegative = text_.take('-');
        if (!isNegative) text_.take('+');
        int hour = 0, minute = 0, second = 0;
        const bool isRead = number(hour, 0, mostHours) && (!text_.take(':') || number(minute, 0, 59)) &&
                            (!text_.take(':') || number(second, 0, 59));
        if (!isRead) return {};
        const chrono::seconds time = chrono::hours(hour) + chrono::minutes(minute) + chrono::seconds(second);
        return isNegative ? -time : time;
    }

    template <class Integer>
    bool number(Integer& result, int least, int most) {
        const auto [value, digits] = text_.takeNumber(3);
        if (digits == 0 || value < least || value > most) return false;
        result = static_cast<Integer>(value);
        return true;
    }

    TextCursor text_;
    ZoneRule rule_;
};

}  // namespace

chrono::local_seconds YearlyChange::in(chrono::year year) const {
    const chrono::local_days newYear(year / 1 / 1);
    const chrono::year_month ofMonth(year, chrono::month(month));
    const chrono::weekday ofWeek(weekday);
    constexpr int kMarchFirst = 60;  // without leap day, from 1
    switch (kind) {
        case Day::OfYear: return newYear + chrono::days(day) + time;
        case Day::OfYearWithoutLeapDay:
            return newYear + chrono::days(year.is_leap() && day >= kMarchFirst ? day : day - 1) + time;
        case Day::WeekOfMonth: break;
    }
    if (week == 5) return chrono::local_days(ofMonth / ofWeek[chrono::last]) + time;
    return chrono::local_days(ofMonth / ofWeek[week]) + time;
}

chrono::sys_seconds ZoneRule::beginIn(chrono::year year) const {
    return chrono::sys_seconds((begins.in(year)-standard).time_since_epoch());
}

chrono::sys_seconds ZoneRule::endIn(chrono::year year) const {
    return chrono::sys_seconds((ends.in(year)-daylight).time_since_epoch());
}

chrono::seconds ZoneRule::offsetAt(chrono::sys_seconds time) const {
    if (daylight == standard) return standard;
    const chrono::year year = chrono::year_month_day(chrono::floor<chrono::days>(time + standard)).year();
    return isBetween(time, beginIn(year), endIn(year)) ? daylight : standard;
}

std::optional<ZoneRule> zoneRule(std::string_view text) { return RuleReader(text).read(); }

}  // namespace t_genproc::portable
