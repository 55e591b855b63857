#include <windows.h>
// The headers of the shell count on the one above.
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <array>
#include <cstddef>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

// Packed on 32-bit Windows: no gap behind the 16-bit flags.
static_assert(sizeof(void*) != 4 || offsetof(SHFILEOPSTRUCTA, fAnyOperationsAborted) == 18);
static_assert(sizeof(void*) != 4 || sizeof(SHFILEOPSTRUCTA) == 30);

constexpr int kInvalidFiles = 124;  // DE_INVALIDFILES
constexpr std::size_t kLongestPath = 32767;

using PathBuffer = std::array<char, MAX_PATH>;

std::string withTerminatingZero(const PathBuffer& path) { return fromAnsi(path.data()) + '\0'; }

/// Only what has its full path goes to the recycle bin; other names would be deleted for good.
std::string fullPath(const std::string& path) {
    std::string full(kLongestPath, '\0');
    const DWORD length =
        ::GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size()) return path;
    full.resize(length);
    return full;
}

class WindowsShell final : public Shell {
   public:
    int SHFileOperationA(std::uint32_t operation, const std::string& from, const std::string& to,
                         std::uint16_t flags) override {
        const auto source = toAnsi(from);
        const auto target = toAnsi(to);
        if (!source || !target) return ERROR_INVALID_NAME;
        if (!endsInName(from)) return kInvalidFiles;
        const std::string sources = fullPath(*source) + '\0';  // lists, which end with two zeros
        const std::string targets = *target + '\0';
        SHFILEOPSTRUCTA record{};
        record.wFunc = operation;
        record.pFrom = sources.c_str();
        record.pTo = targets.c_str();
        record.fFlags = flags;
        return ::SHFileOperationA(&record);
    }

    ShellOutcome<std::string> SHGetFolderPathA(std::int32_t folder) override {
        PathBuffer path{};
        const HRESULT status = ::SHGetFolderPathA(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path.data());
        if (status != S_OK) return {status};
        return {ShellStatus::Success, withTerminatingZero(path)};
    }

    ShellOutcome<ItemIdList> SHGetSpecialFolderLocation(std::int32_t folder) override {
        PIDLIST_ABSOLUTE list = nullptr;
        const HRESULT status = ::SHGetSpecialFolderLocation(nullptr, folder, &list);
        return {status, reinterpret_cast<ItemIdList>(list)};
    }

    std::string SHGetPathFromIDListA(ItemIdList list) override {
        PathBuffer path{};
        const auto* const items = reinterpret_cast<PCIDLIST_ABSOLUTE>(list);
        if (!::SHGetPathFromIDListA(items, path.data())) return {};
        return withTerminatingZero(path);
    }

    void CoTaskMemFree(ItemIdList list) override { ::CoTaskMemFree(reinterpret_cast<void*>(list)); }
};

}  // namespace

std::unique_ptr<Shell> makeShell() { return std::make_unique<WindowsShell>(); }

}  // namespace t_genproc
