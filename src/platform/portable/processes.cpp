#include <poll.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <map>
#include <thread>

#include "platform/portable/adapters.h"
#include "platform/portable/find_program.h"
#include "platform/portable/posix.h"

namespace t_genproc::portable {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr Milliseconds kZeroWait{10};     // a loop of such waits costs next to nothing
constexpr Milliseconds kBetweenLooks{1};  // where nothing tells the end of a program
constexpr Milliseconds kLongestSleep = std::chrono::hours(1);

/// A descriptor that can be read from when the process has ended; none where the system has no such thing.
Descriptor endOf(pid_t process) {
#ifdef SYS_pidfd_open
    return Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
#else
    return Descriptor();
#endif
}

class Child {
   public:
    explicit Child(pid_t process) : process_(process), end_(endOf(process)) {}

    /// The first look after the end lets the system forget the process; where the host ignores SIGCHLD it has
    /// done so already.
    bool hasEnded() {
        if (ended_) return true;
        const pid_t answer = ::waitpid(process_, nullptr, WNOHANG);
        ended_ = answer > 0 || (answer < 0 && errno == ECHILD);
        return ended_;
    }

    /// Sleeps until the end or for `longest`; a signal may cut it short.
    void awaitEnd(Milliseconds longest) const {
        pollfd end{end_.number(), POLLIN, 0};
        if (end_) {
            ::poll(&end, 1, static_cast<int>(longest.count()));
        } else {
            std::this_thread::sleep_for(kBetweenLooks);
        }
    }

   private:
    pid_t process_;
    Descriptor end_;
    bool ended_ = false;
};

/// How programs start: in a folder, no signal blocked or ignored, and of the descriptors only 0 to 2.
class StartSettings {
   public:
    explicit StartSettings(const std::string& folder) {
        sigset_t none, all;
        ::sigemptyset(&none);
        ::sigfillset(&all);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        ::posix_spawnattr_setsigdefault(&attributes_, &all);

        ::posix_spawn_file_actions_init(&actions_);
        error_ = ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
#if __GLIBC__ * 100 + __GLIBC_MINOR__ >= 234  // elsewhere: whatever is not marked to be closed leaks
        if (error_ == 0) error_ = ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
#endif
    }
    StartSettings(const StartSettings&) = delete;
    StartSettings& operator=(const StartSettings&) = delete;
    ~StartSettings() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    /// The error number; 0 where the program has started.
    int start(const Program& program, pid_t& process) const {
        if (error_ != 0) return error_;
        std::vector<std::string> words = program.words;
        std::vector<char*> pointers(words.size() + 1);  // the last one stays null
        std::ranges::transform(words, pointers.begin(), [](std::string& word) { return word.data(); });
        return ::posix_spawn(&process, program.location.c_str(), &actions_, &attributes_, pointers.data(),
                             environ);
    }

   private:
    posix_spawnattr_t attributes_{};
    posix_spawn_file_actions_t actions_{};
    int error_ = 0;
};

SystemError startError(int errorNumber) {
    switch (errorNumber) {
        case ENOEXEC:
        case EINVAL: return SystemError::BadExecutableFormat;
        case E2BIG: return SystemError::FileNameTooLong;
        case EAGAIN: return SystemError::NotEnoughMemory;
        default: return systemError(errorNumber);
    }
}

bool isFolder(const std::string& location) {
    struct stat found {};
    return ::stat(location.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

class PortableProcesses final : public Processes {
   public:
    explicit PortableProcesses(std::shared_ptr<DriveMap> drives) : drives_(std::move(drives)) {}

    Launch CreateProcessA(const std::string& commandLine, bool /*inheritHandles*/,
                          std::uint32_t /*creationFlags*/) override {
        forgetEnded();
        const Outcome<Program> program = findProgram(*drives_, commandLine);
        if (!program) return {.lastError = program.error};
        const std::string folder = drives_->actualPath(".").value;
        pid_t process = 0;
        if (const int error = StartSettings(folder).start(program.value, process)) {
            return {.lastError = isFolder(folder) ? startError(error) : SystemError::Directory};
        }
        const auto child = running_.emplace_back(std::make_shared<Child>(process));
        children_[++lastHandle_] = child;
        children_[++lastHandle_] = child;
        return {true, {lastHandle_ - 1, lastHandle_}};
    }

    std::uint32_t WaitForInputIdle(ProcessHandle /*process*/, std::uint32_t /*milliseconds*/) override {
        return kWaitFailed;
    }

    std::uint32_t WaitForSingleObject(ProcessHandle process, std::uint32_t milliseconds) override {
        const auto found = children_.find(process);
        if (found == children_.end()) return kWaitFailed;
        const Milliseconds longest = milliseconds == 0 ? kZeroWait : Milliseconds(milliseconds);
        const Clock::time_point deadline = Clock::now() + longest;
        while (!found->second->hasEnded()) {
            Milliseconds left = kLongestSleep;
            if (milliseconds != kInfinite) {
                left = std::min(left, std::chrono::ceil<Milliseconds>(deadline - Clock::now()));
            }
            if (left <= Milliseconds::zero()) return kWaitTimeout;
            found->second->awaitEnd(left);
        }
        return kWaitObject;
    }

    SystemError CloseHandle(ProcessHandle handle) override {
        forgetEnded();
        return children_.erase(handle) == 1 ? SystemError::Success : SystemError::InvalidHandle;
    }

   private:
    /// Also those of which nobody holds a handle any more.
    void forgetEnded() {
        std::erase_if(running_, [](const auto& child) { return child->hasEnded(); });
    }

    std::shared_ptr<DriveMap> drives_;
    std::map<ProcessHandle, std::shared_ptr<Child>> children_;
    std::vector<std::shared_ptr<Child>> running_;
    ProcessHandle lastHandle_ = 0;
};

}  // namespace

std::unique_ptr<Processes> makeProcesses(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableProcesses>(std::move(drives));
}

}  // namespace t_genproc::portable
