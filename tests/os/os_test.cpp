#include <gtest/gtest.h>

#include <chrono>

#include "frame/GenUtil.h"
#include "os/cAPIprocs.h"
#include "runtime/text.h"
#include "support/scripted_services.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

constexpr std::int32_t kRoot = RootKey::CurrentUser;
const std::string kKey = "Software\\t_genproc os test";

struct OsTest : testing::Test, test::TestWorld {
    OsTest() { system.platform.registry.reset(&registry); }

    test::TestRegistry& registry = *new test::TestRegistry(std::move(system.platform.registry));
    cAPIprocs api{library};
};

TEST_F(OsTest, MakeMissingRegistryValuesFromTheirDefaults) {
    const std::string longest(254, 'x'), tooLong(255, 'x');
    const auto get = [&](const std::string& name, const std::string& byDefault) {
        std::string text;
        const std::string failure = failureOf([&] { text = api.GetRegString(kRoot, kKey, name, byDefault); });
        return failure == "none" ? text : failure;
    };
    const auto stored = [&](const std::string& name) {
        std::string text;
        return api.GetKeyValue(kRoot, kKey, name, text) ? text : "none";
    };
    const auto getAndStored = [&](const std::string& name, const std::string& byDefault) {
        const std::string text = get(name, byDefault);
        return text + stored(name);
    };
    const auto expectFailure = [&](const std::string& number) {
        EXPECT_EQ(get("f", "v"), number + " (Class Module) cAPIprocs::Function GetRegString");
        EXPECT_EQ(reports,
                  "SetRegString > (Class Module) cAPIprocs::Function SetRegString\n"
                  "(Class Module) cAPIprocs::Function SetRegString > "
                  "(Class Module) cAPIprocs::Function GetRegString\n");
        reports.clear();
        EXPECT_FALSE(api.SetRegString(kRoot, kKey, "f", "v", true));
    };

    EXPECT_EQ(getAndStored("a", "  "), "none");  // nor is there a key
    EXPECT_TRUE(api.KeyDetails(kRoot, kKey).values.empty());
    EXPECT_EQ(getAndStored("a", " v "), " v  v ");
    EXPECT_EQ(get("A", "w"), " v ");
    EXPECT_TRUE(api.SetRegString(kRoot, kKey, "a", ""));
    EXPECT_EQ(getAndStored("a", "w"), "ww");
    EXPECT_TRUE(api.SetRegString(kRoot, kKey, "b", longest) && api.SetRegString(kRoot, kKey, "c", tooLong));
    EXPECT_EQ(get("b", "w"), longest);
    EXPECT_EQ(getAndStored("c", ""), tooLong);
    EXPECT_EQ(getAndStored("c", "w"), "ww");
    EXPECT_TRUE(api.KeyDetails(kRoot, kKey).values == (std::vector<std::string>{"a", "b", "c"}));

    registry.onWriting = SystemError::AccessDenied;  // there for reading only
    EXPECT_EQ(get("a", "x") + getAndStored("d", "x"), "wnone");
    registry.onReading = SystemError::AccessDenied;
    EXPECT_EQ(get("a", "x"), "");
    registry.onReading = SystemError::FileNotFound;
    expectFailure("32003");
    registry.onWriting = registry.onReading = SystemError::Success;
    registry.onSetting = SystemError::DiskFull;
    expectFailure("32002");
    registry.onSetting = SystemError::Success;
    EXPECT_EQ(registry.open, 0);

    EXPECT_TRUE(api.SetRegString(kRoot, kKey + "\\below", "e", "v"));
    EXPECT_TRUE(api.KeyDetails(kRoot, kKey).keys == std::vector<std::string>{"below"});
    EXPECT_TRUE(api.DeleteRegKey(kRoot, kKey, "b"));
    EXPECT_FALSE(api.DeleteRegKey(kRoot, kKey, "b") || api.DeleteRegKey(kRoot, "") ||
                 api.DeleteRegKey(kRoot, "\\"));
    EXPECT_TRUE(api.DeleteRegKey(kRoot, kKey) && api.KeyDetails(kRoot, kKey).values.empty());
}

