#include <gtest/gtest.h>

#include "os/cAPIprocs.h"
#include "platform/file_system.h"
#include "startup/cStartProcs.h"
#include "support/scripted_services.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

const std::string kMarker = "TestFile - SystemConstants.txt";
const std::string kKey = "t_genproc start test";
const std::string kWholeTrace = R"(RECORD
*** START - 14/11/2026 - 2026-11-14 22:05:09
1a - prog.LocalSettingsTemp SET AS: T:\Local\   Exists? True
AddFolder - Created as Required (folderPath$): T:\Local\Temp\
1c - prog.LocalSettingsTemp CHECK: T:\Local\Temp\ - Exists? True
1f - Folder T:\Local\Temp\ - ALREADY EXISTS
2a - appDataTavoruPath$ SET AS: T:\All\Office\Tavoru\ - Exists? False
AddFolder - Created as Required (folderPath$): T:\All\Office\Tavoru\
NOTE:
  tempAllUserDocuments$ SET AS: T:\Docs\
  tempAllUserDocuments\Documents\: T:\Docs\Documents\
... Didn't actually create these anywhere
Check values returned from mAPIprocs.GetSpecialFolder: 
** prog.commonAppData = T:\All\ - Exists? True
** prog.AllUserDocuments = T:\Docs\ - Exists? False
** prog.ThisUsersDocuments = T:\Mine\ - Exists? False
** prog.LocalSettingsTemp = T:\Local\Temp\ - Exists? True
** appDataTavoruPath$ = T:\All\Office\Tavoru\ - Exists? True
3a - userTavoruPath$ SET AS: T:\Home\Tavoru\
AddFolder - Created as Required (folderPath$): T:\Home\Tavoru\
4a - userTavoruPath$ & 'Data\' SET AS: T:\Home\Tavoru\Data\ - Exists? False
AddFolder - Created as Required (folderPath$): T:\Home\Tavoru\Data\
5a - tavoruProgPath$\Samples\tSampleJob - Exists OK
CHECK for complete paths ...
          prog.progPath: T:\Prog\ - Exists? True
          prog.progPath\Samples\ SET AS: T:\Prog\Samples\ - Exists? True
          tavoruProgPath$ (from Registry): T:\Prog\ - Exists? True
          userTavoruPath$: T:\Home\Tavoru\ - Exists? True
          userTavoruPath$\Data\: T:\Home\Tavoru\Data\ - Exists? True
a copied successfully to T:\Home\Tavoru\Data\
c copied successfully to T:\Home\Tavoru\Data\
6a - userTavoruPath$\List\ SET AS: T:\Home\Tavoru\List\ - Exists? False
AddFolder - Created as Required (folderPath$): T:\Home\Tavoru\List\
Check for changes (zero expected) ...
** prog.commonAppData = T:\All\ - Exists?  True
** prog.AllUserDocuments = T:\Docs\ - Exists?  False
** prog.ThisUsersDocuments = T:\Mine\ - Exists?  False
** prog.LocalSettingsTemp = T:\Local\Temp\ - Exists?  True
** appDataTavoruPath$ = T:\All\Office\Tavoru\ - Exists?  True
   Plus ...
** userTavoruPath$ = T:\Home\Tavoru\
*** END


)";

