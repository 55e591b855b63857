#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

#include "platform/portable/adapters.h"
#include "platform/portable/posix.h"
#include "platform/portable/wild_card.h"

namespace t_genproc::portable {
namespace {

/// What is missing: the file, or a folder on the way to it.
SystemError notFound(const std::string& location) {
    const std::string folder = location.substr(0, location.find_last_of('/') + 1);
    return ::access(folder.c_str(), F_OK) == 0 ? SystemError::FileNotFound : SystemError::PathNotFound;
}

SystemError failure(const std::string& location, int errorNumber) {
    return errorNumber == ENOENT ? notFound(location) : systemError(errorNumber);
}

FileAttributes attributesOf(const struct stat& found, std::string_view name) {
    FileAttributes attributes;
    attributes.folder = S_ISDIR(found.st_mode);
    attributes.size = attributes.folder ? 0 : static_cast<std::uint64_t>(found.st_size);
    attributes.hidden = name.starts_with('.');
    return attributes;
}

/// A file without any write permission is read-only to everybody, as on Windows.
bool isReadOnly(const struct stat& found) { return (found.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0; }

/// How a file is opened for each FileUse.
constexpr std::array kOpenFlags{O_RDONLY, O_WRONLY | O_CREAT, O_WRONLY | O_CREAT | O_APPEND};
constexpr int kAlways = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;  // not to wait for the other end of a pipe

class PortableFiles : public Files {
   public:
    explicit PortableFiles(std::shared_ptr<DriveMap> drives) : drives_(std::move(drives)) {}

    Outcome<FileHandle> CreateFileA(const std::string& fileName, FileUse use) override {
        const Outcome<std::string> location = drives_->actualPath(fileName);
        if (!location) return {{}, location.error};
        const int flags = kOpenFlags[static_cast<std::size_t>(use)];
        Descriptor file(::open(location.value.c_str(), flags | kAlways, 0666));
        if (!file) return {{}, failure(location.value, errno)};

        struct stat found {};
        if (::fstat(file.number(), &found) != 0) return {{}, systemError(errno)};
        if (!S_ISREG(found.st_mode) && !S_ISCHR(found.st_mode)) return {{}, SystemError::AccessDenied};
        if (use != FileUse::Read && isReadOnly(found)) return {{}, SystemError::AccessDenied};
        if (use == FileUse::Replace && S_ISREG(found.st_mode) && ::ftruncate(file.number(), 0) != 0) {
            return {{}, systemError(errno)};
        }
        return {file.release()};
    }

    Outcome<std::string> ReadFile(FileHandle file, std::size_t most) override {
        std::string bytes(most, '\0');
        ssize_t count = -1;
        do {
            count = ::read(static_cast<int>(file), bytes.data(), most);
        } while (count < 0 && errno == EINTR);
        if (count < 0) return {{}, systemError(errno)};
        bytes.resize(static_cast<std::size_t>(count));
        return {std::move(bytes)};
    }

    SystemError WriteFile(FileHandle file, std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = ::write(static_cast<int>(file), bytes.data(), bytes.size());
            if (count < 0) {
                if (errno == EINTR) continue;
                return systemError(errno);
            }
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
        return SystemError::Success;
    }

    SystemError CloseHandle(FileHandle file) override {
        return ::close(static_cast<int>(file)) == 0 ? SystemError::Success : systemError(errno);
    }

    Outcome<FileAttributes> GetFileAttributesExA(const std::string& fileName) override {
        const Outcome<std::string> location = drives_->actualPath(fileName);
        if (!location) return {{}, location.error};
        struct stat found {};
        if (::stat(location.value.c_str(), &found) != 0) return {{}, failure(location.value, errno)};
        const std::size_t nameStart = location.value.find_last_of('/') + 1;
        return {attributesOf(found, std::string_view(location.value).substr(nameStart))};
    }

    Outcome<std::vector<FoundFile>> FindFirstFileA(const std::string& pattern) override {
        const std::size_t nameStart = pattern.find_last_of("\\/:") + 1;
        const std::string folder = nameStart == 0 ? "." : pattern.substr(0, nameStart);
        const Outcome<std::string> location = drives_->actualPath(folder);
        if (!location) return {{}, location.error};
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(location.value.c_str()), &::closedir);
        if (!entries) return {{}, errno == ENOENT ? SystemError::PathNotFound : systemError(errno)};

        Outcome<std::vector<FoundFile>> found;
        const std::string_view namePattern = std::string_view(pattern).substr(nameStart);
        while (const dirent* entry = ::readdir(entries.get())) {
            struct stat status {};
            if (!matchesWildCard(entry->d_name, namePattern)) continue;
            if (::fstatat(::dirfd(entries.get()), entry->d_name, &status, 0) != 0)
                continue;  // gone meanwhile
            found.value.push_back({entry->d_name, attributesOf(status, entry->d_name)});
        }
        if (found.value.empty()) found.error = SystemError::FileNotFound;
        std::ranges::sort(found.value, {}, &FoundFile::name);
        return found;
    }

    std::string encode(std::string_view text) override { return std::string(text); }
    std::string decode(std::string_view bytes) override { return std::string(bytes); }

   private:
    std::shared_ptr<DriveMap> drives_;
};

}  // namespace

std::unique_ptr<Files> makeFiles(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableFiles>(std::move(drives));
}

}  // namespace t_genproc::portable
