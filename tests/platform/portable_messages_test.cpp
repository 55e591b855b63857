#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "platform/portable/portable_platform.h"

namespace t_genproc {
namespace {

using namespace MessageStyle;

TEST(PortableMessages, AskUntilAnAnswerFitsAndCallThePump) {
    bool someoneIsThere = false;
    int pumped = 0;
    std::ostringstream messages;
    std::istringstream answers;
    PortableOptions options;
    options.driveC = std::filesystem::temp_directory_path().string();
    options.messagePump = [&] { ++pumped; };
    options.messages = &messages;
    options.answers = &answers;
    options.canAnswer = [&] { return someoneIsThere; };
    const Platform platform = portablePlatform(options);
    WindowsAndMessages& windows = *platform.windows;
    struct Row {
        std::uint32_t style;
        std::string typed;
        MessageAnswer answer, byDefault;
    };
    const Row rows[] = {
        {OkCancel | Question | DefaultButton2, "OK\n", MessageAnswer::Ok, MessageAnswer::Cancel},
        {AbortRetryIgnore | Critical, "yes\nretry\n", MessageAnswer::Retry, MessageAnswer::Abort},
        {YesNoCancel | DefaultButton3, "maybe\n N \n", MessageAnswer::No, MessageAnswer::Cancel},
        {YesNo | DefaultButton2, "\nyes\n", MessageAnswer::No, MessageAnswer::No},
        {RetryCancel | DefaultButton3, "neither", MessageAnswer::Retry, MessageAnswer::Retry},
    };
    for (const Row& row : rows) {
        answers.clear();
        answers.str(row.typed);
        messages.str("");
        someoneIsThere = true;
        EXPECT_EQ(windows.MessageBoxA("Höhe?", "Tavoru", row.style), row.answer) << row.typed;
        EXPECT_LT(messages.str().find("Tavoru"), messages.str().find("Höhe?")) << messages.str();
        someoneIsThere = false;
        EXPECT_EQ(windows.MessageBoxA("Höhe?", "Tavoru", row.style), row.byDefault) << row.typed;
    }
    windows.DispatchPendingMessages();
    EXPECT_EQ(pumped, 1);
}

}  // namespace
}  // namespace t_genproc
