#include "platform/profile_files.h"

#include <gtest/gtest.h>

#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using namespace std::string_literals;

constexpr const char* kRewrites = "Wine: writes every line anew and drops blank ones";
constexpr const char* kCase = "Wine: tells the cases of letters outside ASCII apart";
constexpr const char* kComments = "Wine: finds keys in comments";
constexpr const char* kMark = "Windows: takes a byte order mark for letters of the first line";

struct ProfileFilesTest : testing::Test {
    test::PlatformUnderTest system;
    ProfileFiles& files = *system.platform.profileFiles;
    int written = 0;  // files, one for each row of a table

    std::string fileWith(const std::string& text) {
        std::string file = system.path(std::to_string(++written) + ".ini");
        system.write(file, system.stored(text));
        return file;
    }
};

TEST_F(ProfileFilesTest, FindTheValue) {
    struct Row {
        std::string text, section, key, expected, deviation{};
    };
    const Row rows[] = {
        {"[Job]\r\nName=Dam\r\n", "jOB", "nAME", "Dam"},
        {"[Höhe]\r\nÉtat=v\r\n", "HÖHE", "éTAT", "v", kCase},
        {" \t[ s ]\t\r\n\t k \t=\t v w \t\r\n", " s\t", "\tk ", "v w"},
        {"[Job 1]\r\nc. d=e  f\r\n", "job 1", "C. D", "e  f"},
        {"[s]\r\nk=\" v \"\r\n", "s", "k", " v "},
        {"[s]\r\nk=  '\"v\"'  \r\n", "s", "k", "\"v\""},
        {"[s]\r\nk=\"abc'\r\n", "s", "k", "\"abc'"},
        {"[s]\r\nk=\"a\"b\r\n", "s", "k", "\"a\"b"},
        {"[s]\r\nk=\"\r\n", "s", "k", "\""},
        {"[s]\r\n;k=1\r\n  ; k=2\r\nk=v ; c\r\n", "s", "k", "v ; c"},
        {"[s]\r\n;k=1\r\n", "s", ";k", "default", kComments},
        {"[s]\r\nk=1\r\nK=2\r\n[s]\r\nk=3\r\n", "s", "k", "1"},
        {"[s]\r\na=1\r\n[t]\r\n[S]\r\nk=2\r\n", "s", "k", "default"},
        {"k=0\n[s]\nk\nj=1\n", "s", "k", "default"},
        {"[s]\r\nk=\r\n", "s", "k", ""},
        {"[a]b] rest\r\nk=v\r\n", "a]b", "k", "v"},
        {"[a]\r\nk=v\r\n[s\r\nk=w\r\n", "s", "k", "default"},
        {"[s]\rj=a\rk=v\r", "s", "k", "v"},
        {"[s]\r\r\nj=\x81\xFF\xC3\r\ni=a\0b\r\nk=v"s, "s", "k", "v"},
        {"\xEF\xBB\xBF[s]\r\nk=v\r\n", "s", "k", "v", kMark},
        {"[s]", "s", "k", "default"},
        {"[s]\r\nk=" + std::string(250, 'x'), "s", "k", std::string(199, 'x')},
    };
    for (const auto& [text, section, key, expected, deviation] : rows) {
        if (test::isLeftOut(deviation)) continue;
        const std::string file = fileWith(text);
        EXPECT_EQ(files.GetPrivateProfileStringA(section, key, "default", 200, file), expected) << text;
    }
    EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 3, fileWith("[s]\r\nk='Höhe'")), "Hö");
    EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 4, fileWith("[s]")), "def");
    EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 0, fileWith("[s]\r\nk=v")), "");
}

