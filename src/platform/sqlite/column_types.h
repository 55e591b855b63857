/// What the columns of a table are declared as, and what their cells are as values of a field.
#pragma once

#include <string_view>

#include "host/record_set.h"
#include "platform/sqlite/connection.h"

namespace t_genproc::sqlite {

/// The declared type of a column, and back. A column of any other type may hold anything.
std::string_view declaredType(t_gencvf::FieldType type);
t_gencvf::FieldType fieldType(std::string_view declared);

/// What stands in a column of that type. A column may hold what does not fit its type: that comes as the
/// value that it is, a whole number as the narrowest type from Integer on that holds it, or else as a Double.
Variant valueOf(t_gencvf::FieldType type, const Cell& cell);

/// How `value` is kept; a text refers to it. True is -1, so that False comes after it in an index; a 1 is
/// read as True too, but no seek for True finds it.
Cell cellOf(const Variant& value);

}  // namespace t_genproc::sqlite
