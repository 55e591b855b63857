#include <gtest/gtest.h>
#include <sys/wait.h>

#include <sstream>
#include <thread>

#include "platform/portable/portable_platform.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

TEST(PortableHelp, ShowsThePageOfATopicInABrowser) {
    test::PlatformUnderTest system;
    const std::filesystem::path drive = system.onDisk(""), browser = drive / "my browser";
    system.write(system.path("my browser"),
                 "#!/bin/sh\necho \"$#$1\" >> '" + (drive / "shown").string() + "'\n");
    std::filesystem::permissions(browser, std::filesystem::perms::owner_all);
    std::filesystem::create_directory(drive / "Hélp");
    for (const char* page : {"contents.html", "angles 1%.html"})
        system.write(system.path("Hélp\\") + page, "");

    std::ostringstream messages;
    PortableOptions options;
    options.driveC = drive.string();
    options.messages = &messages;
    options.browser = "\"C:\\my browser\"";
    options.helpPages = {"CONTENTS.html",
                         {{7, "angles 1%.html#a:b\"c"},
                          {8, "https://example.org/8?a=%20\\"},
                          {9, "C:\\H\xC3\xA9lp\\contents.html"},
                          {10, "none.html"}}};
    const auto ask = [&](const PortableOptions& with, std::uint32_t command, std::int32_t topic) {
        EXPECT_EQ(
            portablePlatform(with).helpViewer->HtmlHelpA(0, "C:\\H\xC3\xA9lp\\Tavoru.chm", command, topic),
            0);
    };
    const std::string folder = "1file://" + drive.string() + "H%C3%A9lp/";
    std::string expected;
    const auto shows = [&](std::uint32_t command, std::int32_t topic, const std::string& line) {
        ask(options, command, topic);
        expected += line + '\n';
        for (int i = 0; i < 1000 && system.read(system.path("shown")) != expected; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        EXPECT_EQ(system.read(system.path("shown")), expected);
    };
    shows(HelpCommand::TableOfContents, 7, folder + "contents.html");
    shows(HelpCommand::Topic, 7, folder + "angles%201%25.html#a:b%22c");
    shows(HelpCommand::Topic, 8, "1https://example.org/8?a=%20%5C");
    shows(HelpCommand::Topic, 9, folder + "contents.html");
    EXPECT_EQ(messages.str(), "");
    while (::wait(nullptr) > 0) continue;  // the last browser has nobody left to wait for it

    ask(options, HelpCommand::Topic, 10);
    ask(options, HelpCommand::Topic, 11);
    options.browser = "no such browser";
    ask(options, HelpCommand::Topic, 9);
    options.helpPages = {};
    ask(options, HelpCommand::TableOfContents, 1);
    const std::string text = messages.str();
    for (const char* message :
         {"There is no help page C:\\H\xC3\xA9lp\\none.html.", "The help has no page for topic 11.",
          "Cannot start no such browser to show the help page C:\\H\xC3\xA9lp\\contents.html.",
          "The help has no table of contents."}) {
        EXPECT_NE(text.find(std::string("--- Help ---\nWarning: ") + message), std::string::npos) << text;
    }
}

}  // namespace
}  // namespace t_genproc