/// A machine whose folders are in the folder of the test, which is shown as "T:\".
struct StartTest : testing::Test, test::TestWorld {
    StartTest() {
        system.platform.registry = std::make_unique<test::TestRegistry>(std::move(system.platform.registry));
        system.platform.shell.reset(&shell);
        system.platform.system.reset(&machine);
        system.platform.clock = std::make_unique<test::ScriptedClock>();
        machine.folders = {{"windows", path("W")}, {"system", path("W\\S\\")}, {"temp", path("T\\")}};
        setFolder(35, "All\\");
        setFolder(46, "Docs\\");
        setFolder(5, "Mine");
        setFolder(28, "Local");
        for (const char* folder : {"All", "Local", "Home", "Prog", "Prog\\Samples"}) {
            makeFolder(*system.platform.folders, path(folder));
        }
        for (const char* file : {"tSampleJob", "a", "c"}) system.write(sample(file), file);
        system.write(sample("b"), "");
        names.startUp = {.registryKey = kKey,
                         .registryValue = "Folder",
                         .programFolderName = "Prog",
                         .appDataSubPath = "Office\\Tavoru\\",
                         .sampleJob = "tSampleJob",
                         .sampleFiles = {"a", "b", "c"}};
        api.SetRegString(RootKey::ClassesRoot, kKey, "Folder", '"' + path("Prog\\x.exe") + "\" /open");
        prog.progPath.clear();
        now = 46340 + 79509.0 / 86400;  // 14 November 2026, 22:05:09
    }
    std::string sample(const std::string& file) const { return path("Prog\\Samples\\" + file); }
    void setFolder(std::int32_t identifier, const std::string& name) {
        shell.folders[identifier] = {0, path(name) + std::string("\0rest", 5)};
    }
    std::string start(const std::string& home = "Home\\") {
        boxes.clear();
        return failureOf([&] { cStartProcs(library).SystemConstants(prog, path(home), warning); });
    }
    std::string shown(std::string text) {
        const auto replace = [&text](const std::string& from, const std::string& to) {
            for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
                text.replace(at, from.size(), to);
            }
        };
        replace(path(""), "T:\\");
        replace("\r\n", "\n");
        return text;
    }
    std::string trace() { return shown(system.read(path("Local\\" + kMarker))); }
    bool exists(const std::string& folder) { return folderExists(*system.platform.files, path(folder)); }

    test::ScriptedShell& shell = *new test::ScriptedShell;
    test::ScriptedSystem& machine = *new test::ScriptedSystem;
    bool warning = true;
    cAPIprocs api{library};
};

TEST_F(StartTest, FillTheRecordLayOutTheFoldersAndTraceIt) {
    system.write(path("Local\\" + kMarker), "\r\n\r\nRECORD\r\n");
    system.write(path("Prog\\Samples\\A"), "a");
    answer = MessageAnswer::Yes;
    EXPECT_EQ(start(), "none");
    EXPECT_EQ(boxes, "Tavoru - Test mode is active - Continue testing ?|Tavoru procedures|292\n");
    EXPECT_EQ(trace(), "\n\n" + kWholeTrace);
    EXPECT_FALSE(warning);
    EXPECT_FALSE(prog.isWin9x);
    EXPECT_TRUE(prog.isWinNT);
    EXPECT_EQ(prog.osVersion, "Windows NT v6.1 Build 7601");
    EXPECT_EQ(shown(prog.winDir + prog.winSysDir + prog.tempPath), "T:\\W\\T:\\W\\S\\T:\\T\\");
    EXPECT_EQ(shown(prog.progPath + prog.ThisUsersDocuments), "T:\\Prog\\T:\\Mine\\");
    EXPECT_EQ(system.read(path("Home\\Tavoru\\Data\\a")), "a");
    EXPECT_EQ(system.read(path("Home\\Tavoru\\Data\\b")), "none");
    EXPECT_TRUE(exists("Home\\Tavoru\\List"));

    // Once more: nothing is created, nothing copied.
    system.write(path("Home\\Tavoru\\Data\\a"), "mine");
    system.write(path("Local\\" + kMarker), "RECORD");
    EXPECT_EQ(start(), "none");
    EXPECT_EQ(system.read(path("Home\\Tavoru\\Data\\a")), "mine");
    const std::string second = trace();
    for (const char* line :
         {"1b - Folder T:\\Local\\Temp\\ - ALREADY EXISTS ok", "1f - Folder T:\\Local\\Temp\\",
          "2b - Folder T:\\All\\Office\\Tavoru\\", "3b - Folder T:\\Home\\Tavoru\\",
          "4b - Folder T:\\Home\\Tavoru\\Data\\", "6b - Folder T:\\Home\\Tavoru\\List\\"}) {
        EXPECT_NE(second.find(std::string(line) +
                              (line[1] == 'b' && line[0] == '1' ? "\n" : " - ALREADY EXISTS\n")),
                  std::string::npos)
            << line;
    }
    EXPECT_EQ(second.find("AddFolder"), std::string::npos);
}

