#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

constexpr std::size_t kLongestPath = 32767;

/// Windows itself keeps the current folder of the current drive only; those of the others are looked up in
/// variables named "=C:", which each program has to set.
void rememberFolderOfDrive() {
    std::wstring folder(kLongestPath + 1, L'\0');
    ::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    if (folder[1] == L':') ::SetEnvironmentVariableW((L'=' + folder.substr(0, 2)).c_str(), folder.c_str());
}

class WindowsFolders final : public Folders {
   public:
    SystemError CreateDirectoryA(const std::string& folder) override {
        const auto name = toAnsi(folder);
        if (!name) return SystemError::InvalidName;
        return ::CreateDirectoryA(name->c_str(), nullptr) ? SystemError::Success : lastError();
    }

    SystemError SetCurrentDirectoryA(const std::string& folder) override {
        const auto name = toAnsi(folder);
        if (!name) return SystemError::InvalidName;
        if (!::SetCurrentDirectoryA(name->c_str())) return lastError();
        rememberFolderOfDrive();
        return SystemError::Success;
    }

    Outcome<std::string> GetFullPathNameA(const std::string& path) override {
        const auto name = toAnsi(path);
        if (!name) return {.error = SystemError::InvalidName};
        std::string full(kLongestPath + 1, '\0');
        ::SetLastError(ERROR_SUCCESS);  // the call does not say why it refuses an empty name
        const DWORD length =
            ::GetFullPathNameA(name->c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length == 0 && lastError() == SystemError::Success) return {.error = SystemError::InvalidName};
        if (length == 0) return {.error = lastError()};
        if (length >= full.size()) return {.error = SystemError::FileNameTooLong};
        full.resize(length);
        return {fromAnsi(full)};
    }
};

}  // namespace

std::unique_ptr<Folders> makeFolders() { return std::make_unique<WindowsFolders>(); }

}  // namespace t_genproc
