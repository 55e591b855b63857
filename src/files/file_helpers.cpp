#include <algorithm>
#include <limits>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/message_title.h"
#include "frame/procedure.h"
#include "platform/file_system.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

std::int32_t clamped(std::uint64_t number) {
    constexpr std::uint64_t kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(number, kMost));
}

bool hasWildCard(std::string_view name) { return name.find_first_of("?*") != std::string_view::npos; }

bool isNormalFile(const FoundFile& found) {
    return !found.attributes.folder && !found.attributes.hidden && !found.attributes.system;
}

/// Makes a folder in the current one, unless it exists, and makes it the current one.
void makeAndEnter(Folders& folders, const std::string& folder) {
    try {
        makeFolder(folders, folder);
    } catch (const RuntimeError& error) {
        if (!error.is(ErrorNumber::PathFileAccess)) throw;  // 75: it exists already
    }
    changeFolder(folders, folder);
}

}  // namespace

bool cGenProcs::OpenFileForOutput(std::int16_t fileNo, const std::string& fileName) {
    return procedure(library_, "(Class Module) cGenProcs::Function OpenFileForOutput", [&] {
        library_.files().openForOutput(fileNo, fileName);
        return true;
    });
}

bool cGenProcs::OpenFileForInput(std::int16_t fileNo, const std::string& fileName) {
    return procedure(library_, "(Class Module) cGenProcs::Function OpenFileForInput", [&] {
        const std::string message = "; Error reading file < " + fileName + " >";
        std::int32_t size = 0;
        if (FileExist(fileName, &size)) {
            library_.files().openForInput(fileNo, fileName);
            return true;
        }
        if (size != 0) throw RuntimeError(ErrorNumber::FileNotFound);
        library_.platform().windows->MessageBoxA(message + " - file empty !!", kMessageTitle,
                                                 MessageStyle::Ok);
        return false;
    });
}

void cGenProcs::CloseFile(std::int16_t& fileNumber) {
    procedure(library_, "(Class Module) cGenProcs::Sub CloseFile", [&] {
        library_.files().close(fileNumber);
        fileNumber = 0;
    });
}

bool cGenProcs::FileExist(const std::string& fiName, std::int32_t* fiSize) {
    return procedure(library_, "(Class Module) cGenProcs::Function FileExist", [&] {
        Files& files = *library_.platform().files;
        std::int32_t ownSize = 0;
        if (fiSize == nullptr) fiSize = &ownSize;
        *fiSize = 0;
        if (hasWildCard(fiName)) {
            const Outcome<std::vector<FoundFile>> found = files.FindFirstFileA(fiName);
            if (found)
                *fiSize =
                    clamped(static_cast<std::uint64_t>(std::ranges::count_if(found.value, isNormalFile)));
            return *fiSize >= 1;
        }
        const Outcome<FileAttributes> found = files.GetFileAttributesExA(fiName);
        if (!found || found.value.folder) return false;
        *fiSize = clamped(found.value.size);
        return true;
    });
}

bool cGenProcs::FileExistsNonZero(const std::string& fiName) {
    return procedure(library_, "(Class Module) cGenProcs::Function FileExistsNonZero", [&] {
        std::int32_t size = 0;
        return FileExist(fiName, &size) && size >= 1;
    });
}

void cGenProcs::FileNameDetails(const std::string& fullPathName, std::string& fiName, std::string* fiPath,
                                std::string* fiDrv) {
    procedure(library_, "(Class Module) cGenProcs::Sub FileNameDetails", [&] {
        std::string path(text::trim(fullPathName));
        std::string drive = text::left(path, 2);
        if (text::mid(drive, 2) == ":") {
            path = text::mid(path, 3);
        } else {
            drive.clear();
        }

        path.resize(path.find_last_of('\\') + 1);  // nothing is left where there is none
        if (path.size() >= 2) path.pop_back();

        // Set last: the caller may take the name back in the text that holds the path.
        fiName = fullPathName.substr(fullPathName.find_last_of(":\\") + 1);
        if (fiPath != nullptr) *fiPath = path;
        if (fiDrv != nullptr) *fiDrv = drive;
    });
}

std::string cGenProcs::FileNameExtn(const std::string& filesName, std::string* fiName, bool trimDot) {
    return procedure(library_, "(Class Module) cGenProcs::Sub FileNameExtn", [&]() -> std::string {
        std::string name(text::trim(filesName));
        std::string extension;
        if (!name.ends_with(':')) {
            if (name.ends_with('\\')) name.pop_back();
            const std::size_t dot = name.find_last_of('.');
            if (dot != std::string::npos) {
                extension = name.substr(trimDot ? dot + 1 : dot);
                if (dot > 0 && !text::isBlank(extension)) name.resize(dot);
            }
        }
        if (fiName != nullptr) *fiName = name;
        return extension;
    });
}

bool cGenProcs::CreatePath(std::string destPath, bool subdueError, std::int32_t* errNum,
                           std::string* pathOK) {
    return procedure(library_, "(Class Module) cGenProcs::Sub CreatePath", [&] {
        Folders& folders = *library_.platform().folders;
        const auto cannot = [&](const RuntimeError& error, const std::string& where) {
            if (subdueError) {
                if (errNum != nullptr) *errNum = error.number();
            } else {
                library_.platform().windows->MessageBoxA(
                    "Error " + numberText(std::int64_t{error.number()}) + " in CreatePath " + where,
                    kMessageTitle, MessageStyle::Exclamation);
            }
            return false;
        };

        if (!destPath.ends_with('\\')) destPath += '\\';
        try {
            changeToDriveOf(folders, destPath);
        } catch (const RuntimeError& error) {
            return cannot(error, "when accessing destination drive " + text::left(destPath, 2));
        }

        std::size_t start = destPath[2] == '\\' ? 3 : 2;  // behind the drive and its root
        for (std::size_t end = 0; (end = destPath.find('\\', start)) != std::string::npos; start = end + 1) {
            const std::string level = destPath.substr(start, end - start);
            try {
                makeAndEnter(folders, level);
            } catch (const RuntimeError& error) {
                return cannot(error, "while attempting to create directory " + level + " in " +
                                         destPath.substr(0, start));
            }
            if (pathOK != nullptr) *pathOK = destPath.substr(0, end);
        }
        return true;
    });
}

}  // namespace t_genproc