TEST_F(StartTest, GoOnWhereFoldersCannotBeMade) {
    system.write(path("Home\\file"), "");
    system.write(path("Local\\" + kMarker), "RECORD\r\n");
    const std::string box = "Unable to create the folder T:\\Home\\file\\x\\Tavoru\\|Tavoru procedures|48\n";
    answer = MessageAnswer::Yes;
    EXPECT_EQ(start("Home\\file\\x\\"), "none");
    EXPECT_TRUE(warning);
    EXPECT_EQ(shown(boxes).substr(boxes.find('\n') + 1), box);
    const std::string all = trace();
    EXPECT_NE(all.find(R"(3a - userTavoruPath$ SET AS: T:\Home\file\x\Tavoru\
AddFolder - Required (folderPath$): T:\Home\file\x\Tavoru\
AddFolder - User Homepath: T:\Home\file\x\
Count: 1
            Resulting (pathOK$): T:\Home\
4a - userTavoruPath$ & 'Data\' SET AS: T:\Home\Data\ - Exists? False
AddFolder - Created as Required (folderPath$): T:\Home\Data\
5a)"),
              std::string::npos)
        << all;
    EXPECT_NE(all.find(R"(Note: Failed to create or set userTavoruPath$-related paths above (3a/4a/6a)
      - valid data path for Last Job may now be established from user's INI settings
 (cancels warning if OK)
Check)"),
              std::string::npos);
    EXPECT_TRUE(exists("Home\\List"));

    prog.userHomeOverride = "1:\\nowhere\\";  // no drive at all: three folders fail, one box
    EXPECT_EQ(start(), "none");
    EXPECT_TRUE(warning);
    EXPECT_NE(trace().find("1:\\nowhere\\Tavoru\\Data\\ not added !!\n"), std::string::npos);

    prog.userHomeOverride = path("Local\\");
    EXPECT_EQ(start("Home\\file\\x\\"), "none");
    EXPECT_FALSE(warning);
    EXPECT_TRUE(exists("Local\\Tavoru\\List"));

    names.startUp.appDataSubPath = "x?\\";
    EXPECT_EQ(start(), "none");
    names.startUp.appDataIsEssential = true;
    EXPECT_EQ(start(), "52 (Class Module) cStartProcs::Sub SystemConstants");
    EXPECT_NE(boxes.find("A required component is missing !!\r\nPlease re-install Tavoru to correct|"),
              std::string::npos);
}

TEST_F(StartTest, GoOnWhereTheUserMayNotReadOrWrite) {
    if (!test::asOrdinaryUser([] { return true; })) GTEST_SKIP() << "there is no other user here";
    using std::filesystem::perms;
    const auto marker = system.onDisk("Local") / kMarker;
    system.write(path("Local\\" + kMarker), "RECORD\r\n");
    std::filesystem::permissions(marker, perms::none);
    for (const char* name : {"Home", "Local"}) std::filesystem::permissions(system.onDisk(name), perms(0555));
    answer = MessageAnswer::Yes;
    const auto warnedBy = [&](const std::string& box) { return boxes.find(box) != std::string::npos; };
    const auto went = test::asOrdinaryUser([&] {
        return start() == "none" && warning &&
               warnedBy("Test file requires initialisation !!\r\nNo output|") &&
               warnedBy("Unable to create the folder " + path("Local\\Temp\\"));
    });
    EXPECT_EQ(went, true);
    EXPECT_FALSE(exists("Home\\Tavoru"));
    for (const char* name : {"Home", "Local"}) std::filesystem::permissions(system.onDisk(name), perms(0755));
}