TEST_F(OsTest, TakeThePathOutOfARegistryValue) {
    system.write(path("x.exe"), "");
    const std::string folder = path("").substr(0, path("").size() - 1);
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"\"", ""},
        {"Tavoru\\", ""},
        {"C:Tavoru\\", ""},
        {"  " + folder + " ", folder + "\\"},
        {path(""), path("")},
        {path("none"), path("none")},
        {path("x.exe"), path("x.exe")},
        {"\"" + path("x.exe") + "\" \"%1\"", path("x.exe")},
        {"\" C:\\A B\\", "C:\\A B\\"},
        {"\\\\server\\share\\", "\\\\server\\share\\"},
        {std::string("C:\\a\0b", 6), "C:\\a"},
    };
    for (const auto& [value, expected] : rows) EXPECT_EQ(api.ValidateRegPath(value), expected) << value;
}

TEST_F(OsTest, FindSpecialFolders) {
    auto& shell = *new test::ScriptedShell;
    system.platform.shell.reset(&shell);
    const std::string zero(1, '\0'),
        failure =
            "SHGetSpecialFolderLocation failed in (Class Module) cAPIprocs::Function "
            "GetSpecialFolder\r\nError number: ";
    shell.folders = {{1, {0, "C:\\A" + zero + "rest"}},
                     {2, {0, "C:\\" + zero}},
                     {3, {0, zero}},
                     {4, {0, "  "}},
                     {5, {0, "C:\\A"}},
                     {6, {1, ""}},
                     {7, {2, ""}},
                     {8, {-2147024894, "C:\\A" + zero}}};
    const std::tuple<int, float, std::string, std::string> rows[] = {
        {1, 5.0F, "C:\\A\\", "folder path "},
        {1, 5.1F, "C:\\A\\", "location list path free "},
        {1, 6.1F, "C:\\A\\", "location list path free "},
        {1, 4.0F, "", "location free "},
        {2, 6.1F, "C:\\", "location list path free "},
        {3, 6.1F, "", "location list path free "},
        {4, 5.0F, "", "folder path "},
        {5, 6.1F, "5 (Class Module) cAPIprocs::Function GetSpecialFolder", "location list path free "},
        {6, 6.1F, failure + "1, The folder does not exist (virtual folder)|Tavoru procedures|0\n",
         "location free "},
        {7, 5.0F, failure + "2|Tavoru procedures|0\n", "folder path "},
        {8, 6.1F, "", "location free "},
        {99, 6.1F, "", "location free "},
    };
    for (const auto& [identifier, version, expected, calls] : rows) {
        std::string folder;
        const std::string error =
            failureOf([&, id = identifier, number = version] { folder = api.GetSpecialFolder(id, number); });
        EXPECT_EQ(folder + boxes + (error == "none" ? "" : error), expected);
        EXPECT_EQ(shell.calls, calls);
        shell.calls = boxes = "";
    }
}

