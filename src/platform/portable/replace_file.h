/// Changing a file so that it is never seen half-written.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/portable/profile_text.h"
#include "platform/system_error.h"

namespace t_genproc::portable {

/// Reads the file at `location` whole into `buffer`, whose size only ever grows, and gives its text. None
/// where it cannot be read or is no regular file.
std::optional<std::string_view> readWhole(const std::string& location, std::string& buffer);

/// Applies to the text of a file, which is empty where there is no file yet, what `change` makes of it; where
/// that is nothing the call fails.
///
/// The new text is written beside the file, under a hidden name, and then takes its place in one step:
/// whoever reads meanwhile, and whatever kills this process, the file is one complete text, the old or the
/// new one. The file beside it doubles as the lock: writers of one file wait for each other, and the system
/// ends the lock of a writer that dies. What such a writer leaves is taken over by the next. Permissions,
/// owner and symbolic links are kept.
///
/// Where the folder takes no new file, or the owner cannot be kept, the text is changed in place, from the
/// first byte that differs, once the room for it is secured. A failure leaves the old text.
SystemError changeFile(const std::string& location, std::string& buffer,
                       const std::function<std::optional<TextChange>(std::string_view)>& change);

}  // namespace t_genproc::portable