TEST_F(StartTest, TellWhatHappensToTheSamples) {
    const std::string copied = "a copied successfully to T:\\Home\\Tavoru\\Data\\\n";
    const std::tuple<const char*, std::function<void()>, std::string> rows[] = {
        {"no value", [&] { names.startUp.registryValue = "Other"; }, ""},
        {"no path", [&] { api.SetRegString(RootKey::ClassesRoot, kKey, "Folder", "Prog\\x.exe"); }, ""},
        {"missing", [&] { names.startUp.sampleJob = "d"; },
         "5b - File does not exist: T:\\Prog\\Samples\\d - not copied\n"},
        {"empty", [&] { names.startUp.sampleJob = "b"; },
         "5b - File does not exist: T:\\Prog\\Samples\\b - not copied\n"},
        {"all",
         [&] {
             names.startUp.sampleFiles = {"a", "tSampleJob", "c"};
         },
         copied + "tSampleJob copied successfully to T:\\Home\\Tavoru\\Data\\\nc copied"},
        {"first one missing",
         [&] {
             names.startUp.sampleFiles = {"d", "a", "c"};
         },
         "cStartProcs::Sub SystemConstants: \nFile not found\n** Startup terminated\n"},
    };
    answer = MessageAnswer::Yes;
    for (const auto& [name, prepare, line] : rows) {
        const t_gencvf::StartUpNames kept = names.startUp;
        changeFolder(*system.platform.folders, path(""));  // the current folder cannot be removed everywhere
        std::filesystem::remove_all(system.onDisk("Home"));
        makeFolder(*system.platform.folders, path("Home"));
        system.write(path("Local\\" + kMarker), "RECORD\r\n");
        prepare();
        EXPECT_EQ(start(),
                  line.starts_with("cS") ? "53 (Class Module) cStartProcs::Sub SystemConstants" : "none");
        EXPECT_NE(trace().find(line), std::string::npos) << name << trace();
        EXPECT_EQ(trace().find("copied successfully") != std::string::npos, name == std::string("all"))
            << name;
        names.startUp = kept;
        api.SetRegString(RootKey::ClassesRoot, kKey, "Folder", path("Prog"));
    }
}

TEST_F(StartTest, AskBeforeTesting) {
    const std::string box = "Test file requires initialisation !!\r\nNo output|Tavoru procedures|48\n";
    const std::tuple<std::string, MessageAnswer, std::string, bool> rows[] = {
        {"RECORD\r\n", MessageAnswer::No, "none", false},
        {"RECORD", MessageAnswer::Cancel, "RECORD", false},
        {"", MessageAnswer::Yes, "", true},
        {"\r\n\n", MessageAnswer::Yes, "\n\n", true},
        {"record\n", MessageAnswer::Yes, "record\n", true},
        {"RECORD \n", MessageAnswer::Yes, "RECORD \n", true},
        {std::string(100000, '\xFF'), MessageAnswer::Yes, std::string(100000, '\xFF'), true},
    };
    for (const auto& [content, given, left, asked] : rows) {
        system.write(path("Local\\" + kMarker), content);
        answer = given;
        EXPECT_EQ(start(), "none");
        EXPECT_EQ(trace(), left);
        EXPECT_EQ(boxes.ends_with(box), asked);
    }
    EXPECT_TRUE(exists("Home\\Tavoru\\List"));
}

TEST_F(StartTest, FollowTheSystem) {
    const auto version = [](std::uint32_t major, std::uint32_t minor, std::uint32_t platform) {
        return Outcome<OsVersion>{
            {.major = major, .minor = minor, .build = 0x10003, .platform = platform, .servicePack = ""}};
    };
    const std::tuple<Outcome<OsVersion>, std::string, bool, std::string> rows[] = {
        {version(4, 10, 1), "Windows 95/98 v4.10 Build 3", true, ""},  // no paths below 5.0
        {version(5, 0, 2), "Windows NT v5.0 Build 3", false, "T:\\All\\"},
        {version(10, 0, 2), "Windows NT v10.0 Build 3", false, "T:\\All\\"},
        {version(6, 2, 3), "as before", false, "T:\\All\\"},
        {{.error = SystemError::InvalidParameter}, "as before", false, ""},
    };
    machine.userProfile = path("Me");
    for (const auto& [given, text, is9x, allUsers] : rows) {
        machine.version = given;
        prog.osVersion = "as before";
        EXPECT_EQ(start(), "none");
        EXPECT_EQ(prog.osVersion, text);
        EXPECT_EQ(prog.isWin9x, is9x);
        EXPECT_EQ(shown(prog.commonAppData), allUsers.empty() ? "T:\\Me\\Application Data\\" : allUsers);
    }
    machine.version = version(5, 1, 2);
    for (const char* folder : {"Local Settings", "Local Settings\\Application Data", "x\\application Data"}) {
        const bool isOld = std::string(folder).find("Application") != std::string::npos;
        setFolder(28, folder);
        EXPECT_EQ(start(), "none");
        EXPECT_EQ(shown(prog.LocalSettingsTemp),
                  "T:\\" + std::string(isOld ? "Local Settings" : folder) + "\\Temp\\");
    }
}

}  // namespace
}  // namespace t_genproc
