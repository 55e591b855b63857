#include <filesystem>
#include <map>

#include "platform/portable/adapters.h"
#include "platform/portable/ensure_folder.h"
#include "platform/portable/posix.h"
#include "platform/portable/trash.h"
#include "platform/special_folders.h"

namespace t_genproc::portable {
namespace {

// What SHFileOperation answers in place of a system error
constexpr int kRootFolder = 116;
constexpr int kInvalidFiles = 124;

constexpr std::string_view kUserFolder = "%USER%";

int fileOperationCode(SystemError error) {
    return error == SystemError::InvalidName ? kInvalidFiles : static_cast<int>(error);
}

std::int32_t shellStatus(SystemError error) {
    constexpr std::uint32_t kSystemErrors = 0x80070000;
    return static_cast<std::int32_t>(kSystemErrors | static_cast<std::uint32_t>(error));
}

class PortableShell final : public Shell {
   public:
    PortableShell(std::shared_ptr<DriveMap> drives, const std::string& userName)
        : drives_(std::move(drives)), userFolder_("C:\\Users\\" + userName) {}

    /// Deletes one file or folder with AllowUndo; whatever cannot be undone is refused.
    int SHFileOperationA(std::uint32_t operation, const std::string& from, const std::string& /*to*/,
                         std::uint16_t flags) override {
        const bool canBeUndone = (flags & FileOperation::AllowUndo) != 0;
        if (operation != FileOperation::Delete || !canBeUndone) {
            return fileOperationCode(SystemError::NotSupported);
        }
        Outcome<std::string> location = drives_->actualPath(from);
        if (!location) return fileOperationCode(location.error);
        if (drives_->fullPath(from).value.ends_with(":\\")) return kRootFolder;
        if (!endsInName(from)) return kInvalidFiles;
        return fileOperationCode(moveToTrash(location.value, dataFolder() + "/Trash"));
    }

    ShellOutcome<std::string> SHGetFolderPathA(std::int32_t folder) override {
        const SpecialFolderEntry* const entry = findSpecialFolder(folder);
        if (entry == nullptr) return {ShellStatus::InvalidArgument};
        if (entry->path.empty()) return {ShellStatus::NoPath};
        std::string path(entry->path);
        if (path.starts_with(kUserFolder)) path.replace(0, kUserFolder.size(), userFolder_);

        const SystemError error = find(path, (folder & kCreateFolder) != 0);
        if (error != SystemError::Success) return {shellStatus(error)};
        return {ShellStatus::Success, path + '\0'};
    }

    ShellOutcome<ItemIdList> SHGetSpecialFolderLocation(std::int32_t folder) override {
        ShellOutcome<std::string> path = SHGetFolderPathA(folder);
        if (path.status != ShellStatus::Success) return {path.status};
        lists_.emplace(++lastList_, std::move(path.value));
        return {ShellStatus::Success, lastList_};
    }

    std::string SHGetPathFromIDListA(ItemIdList list) override {
        const auto found = lists_.find(list);
        return found == lists_.end() ? std::string() : found->second;
    }

    void CoTaskMemFree(ItemIdList list) override { lists_.erase(list); }

   private:
    SystemError find(const std::string& folder, bool makeWhereMissing) {
        if (makeWhereMissing) return ensureFolder(*drives_, folder);
        std::error_code ignored;
        const bool there = std::filesystem::is_directory(drives_->actualPath(folder).value, ignored);
        return there ? SystemError::Success : SystemError::FileNotFound;
    }

    std::shared_ptr<DriveMap> drives_;
    std::string userFolder_;
    std::map<ItemIdList, std::string> lists_;
    ItemIdList lastList_ = 0;
};

}  // namespace

std::unique_ptr<Shell> makeShell(std::shared_ptr<DriveMap> drives, const PortableOptions& options) {
    return std::make_unique<PortableShell>(std::move(drives), options.userName);
}

}  // namespace t_genproc::portable
