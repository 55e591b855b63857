/// What the portable adapters share: file descriptors and error codes.
#pragma once

#include <utility>

#include "platform/system_error.h"

namespace t_genproc::portable {

/// A POSIX error number as the outcome code that Windows would give.
SystemError systemError(int errorNumber);

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
