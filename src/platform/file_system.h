/// Everyday questions and steps made of the file and folder calls. What fails raises a run-time error.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/folders.h"

namespace t_genproc {

/// Whether `folder` names a folder; a "\" at its end does not count.
bool folderExists(Files& files, const std::string& folder);

/// Writes a file, over the one that stands there. The errors of writing a file.
void writeFile(Files& files, const std::string& fileName, std::string_view bytes);

/// Makes one folder. Error 75: it exists, or may not be made; 76: its parent does not exist.
void makeFolder(Folders& folders, const std::string& folder);

/// Makes `folder` the current one. Error 76: there is no such folder.
void changeFolder(Folders& folders, const std::string& folder);

/// Makes the drive of `path` ("C:" at its start) the current one, and its root the current folder. Error 68:
/// there is no such drive.
void changeToDriveOf(Folders& folders, const std::string& path);

}  // namespace t_genproc
