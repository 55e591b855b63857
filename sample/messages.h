/// The texts of Instant Help, as people write them and as the database that the library reads.
///
///     18704 | Scale factor of the projection: multiplies distances; 1 leaves them alone
///
/// data/Reference/instant_help.txt explains the form. A database has a backslash path.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "platform/platform.h"

namespace tavoru {

/// By help context number. A source has one text for each; a database of another program may have several.
using Messages = std::multimap<std::int16_t, std::string>;

/// Throws std::runtime_error, with file and line, where `source` is not as it must be: a number with two
/// different texts, for example.
Messages readMessages(const std::filesystem::path& source);

Messages storedMessages(const t_genproc::Platform& platform, const std::string& fileName);

/// Makes the database in place of the one that is there; of a failure nothing stays. Tells `progress` how
/// many messages it has written.
void makeMessages(
    const Messages& messages, const t_genproc::Platform& platform, const std::string& fileName,
    const std::function<void(std::size_t)>& progress = [](std::size_t) {});

}  // namespace tavoru
