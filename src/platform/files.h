/// Files, as the system opens, reads, writes and finds them. Paths are backslash paths; a path without a
/// drive or a leading "\" counts from the current drive and folder (see folders.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/system_error.h"

namespace t_genproc {

using FileHandle = std::intptr_t;

enum class FileUse {
    Read,     ///< an existing file
    Replace,  ///< created, or cut to nothing
    Append,   ///< created where missing; every write goes to the end
};

struct FileAttributes {
    std::uint64_t size = 0;  ///< bytes
    bool folder = false;
    bool hidden = false;
    bool system = false;
    FileTime created;  ///< both halves 0 where the system keeps no such time
    FileTime lastWrite;
};

struct FoundFile {
    std::string name;  ///< without its folder
    FileAttributes attributes;
};

class Files {
   public:
    virtual ~Files() = default;

    virtual Outcome<FileHandle> CreateFileA(const std::string& fileName, FileUse use) = 0;
    /// Up to `most` bytes; none at the end of the file.
    virtual Outcome<std::string> ReadFile(FileHandle file, std::size_t most) = 0;
    /// All of `bytes`, or a failure.
    virtual SystemError WriteFile(FileHandle file, std::string_view bytes) = 0;
    virtual SystemError CloseHandle(FileHandle file) = 0;

    virtual Outcome<FileAttributes> GetFileAttributesExA(const std::string& fileName) = 0;

    /// Copies a file with its time of the last write, over the one that stands there, unless that is
    /// read-only (AccessDenied). A copy that fails leaves no half of it.
    virtual SystemError CopyFileA(const std::string& from, const std::string& to) = 0;
    /// AccessDenied: it is read-only, or a folder.
    virtual SystemError DeleteFileA(const std::string& fileName) = 0;

    /// Every entry that matches, "." and ".." among them: FindFirstFileA, FindNextFileA to the end,
    /// FindClose. Wild cards stand in the last part of `pattern` only: "*" for any text, "?" for one
    /// character or none ahead of a dot or at the end of a name. FileNotFound where nothing matches. Where
    /// the system marks no files as hidden, a dot at the start of the name does.
    virtual Outcome<std::vector<FoundFile>> FindFirstFileA(const std::string& pattern) = 0;

    /// The name under which another library opens the file, in UTF-8.
    virtual Outcome<std::string> nativePath(const std::string& fileName) = 0;

    /// Text as the system keeps it in text files, and back: the ANSI code page on Windows, UTF-8 elsewhere.
    virtual std::string encode(std::string_view text) = 0;
    virtual std::string decode(std::string_view bytes) = 0;
};

}  // namespace t_genproc
