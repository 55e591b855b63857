/// Folders, and the current drive and folder of the process.
#pragma once

#include <string>

#include "platform/system_error.h"

namespace t_genproc {

/// Each drive has a current folder of its own; "C:" names that of drive C.
class Folders {
   public:
    virtual ~Folders() = default;

    /// Makes one folder; its parent must exist.
    virtual SystemError CreateDirectoryA(const std::string& folder) = 0;
    /// Makes `folder` the current one, and its drive the current drive.
    virtual SystemError SetCurrentDirectoryA(const std::string& folder) = 0;
    /// The full form of `path`, which need not exist: drive, "\", no "." or ".." in it.
    virtual Outcome<std::string> GetFullPathNameA(const std::string& path) = 0;
};

}  // namespace t_genproc
