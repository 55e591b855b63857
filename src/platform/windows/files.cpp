#include <windows.h>

#include <algorithm>
#include <array>
#include <limits>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

/// How a file is opened for each FileUse. Without the right to write data, appended bytes go to the end even
/// when another process has lengthened the file.
struct Opening {
    DWORD access;
    DWORD disposition;
};
constexpr std::array kOpenings{
    Opening{GENERIC_READ, OPEN_EXISTING},
    Opening{GENERIC_WRITE, CREATE_ALWAYS},
    Opening{FILE_APPEND_DATA | SYNCHRONIZE, OPEN_ALWAYS},
};

HANDLE systemHandle(FileHandle file) { return reinterpret_cast<HANDLE>(file); }

DWORD sizeForCall(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()));
}

/// From WIN32_FILE_ATTRIBUTE_DATA or WIN32_FIND_DATAA.
template <class Data>
FileAttributes attributesOf(const Data& data) {
    return {.size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow,
            .folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            .hidden = (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0,
            .system = (data.dwFileAttributes & FILE_ATTRIBUTE_SYSTEM) != 0,
            .created = {data.ftCreationTime.dwLowDateTime, data.ftCreationTime.dwHighDateTime},
            .lastWrite = {data.ftLastWriteTime.dwLowDateTime, data.ftLastWriteTime.dwHighDateTime}};
}

struct Search {
    HANDLE handle;
    ~Search() { ::FindClose(handle); }
};

class WindowsFiles final : public Files {
   public:
    Outcome<FileHandle> CreateFileA(const std::string& fileName, FileUse use) override {
        const auto name = toAnsi(fileName);
        if (!name) return {.error = SystemError::InvalidName};
        const Opening& opening = kOpenings[static_cast<std::size_t>(use)];
        const HANDLE file = ::CreateFileA(name->c_str(), opening.access, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, opening.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE) return {.error = lastError()};
        return {reinterpret_cast<FileHandle>(file)};
    }

    Outcome<std::string> ReadFile(FileHandle file, std::size_t most) override {
        std::string bytes(sizeForCall(most), '\0');
        DWORD read = 0;
        if (!::ReadFile(systemHandle(file), bytes.data(), sizeForCall(most), &read, nullptr)) {
            return {.error = lastError()};
        }
        bytes.resize(read);
        return {bytes};
    }

    SystemError WriteFile(FileHandle file, std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD written = 0;
            if (!::WriteFile(systemHandle(file), bytes.data(), sizeForCall(bytes.size()), &written,
                             nullptr)) {
                return lastError();
            }
            bytes.remove_prefix(written);
        }
        return SystemError::Success;
    }

    SystemError CloseHandle(FileHandle file) override {
        return ::CloseHandle(systemHandle(file)) ? SystemError::Success : lastError();
    }

    Outcome<FileAttributes> GetFileAttributesExA(const std::string& fileName) override {
        const auto name = toAnsi(fileName);
        if (!name) return {.error = SystemError::InvalidName};
        WIN32_FILE_ATTRIBUTE_DATA data{};
        if (!::GetFileAttributesExA(name->c_str(), GetFileExInfoStandard, &data))
            return {.error = lastError()};
        return {attributesOf(data)};
    }

    SystemError CopyFileA(const std::string& from, const std::string& to) override {
        const auto source = toAnsi(from);
        const auto target = toAnsi(to);
        if (!source || !target) return SystemError::InvalidName;
        return ::CopyFileA(source->c_str(), target->c_str(), FALSE) ? SystemError::Success : lastError();
    }

    SystemError DeleteFileA(const std::string& fileName) override {
        const auto name = toAnsi(fileName);
        if (!name) return SystemError::InvalidName;
        return ::DeleteFileA(name->c_str()) ? SystemError::Success : lastError();
    }

    Outcome<std::vector<FoundFile>> FindFirstFileA(const std::string& pattern) override {
        const auto name = toAnsi(pattern);
        if (!name) return {.error = SystemError::InvalidName};
        WIN32_FIND_DATAA data{};
        const HANDLE first = ::FindFirstFileA(name->c_str(), &data);
        if (first == INVALID_HANDLE_VALUE) return {.error = lastError()};
        const Search search{first};

        std::vector<FoundFile> found;
        do {
            found.push_back({fromAnsi(data.cFileName), attributesOf(data)});
        } while (::FindNextFileA(search.handle, &data));
        if (::GetLastError() != ERROR_NO_MORE_FILES) return {.error = lastError()};
        return {found};
    }

    Outcome<std::string> nativePath(const std::string& fileName) override { return {fileName}; }

    std::string encode(std::string_view text) override { return toAnsiWithLoss(text); }
    std::string decode(std::string_view bytes) override { return fromAnsi(bytes); }
};

}  // namespace

std::unique_ptr<Files> makeFiles() { return std::make_unique<WindowsFiles>(); }

}  // namespace t_genproc
