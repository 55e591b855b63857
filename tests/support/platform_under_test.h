/// The platform of the system that the tests run on, and an empty folder that is removed at the end.
///
///     PlatformUnderTest system;
///     system.write(system.path("a.ini"), "[s]\r\nk=v\r\n");
///     system.platform.profileFiles->...
#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "platform/platform.h"

namespace t_genproc::test {

class PlatformUnderTest {
   public:
    PlatformUnderTest();
    PlatformUnderTest(const PlatformUnderTest&) = delete;
    PlatformUnderTest& operator=(const PlatformUnderTest&) = delete;
    ~PlatformUnderTest();

    /// The backslash path of `name` in the folder.
    std::string path(const std::string& name) const { return folder_ + name; }
    /// The same for calls that go past the platform.
    std::filesystem::path onDisk(const std::string& name) const { return folderOnDisk_ / name; }

    void write(const std::string& path, std::string_view bytes);
    std::string read(const std::string& path);  // "none" where it cannot be read

    /// Whether the system's text files can hold `text`.
    bool canKeep(const std::string& text);
    /// `text` as they hold it. What they cannot hold stands for bytes as they are.
    std::string stored(const std::string& text);

    /// Hides a file whose name starts with a dot, where the dot alone does not.
    void hide(const std::string& path);

   private:
    Platform makePlatform();

    std::filesystem::path onDisk_;
    std::string folder_;
    std::filesystem::path folderOnDisk_;

   public:
    Platform platform;
};

/// "Wine", "Windows" or "portable".
std::string systemName();

/// Whether this system is the one that a deviation ("Wine: drops blank lines") names: then the case is left
/// out, and the reason told.
bool isLeftOut(const std::string& deviation);

/// How many files this process has open in whose path there is `part`, where the system tells; 0 elsewhere.
std::ptrdiff_t openFiles(const std::string& part);

/// Sets a variable of this process, bytes as they are.
void setVariable(const std::string& name, const std::string& value);

/// What `body` gives in a process of a user without special rights; none where the tests cannot start one.
std::optional<bool> asOrdinaryUser(const std::function<bool()>& body);

/// The number of the run-time error that `body` raises; 0: none.
int errorOf(const std::function<void()>& body);

}  // namespace t_genproc::test
