#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include "platform/portable/adapters.h"
#include "platform/portable/copy_file.h"
#include "platform/portable/posix.h"
#include "platform/portable/wild_card.h"

namespace t_genproc::portable {
namespace {

constexpr unsigned kWanted = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_BTIME;

constexpr std::int64_t kStepsOfSecond = 10'000'000;      // those of a FileTime
constexpr std::int64_t kSecondsTo1970 = 11'644'473'600;  // from 1601
constexpr std::int64_t kMostSeconds = std::numeric_limits<std::int64_t>::max() / kStepsOfSecond - 1;

/// Seconds that a FileTime cannot tell become the first or the last one that it can.
FileTime fileTimeOf(const statx_timestamp& time) {
    const std::int64_t second =
        std::clamp(std::int64_t{time.tv_sec}, -kSecondsTo1970, kMostSeconds - kSecondsTo1970);
    const std::int64_t steps = (second + kSecondsTo1970) * kStepsOfSecond + time.tv_nsec / 100;
    return fileTime(static_cast<std::uint64_t>(steps));
}

FileAttributes attributesOf(const struct statx& found, std::string_view name) {
    const bool isFolder = S_ISDIR(found.stx_mode);
    const bool tellsBirth = (found.stx_mask & STATX_BTIME) != 0;
    return {.size = isFolder ? 0 : found.stx_size,
            .folder = isFolder,
            .hidden = name.starts_with('.'),
            .created = tellsBirth ? fileTimeOf(found.stx_btime) : FileTime{},
            .lastWrite = fileTimeOf(found.stx_mtime)};
}

/// How a file is opened for each FileUse.
constexpr std::array kOpenFlags{O_RDONLY, O_WRONLY | O_CREAT, O_WRONLY | O_CREAT | O_APPEND};

class PortableFiles : public Files {
   public:
    explicit PortableFiles(std::shared_ptr<DriveMap> drives) : drives_(std::move(drives)) {}

    Outcome<FileHandle> CreateFileA(const std::string& fileName, FileUse use) override {
        const Outcome<std::string> location = drives_->actualPath(fileName);
        if (!location) return {{}, location.error};
        const int flags = kOpenFlags[static_cast<std::size_t>(use)];
        Descriptor file(::open(location.value.c_str(), flags | kAlways, 0666));
        if (!file) return {{}, systemError(errno, location.value)};

        struct stat found {};
        if (::fstat(file.number(), &found) != 0) return {{}, systemError(errno)};
        if (!S_ISREG(found.st_mode) && !S_ISCHR(found.st_mode)) return {{}, SystemError::AccessDenied};
        if (use != FileUse::Read && isReadOnly(found.st_mode)) return {{}, SystemError::AccessDenied};
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
        return writeAll(static_cast<int>(file), bytes);
    }

    SystemError CloseHandle(FileHandle file) override {
        return ::close(static_cast<int>(file)) == 0 ? SystemError::Success : systemError(errno);
    }

    /// Most files stand under exactly the name that is asked for.
    Outcome<FileAttributes> GetFileAttributesExA(const std::string& fileName) override {
        const Outcome<std::string> exact = drives_->exactPath(fileName);
        const Outcome<FileAttributes> found = attributesAt(exact);
        const bool isMissing =
            found.error == SystemError::FileNotFound || found.error == SystemError::PathNotFound;
        if (!exact || !isMissing) return found;
        const Outcome<std::string> actual = drives_->actualPath(fileName);
        return actual.value == exact.value ? found : attributesAt(actual);
    }

    SystemError CopyFileA(const std::string& from, const std::string& to) override {
        const Outcome<std::string> source = drives_->actualPath(from);
        const Outcome<std::string> target = drives_->actualPath(to);
        if (!source) return source.error;
        return target ? copyFile(source.value, target.value) : target.error;
    }

    SystemError DeleteFileA(const std::string& fileName) override {
        const Outcome<std::string> location = drives_->actualPath(fileName);
        if (!location) return location.error;
        const char* const name = location.value.c_str();
        struct stat found {};
        if (::lstat(name, &found) == 0) {
            if (isReadOnly(found.st_mode)) return SystemError::AccessDenied;
            if (::unlink(name) == 0) return SystemError::Success;
        }
        return systemError(errno, location.value);
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
            struct statx status {};
            if (!matchesWildCard(entry->d_name, namePattern)) continue;
            if (::statx(::dirfd(entries.get()), entry->d_name, 0, kWanted, &status) != 0)
                continue;  // gone meanwhile
            found.value.push_back({entry->d_name, attributesOf(status, entry->d_name)});
        }
        if (found.value.empty()) found.error = SystemError::FileNotFound;
        std::ranges::sort(found.value, {}, &FoundFile::name);
        return found;
    }

    Outcome<std::string> nativePath(const std::string& fileName) override {
        return drives_->actualPath(fileName);
    }

    std::string encode(std::string_view text) override { return std::string(text); }
    std::string decode(std::string_view bytes) override { return std::string(bytes); }

   private:
    static Outcome<FileAttributes> attributesAt(const Outcome<std::string>& location) {
        if (!location) return {{}, location.error};
        struct statx found {};
        if (::statx(AT_FDCWD, location.value.c_str(), 0, kWanted, &found) != 0) {
            return {{}, systemError(errno, location.value)};
        }
        const std::size_t nameStart = location.value.find_last_of('/') + 1;
        return {attributesOf(found, std::string_view(location.value).substr(nameStart))};
    }

    std::shared_ptr<DriveMap> drives_;
};

}  // namespace

std::unique_ptr<Files> makeFiles(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableFiles>(std::move(drives));
}

}  // namespace t_genproc::portable
