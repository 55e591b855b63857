#include "platform/portable/replace_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <span>

#include "platform/portable/posix.h"

namespace t_genproc::portable {
namespace {

constexpr std::size_t kFirstBlock = std::size_t{16} * 1024;
constexpr int kMostLinks = 40;
constexpr mode_t kPermissionBits = 07777;

struct OpenFile {
    Descriptor descriptor;
    struct stat status {};
    SystemError error = SystemError::Success;
};

OpenFile failed(int errorNumber) { return {{}, {}, systemError(errorNumber)}; }

bool sameFile(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Opens a file and waits for its lock.
OpenFile openLocked(const std::string& location, int flags) {
    OpenFile file{Descriptor(::open(location.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666))};
    if (!file.descriptor) return failed(errno);
    while (::flock(file.descriptor.number(), LOCK_EX) != 0 && errno == EINTR) {
    }
    return ::fstat(file.descriptor.number(), &file.status) == 0 ? std::move(file) : failed(errno);
}

/// Opens a file for this writer alone. By the time that the lock is had, another writer may have put a new
/// file in its place: then that one counts.
OpenFile openAlone(const std::string& location, int flags) {
    for (;;) {
        OpenFile file = openLocked(location, flags);
        if (!file.descriptor) return file;
        struct stat current {};
        if (::stat(location.c_str(), &current) != 0) {
            if (errno != ENOENT) return failed(errno);
        } else if (sameFile(file.status, current)) {
            return file;
        }
    }
}

/// The text of an open file, or none where it cannot be read.
std::optional<std::string_view> read(const Descriptor& file, std::string& buffer) {
    if (buffer.size() < kFirstBlock) buffer.resize(kFirstBlock);
    std::size_t length = 0;
    for (;;) {
        const ssize_t count = ::read(file.number(), buffer.data() + length, buffer.size() - length);
        if (count < 0) return {};
        length += static_cast<std::size_t>(count);
        // A regular file gives all that is asked for, unless it ends.
        if (length < buffer.size()) return std::string_view(buffer).substr(0, length);
        struct stat status {};
        if (::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
        buffer.resize(std::max(buffer.size() * 2, static_cast<std::size_t>(status.st_size) + kFirstBlock));
    }
}

/// Writes all of `pieces`, one behind the other.
SystemError writeAll(int file, std::span<iovec> pieces) {
    while (!pieces.empty()) {
        const ssize_t count = ::writev(file, pieces.data(), static_cast<int>(pieces.size()));
        if (count < 0) {
            if (errno == EINTR) continue;
            return systemError(errno);
        }
        auto written = static_cast<std::size_t>(count);
        while (!pieces.empty() && written >= pieces.front().iov_len) {
            written -= pieces.front().iov_len;
            pieces = pieces.subspan(1);
        }
        if (!pieces.empty()) {
            pieces.front().iov_base = static_cast<char*>(pieces.front().iov_base) + written;
            pieces.front().iov_len -= written;
        }
    }
    return SystemError::Success;
}

iovec piece(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

/// The file that symbolic links lead to; it need not exist.
std::string behindLinks(std::string location) {
    namespace fs = std::filesystem;
    std::error_code error;
    for (int links = 0; links < kMostLinks && fs::is_symlink(location, error); ++links) {
        const fs::path target = fs::read_symlink(location, error);
        if (error) break;
        location = (fs::path(location).parent_path() / target).string();
    }
    return location;
}

std::string newName(const std::string& location) {
    const std::size_t nameStart = location.find_last_of('/') + 1;
    return location.substr(0, nameStart) + "." + location.substr(nameStart) + ".new";
}

/// Whether the file may be changed at all. One without any write permission is read-only even to those whom
/// the system lets write.
SystemError writable(const struct stat& status) {
    if (!S_ISREG(status.st_mode) || (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) {
        return SystemError::AccessDenied;
    }
    return SystemError::Success;
}

/// A file that is to take the place of another, or to vanish.
class Replacement {
   public:
    explicit Replacement(const std::string& location)
        : name_(newName(location)), file_(openAlone(name_, O_RDWR | O_CREAT | O_NOFOLLOW)) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (file_.descriptor) ::unlink(name_.c_str());
    }

    explicit operator bool() const { return static_cast<bool>(file_.descriptor); }
    SystemError error() const { return file_.error; }

    /// Takes over owner and permissions; False where the system does not allow that.
    bool takeOver(const struct stat& old) {
        const int file = file_.descriptor.number();
        const bool otherOwner = file_.status.st_uid != old.st_uid || file_.status.st_gid != old.st_gid;
        if (otherOwner && ::fchown(file, old.st_uid, old.st_gid) != 0) return false;
        const bool otherMode = ((file_.status.st_mode ^ old.st_mode) & kPermissionBits) != 0;
        return !(otherOwner || otherMode) || ::fchmod(file, old.st_mode & kPermissionBits) == 0;
    }

    SystemError write(std::string_view text, const TextChange& change) {
        const int file = file_.descriptor.number();
        // A writer that was killed has left a part of its text.
        if (file_.status.st_size > 0 && ::ftruncate(file, 0) != 0) return systemError(errno);
        std::array pieces{piece(text.substr(0, change.position)), piece(change.replacement),
                          piece(text.substr(change.position + change.length))};
        return writeAll(file, pieces);
    }

    SystemError takePlaceOf(const std::string& location) {
        if (::rename(name_.c_str(), location.c_str()) != 0) return systemError(errno);
        file_.descriptor = Descriptor();
        return SystemError::Success;
    }

   private:
    std::string name_;
    OpenFile file_;
};

SystemError changeInPlace(const OpenFile& file, std::string_view text, const TextChange& change) {
    const int number = file.descriptor.number();
    const auto oldSize = static_cast<off_t>(text.size());
    const auto newSize = static_cast<off_t>(text.size() - change.length + change.replacement.size());
    if (newSize > oldSize) {
        if (const int error = ::posix_fallocate(number, oldSize, newSize - oldSize); error != 0) {
            return ::ftruncate(number, oldSize) == 0 ? systemError(error) : SystemError::InputOutputDevice;
        }
    }
    std::array pieces{piece(change.replacement), piece(text.substr(change.position + change.length))};
    if (::lseek(number, static_cast<off_t>(change.position), SEEK_SET) < 0) return systemError(errno);
    const SystemError error = writeAll(number, pieces);
    if (error != SystemError::Success) return error;
    return ::ftruncate(number, newSize) == 0 ? SystemError::Success : systemError(errno);
}

}  // namespace

std::optional<std::string_view> readWhole(const std::string& location, std::string& buffer) {
    const Descriptor file(::open(location.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return {};
    return read(file, buffer);
}

SystemError changeFile(const std::string& givenLocation, std::string& buffer,
                       const std::function<std::optional<TextChange>(std::string_view)>& makeChange) {
    const std::string location = behindLinks(givenLocation);
    Replacement replacement(location);
    // Only a writer that holds the lock of the replacement replaces the file.
    const OpenFile old = replacement ? openLocked(location, O_RDWR) : openAlone(location, O_RDWR);

    std::string_view text;
    if (old.descriptor) {
        if (const SystemError error = writable(old.status); error != SystemError::Success) return error;
        const std::optional<std::string_view> content = read(old.descriptor, buffer);
        if (!content) return SystemError::InputOutputDevice;
        text = *content;
    } else if (old.error != SystemError::FileNotFound) {
        return old.error;
    }

    const std::optional<TextChange> change = makeChange(text);
    if (!change) return SystemError::InvalidName;
    const bool canReplace = replacement && (!old.descriptor || replacement.takeOver(old.status));
    if (!canReplace) return old.descriptor ? changeInPlace(old, text, *change) : replacement.error();
    if (const SystemError error = replacement.write(text, *change); error != SystemError::Success)
        return error;
    return replacement.takePlaceOf(location);
}

}  // namespace t_genproc::portable
