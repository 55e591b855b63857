#include <gtest/gtest.h>

#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

struct ProcessesTest : testing::Test {
    ProcessesTest() { system.platform.folders->SetCurrentDirectoryA(system.path("")); }
    Launch start(const std::string& commandLine) {
        return processes.CreateProcessA(commandLine, true, kNormalPriority);
    }
    test::PlatformUnderTest system;
    Processes& processes = *system.platform.processes;
};

TEST_F(ProcessesTest, HandTheProgramItsArguments) {
    const std::pair<std::string, std::string> rows[] = {
        {R"(child of tests out)", "child of tests"},
        {R"(child of tests.exe out a  b )", "child of tests.exe\na\nb"},
        {R"("child of tests" out "" "a b" c" "d)", "child of tests\n\na b\nc d"},
        {R"("child of tests" out C:\a\ "C:\b c\\" d\\\e)", "child of tests\nC:\\a\\\nC:\\b c\\\nd\\\\\\e"},
        {R"("child of tests" out \" a\"b\\\"c "d\" e" \\"g h")",
         "child of tests\n\"\na\"b\\\"c\nd\" e\n\\g h"},
        {R"("child of tests" out "a""b" """c""" 'd e')", "child of tests\na\"b\n\"c\"\n'd\ne'"},
        {"\"child of tests\"\tout\ta \t größe $HOME `id` | ; %PATH%",
         "child of tests\na\ngröße\n$HOME\n`id`\n|\n;\n%PATH%"},
    };
    for (const auto& [commandLine, words] : rows) {
        const auto [started, program, error] = start(commandLine);
        EXPECT_TRUE(started && error == SystemError::Success) << commandLine;
        EXPECT_EQ(processes.WaitForSingleObject(program.process, kInfinite), kWaitObject);
        EXPECT_EQ(system.read(system.path("out")), system.stored(words + "\n")) << commandLine;
    }
}

TEST_F(ProcessesTest, TellWhyAProgramDoesNotStart) {
    system.platform.folders->CreateDirectoryA(system.path("folder"));
    system.write(system.path("text"), "no program");
    std::filesystem::permissions(system.onDisk("text"), std::filesystem::perms(0777));
    const std::pair<std::string, int> rows[] = {{"", 87},
                                                {"\"\" a", 87},
                                                {std::string("child\0", 6), 87},
                                                {"no such program", 2},
                                                {system.path("none.exe") + " a", 2},
                                                {"\"" + system.path("none\\a b"), 3},
                                                {"Q:\\a.exe", 3},
                                                {system.path("folder") + " a", 5},
                                                {".\\text a b", 193},
                                                {system.path("a?b"), 123},
                                                {"child of tests out " + std::string(33000, 'a'), 206}};
    for (const auto& [commandLine, error] : rows) {
        if (error != 2 && error != 193 && test::isLeftOut("Wine: what cannot be a program is not found"))
            continue;
        const Launch launch = start(commandLine);
        EXPECT_EQ(static_cast<int>(launch.lastError), error) << commandLine.substr(0, 80);
        EXPECT_TRUE(!launch.started && launch.information.process == 0) << commandLine.substr(0, 80);
    }
}

TEST_F(ProcessesTest, WaitForTheEnd) {
    const auto [program, thread] = start("child of tests sleep 300").information;
    EXPECT_EQ(processes.WaitForInputIdle(program, kInfinite), kWaitFailed);
    EXPECT_EQ(processes.WaitForSingleObject(program, 0), kWaitTimeout);
    EXPECT_EQ(processes.WaitForSingleObject(thread, 50), kWaitTimeout);
    EXPECT_EQ(processes.WaitForSingleObject(program, 60000), kWaitObject);
    for (const ProcessHandle handle : {program, thread}) {
        EXPECT_EQ(processes.WaitForSingleObject(handle, 0), kWaitObject);
        EXPECT_EQ(processes.CloseHandle(handle), SystemError::Success);
        EXPECT_EQ(processes.WaitForSingleObject(handle, 0), kWaitFailed);
        EXPECT_EQ(processes.CloseHandle(handle), SystemError::InvalidHandle);
    }
}

}  // namespace
}  // namespace t_genproc
