/// The message database: the texts of Instant Help by help context number, in a file that only this library's
/// password opens.
#pragma once

#include "platform/database.h"

namespace t_genproc {

namespace MessageTable {
inline constexpr std::string_view Name = "InstantHelp";
inline constexpr std::string_view HelpContextID = "HelpContextID";  ///< a field of 16-bit numbers, the key
inline constexpr std::string_view Message = "Message";              ///< a field of texts, any of them Null
inline constexpr std::string_view Index = "HelpContextID_Index";    ///< orders the table by its key
}  // namespace MessageTable

/// Raise what DatabaseEngine does; a new database has the table, without records.
std::unique_ptr<Database> openMessageDatabase(DatabaseEngine& engine, const std::string& fileName);
std::unique_ptr<Database> createMessageDatabase(DatabaseEngine& engine, const std::string& fileName);

}  // namespace t_genproc
