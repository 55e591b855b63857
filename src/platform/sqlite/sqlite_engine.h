/// Databases in files of SQLite. Only tables whose records have a number ("rowid") count.
///
///     auto engine = sqliteEngine(*platform.files);
#pragma once

#include "platform/database.h"
#include "platform/files.h"

namespace t_genproc {

/// `files` tells where a path is on this system; it must outlive the engine.
std::unique_ptr<DatabaseEngine> sqliteEngine(Files& files);

}  // namespace t_genproc