TEST_F(ProfileFilesTest, ChangeTheLineConcerned) {
    const std::string one = "[s]\r\nk=1\r\n";
    struct Row {
        std::string before, section, key, value, after, deviation{};
    };
    const Row rows[] = {
        {"", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"[Job]\r\nName=1\r\n", "jOB", " nAME", "2", "[Job]\r\nName=2\r\n"},
        {"[Höhe]\r\nÉtat=1\r\n", "HÖHE", "éTAT", "2", "[Höhe]\r\nÉtat=2\r\n", kCase},
        {"[s]\r\nk=\"1\"\r\n", "s", "k", "'a=b;c ö'", "[s]\r\nk='a=b;c ö'\r\n"},
        {"[s]\r\nk=1\r\nj\r\n", "s", "k", "", "[s]\r\nk=\r\nj\r\n"},
        {"[s]\r\nk\r\nk=1\r\n", "s", "k", "2", "[s]\r\nk=2\r\nk=1\r\n"},
        {"k=0\r\n[s]\r\n; k=1\r\nk=1\r\nk=5\r\n", "s", "k", "2", "k=0\r\n[s]\r\n; k=1\r\nk=2\r\nk=5\r\n"},
        {"[s]\r\nj=\x81\xFF\xC3\r\nk=1\r\n", "s", "k", "2", "[s]\r\nj=\x81\xFF\xC3\r\nk=2\r\n"},
        {"\xEF\xBB\xBF[s]\r\nk=1\r\n", "s", "k", "2", "\xEF\xBB\xBF[s]\r\nk=2\r\n", kMark},
        {"[s]\r\na=1\r\n; c\r\n[t]\r\n", "s", "k", "2", "[s]\r\na=1\r\n; c\r\nk=2\r\n[t]\r\n"},
        {"[s]\r\n[t]\r\n[s]\r\nk=1\r\n", "s", "k", "2", "[s]\r\nk=2\r\n[t]\r\n[s]\r\nk=1\r\n"},
        {"[s 1\r\nk=1", "s 1", "k. l", "2", "[s 1\r\nk=1\r\n[s 1]\r\nk. l=2\r\n"},
        {"\r\n [s] x\r\n \r\n k = 1 \r\n\r\n", "s", "k", "2", "\r\n [s] x\r\n \r\n k = 2\r\n\r\n", kRewrites},
        {"[s]\r\n a=1 \r\n\r\n \t\r\n[t]\r\n", "s", "k", "2", "[s]\r\n a=1 \r\nk=2\r\n\r\n \t\r\n[t]\r\n",
         kRewrites},
        {"[t]\r\n\r\n", "s", "k", "2", "[t]\r\n\r\n[s]\r\nk=2\r\n", kRewrites},
        {"[s]\nk=1\nj=1\r\n", "s", "k", "2", "[s]\nk=2\nj=1\r\n", kRewrites},
        {"[s]\rk=1\rj=1\r", "s", "k", "2", "[s]\rk=2\rj=1\r", kRewrites},
        {"[s]\r\nk=1", "s", "k", "2", "[s]\r\nk=2", kRewrites},
        {one, "s", "k", "a\r\nb", one},
        {one, "s", "a\rb", "2", one},
        {one, "a\nb", "k", "2", one},
        {one, "s", "k", "a\0b"s, one},
    };
    for (const auto& [before, section, key, value, after, deviation] : rows) {
        if (test::isLeftOut(deviation)) continue;
        const std::string file = fileWith(before);
        EXPECT_EQ(files.WritePrivateProfileStringA(section, key, value, file) != 0, before != after)
            << before;
        EXPECT_EQ(system.read(file), system.stored(after)) << before;
    }
    EXPECT_NE(files.WritePrivateProfileStringA("s", "k", "1", fileWith(one)), 0);
}

TEST_F(ProfileFilesTest, TakeAnyNameThatTheSystemCanKeep) {
    for (const std::string& name : {"Größe 1.2"s, "Съёмка"s, "測量"s}) {
        const std::string file = system.path(name + ".ini");
        const bool kept = system.canKeep(name);
        EXPECT_EQ(files.WritePrivateProfileStringA(name, name, name, file) != 0, kept);
        EXPECT_EQ(files.GetPrivateProfileStringA(name, name, "default", 200, file), kept ? name : "default");
        EXPECT_EQ(files.WritePrivateProfileStringA("s", "k", name, fileWith("")) != 0, kept);
    }
}

TEST_F(ProfileFilesTest, FailQuietlyWhereThereIsNoFile) {
    system.platform.folders->CreateDirectoryA(system.path("folder"));
    for (const std::string& file :
         {system.path("folder"), system.path("none\\a.ini"), system.path("a?.ini")}) {
        EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 200, file), "default") << file;
        EXPECT_EQ(files.WritePrivateProfileStringA("s", "k", "v", file), 0) << file;
    }
    // A bare name stands for a file in the Windows folder, not in the current one.
    system.platform.folders->SetCurrentDirectoryA(system.path(""));
    system.write("bare_name.ini", "[s]\r\nk=v\r\n");
    EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 200, "bare_name.ini"), "default");
    EXPECT_EQ(files.GetPrivateProfileStringA("s", "k", "default", 200, ".\\bare_name.ini"), "v");
}

}  // namespace
}  // namespace t_genproc
