#include <gtest/gtest.h>

#include <set>

#include "platform/file_system.h"
#include "platform/numbered_files.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

namespace fs = std::filesystem;
using test::errorOf;

constexpr std::size_t kBlock = std::size_t{16} * 1024;  // bytes that NumberedFiles reads at a time

struct FilesTest : testing::Test {
    test::PlatformUnderTest system;
    Files& files = *system.platform.files;
    Folders& folders = *system.platform.folders;
    NumberedFiles numbered{files, folders};

    std::string path(const std::string& name) const { return system.path(name); }
};

TEST_F(FilesTest, FailWithTheNumbersThatProgramsKnow) {
    system.write(path("full.txt"), "a\r\n");
    makeFolder(folders, path("folder"));
    numbered.openForInput(1, path("full.txt"));
    numbered.openForOutput(2, path("new.txt"));
    const std::pair<int, std::function<void()>> rows[] = {
        {52, [&] { numbered.openForInput(0, path("full.txt")); }},
        {52, [&] { numbered.openForInput(3, ""); }},
        {52, [&] { numbered.openForOutput(3, path("a?b.txt")); }},
        {52, [&] { numbered.lineInput(3); }},
        {53, [&] { numbered.openForInput(3, path("none.txt")); }},
        {54, [&] { numbered.print(1, "a"); }},
        {54, [&] { numbered.lineInput(2); }},
        {55, [&] { numbered.openForInput(1, path("other.txt")); }},
        {55, [&] { numbered.openForOutput(3, path("FULL.txt")); }},
        {55, [&] { numbered.openForInput(3, path("folder\\..\\new.txt")); }},
        {62, [&] { numbered.lineInput(1), numbered.lineInput(1); }},
        {68, [&] { changeToDriveOf(folders, "Q:\\"); }},
        {75, [&] { numbered.openForInput(3, path("folder")); }},
        {75, [&] { numbered.openForOutput(3, path("folder")); }},
        {75, [&] { makeFolder(folders, path("folder")); }},
        {76, [&] { makeFolder(folders, path("none\\folder")); }},
        {76, [&] { changeFolder(folders, path("none")); }},
        {76, [&] { changeFolder(folders, path("full.txt")); }},
        {76, [&] { numbered.openForAppend(3, path("none\\a.txt")); }},
        {0, [&] { numbered.openForInput(3, path("full.txt")); }},  // two may read
    };
    for (const auto& row : rows) EXPECT_EQ(errorOf(row.second), row.first) << "row " << &row - rows;
}

TEST_F(FilesTest, HandOutTheLowest255Numbers) {
    system.write(path("a.txt"), "");
    for (int i = 1; i <= 255; ++i) numbered.openForInput(numbered.freeFile(), path("a.txt"));
    EXPECT_EQ(errorOf([&] { numbered.freeFile(); }), 67);
    numbered.close(7);
    EXPECT_EQ(numbered.freeFile(), 7);
}

TEST_F(FilesTest, ReadLinesHoweverTheyEnd) {
    const std::string cut(kBlock - 1, 'x'), longLine(10 * kBlock + 1, 'y');
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"", {}},
        {"a\r\nb\nc\rd", {"a", "b", "c", "d"}},
        {"a\r\r\nb\n\rc\r\n\r\n", {"a", "", "b", "", "c", ""}},
        {files.encode("Höhe") + " \xC3\r\n\x1A\r\n", {"Höhe " + files.decode("\xC3"), "\x1A"}},
        {cut + "\r\nb\r\n", {cut, "b"}},
        {cut + "\r", {cut}},
        {longLine + "\n" + longLine, {longLine, longLine}},
    };
    for (const auto& [bytes, expected] : rows) {
        system.write(path("lines.txt"), bytes);
        numbered.openForInput(1, path("lines.txt"));
        std::vector<std::string> lines;
        while (!numbered.endOfFile(1)) lines.push_back(numbered.lineInput(1));
        numbered.close(1);
        EXPECT_TRUE(lines == expected) << testing::PrintToString(bytes.substr(0, 40));
    }
}

