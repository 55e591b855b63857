#include "platform/portable/posix.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace t_genproc::portable {

SystemError systemError(int errorNumber) {
    switch (errorNumber) {
        case 0: return SystemError::Success;
        case ENOENT: return SystemError::FileNotFound;
        case ENOTDIR:
        case ELOOP: return SystemError::PathNotFound;
        case EMFILE:
        case ENFILE: return SystemError::TooManyOpenFiles;
        case EACCES:
        case EPERM:
        case EISDIR: return SystemError::AccessDenied;
        case EBADF: return SystemError::InvalidHandle;
        case ENOMEM: return SystemError::NotEnoughMemory;
        case EXDEV: return SystemError::NotSameDevice;
        case EROFS: return SystemError::WriteProtected;
        case ETXTBSY:
        case EBUSY: return SystemError::SharingViolation;
        case EEXIST: return SystemError::AlreadyExists;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return SystemError::DiskFull;
        case EINVAL:
        case EILSEQ: return SystemError::InvalidName;
        case ENAMETOOLONG: return SystemError::FileNameTooLong;
        case EIO: return SystemError::InputOutputDevice;
        default: return SystemError::GeneralFailure;
    }
}

SystemError systemError(int errorNumber, const std::string& location) {
    if (errorNumber != ENOENT) return systemError(errorNumber);
    const std::string folder = location.substr(0, location.find_last_of('/') + 1);
    return ::access(folder.c_str(), F_OK) == 0 ? SystemError::FileNotFound : SystemError::PathNotFound;
}

SystemError writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return systemError(errno);
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return SystemError::Success;
}

std::string homeFolder() {
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return home;
    const passwd* const user = ::getpwuid(::getuid());
    return user == nullptr ? std::string() : user->pw_dir;
}

std::string dataFolder() {
    const char* const folder = std::getenv("XDG_DATA_HOME");
    const bool isGiven = folder != nullptr && *folder == '/';
    return isGiven ? folder : homeFolder() + "/.local/share";
}

Descriptor::~Descriptor() {
    if (number_ != kNone) ::close(number_);
}

}  // namespace t_genproc::portable
