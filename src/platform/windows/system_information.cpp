#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <memory>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

static_assert(sizeof(OSVERSIONINFOA) == 148);

/// What `call` writes into a buffer of `size` characters; it gives the count of them.
template <class Call>
CountedText counted(std::size_t size, Call call) {
    std::string buffer(size, '\0');
    const DWORD count = call(buffer.data(), static_cast<DWORD>(size));
    if (count >= size) return {count, {}};
    buffer.resize(count);
    return {count, fromAnsi(buffer)};
}

/// A number in the order in which it is written, the highest byte first.
template <class Number>
std::uint8_t* write(Number number, std::uint8_t* to) {
    for (std::size_t bits = 8 * sizeof(Number); bits > 0; bits -= 8) {
        *to++ = static_cast<std::uint8_t>(number >> (bits - 8));
    }
    return to;
}

class WindowsSystemInformation final : public SystemInformation {
   public:
    Outcome<OsVersion> GetVersionExA() override {
        OSVERSIONINFOA version{};
        version.dwOSVersionInfoSize = sizeof version;
        if (!::GetVersionExA(&version)) return {.error = lastError()};
        return {{version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber, version.dwPlatformId,
                 fromAnsi(version.szCSDVersion)}};
    }

    std::uint64_t GlobalMemoryStatus() override {
        MEMORYSTATUS memory{};
        ::GlobalMemoryStatus(&memory);
        return memory.dwTotalPhys;
    }

    CountedText GetSystemDirectoryA(std::size_t size) override {
        return counted(size, &::GetSystemDirectoryA);
    }
    CountedText GetWindowsDirectoryA(std::size_t size) override {
        return counted(size, &::GetWindowsDirectoryA);
    }
    CountedText GetTempPathA(std::size_t size) override {
        return counted(size, [](char* buffer, DWORD room) { return ::GetTempPathA(room, buffer); });
    }

    Outcome<std::string> GetTempFileNameA(const std::string& folder, const std::string& prefix) override {
        const auto ansiFolder = toAnsi(folder);
        const auto ansiPrefix = toAnsi(prefix);
        if (!ansiFolder || !ansiPrefix) return {.error = SystemError::InvalidName};
        std::array<char, MAX_PATH> name{};
        if (::GetTempFileNameA(ansiFolder->c_str(), ansiPrefix->c_str(), 0, name.data()) == 0) {
            return {.error = lastError()};
        }
        return {fromAnsi(name.data())};
    }

    CountedText GetEnvironmentVariableA(const std::string& name, std::size_t size) override {
        const auto ansiName = toAnsi(name);
        if (!ansiName) return {};
        return counted(size, [&](char* buffer, DWORD room) {
            return ::GetEnvironmentVariableA(ansiName->c_str(), buffer, room);
        });
    }

    std::string GetEnvironmentStringsW() override {
        const std::unique_ptr<wchar_t, decltype(&::FreeEnvironmentStringsW)> block(
            ::GetEnvironmentStringsW(), &::FreeEnvironmentStringsW);
        const wchar_t* const start = block ? block.get() : L"";
        const wchar_t* end = start;
        while (*end != L'\0') end += std::wcslen(end) + 1;
        return fromWide({start, end + 1});
    }

    Outcome<Guid> CoCreateGuid() override {
        GUID made{};
        const HRESULT result = ::CoCreateGuid(&made);
        if (result != S_OK) return {.error = static_cast<SystemError>(HRESULT_CODE(result))};
        Guid guid{};
        std::ranges::copy(made.Data4, write(made.Data3, write(made.Data2, write(made.Data1, guid.data()))));
        return {guid};
    }
};

}  // namespace

std::unique_ptr<SystemInformation> makeSystemInformation() {
    return std::make_unique<WindowsSystemInformation>();
}

}  // namespace t_genproc
