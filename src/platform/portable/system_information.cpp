#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <random>

#include "platform/portable/adapters.h"
#include "platform/portable/ensure_folder.h"
#include "platform/portable/posix.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

/// The version whose behaviour the adapters follow.
const OsVersion kVersion{6, 1, 7601, VersionPlatform::WindowsNT, "Service Pack 1"};

constexpr std::size_t kLongestPrefix = 3;
constexpr unsigned kMostNumbers = 0xFFFF;  // of temporary files

CountedText counted(std::string text, std::size_t size) {
    const auto characters = static_cast<std::size_t>(text::length(text));
    return characters < size ? CountedText{characters, std::move(text)} : CountedText{characters + 1, {}};
}

/// Of names that differ in letter case only, the one that is spelled exactly.
std::optional<std::string> variable(std::string_view name) {
    std::optional<std::string> found;
    for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view text = *entry;
        const std::string_view itsName = text.substr(0, text.find('='));
        const bool isExact = itsName == name;
        if (!isExact && (found || !text::equalIgnoringCase(itsName, name))) continue;
        found = text.substr(std::min(itsName.size() + 1, text.size()));
        if (isExact) break;
    }
    return found;
}

std::string hexadecimal(unsigned number) {
    std::array<char, 8> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), end};
}

class PortableSystemInformation final : public SystemInformation {
   public:
    PortableSystemInformation(std::shared_ptr<DriveMap> drives, std::string userName)
        : drives_(std::move(drives)), userName_(std::move(userName)) {}

    Outcome<OsVersion> GetVersionExA() override { return {kVersion}; }

    std::uint64_t GlobalMemoryStatus() override {
        const long pages = ::sysconf(_SC_PHYS_PAGES);
        const long bytesOfPage = ::sysconf(_SC_PAGESIZE);
        if (pages < 0 || bytesOfPage < 0) return 0;
        return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(bytesOfPage);
    }

    CountedText GetSystemDirectoryA(std::size_t size) override {
        return counted(existing("C:\\Windows\\System32"), size);
    }
    CountedText GetWindowsDirectoryA(std::size_t size) override {
        return counted(existing("C:\\Windows"), size);
    }
    CountedText GetTempPathA(std::size_t size) override {
        return counted(existing("C:\\Users\\" + userName_ + "\\AppData\\Local\\Temp\\"), size);
    }

    Outcome<std::string> GetTempFileNameA(const std::string& folder, const std::string& prefix) override {
        std::error_code ignored;
        const Outcome<std::string> location = drives_->actualPath(folder);
        if (!location || !std::filesystem::is_directory(location.value, ignored)) {
            return {{}, SystemError::Directory};
        }
        std::string start = folder;
        if (!start.ends_with('\\')) start += '\\';
        start += text::left(prefix, kLongestPrefix);
        unsigned number = std::random_device()();
        for (unsigned tries = 0; tries < kMostNumbers; ++tries, ++number) {
            const std::string name = start + hexadecimal(number % kMostNumbers + 1) + ".tmp";
            const SystemError error = create(name);
            if (error == SystemError::Success) return {name};
            if (error != SystemError::AlreadyExists) return {{}, error};
        }
        return {{}, SystemError::FileExists};
    }

    CountedText GetEnvironmentVariableA(const std::string& name, std::size_t size) override {
        std::string value;
        if (!text::equalIgnoringCase(name, "USERPROFILE")) {
            value = variable(name).value_or("");
        } else if (const std::string home = homeFolder(); !home.empty()) {
            value = drives_->drivePath(home);
        }
        return value.empty() ? CountedText{} : counted(std::move(value), size);
    }

    std::string GetEnvironmentStringsW() override {
        std::string block;
        for (char** entry = ::environ; entry != nullptr && *entry != nullptr; ++entry) {
            block += *entry;
            block += '\0';
        }
        return block + '\0';
    }

    Outcome<Guid> CoCreateGuid() override {
        Guid guid{};
        if (::getentropy(guid.data(), guid.size()) != 0) return {{}, systemError(errno)};
        guid[6] = static_cast<std::uint8_t>((guid[6] & 0x0F) | 0x40);  // made of random bits
        guid[8] = static_cast<std::uint8_t>((guid[8] & 0x3F) | 0x80);  // laid out as usual
        return {guid};
    }

   private:
    /// Makes `folder` where it is missing; on Windows it would exist.
    std::string existing(std::string folder) {
        ensureFolder(*drives_, folder);
        return folder;
    }

    /// A new empty file. AlreadyExists: the name is taken.
    SystemError create(const std::string& fileName) {
        const Outcome<std::string> location = drives_->actualPath(fileName);
        if (!location) return location.error;
        const Descriptor file(::open(location.value.c_str(), O_WRONLY | O_CREAT | O_EXCL | kAlways, 0666));
        return file ? SystemError::Success : systemError(errno, location.value);
    }

    std::shared_ptr<DriveMap> drives_;
    std::string userName_;
};

}  // namespace

std::unique_ptr<SystemInformation> makeSystemInformation(std::shared_ptr<DriveMap> drives,
                                                         const PortableOptions& options) {
    return std::make_unique<PortableSystemInformation>(std::move(drives), options.userName);
}

}  // namespace t_genproc::portable
