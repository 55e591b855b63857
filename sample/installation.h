/// What a setup program does, once for each drive: the program's folder, and the registry value that names
/// it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "frame/library.h"

namespace tavoru {

/// The files in `folder`, by their names.
std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder);

/// Copies text files from outside the drive into a folder on it.
void bringFiles(t_genproc::Library& library, const std::vector<std::filesystem::path>& files,
                const std::string& folder);

/// Enters `programFolder` in the registry, under the names of Application::startUp: for all users or, where
/// that is not allowed, for this one. Then makes it, with `samples` in its "Samples\".
void install(t_genproc::Library& library, const std::string& programFolder,
             const std::vector<std::filesystem::path>& samples);

}  // namespace tavoru
