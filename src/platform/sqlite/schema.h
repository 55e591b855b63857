/// The tables of a database file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/record_set.h"
#include "platform/sqlite/connection.h"

namespace t_genproc::sqlite {

/// In the order in which they were made.
std::vector<std::string> tableNames(const std::shared_ptr<Connection>& file);

/// Of a table that is there: its fields, and those indexes that have one field each.
t_gencvf::TableDefinition definition(const std::shared_ptr<Connection>& file, const std::string& table);

/// The statements that make it.
std::string creation(const t_gencvf::TableDefinition& table);

}  // namespace t_genproc::sqlite
