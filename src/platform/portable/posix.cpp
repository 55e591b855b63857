#include "platform/portable/posix.h"

#include <unistd.h>

#include <cerrno>

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

Descriptor::~Descriptor() {
    if (number_ != kNone) ::close(number_);
}

}  // namespace t_genproc::portable
