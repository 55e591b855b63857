#include "platform/system_error.h"

#include <algorithm>
#include <array>

#include "runtime/errors.h"

namespace t_genproc {
namespace {

struct Meaning {
    SystemError error;
    ErrorNumber number;
};

constexpr std::array kMeanings{
    Meaning{SystemError::FileNotFound, ErrorNumber::FileNotFound},
    Meaning{SystemError::PathNotFound, ErrorNumber::PathNotFound},
    Meaning{SystemError::TooManyOpenFiles, ErrorNumber::TooManyFiles},
    Meaning{SystemError::AccessDenied, ErrorNumber::PathFileAccess},
    Meaning{SystemError::InvalidHandle, ErrorNumber::BadFileNameOrNumber},
    Meaning{SystemError::NotEnoughMemory, ErrorNumber::OutOfMemory},
    Meaning{SystemError::InvalidDrive, ErrorNumber::DeviceUnavailable},
    Meaning{SystemError::WriteProtected, ErrorNumber::PermissionDenied},
    Meaning{SystemError::NotReady, ErrorNumber::DiskNotReady},
    Meaning{SystemError::SharingViolation, ErrorNumber::PermissionDenied},
    Meaning{SystemError::LockViolation, ErrorNumber::PermissionDenied},
    Meaning{SystemError::HandleDiskFull, ErrorNumber::DiskFull},
    Meaning{SystemError::FileExists, ErrorNumber::FileAlreadyExists},
    Meaning{SystemError::DiskFull, ErrorNumber::DiskFull},
    Meaning{SystemError::InvalidName, ErrorNumber::BadFileNameOrNumber},
    Meaning{SystemError::BadPathName, ErrorNumber::BadFileNameOrNumber},
    Meaning{SystemError::AlreadyExists, ErrorNumber::PathFileAccess},
    Meaning{SystemError::FileNameTooLong, ErrorNumber::BadFileNameOrNumber},
    Meaning{SystemError::Directory, ErrorNumber::PathNotFound},
};

}  // namespace

void raiseOnFailure(SystemError error) {
    if (error == SystemError::Success) return;
    const auto found = std::ranges::find(kMeanings, error, &Meaning::error);
    throw RuntimeError(found != kMeanings.end() ? found->number : ErrorNumber::DeviceInputOutput);
}

}  // namespace t_genproc
