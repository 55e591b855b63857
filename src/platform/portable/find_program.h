/// The program that a command line means.
#pragma once

#include <string>
#include <vector>

#include "platform/portable/drive_map.h"

namespace t_genproc::portable {

struct Program {
    std::string location;            // of its file on this system
    std::vector<std::string> words;  // its name, as it stands in the command line, and its arguments
};

/// Finds the program that `commandLine` starts with (see Processes::CreateProcessA): an executable file of
/// that name, or of the name with ".exe". InvalidParameter: there is no name; FileNameTooLong: the line is
/// longer than Windows takes; AccessDenied: there are only files or folders that cannot be executed.
Outcome<Program> findProgram(const DriveMap& drives, const std::string& commandLine);

}  // namespace t_genproc::portable
