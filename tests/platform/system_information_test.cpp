#include <gtest/gtest.h>

#include "platform/file_system.h"
#include "runtime/text.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

struct SystemInformationTest : testing::Test {
    test::PlatformUnderTest system;
    SystemInformation& information = *system.platform.system;

    bool isFolder(const std::string& path) { return folderExists(*system.platform.files, path); }
    std::string shown(const CountedText& text) { return std::to_string(text.count) + ' ' + text.text; }
};

TEST_F(SystemInformationTest, TellOfTheMachine) {
    const OsVersion version = information.GetVersionExA().value;
    EXPECT_EQ(version.platform, VersionPlatform::WindowsNT);
    EXPECT_GE(version.major, 5U);
    EXPECT_GT(information.GlobalMemoryStatus(), std::uint64_t{1} << 26);
    const Guid one = information.CoCreateGuid().value, two = information.CoCreateGuid().value;
    EXPECT_NE(one, two);
    for (const Guid& guid : {one, two}) EXPECT_EQ((guid[6] & 0xF0) << 8 | (guid[8] & 0xC0), 0x4080);
}

TEST_F(SystemInformationTest, FindFoldersThatExist) {
    for (const auto call : {&SystemInformation::GetSystemDirectoryA, &SystemInformation::GetWindowsDirectoryA,
                            &SystemInformation::GetTempPathA}) {
        const auto [count, folder] = (information.*call)(260);
        EXPECT_TRUE(isFolder(folder)) << folder;
        EXPECT_EQ(folder.ends_with('\\'), call == &SystemInformation::GetTempPathA) << folder;
        EXPECT_EQ(text::length(folder), static_cast<std::ptrdiff_t>(count));
        EXPECT_EQ(shown((information.*call)(count + 1)), std::to_string(count) + ' ' + folder);
        EXPECT_EQ(shown((information.*call)(count)), std::to_string(count + 1) + ' ');
    }
}

TEST_F(SystemInformationTest, MakeNewTemporaryFiles) {
    const std::string folder = system.path("Temp");
    EXPECT_EQ(information.GetTempFileNameA(folder, "_t").error, SystemError::Directory);
    makeFolder(*system.platform.folders, folder);
    const std::string one = information.GetTempFileNameA(folder, "_tABC").value;
    const std::string two = information.GetTempFileNameA(folder + '\\', "_tABC").value;
    EXPECT_NE(one, two);
    for (const std::string& name : {one, two}) {
        EXPECT_TRUE(name.starts_with(folder + "\\_tA") && text::upper(name).ends_with(".TMP")) << name;
        EXPECT_EQ(system.read(name), "");
    }
}

TEST_F(SystemInformationTest, ReadTheEnvironment) {
    const std::string most(2046, 'x');
    const std::tuple<std::string, std::size_t, std::string> rows[] = {
        {"", 2047, "0 "},  {most, 2047, "2046 " + most}, {most + 'x', 2047, "2048 "},
        {"Höhe", 0, "5 "}, {"Höhe", 5, "4 Höhe"},        {std::string(5000, 'x'), 2047, "5001 "}};
    EXPECT_EQ(shown(information.GetEnvironmentVariableA("T_GENPROC_none", 2047)), "0 ");
    for (const auto& [value, size, expected] : rows) {
        if (!system.canKeep(value)) continue;
        test::setVariable("T_GENPROC", system.stored(value));
        EXPECT_EQ(shown(information.GetEnvironmentVariableA("t_genPROC", size)), expected);
        EXPECT_TRUE(text::contains(information.GetEnvironmentStringsW(), "T_GENPROC=" + value + '\0'));
    }
    EXPECT_TRUE(information.GetEnvironmentStringsW().ends_with(std::string(2, '\0')));
    test::setVariable("HOME", system.onDisk("").string());
    EXPECT_TRUE(isFolder(information.GetEnvironmentVariableA("UserProfile", 2047).text));
}

}  // namespace
}  // namespace t_genproc
