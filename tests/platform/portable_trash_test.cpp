#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

namespace fs = std::filesystem;

struct PortableTrashTest : testing::Test {
    test::PlatformUnderTest system;
    const fs::path data = std::getenv("XDG_DATA_HOME");
    const fs::path files = data / "Trash/files", info = data / "Trash/info", folder = system.onDisk("folder");

    fs::path put(const fs::path& file) {
        system.write("Z:" + file.string(), file.filename().string());
        return file;
    }
    std::string textOf(const fs::path& file) { return system.read("Z:" + file.string()); }
    int trash(const fs::path& file) {
        const std::string path = "Z:" + file.string();
        return system.platform.shell->SHFileOperationA(FileOperation::Delete, path, "", 0x40);
    }
};

TEST_F(PortableTrashTest, NoteWhereFilesWere) {
    const std::string twice = "50% ü.txt", longest(255, 'n');
    fs::create_directory(folder);
    fs::create_symlink(put(folder / "target"), folder / "link");
    EXPECT_EQ(trash(folder / "link"), 0);
    for (const std::string& name : {twice, twice, longest}) EXPECT_EQ(trash(put(folder / name)), 0);
    EXPECT_TRUE(fs::is_symlink(files / "link"));
    EXPECT_EQ(textOf(files / twice) + textOf(files / "50% ü.2.txt"), twice + twice);
    EXPECT_EQ(textOf(files / longest.substr(55)) + textOf(folder / "target"), longest + "target");
    EXPECT_THAT(textOf(info / "50% ü.2.txt.trashinfo"),
                testing::MatchesRegex("\\[Trash Info\\]\nPath=/.*/work/folder/50%25%20%C3%BC.txt\n"
                                      "DeletionDate=20[0-9-]{8}T[0-9:]{8}\n"));
}

TEST_F(PortableTrashTest, LeaveWhatTheTrashDoesNotTake) {
    put(data);  // a file is in the way of the trash
    EXPECT_NE(trash(put(folder)), 0);
    fs::remove(data);
    EXPECT_EQ(trash(system.onDisk("f*")), 124);
    EXPECT_EQ(trash("/"), 116);
    EXPECT_EQ(textOf(folder) + textOf(files / "folder"), "foldernone");
}

TEST_F(PortableTrashTest, ReachAcrossFileSystems) {
    const fs::path volume = "/dev/shm", beside = volume / (".Trash-" + std::to_string(::geteuid()));
    const std::string name = "t_genproc" + std::to_string(::getpid());
    const fs::path other = volume / name, a = other / "a", pipe = other / "pipe", copy = files / name;
    std::error_code error;
    fs::create_hard_link(put(folder), other, error);
    if (error == std::errc::cross_device_link) fs::create_symlink("none", beside, error);  // takes no trash
    if (error || fs::remove(other)) GTEST_SKIP() << "there is no other file system at /dev/shm";

    fs::create_directory(other);
    fs::create_symlink(put(a), other / "link");
    const auto time = fs::last_write_time(a) - std::chrono::hours(5000);
    fs::permissions(a, fs::perms(0440)), fs::last_write_time(a, time);
    EXPECT_EQ(::mkfifo(pipe.c_str(), 0600), 0);  // which cannot be copied
    EXPECT_NE(trash(other), 0);
    EXPECT_TRUE(fs::remove(pipe) && fs::exists(a) && fs::is_empty(files) && fs::is_empty(info));
    EXPECT_EQ(trash(other), 0);
    EXPECT_TRUE(textOf(copy / "a") == "a" && fs::is_symlink(copy / "link") && !fs::exists(other));
    EXPECT_EQ(fs::status(copy / "a").permissions(), fs::perms(0440));
    EXPECT_EQ(fs::last_write_time(copy / "a"), time);

    EXPECT_TRUE(fs::remove(beside));
    EXPECT_EQ(trash(put(other)), 0);
    EXPECT_EQ(textOf(beside / "files" / name), name);
    EXPECT_EQ(textOf(beside / "info" / (name + ".trashinfo")).find("\nPath=" + name + '\n'), 12U);
    fs::remove_all(beside);
}

}  // namespace
}  // namespace t_genproc