TEST_F(FilesTest, WriteAndAppendLines) {
    const std::string longLine(2 * kBlock, 'x');
    numbered.openForOutput(1, path("a.txt"));
    numbered.print(1, "Höhe ");
    numbered.printLine(1, "12");
    numbered.close(1);
    numbered.openForAppend(1, path("a.txt"));
    numbered.printLine(1, longLine);
    numbered.close(1);
    EXPECT_EQ(system.read(path("a.txt")), system.stored("Höhe 12\r\n" + longLine + "\r\n"));

    // Others that append at the same time lose nothing.
    const FileHandle one = files.CreateFileA(path("a.log"), FileUse::Append).value;
    const FileHandle two = files.CreateFileA(path("a.log"), FileUse::Append).value;
    for (const auto& [file, text] : {std::pair{one, "1"}, {two, "2"}, {one, "3"}})
        files.WriteFile(file, text);
    for (const FileHandle file : {one, two}) files.CloseHandle(file);
    EXPECT_EQ(system.read(path("a.log")), "123");

    if (test::isLeftOut("Windows: has no device that is always full")) return;
    numbered.openForAppend(1, "Z:\\dev\\full");
    numbered.print(1, "a");
    EXPECT_EQ(errorOf([&] { numbered.close(1); }), 61);
    EXPECT_EQ(numbered.freeFile(), 1);
}

TEST_F(FilesTest, FindNamesByWildCards) {
    const char* names[] = {"B.TXT", "a.tmp.txt", "a.txt", "aXc.dat", "abc", "ac", "x.t", "Ä b.txt"};
    for (const char* name : names) system.write(path(name), "");
    makeFolder(folders, path("folder"));
    const auto found = [&](const std::string& pattern) {
        const Outcome<std::vector<FoundFile>> outcome = files.FindFirstFileA(path(pattern));
        std::set<std::string> sorted;
        for (const FoundFile& file : outcome.value) sorted.insert(file.name + ' ');
        std::string text = outcome ? "" : "none";
        for (const std::string& name : sorted) text += name.starts_with('.') ? "" : name;  // "." and ".."
        return text;
    };
    const std::string all = "B.TXT a.tmp.txt a.txt aXc.dat abc ac folder x.t Ä b.txt ";
    EXPECT_EQ(found("*"), all);
    EXPECT_EQ(found("*.*"), all);
    EXPECT_EQ(found("*.t?t"), "B.TXT a.tmp.txt a.txt Ä b.txt ");
    EXPECT_EQ(found("?.txt"), "B.TXT a.txt ");
    EXPECT_EQ(found("a?c"), "abc ");
    EXPECT_EQ(found("ABC.*"), "abc ");
    EXPECT_EQ(found("A*"), "a.tmp.txt a.txt aXc.dat abc ac ");
    EXPECT_EQ(found("ä*"), "Ä b.txt ");
    EXPECT_EQ(found("none*"), "none");
    EXPECT_EQ(found("none\\*"), "none");
    if (test::isLeftOut("Wine: wants a character for every ? and lets no dot match the end of a name"))
        return;
    EXPECT_EQ(found("??.txt"), "B.TXT a.txt ");
    EXPECT_EQ(found("a??"), "abc ac ");
    EXPECT_EQ(found("abc.???"), "abc ");
    EXPECT_EQ(found("*."), "abc ac folder ");
}

TEST_F(FilesTest, TellAttributes) {
    system.write(path("five.txt"), "12345");
    system.write(path(".hidden"), "");
    system.hide(path(".hidden"));
    makeFolder(folders, path("folder"));
    EXPECT_EQ(files.GetFileAttributesExA(path("FIVE.txt")).value.size, 5U);
    EXPECT_FALSE(files.FindFirstFileA(path("five.*")).value.at(0).attributes.hidden);
    EXPECT_TRUE(files.FindFirstFileA(path(".h*")).value.at(0).attributes.hidden);
    EXPECT_EQ(files.GetFileAttributesExA(path("none")).error, SystemError::FileNotFound);
    EXPECT_EQ(files.GetFileAttributesExA(path("none\\a")).error, SystemError::PathNotFound);
    EXPECT_EQ(files.GetFileAttributesExA(path("five.txt") + '\0').error, SystemError::InvalidName);
    EXPECT_TRUE(folderExists(files, path("folder")) && folderExists(files, path("folder\\")));
    EXPECT_FALSE(folderExists(files, path("five.txt")) || folderExists(files, path("none")));
}

