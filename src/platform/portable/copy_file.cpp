#include "platform/portable/copy_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>

#include "platform/portable/posix.h"

namespace t_genproc::portable {
namespace {

constexpr std::size_t kAtOnce = std::size_t{64} * 1024;  // bytes

SystemError copyBytes(int from, int to) {
    std::string bytes(kAtOnce, '\0');
    for (;;) {
        const ssize_t count = ::read(from, bytes.data(), bytes.size());
        if (count == 0) return SystemError::Success;
        if (count < 0 && errno != EINTR) return systemError(errno);
        if (count < 0) continue;
        const SystemError error = writeAll(to, {bytes.data(), static_cast<std::size_t>(count)});
        if (error != SystemError::Success) return error;
    }
}

/// The bytes, and the time of the last write, which only the owner of a file can set. What the system has
/// held back may fail at the very end.
SystemError copy(const Descriptor& source, const struct stat& status, Descriptor target) {
    const SystemError error = copyBytes(source.number(), target.number());
    if (error != SystemError::Success) return error;
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    ::futimens(target.number(), times.data());
    return ::close(target.release()) == 0 ? SystemError::Success : systemError(errno);
}

/// Where the folder does not let it go, it is emptied at least.
void remove(const std::string& location) {
    std::error_code ignored;
    std::filesystem::resize_file(location, 0, ignored);
    std::filesystem::remove(std::filesystem::canonical(location, ignored), ignored);
}

}  // namespace

SystemError copyFile(const std::string& from, const std::string& to) {
    const Descriptor source(::open(from.c_str(), O_RDONLY | kAlways));
    struct stat status {};
    if (!source || ::fstat(source.number(), &status) != 0) return systemError(errno, from);
    if (!S_ISREG(status.st_mode)) return SystemError::AccessDenied;

    struct stat old {};
    if (::stat(to.c_str(), &old) == 0) {
        const bool isSource = old.st_dev == status.st_dev && old.st_ino == status.st_ino;
        if (isSource) return SystemError::SharingViolation;
        if (!S_ISREG(old.st_mode) || isReadOnly(old.st_mode)) return SystemError::AccessDenied;
    }
    const int flags = O_WRONLY | O_CREAT | O_TRUNC | kAlways;
    Descriptor target(::open(to.c_str(), flags, status.st_mode & ACCESSPERMS));
    if (!target) return systemError(errno, to);

    const SystemError error = copy(source, status, std::move(target));
    if (error != SystemError::Success) remove(to);
    return error;
}

}  // namespace t_genproc::portable