TEST_F(OsTest, TellOfTheMachine) {
    const std::string temp = api.GetTempFilesName(path("")), none = path("None\\");
    EXPECT_TRUE(temp == text::lower(temp) && temp.find("\\_t") != std::string::npos) << temp;
    EXPECT_EQ(system.read(temp), "");
    EXPECT_EQ(api.GetTempFilesName(none), none + "_¥§3µ4i¿.tmp");
    EXPECT_EQ(text::lower("ÄÉΣЖԱ\xC3İß"), "äéσжա\xC3İß");

    const std::string guid = api.CreateGUID();
    EXPECT_TRUE(guid.size() == 36 && guid[8] == '-' && guid[23] == '-' && guid != api.CreateGUID()) << guid;
    EXPECT_EQ(api.GetEnvStringValue("t_genproc_not_set"), "");
    EXPECT_NE(api.GetEnvString(1), "");
    EXPECT_GT(api.TotalPhysicalMemory(), 1);

    auto& machine = *new test::ScriptedSystem;
    system.platform.system.reset(&machine);
    machine.folders = {{"windows", "C:\\WINDOWS"}, {"system", "C:\\"}};
    EXPECT_EQ(api.GetWindowsDir() + '|' + api.GetWindowsSysDir() + '|' + api.GetWindowsTempDir(),
              "C:\\WINDOWS\\|C:\\|\\");
    EXPECT_EQ(api.TotalPhysicalMemory(), 1.5);
    EXPECT_EQ(failureOf([&] { api.CreateGUID(); }), "51 (Class Module) cAPIprocs::Function CreateGUID");
    const std::string block("X=1\0\0Y", 6);
    EXPECT_EQ(
        api.GetEnvString(2) + '|' + api.GetEnvString(3) + '|' + api.GetEnvString(4) + api.GetEnvString(0),
        "B=|=C:=C:\\x|");
    EXPECT_EQ(api.GetEnvString(1, block) + api.GetEnvString(2, block) + api.GetEnvString(1, "Z"), "X=1Z");
    const std::pair<std::size_t, std::string> values[] = {
        {2046, std::string(2046, 'x')}, {2047, std::string(2048, ' ')}, {5000, std::string(2048, ' ')}};
    for (const auto& [length, expected] : values) {
        machine.userProfile = std::string(length, 'x');
        EXPECT_EQ(api.GetEnvStringValue("USERPROFILE"), expected);
    }

    const std::int32_t numbers[] = {-2, 0x12345678};
    EXPECT_EQ(api.GetValueINT(reinterpret_cast<std::intptr_t>(numbers)), -2);
    EXPECT_EQ(api.GetValueLONG(reinterpret_cast<std::intptr_t>(numbers) + 4), 0x12345678);
    EXPECT_EQ(api.ParseAnyString("a;;b", 1, ";") + '|' + api.ParseAnyString("a;;b", 2, ";") + '|' +
                  api.ParseAnyString("a::b", 2, "::") + '|' + api.ParseAnyString("a;b", 3, ";"),
              "a||b|");
    EXPECT_EQ(test::errorOf([&] { api.ParseAnyString("a", 0, ";"); }) +
                  test::errorOf([&] { api.ParseAnyString("a", 1, ""); }),
              10);
}

TEST_F(OsTest, TellTheDatesOfFiles) {
    namespace chrono = std::chrono;
    system.write(path("a.txt"), "");
    const auto dates = [&](int mode, bool time = true, bool shortTime = true) {
        return api.FileDates(path("a.txt"), static_cast<std::int16_t>(mode), time, prog, shortTime);
    };
    const auto summer = chrono::sys_days(chrono::year(2024) / 6 / 15) + chrono::hours(12);
    std::filesystem::last_write_time(system.onDisk("a.txt"),
                                     chrono::file_clock::from_sys(chrono::sys_seconds(summer)));
    EXPECT_TRUE(dates(1, false).ends_with("-Jun-2024")) << dates(1);
    const bool keepsCreation =
        !test::isLeftOut("Wine: keeps no time of creation") &&
        system.platform.files->GetFileAttributesExA(path("a.txt")).value.created.high != 0;
    EXPECT_EQ(dates(0) != dates(1), keepsCreation);
    EXPECT_TRUE(!keepsCreation || dates(0) == dates(2));

    auto& clock = *new test::ScriptedClock;
    system.platform.clock.reset(&clock);
    const std::tuple<SystemTime, std::string, std::string> rows[] = {
        {{2026, 11, 6, 14, 9, 5, 7, 999}, "9:05 14-Nov-2026", "9 h 14-Nov-2026"},
        {{1950, 1, 0, 1, 0, 0, 0, 0}, "0:00 1-Jan-1950", "0 h 1-Jan-1950"},
        {{1949, 12, 6, 31, 23, 59, 59, 0}, "23:59 31-Dec-2049", "23 h 31-Dec-2049"},
        {{1601, 1, 1, 1, 0, 0, 0, 0}, "0:00 1-Jan-2001", "0 h 1-Jan-2001"},
    };
    for (const auto& [record, shortForm, longForm] : rows) {
        clock.toRecord.value = record;
        EXPECT_EQ(dates(1) + '|' + dates(1, true, false), shortForm + '|' + longForm);
    }
    EXPECT_EQ(api.SystemDateVal({2026, 11, 6, 4, 9, 5, 7, 0}, true), "4-Nov-2026  Time : 09:05:07");
    EXPECT_EQ(failureOf([&] { api.SystemDateVal({}); }),
              "5 (Class Module) cAPIprocs::Function SystemDateVal");

    prog.errorLogBrief = true;
    now = 2;
    clock.toLocal.error = clock.toRecord.error = SystemError::InvalidParameter;
    EXPECT_EQ(dates(1), "1900-01-01");
    EXPECT_EQ(api.FileDates(path("none"), 1, true, prog), "");
    const std::string stamp = "01-01-1900  00:00:00 : ", code = " - error code returned = ";
    EXPECT_EQ(system.read(path("t_eveml")),
              stamp + "Error in FileDates after FileTimeToLocalFileTime DLL function call (2)" + code +
                  "87\r\n" + stamp + "Unable to complete DLL process FileTimeToSystemTime (3)" + code +
                  "87\r\n" + stamp + "Error in CreateFile DLL function call (1)" + code + "2\r\n");
}

