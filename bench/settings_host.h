/// A host with every record filled in, and settings files as such a host leaves them.
#pragma once

#include <string>
#include <vector>

#include "frame/cGenProcs.h"
#include "frame/library.h"

namespace t_genproc::bench {

/// The portable platform. Drive Z: is the root of the file system.
Platform benchPlatform();

class SettingsHost : public t_gencvf::Host {
   public:
    explicit SettingsHost(Platform platform = benchPlatform());

    cGenProcs& procs() { return procs_; }

    /// INISettingsSave with all its groups, into the user settings file `userFile` and the program-wide file
    /// `userFile`.program.
    void save(const std::string& userFile);

    const t_gencvf::Application& application() override { return application_; }
    std::unique_ptr<t_gencvf::Utility> createUtility() override { return nullptr; }
    std::unique_ptr<t_gencvf::ErrorReporter> createErrorReporter() override { return nullptr; }

   private:
    const t_gencvf::Application application_;
    Platform platform_;
    Library library_{*this, platform_};
    cGenProcs procs_{library_};
};

struct Entry {
    std::string file, section, key, value;
};

/// The writes that SettingsHost::save makes, in their order.
std::vector<Entry> writesOfSave(const std::string& userFile);

/// Makes a settings file of `size` bytes or little more: what SettingsHost::save writes, between sections of
/// the host's own.
void makeSettingsFile(const std::string& path, std::size_t size);

std::string textOf(const std::string& path);

/// The first key behind the given share (0 to 1) of the file's text.
Entry entryAt(const std::string& path, double share);

}  // namespace t_genproc::bench
