/// What is on the drive.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"

namespace tavoru {

struct Listed {
    std::string path;  ///< that of a folder ends in "\"
    std::uint64_t size = 0;
    t_genproc::FileTime lastWrite;

    bool isFolder() const { return path.ends_with('\\'); }
    friend bool operator==(const Listed&, const Listed&) = default;
};

/// All folders and files below `folder`, each folder ahead of what is in it, by their names.
std::vector<Listed> listing(t_genproc::Files& files, const std::string& folder);

}  // namespace tavoru
