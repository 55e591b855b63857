/// The dates of mail headers and of web servers.
#pragma once

#include <string_view>

#include "platform/clock.h"

namespace t_genproc::portable {

/// The date and time of "Thu, 04 Mar 2021 12:34:56 +0000", of "Thursday, 04-Mar-21 12:34:56 GMT" and of
/// "Thu Mar  4 12:34:56 2021". Day name, comma and seconds may be missing, names may be cut to three letters
/// or more, and letter case and blanks do not matter. Years of two digits are those from 1950 to 2049. A zone
/// may follow: what it says does not count. InvalidParameter: the text is none of this, or a date or time
/// that does not exist.
Outcome<SystemTime> internetTime(std::string_view text);

}  // namespace t_genproc::portable
