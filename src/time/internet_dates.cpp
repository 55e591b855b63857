#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <string_view>

#include "frame/library.h"
#include "frame/procedure.h"
#include "platform/clock_record.h"
#include "runtime/date_value.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"
#include "time/cTimeProcs.h"

namespace t_genproc {
namespace {

struct ZoneName {
    std::string_view sought;
    std::string_view offset;
};
/// The first that occurs in a text counts, in capitals or not, also within another word: "UTC" becomes
/// "+0000C", and " A" takes the month of " Apr".
constexpr std::array kZoneNames{
    ZoneName{"GMT", "+0000"},  ZoneName{"UT", "+0000"},   ZoneName{"EST", "-0500"},
    ZoneName{"EDT", "-0400"},  ZoneName{"CST", "-0600"},  ZoneName{"CDT", "-0500"},
    ZoneName{"MST", "-0700"},  ZoneName{"MDT", "-0600"},  ZoneName{"PST", "-0800"},
    ZoneName{"PDT", "-0700"},  ZoneName{" Z", " +0000"},  ZoneName{" A", "-0100"},
    ZoneName{" M", "-1200"},   ZoneName{" N", "+0100"},   ZoneName{" Y", "+1200"},
    ZoneName{"EET", "+0200"},  ZoneName{"CET", "+0100"},  ZoneName{"AEDT", "+1100"},
    ZoneName{"AEST", "+1000"}, ZoneName{"ACDT", "+1030"}, ZoneName{"ACST", "+0930"},
    ZoneName{"AWDT", "+0900"}, ZoneName{"AWST", "+0800"}, ZoneName{"BST", "+0100"},
    ZoneName{"WET", "+0000"},  ZoneName{"UTC", "+0000"},
};

char capital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

/// For each character the names, a bit each, that have it at a position.
using Names = std::array<std::uint32_t, 256>;
constexpr Names namesWith(std::size_t position) {
    Names names{};
    for (std::size_t i = 0; i < kZoneNames.size(); ++i) {
        names[static_cast<unsigned char>(kZoneNames[i].sought[position])] |= 1U << i;
    }
    return names;
}
constexpr Names kFirst = namesWith(0), kSecond = namesWith(1);

/// The first of the table that occurs in the text; none.
const ZoneName* zoneNameIn(std::string_view text) {
    const auto names = [](const Names& table, char c) {
        return table[static_cast<unsigned char>(capital(c))];
    };
    std::uint32_t found = 0;
    for (; text.size() > 1; text.remove_prefix(1)) {
        for (std::uint32_t likely = names(kFirst, text[0]) & names(kSecond, text[1]); likely != 0;
             likely &= likely - 1) {
            const auto i = static_cast<std::size_t>(std::countr_zero(likely));
            const std::string_view sought = kZoneNames[i].sought;
            if (text::equalIgnoringCase(text.substr(0, sought.size()), sought)) found |= 1U << i;
        }
    }
    return found == 0 ? nullptr : &kZoneNames[static_cast<std::size_t>(std::countr_zero(found))];
}

std::string replaced(std::string_view text, std::string_view sought, std::string_view by) {
    std::string result;
    result.reserve(text.size() + by.size());
    for (;;) {
        const std::size_t at = text.find(sought);
        result.append(text.substr(0, at));
        if (at == std::string_view::npos) return result;
        result.append(by);
        text.remove_prefix(at + sought.size());
    }
}

std::string withOffsetForName(std::string_view text) {
    const ZoneName* const name = zoneNameIn(text);
    return name == nullptr ? std::string(text) : replaced(text, name->sought, name->offset);
}

std::string withOffsetForZ(std::string_view zone) {
    std::string result;
    for (const char c : zone) c == 'Z' || c == 'z' ? result += "+00:00" : result += c;
    return result;
}

/// A text by its characters, quickly where all of them are of one byte, as in dates.
class Characters {
   public:
    explicit Characters(std::string_view text)
        : text_(text), count_(text::length(text)), ofBytes_(count_ == std::ssize(text)) {}

    std::ptrdiff_t count() const { return count_; }

    /// As text::slice.
    std::string_view slice(std::ptrdiff_t start, std::ptrdiff_t count = text::kToTheEnd) const {
        if (!ofBytes_ || start < 1) return text::slice(text_, start, count);
        return text_.substr(static_cast<std::size_t>(std::min(start - 1, count_)),
                            static_cast<std::size_t>(count));
    }
    std::string_view lastTwo() const { return slice(std::max<std::ptrdiff_t>(count_ - 1, 1)); }

