/// Databases that live in memory, by their file names, as long as the engine does: for tests. There are no
/// files, so that whoever looks for the file first does not find it.
///
///     platform.databases = memoryEngine();
#pragma once

#include "platform/database.h"

namespace t_genproc {

/// A file name may be any text; letter case does not count. Every database that is opened under a name is the
/// same one. Transactions and beginReading have no effect: what is written stays, and is seen at once.
std::unique_ptr<DatabaseEngine> memoryEngine();

}  // namespace t_genproc
