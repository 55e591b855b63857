/// Outcome codes of operating-system calls, and the run-time errors that they become.
#pragma once

#include <cstdint>

namespace t_genproc {

/// The codes that Windows gives. Adapters for other systems translate theirs into the nearest of these.
enum class SystemError : std::uint32_t {
    Success = 0,
    FileNotFound = 2,
    PathNotFound = 3,
    TooManyOpenFiles = 4,
    AccessDenied = 5,
    InvalidHandle = 6,
    NotEnoughMemory = 8,
    InvalidDrive = 15,
    NotSameDevice = 17,
    WriteProtected = 19,
    NotReady = 21,
    GeneralFailure = 31,
    SharingViolation = 32,
    LockViolation = 33,
    HandleDiskFull = 39,
    NotSupported = 50,
    FileExists = 80,
    InvalidParameter = 87,
    DiskFull = 112,
    InvalidName = 123,
    BadPathName = 161,
    AlreadyExists = 183,
    BadExecutableFormat = 193,
    EnvironmentVariableNotFound = 203,
    FileNameTooLong = 206,
    MoreData = 234,
    NoMoreItems = 259,
    Directory = 267,
    DamagedRegistry = 1009,
    KeyDeleted = 1018,
    InputOutputDevice = 1117,
};

/// What a call gives beside its outcome code. The value counts only where the call succeeded.
template <class Value>
struct Outcome {
    Value value{};
    SystemError error = SystemError::Success;

    explicit operator bool() const { return error == SystemError::Success; }
};

/// Raises the run-time error that `error` stands for, unless it is Success: 52, 53, 61, 67, 68, 70, 71, 75,
/// 76, or 57 where nothing fits better.
void raiseOnFailure(SystemError error);

}  // namespace t_genproc
