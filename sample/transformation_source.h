/// The database of datum transformations, made from tables in plain text:
///
///     [Transformations]
///     TransType = 3
///     DatumFrom | DatumTo | ZZ_GridFrom | ZZ_ZoneFrom
///     GDA94     | GDA94   | MGA94       | 55
///
/// data/Reference/transformations.txt explains the form; the fields stand in transformation_source.cpp.
/// Transformations are numbered from 1 as they come, in their field "Number".
#pragma once

#include <filesystem>
#include <string>

#include "platform/platform.h"

namespace tavoru {

/// Makes the database `fileName`, a backslash path, in place of the one that is there; of a failure nothing
/// stays. Throws std::runtime_error, with file and line, where `source` is not as it must be.
void makeTransformations(const std::filesystem::path& source, const t_genproc::Platform& platform,
                         const std::string& fileName);

}  // namespace tavoru