   private:
    std::string_view text_;
    std::ptrdiff_t count_;
    bool ofBytes_;
};

/// Errors 6, 13: it is none of 16 bits.
std::int16_t wholeNumber(std::string_view text) {
    int value = 0;
    const auto addDigit = [&](char c) {
        value = value * 10 + (c - '0');
        return c >= '0' && c <= '9';
    };
    const bool isPlain = !text.empty() && text.size() <= 4 && std::ranges::all_of(text, addDigit);
    return isPlain ? static_cast<std::int16_t>(value) : toInt16(std::string(text));
}

/// Hours, and a hundred minutes of the offset for each minute: hosts rely on whole hours only, where that
/// makes no difference.
std::int64_t shiftOf(double hours, double minutes) {
    return static_cast<std::int64_t>(std::nearbyint(hours + minutes * 100 / 60));
}

/// UTC of a stamp that is `shift` hours ahead of it, or behind it.
double toUniversal(double stamp, bool ahead, std::int64_t shift) {
    constexpr std::int64_t kSecondsPerHour = 3600;
    return addSeconds(stamp, (ahead ? -shift : shift) * kSecondsPerHour);
}

/// The Date value of a date that exists; a second of 60 is the first of the next minute.
double checkedDate(const CivilTime& time) {
    const auto isWithin = [](int value, int most) { return value >= 0 && value <= most; };
    const std::chrono::year_month_day date{std::chrono::year(time.year),
                                           std::chrono::month(static_cast<unsigned>(time.month)),
                                           std::chrono::day(static_cast<unsigned>(time.day))};
    if (!isWithin(time.month, 12) || !isWithin(time.day, 31) || !date.ok() || !isWithin(time.hour, 23) ||
        !isWithin(time.minute, 59) || !isWithin(time.second, 60)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    return dateValue(time);
}

bool isZero(const SystemTime& time) { return time == SystemTime{}; }

}  // namespace

double cTimeProcs::InternetTimeToVbLocalTime(const std::string& dateString) {
    return procedure(library_, "(Class Module) cTimeProcs::Function InternetTimeToVbLocalTime", [&] {
        const std::string_view text = text::trim(dateString);
        return text::slice(text, 11, 1) == "T" ? Iso8601TimeToLocalVbTime(text)
                                               : Rfc822TimeToLocalVbTime(text);
    });
}

double cTimeProcs::Iso8601TimeToLocalVbTime(std::string_view text) {
    return procedure(library_, "(Class Module) cTimeProcs::Function Iso8601TimeToLocalVbTime", [&] {
        const Characters date(text);
        const auto number = [&](std::ptrdiff_t start, std::ptrdiff_t count) {
            return int{wholeNumber(date.slice(start, count))};
        };
        const double stamp = checkedDate(
            {number(1, 4), number(6, 2), number(9, 2), number(12, 2), number(15, 2), number(18, 2)});
        const std::string zone = withOffsetForZ(date.slice(20));
        const Characters offset(zone);
        const double hours = leadingNumber(offset.slice(offset.count() - 3, 2));
        const std::int16_t minutes = wholeNumber(offset.lastTwo());
        return GetTimeHere(toUniversal(stamp, zone.starts_with('+'), shiftOf(hours, minutes)));
    });
}

double cTimeProcs::Rfc822TimeToLocalVbTime(std::string_view text) {
    return procedure(library_, "(Class Module) cTimeProcs::Function Rfc822TimeToLocalVbTime", [&] {
        std::string date = withOffsetForName(text);
        if (text::length(text::trim(date)) == 25) date += " +0000";
        if (!text::contains(date, ",")) date.insert(0, "Thu, ");
        const SystemTime record = library_.platform().clock->InternetTimeToSystemTimeA(date).value;
        const double stamp = isZero(record) ? 0 : dateValue(record);

        const std::string withoutColons = replaced(date, ":", "");
        const Characters signs(withoutColons);
        const bool ahead = signs.slice(signs.count() - 4, 1) != "-";
        const std::size_t lastBlank = date.rfind(' ');
        if (lastBlank == std::string::npos) return GetTimeHere(stamp);
        const std::string digits =
            replaced(text::slice(std::string_view(date).substr(lastBlank), 3), ":", "");
        const double hours = leadingNumber(text::slice(digits, 1, 2));
        const double minutes = leadingNumber(Characters(date).lastTwo());
        return GetTimeHere(toUniversal(stamp, ahead, shiftOf(hours, minutes)));
    });
}

std::string cTimeProcs::GetMYSQLTimeDate(const std::string& TimeDate) {
    return procedure(library_, "(Class Module) cTimeProcs::Function GetMYSQLTimeDate", [&] {
        return text::mid(TimeDate, 7, 4) + "-" + text::mid(TimeDate, 4, 2) + "-" + text::mid(TimeDate, 1, 2) +
               " " + text::right(TimeDate, 8);
    });
}

}  // namespace t_genproc
