/// What the portable adapters share: file descriptors, error codes, the user.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>

#include <string>
#include <utility>

#include "platform/system_error.h"

namespace t_genproc::portable {

/// A POSIX error number as the outcome code that Windows would give.
SystemError systemError(int errorNumber);

/// The same for a call that was given `location`: what is missing is the file, or a folder on the way to it.
SystemError systemError(int errorNumber, const std::string& location);

/// For every file that is opened: not to wait for the other end of a pipe, nor to leak into child processes.
inline constexpr int kAlways = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;

/// A file without any write permission is read-only to everybody, as on Windows.
inline bool isReadOnly(mode_t mode) { return (mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0; }

/// The user's home folder; empty where there is none.
std::string homeFolder();

/// The folder for the user's data: XDG_DATA_HOME where that is a full path, or ~/.local/share.
std::string dataFolder();

/// All of `bytes`, or a failure.
SystemError writeAll(int descriptor, std::string_view bytes);

/// A file descriptor that is closed with its owner.
class Descriptor {
   public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, kNone)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor();

    explicit operator bool() const { return number_ != kNone; }
    int number() const { return number_; }
    int release() { return std::exchange(number_, kNone); }

   private:
    static constexpr int kNone = -1;
    int number_ = kNone;
};

}  // namespace t_genproc::portable
