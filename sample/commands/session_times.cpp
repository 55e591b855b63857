#include "commands/session_chapters.h"

#include "screen.h"
#include "times.h"

namespace tavoru {
namespace {

void showMail(t_genproc::cTimeProcs& times, const std::string& date) {
    const t_genproc::Variant today = times.InternetTimeToVbLocalTime(date);
    const double universal = times.GetGmtTime(&today);
    show({date, "  in UTC        " + dateText(times, universal),
          "  by the clock  " + dateText(times, times.UTCtoLocal(universal))});
}

void showReading(t_genproc::cTimeProcs& times, const std::string& date) {
    Lines lines = readingLines(times, readDate(times, date).value());
    lines.insert(lines.begin(), date + " by the watch");
    show(lines);
}

}  // namespace

void compareTimes(Tavoru& tavoru) {
    heading("Watches and receivers");
    setZone(tavoru.drive.platform, kCentralEurope);
    t_genproc::cTimeProcs times(tavoru.library);
    tell(R"(The receivers on Ridge keep UTC, the field book has the time of a watch, in central Europe. A mail
         from the valley says when the first receiver was switched on, in the night in which daylight time began. The
         library reads its date by today's distance from UTC; the surveyor takes that off again and asks for
         the distance of that night.)");
    showMail(times, "Sun, 29 Mar 2026 00:40:00 GMT");
    tell(R"(The book has a battery changed at half past two in that night. There was no such time: the clock
         went from two to three, and the watch had not been set.)");
    showReading(times, "2026-03-29 02:30:00");
    tell(
        R"(Another one was changed in October, in the night in which daylight time ended. The clock showed half
         past two and, an hour later, showed it again. The files of the receiver must tell which it was.)");
    showReading(times, "2025-10-26 02:30:00");
    tell("In the afternoon there is no doubt.");
    showReading(times, "2025-10-26 14:30:00");
}

}  // namespace tavoru
