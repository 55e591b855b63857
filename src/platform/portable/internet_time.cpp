#include "platform/portable/internet_time.h"

#include <algorithm>
#include <array>

#include "platform/portable/instant.h"
#include "platform/portable/text_cursor.h"

namespace t_genproc::portable {
namespace {

/// Of a word's start, in small letters.
constexpr std::uint32_t threeLetters(std::string_view word) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint32_t>(word[i] & 0xFF); };
    return (byte(0) << 16 | byte(1) << 8 | byte(2)) | 0x202020;
}

struct Name {
    constexpr Name(const char* text) : whole(text), start(threeLetters(whole)) {}  // NOLINT: implicit

    std::string_view whole;
    std::uint32_t start;
};
constexpr std::array<Name, 7> kDays{"sunday",   "monday", "tuesday", "wednesday",
                                    "thursday", "friday", "saturday"};
constexpr std::array<Name, 12> kMonths{"january", "february", "march",     "april",   "may",      "june",
                                       "july",    "august",   "september", "october", "november", "december"};

constexpr auto isBlank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };

/// Of the name of a zone, or of its offset.
constexpr auto isOfZone = [](char c) {
    return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == ':' || c == '/' || c == '_';
};

bool abbreviates(std::string_view word, std::string_view name) {
    const auto sameLetter = [](char c, char ofName) { return (c | 0x20) == ofName; };
    return word.size() <= name.size() && std::equal(word.begin(), word.end(), name.begin(), sameLetter);
}

class InternetTimeReader {
   public:
    explicit InternetTimeReader(std::string_view text) : text_(text) {}

    Outcome<SystemTime> read() {
        const Outcome<SystemTime> failure{{}, SystemError::InvalidParameter};
        blanks();
        if (isLetter(text_.next()) && !dayName()) return failure;
        const bool isRead = isLetter(text_.next()) ? monthFirst() : dayFirst();
        if (!isRead || !zone()) return failure;
        const std::optional<std::chrono::sys_days> day = dayOf(time_);
        if (!day) return failure;
        time_.dayOfWeek = static_cast<std::uint16_t>(std::chrono::weekday(*day).c_encoding());
        return {time_};
    }

   private:
    bool dayFirst() {
        return number(time_.day) && dash() && month() && dash() && year() && blanks() && clock();
    }
    bool monthFirst() {
        return month() && blanks() && number(time_.day) && blanks() && clock() && blanks() && year();
    }

    bool blanks() { return text_.takeAll(isBlank), true; }
    bool dash() { return blanks(), text_.take('-'), blanks(); }

    bool dayName() {
        const bool isName = oneOf(kDays) != 0;
        blanks();
        text_.take(',');
        return isName && blanks();
    }

    bool month() { return (time_.month = oneOf(kMonths)) != 0; }

    bool year() {
        const auto [value, digits] = text_.takeNumber(4);
        if (digits < 2) return false;
        const int century = digits == 4 ? 0 : digits == 2 && value < 50 ? 2000 : 1900;
        time_.year = static_cast<std::uint16_t>(century + value);
        return true;
    }

    bool clock() {
        return number(time_.hour) && text_.take(':') && number(time_.minute) &&
               (!text_.take(':') || number(time_.second));
    }

    /// One word, then a comment, which says what it likes.
    bool zone() {
        blanks();
        const char first = text_.next();
        if (isLetter(first) || first == '+' || first == '-') text_.takeAll(isOfZone);
        blanks();
        return text_.isAtEnd() || text_.next() == '(';
    }

    bool number(std::uint16_t& field) {
        const auto [value, digits] = text_.takeNumber(2);
        field = static_cast<std::uint16_t>(value);
        return digits != 0;
    }

    /// The number, from 1, of the name that follows; 0: none does.
    template <std::size_t count>
    std::uint16_t oneOf(const std::array<Name, count>& names) {
        const std::string_view word = text_.takeAll(isLetter);
        if (word.size() < 3) return 0;
        std::size_t i = 0;
        for (const std::uint32_t start = threeLetters(word); names[i].start != start;) {
            if (++i == count) return 0;
        }
        return abbreviates(word.substr(3), names[i].whole.substr(3)) ? static_cast<std::uint16_t>(i + 1) : 0;
    }

    TextCursor text_;
    SystemTime time_;
};

}  // namespace

Outcome<SystemTime> internetTime(std::string_view text) {
    return InternetTimeReader(text.substr(0, text.find('\0'))).read();
}

}  // namespace t_genproc::portable