TEST_F(FilesTest, CopyAndDelete) {
    const auto written = std::chrono::sys_seconds(std::chrono::seconds(1'000'000'000));
    for (const char* name : {"a", "b", "locked"}) system.write(path(name), name);
    makeFolder(folders, path("folder"));
    fs::permissions(system.onDisk("locked"), fs::perms(0444));
    fs::last_write_time(system.onDisk("a"), std::chrono::file_clock::from_sys(written));
    using enum SystemError;
    const std::tuple<const char*, const char*, SystemError> copies[] = {
        {"a", "new", Success},         {"A", "B", Success},           {"a", "A", SharingViolation},
        {"a", "folder", AccessDenied}, {"folder", "c", AccessDenied}, {"none\\a", "b", PathNotFound},
        {"none", "b", FileNotFound},   {"a", "none\\a", PathNotFound}};
    const std::pair<const char*, SystemError> deletions[] = {{"new", Success},
                                                             {"new", FileNotFound},
                                                             {"none\\a", PathNotFound},
                                                             {"locked", AccessDenied},
                                                             {"folder", AccessDenied}};
    for (const auto& [from, to, error] : copies)
        EXPECT_EQ(files.CopyFileA(path(from), path(to)), error) << from << ' ' << to;
    for (const auto& [name, error] : deletions) EXPECT_EQ(files.DeleteFileA(path(name)), error) << name;
    EXPECT_TRUE(test::isLeftOut("Wine: lets an administrator copy over a read-only file") ||
                files.CopyFileA(path("a"), path("locked")) == AccessDenied);
    fs::permissions(system.onDisk("locked"), fs::perms(0666));  // or Windows would not remove it
    EXPECT_EQ(system.read(path("a")) + system.read(path("b")), "aa");
    const FileAttributes copy = files.GetFileAttributesExA(path("b")).value;
    EXPECT_EQ(stepsOf(copy.lastWrite), (1'000'000'000 + 11'644'473'600) * 10'000'000ULL);
    EXPECT_TRUE(stepsOf(copy.created) >= stepsOf(copy.lastWrite) || copy.created == FileTime{});
}

TEST_F(FilesTest, CountPathsFromTheCurrentDriveAndFolder) {
    const std::string here = path("Höhe 1");
    const std::string drive = here.substr(0, 2);
    makeFolder(folders, here);
    changeFolder(folders, path(""));
    changeFolder(folders, "Höhe 1");
    system.write("..\\a.txt", "1");
    system.write(drive + "b.txt", "2");
    EXPECT_EQ(system.read(path("a.txt")) + system.read("..\\HÖHE 1\\.\\b.txt"), "12");

    const auto full = [&](const std::string& given) { return folders.GetFullPathNameA(given).value; };
    EXPECT_EQ(full("x/y\\\\z"), here + "\\x\\y\\z");
    EXPECT_EQ(full("x. ."), here + "\\x");
    EXPECT_EQ(full("."), here);
    EXPECT_EQ(full("..\\..\\..\\..\\..\\..\\..\\x\\.\\y\\..\\"), drive + "\\x\\");
    EXPECT_EQ(folders.GetFullPathNameA("").error, SystemError::InvalidName);

    if (test::isLeftOut("Windows: has one drive for certain")) return;
    changeToDriveOf(folders, "Z:\\anywhere");
    EXPECT_EQ(full("x"), "Z:\\x");
    changeFolder(folders, drive);
    EXPECT_EQ(full("x"), here + "\\x");
    changeToDriveOf(folders, here);
    EXPECT_EQ(full("x"), drive + "\\x");
}

}  // namespace
}  // namespace t_genproc
