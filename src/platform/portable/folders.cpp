#include <sys/stat.h>

#include <cerrno>

#include "platform/portable/adapters.h"
#include "platform/portable/posix.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

class PortableFolders : public Folders {
   public:
    explicit PortableFolders(std::shared_ptr<DriveMap> drives) : drives_(std::move(drives)) {}

    SystemError CreateDirectoryA(const std::string& folder) override {
        if (text::isBlank(folder)) return SystemError::PathNotFound;
        const Outcome<std::string> location = drives_->actualPath(folder);
        if (!location) return location.error;
        if (::mkdir(location.value.c_str(), 0777) == 0) return SystemError::Success;
        return errno == ENOENT ? SystemError::PathNotFound : systemError(errno);
    }

    SystemError SetCurrentDirectoryA(const std::string& folder) override {
        const Outcome<std::string> location = drives_->actualPath(folder);
        if (!location) return location.error;
        struct stat found {};
        if (::stat(location.value.c_str(), &found) != 0) return systemError(errno);
        if (!S_ISDIR(found.st_mode)) return SystemError::Directory;
        drives_->setCurrent(drives_->fullPath(folder).value);
        return SystemError::Success;
    }

    Outcome<std::string> GetFullPathNameA(const std::string& path) override {
        return drives_->fullPath(path);
    }

   private:
    std::shared_ptr<DriveMap> drives_;
};

}  // namespace

std::unique_ptr<Folders> makeFolders(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableFolders>(std::move(drives));
}

}  // namespace t_genproc::portable
