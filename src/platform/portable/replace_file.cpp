#include "platform/portable/replace_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <span>

#include "platform/portable/posix.h"

namespace t_genproc::portable {
namespace {

constexpr std::size_t kFirstRoom = 256;  // blocks
constexpr std::size_t kLongestFile = std::size_t{256} * 1024 * 1024;
constexpr int kMostLinks = 40;
constexpr int kMostTries = 1000;          // each one lost to another writer
constexpr std::size_t kMostOfName = 200;  // leaves room for the rest; files that share it wait for each other
constexpr mode_t kPermissionBits = 07777;
constexpr const char* kAccessList = "system.posix_acl_access";

struct OpenFile {
    Descriptor descriptor;
    struct stat status {};
    SystemError error = SystemError::Success;
};

OpenFile failed(int errorNumber) { return {{}, {}, systemError(errorNumber)}; }

OpenFile open(const std::string& location, int flags, mode_t mode = 0) {
    OpenFile file{Descriptor(::open(location.c_str(), flags | kAlways, mode))};
    if (!file.descriptor) return failed(errno);
    return ::fstat(file.descriptor.number(), &file.status) == 0 ? std::move(file) : failed(errno);
}

/// For a look that does without the file's status.
OpenFile openToRead(const std::string& location) {
    OpenFile file{Descriptor(::open(location.c_str(), O_RDONLY | kAlways))};
    return file.descriptor ? std::move(file) : failed(errno);
}

/// Waits for the lock. Where the file system has none, there is no protection against other writers.
void lock(const OpenFile& file, int kind) {
    while (::flock(file.descriptor.number(), kind) != 0 && errno == EINTR) {
    }
}

/// Whether the file still stands under its name.
bool isInPlace(const OpenFile& file, const std::string& location) {
    struct stat current {};
    return ::stat(location.c_str(), &current) == 0 && current.st_dev == file.status.st_dev &&
           current.st_ino == file.status.st_ino;
}

/// Opens and locks a file. By the time that the lock is had, another writer may have put a new file in its
/// place: then that one counts.
OpenFile openLocked(const std::string& location, int flags, int kind) {
    for (int tries = 0; tries < kMostTries; ++tries) {
        OpenFile file = open(location, flags);
        if (!file.descriptor) return file;
        lock(file, kind);
        if (isInPlace(file, location)) {
            // It may have been changed in place before the lock was had.
            return ::fstat(file.descriptor.number(), &file.status) == 0 ? std::move(file) : failed(errno);
        }
    }
    return failed(EBUSY);
}

/// `text` up to its last line end.
std::string_view wholeLines(std::string_view text) { return text.substr(0, text.find_last_of("\r\n") + 1); }

/// The text of an open file. A read that gives less than asked for need not be the last one.
Outcome<std::string_view> read(const Descriptor& file, Reading reading, ReadBuffer& buffer) {
    if (buffer.empty()) buffer.resize(kFirstRoom);
    for (std::size_t length = 0; length <= kLongestFile;) {
        if (length == buffer.size() * sizeof(BufferBlock)) buffer.resize(buffer.size() * 2);
        char* const bytes = buffer.front().bytes;
        const ssize_t count =
            ::read(file.number(), bytes + length, buffer.size() * sizeof(BufferBlock) - length);
        if (count == 0) return {std::string_view(bytes, length)};
        if (count < 0 && errno != EINTR) return {{}, systemError(errno)};
        if (count > 0) length += static_cast<std::size_t>(count);
        const bool gaveLess = length < buffer.size() * sizeof(BufferBlock);
        if (reading == Reading::AtOnce && gaveLess) return {wholeLines({bytes, length})};
    }
    return {{}, SystemError::InputOutputDevice};
}

iovec piece(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

/// Writes all of `pieces`, one behind the other.
SystemError writeAll(const OpenFile& file, std::span<iovec> pieces) {
    while (!pieces.empty()) {
        const ssize_t count =
            ::writev(file.descriptor.number(), pieces.data(), static_cast<int>(pieces.size()));
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

/// Whether the file may be changed at all.
bool isWritable(const OpenFile& file) {
    return S_ISREG(file.status.st_mode) && !isReadOnly(file.status.st_mode);
}

/// A file that is to take the place of another, or to vanish.
class Replacement {
   public:
    /// `old` is the file to replace, locked, or none.
    Replacement(const std::string& location, const OpenFile& old) : location_(location), old_(old) {
        const std::size_t nameStart = location.find_last_of('/') + 1;
        name_ = location.substr(0, nameStart) + "." + location.substr(nameStart, kMostOfName) + "." +
                std::to_string(::geteuid()) + ".new";
        for (int tries = 0; tries < kMostTries && !file_.descriptor; ++tries) {
            if (!create()) break;
        }
        if (file_.descriptor && old_.descriptor && !takeOver()) discard();
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() { discard(); }

    explicit operator bool() const { return static_cast<bool>(file_.descriptor); }
    SystemError error() const { return file_.error; }

    SystemError write(std::string_view text, const TextChange& change) {
        std::array pieces{piece(text.substr(0, change.position)), piece(change.replacement),
                          piece(text.substr(change.position + change.length))};
        return writeAll(file_, pieces);
    }

    /// AlreadyExists: there is a file by now where there was none.
    SystemError takePlace() {
        const unsigned flags = old_.descriptor ? 0 : RENAME_NOREPLACE;
        const char* const from = name_.c_str();
        const char* const to = location_.c_str();
        if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, flags) == 0) {
            file_.descriptor = Descriptor();
            return SystemError::Success;
        }
        // Some file systems know no such flag; a link fails as well where there is a file already.
        const bool linked = errno == EINVAL && ::link(from, to) == 0;
        return linked ? SystemError::Success : systemError(errno);
    }

   private:
    /// False: the folder takes no such file. True without a file: try again.
    bool create() {
        const bool ownersDiffer =
            old_.descriptor && (old_.status.st_uid != ::geteuid() || old_.status.st_gid != ::getegid());
        const mode_t mode = ownersDiffer      ? 0600
                            : old_.descriptor ? old_.status.st_mode & kPermissionBits
                                              : 0666;
        file_ = open(name_, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (!file_.descriptor) return file_.error == SystemError::AlreadyExists && clearAway();
        lock(file_, LOCK_EX);
        if (!isInPlace(file_, name_)) file_.descriptor = Descriptor();  // taken for a dead writer's
        return true;
    }

    /// What stands there belongs to a writer at work, who is waited for, or to one that was killed.
    bool clearAway() {
        const OpenFile left = open(name_, O_RDONLY | O_NOFOLLOW);
        const bool isWriters = left.descriptor && S_ISREG(left.status.st_mode) && left.status.st_nlink <= 1;
        if (isWriters) {
            lock(left, LOCK_EX);
            if (!isInPlace(left, name_)) return true;
        }
        return ::unlink(name_.c_str()) == 0 || errno == ENOENT;
    }

    /// Owner, permissions and access list of the old file; False where the system does not allow that.
    bool takeOver() {
        const int from = old_.descriptor.number();
        const int to = file_.descriptor.number();
        const struct stat& wanted = old_.status;
        const bool otherOwner = file_.status.st_uid != wanted.st_uid || file_.status.st_gid != wanted.st_gid;
        if (otherOwner && ::fchown(to, wanted.st_uid, wanted.st_gid) != 0) return false;
        const bool otherMode = ((file_.status.st_mode ^ wanted.st_mode) & kPermissionBits) != 0;
        if ((otherOwner || otherMode) && ::fchmod(to, wanted.st_mode & kPermissionBits) != 0) return false;
        std::array<char, 1024> accessList{};
        const ssize_t length = ::fgetxattr(from, kAccessList, accessList.data(), accessList.size());
        if (length < 0) return errno == ENODATA || errno == ENOTSUP;
        return ::fsetxattr(to, kAccessList, accessList.data(), static_cast<std::size_t>(length), 0) == 0;
    }

    void discard() {
        if (file_.descriptor) ::unlink(name_.c_str());
        file_.descriptor = Descriptor();
    }

    const std::string& location_;
    const OpenFile& old_;
    std::string name_;
    OpenFile file_;
};

/// Writes `pieces` from `position` on and makes the file `size` bytes long.
SystemError overwrite(const OpenFile& file, std::size_t position, std::span<iovec> pieces, off_t size) {
    const int number = file.descriptor.number();
    if (::lseek(number, static_cast<off_t>(position), SEEK_SET) < 0) return systemError(errno);
    const SystemError error = writeAll(file, pieces);
    if (error != SystemError::Success) return error;
    return ::ftruncate(number, size) == 0 ? SystemError::Success : systemError(errno);
}

SystemError changeInPlace(const OpenFile& file, std::string_view text, const TextChange& change) {
    const auto oldSize = static_cast<off_t>(text.size());
    const auto newSize = static_cast<off_t>(text.size() - change.length + change.replacement.size());
    SystemError error = SystemError::Success;
    if (newSize > oldSize) {
        error = systemError(::posix_fallocate(file.descriptor.number(), oldSize, newSize - oldSize));
    }
    if (error == SystemError::Success) {
        std::array pieces{piece(change.replacement), piece(text.substr(change.position + change.length))};
        error = overwrite(file, change.position, pieces, newSize);
    }
    if (error != SystemError::Success) {
        std::array pieces{piece(text.substr(change.position))};
        overwrite(file, change.position, pieces, oldSize);
    }
    return error;
}

}  // namespace

Outcome<std::string_view> readFile(const std::string& location, Reading reading, ReadBuffer& buffer,
                                   Purpose purpose) {
    const int flags = purpose == Purpose::Change ? O_RDWR : O_RDONLY;
    const OpenFile file = reading == Reading::BetweenWrites ? openLocked(location, flags, LOCK_SH)
                          : purpose == Purpose::Change      ? open(location, flags)
                                                            : openToRead(location);
    if (!file.descriptor) return {{}, file.error};
    if (purpose == Purpose::Change && !isWritable(file)) return {{}, SystemError::AccessDenied};
    return read(file.descriptor, reading, buffer);
}

SystemError changeFile(const std::string& givenLocation, ReadBuffer& buffer,
                       const std::function<Outcome<TextChange>(std::string_view)>& makeChange) {
    const std::string location = behindLinks(givenLocation);
    for (int tries = 0; tries < kMostTries; ++tries) {
        const OpenFile old = openLocked(location, O_RDWR, LOCK_EX);
        const bool exists = old.error != SystemError::FileNotFound;
        if (exists && !old.descriptor) return old.error;
        if (exists && !isWritable(old)) return SystemError::AccessDenied;

        Outcome<std::string_view> text;
        if (exists) text = read(old.descriptor, Reading::BetweenWrites, buffer);
        if (!text) return text.error;
        const Outcome<TextChange> change = makeChange(text.value);
        if (!change) return change.error;
        const std::size_t size = text.value.size() - change.value.length + change.value.replacement.size();
        if (size > kLongestFile) return SystemError::DiskFull;

        if (exists && old.status.st_nlink > 1) return changeInPlace(old, text.value, change.value);
        Replacement replacement(location, old);
        if (!replacement) return exists ? changeInPlace(old, text.value, change.value) : replacement.error();
        if (const SystemError error = replacement.write(text.value, change.value);
            error != SystemError::Success)
            return error;
        const SystemError error = replacement.takePlace();
        if (error != SystemError::AlreadyExists) return error;
    }
    return SystemError::SharingViolation;
}

}  // namespace t_genproc::portable
