#include <gtest/gtest.h>

#include <set>

#include "platform/file_system.h"
#include "platform/special_folders.h"
#include "runtime/text.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

struct ShellTest : testing::Test {
    test::PlatformUnderTest system;
    Shell& shell = *system.platform.shell;
    Files& files = *system.platform.files;

    ShellOutcome<std::string> location(std::int32_t folder) {
        const ShellOutcome<ItemIdList> list = shell.SHGetSpecialFolderLocation(folder);
        std::string path = shell.SHGetPathFromIDListA(list.value);
        shell.CoTaskMemFree(list.value);
        return {list.status, path};
    }
    int recycle(const std::string& name) {
        return shell.SHFileOperationA(FileOperation::Delete, system.path(name), "", 0x150);
    }
};

/// Without the zero at the end, which must be there, and a "\" before it, which may be.
std::string plain(const std::string& path) {
    EXPECT_TRUE(path.empty() || path.find('\0') == path.size() - 1);
    return path.substr(0, path.find_last_not_of(std::string_view("\\\0", 2)) + 1);
}

TEST_F(ShellTest, FindEverySpecialFolder) {
    const std::set<std::int32_t> unlikeWindows{0x03, 0x04, 0x1D, 0x1E, 0x31, 0x39, 0x3D};
    const std::string user = plain(shell.SHGetFolderPathA(0x28 | kCreateFolder).value);
    for (std::int32_t folder = 0; folder <= 0x3F; ++folder) {
        const SpecialFolderEntry* const entry = findSpecialFolder(folder);
        std::string expected(entry == nullptr ? "" : entry->path);
        if (expected.starts_with("%USER%")) expected.replace(0, 6, user);
        if (unlikeWindows.contains(folder) && test::isLeftOut("Wine: " + std::string(entry->name))) continue;
        const std::int32_t id = folder | kCreateFolder;
        for (const auto& found : {shell.SHGetFolderPathA(id), location(id)}) {
            const std::string path = plain(found.value);
            if (!expected.empty()) {
                EXPECT_EQ(text::lower(path), text::lower(expected));
                EXPECT_TRUE(found.status == ShellStatus::Success && folderExists(files, path)) << path;
            } else if (entry != nullptr) {
                EXPECT_NE(path.find(":\\"), 1U) << path;
            } else {
                EXPECT_EQ(found.status, ShellStatus::InvalidArgument) << folder;
            }
        }
    }
}

TEST_F(ShellTest, FindNothingWhereNothingIs) {
    EXPECT_LT(shell.SHGetFolderPathA(0x39).status, 0);
    EXPECT_LT(location(0x39).status, 0);
    EXPECT_EQ(shell.SHGetPathFromIDListA(0), "");
    if (test::systemName() != "portable") return;
    system.write("C:\\ProgramData", "a file in the way");
    EXPECT_EQ(location(SpecialFolder::CommonAppData | kCreateFolder).status, -2147024893);  // 80070003
}

TEST_F(ShellTest, Recycle) {
    raiseOnFailure(system.platform.folders->CreateDirectoryA(system.path("folder")));
    for (const char* const name : {"file", "read-only", "folder\\file"}) system.write(system.path(name), "x");
    std::filesystem::permissions(system.onDisk("read-only"), std::filesystem::perms(0444));
    for (const char* const name : {"file", "read-only", "folder"}) {
        EXPECT_EQ(recycle(name), 0) << name;
        EXPECT_EQ(files.GetFileAttributesExA(system.path(name)).error, SystemError::FileNotFound) << name;
    }
    for (const char* const name : {"file", "none\\file", "a|b", "", ".", "..", "*", "a\\.."})
        EXPECT_NE(recycle(name), 0) << name;
    EXPECT_TRUE(folderExists(files, system.path("")));
}

}  // namespace
}  // namespace t_genproc