TEST_F(OsTest, WaitForProgramsWhilePumping) {
    auto& clock = *new test::ScriptedClock;
    auto& processes = *new test::ScriptedProcesses;
    system.platform.clock.reset(&clock);
    system.platform.processes.reset(&processes);
    const std::tuple<int, float, float, int> rows[] = {
        // milliseconds, start before, start after, pumps
        {0, 0, 0, 0},
        {100, 0, 0, 0},
        {101, 0, 0.101F, 1},
        {5000, 4.95F, 4.95F, 0},
        {5000, 4, 5, 1},
        {86399899, 0, 86399.898F, 1},
        {86399950, 86399.9F, 0, 0},
        {86399999, 0, 0, 1},
        {50, 86399, 86399, 0},
    };
    for (const auto& [milliseconds, before, after, pumps] : rows) {
        const auto part = [ms = milliseconds](int unit, int of) {
            return static_cast<std::uint16_t>(ms / unit % of);
        };
        clock.local = {2026, 11, 6, 14, part(3600000, 24), part(60000, 60), part(1000, 60), part(1, 1000)};
        float start = before;
        pumped = 0;
        GenUtil::DoEventsTimer(library, start, 0.1F);
        EXPECT_FLOAT_EQ(start, after) << milliseconds;
        EXPECT_EQ(pumped, pumps) << milliseconds;
    }

    clock.local = {2026, 11, 6, 14, 12, 0, 0, 0};
    pumped = 0;
    EXPECT_EQ(api.LoadProcess("none"), 0);
    EXPECT_EQ(processes.calls, "start none 1 32\n");
    processes.launch = {true, {7, 8}, SystemError::AlreadyExists};
    processes.polls = 2;
    EXPECT_EQ(api.LoadProcess("a b"), 183);
    EXPECT_EQ(processes.calls,
              "start none 1 32\nstart a b 1 32\nidle 7 infinite\nclose 8\n"
              "poll 7 0\npoll 7 0\npoll 7 0\nclose 7\n");
    EXPECT_EQ(pumped, 1);
}

TEST_F(OsTest, StartTheSystemInformationTool) {
    const std::string tools = "SOFTWARE\\Microsoft\\Shared Tools";
    const std::string unavailable = "System Information is unavailable|Tavoru procedures|64\n";
    auto& processes = *new test::ScriptedProcesses;
    system.platform.processes.reset(&processes);
    const auto started = [&] {
        processes.calls = boxes = "";
        api.StartSysInfo(prog);
        return processes.calls.substr(0, processes.calls.find('\n')) + boxes;
    };
    EXPECT_EQ(started(), unavailable);
    api.SetRegString(RootKey::LocalMachine, tools + " Location", "MSINFO",
                     path("").substr(0, path("").size() - 1));
    EXPECT_EQ(started(), unavailable);
    system.write(path("MSINFO32.EXE"), "");
    processes.launch.started = true;
    EXPECT_EQ(started(), "start \"" + path("MSINFO32.EXE") + "\" 1 32");
    api.SetRegString(RootKey::LocalMachine, tools + "\\MSINFO", "PATH", "C:\\none");
    processes.launch = {false, {}, SystemError::FileNotFound};
    prog.errorLogBrief = true;
    EXPECT_EQ(started(), "start C:\\none 1 32");
    EXPECT_EQ(system.read(path("t_eveml")), "30-12-1899  00:00:00 : 2 - SysInfoPath : >>\r\nC:\\none\r\n");
}

}  // namespace
}  // namespace t_genproc
