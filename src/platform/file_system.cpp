#include "platform/file_system.h"

#include "runtime/errors.h"

namespace t_genproc {
namespace {

/// A folder that is not found is a path that is not found.
void raiseOnFolderFailure(SystemError error) {
    raiseOnFailure(error == SystemError::FileNotFound ? SystemError::PathNotFound : error);
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

}  // namespace

bool folderExists(Files& files, const std::string& folder) {
    const Outcome<FileAttributes> found = files.GetFileAttributesExA(folder);
    return found && found.value.folder;
}

void writeFile(Files& files, const std::string& fileName, std::string_view bytes) {
    const Outcome<FileHandle> file = files.CreateFileA(fileName, FileUse::Replace);
    raiseOnFailure(file.error);
    const SystemError written = files.WriteFile(file.value, bytes);
    const SystemError closed = files.CloseHandle(file.value);
    raiseOnFailure(written == SystemError::Success ? closed : written);
}

void makeFolder(Folders& folders, const std::string& folder) {
    raiseOnFolderFailure(folders.CreateDirectoryA(folder));
}

void changeFolder(Folders& folders, const std::string& folder) {
    raiseOnFolderFailure(folders.SetCurrentDirectoryA(folder));
}

void changeToDriveOf(Folders& folders, const std::string& path) {
    const bool namesDrive = path.size() >= 2 && isLetter(path[0]) && path[1] == ':';
    if (!namesDrive || folders.SetCurrentDirectoryA(path.substr(0, 2) + '\\') != SystemError::Success) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
}

}  // namespace t_genproc
