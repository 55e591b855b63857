#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "platform/windows/windows_platform.h"
#include "support/windows_dialog.h"

namespace t_genproc {
namespace {

/// Waits for the message box of this process, reads its texts and presses the button that Enter would press.
std::string answerBox() {
    const HWND box = test::waitForDialog();
    char text[100] = "";
    ::GetWindowTextA(box, text, sizeof text);
    std::string texts = text;
    int byDefault = 0;
    for (HWND child = nullptr; (child = ::FindWindowExA(box, child, nullptr, nullptr)) != nullptr;) {
        ::GetWindowTextA(child, text, sizeof text);
        texts += std::string("|") + text;
        const bool isDefault = (::GetWindowLongA(child, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault) byDefault = ::GetDlgCtrlID(child);
    }
    test::press(box, byDefault);
    return texts + '|';
}

TEST(WindowsMessages, ShowABoxAndGiveItsAnswer) {
    std::string texts;
    std::thread somebody([&] { texts = answerBox(); });
    const MessageAnswer answer = windowsPlatform().windows->MessageBoxA(
        "H\xC3\xB6he?", "Tavoru", MessageStyle::YesNo | MessageStyle::DefaultButton2);
    somebody.join();
    EXPECT_EQ(answer, MessageAnswer::No);
    EXPECT_TRUE(texts.starts_with("Tavoru|") && texts.find("|H\xF6he?|") != std::string::npos) << texts;
}

TEST(WindowsHelp, ShowsNothingOfAFileThatIsMissing) {
    const Platform platform = windowsPlatform();
    for (const std::uint32_t command : {HelpCommand::TableOfContents, HelpCommand::Topic}) {
        EXPECT_EQ(platform.helpViewer->HtmlHelpA(0, "C:\\none.chm", command, 7), 0);
    }
    EXPECT_NE(::GetModuleHandleA("hhctrl.ocx"), nullptr);  // it has been asked
}

int reached = 0;
void CALLBACK countOnce(HWND, UINT, UINT_PTR timer, DWORD) { reached += ::KillTimer(nullptr, timer); }

TEST(WindowsMessages, ReachTheWindowsOfTheHostAndLeaveItsEndToIt) {
    ::SetTimer(nullptr, 0, 1, &countOnce);
    ::Sleep(100);
    windowsPlatform().windows->DispatchPendingMessages();
    EXPECT_EQ(reached, 1);

    ::PostQuitMessage(3);
    windowsPlatform().windows->DispatchPendingMessages();
    MSG message{};
    EXPECT_TRUE(::PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.wParam == 3);
}

}  // namespace
}  // namespace t_genproc
