#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <span>
#include <vector>

#include "platform/portable/adapters.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

struct Button {
    MessageAnswer answer;
    std::string_view text;
};
constexpr Button kOk{MessageAnswer::Ok, "OK"};
constexpr Button kCancel{MessageAnswer::Cancel, "Cancel"};
constexpr Button kAbort{MessageAnswer::Abort, "Abort"};
constexpr Button kRetry{MessageAnswer::Retry, "Retry"};
constexpr Button kIgnore{MessageAnswer::Ignore, "Ignore"};
constexpr Button kYes{MessageAnswer::Yes, "Yes"};
constexpr Button kNo{MessageAnswer::No, "No"};

std::vector<Button> buttonsOf(std::uint32_t style) {
    switch (style & MessageStyle::ButtonsMask) {
        case MessageStyle::OkCancel: return {kOk, kCancel};
        case MessageStyle::AbortRetryIgnore: return {kAbort, kRetry, kIgnore};
        case MessageStyle::YesNoCancel: return {kYes, kNo, kCancel};
        case MessageStyle::YesNo: return {kYes, kNo};
        case MessageStyle::RetryCancel: return {kRetry, kCancel};
        default: return {kOk};
    }
}

std::string_view iconWord(std::uint32_t style) {
    switch (style & MessageStyle::IconMask) {
        case MessageStyle::Critical: return "Error";
        case MessageStyle::Question: return "Question";
        case MessageStyle::Exclamation: return "Warning";
        case MessageStyle::Information: return "Information";
        default: return "";
    }
}

std::size_t defaultButton(std::uint32_t style, std::size_t count) {
    const std::size_t wanted = (style & MessageStyle::DefaultButtonMask) / MessageStyle::DefaultButton2;
    return wanted < count ? wanted : 0;
}

/// The button that a typed answer means: any beginning of its text. None where it fits none.
const Button* buttonFor(std::span<const Button> buttons, std::string_view typed) {
    const auto fits = [typed](const Button& button) {
        return text::equalIgnoringCase(button.text.substr(0, typed.size()), typed);
    };
    const auto found = std::ranges::find_if(buttons, fits);
    return found == buttons.end() ? nullptr : &*found;
}

/// Without the control characters that a terminal would obey.
std::string printable(std::string text) {
    const auto isControl = [](char c) { return (c >= 0 && c < ' ' && c != '\n') || c == '\x7F'; };
    std::ranges::replace_if(text, isControl, '?');
    return text;
}

/// A terminal in place of windows.
class TerminalMessages : public WindowsAndMessages {
   public:
    explicit TerminalMessages(const PortableOptions& options)
        : out_(options.messages != nullptr ? *options.messages : std::cerr),
          in_(options.answers != nullptr ? *options.answers : std::cin),
          canAnswer_(options.canAnswer),
          messagePump_(options.messagePump) {
        const bool answersGiven = options.answers != nullptr;
        if (!canAnswer_) canAnswer_ = [=] { return answersGiven || ::isatty(STDIN_FILENO) == 1; };
    }

    /// Shows title, icon, text and buttons, the default one in brackets. An empty line or the end of the
    /// input stands for the default button; a box with one button does not wait.
    MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                              std::uint32_t style) override {
        const std::vector<Button> buttons = buttonsOf(style);
        const Button& byDefault = buttons[defaultButton(style, buttons.size())];
        const std::string_view icon = iconWord(style);

        out_ << "--- " << printable(caption) << " ---\n";
        if (!icon.empty()) out_ << icon << ": ";
        out_ << printable(text) << '\n';
        for (const Button& button : buttons) {
            const bool isDefault = button.answer == byDefault.answer;
            out_ << (isDefault ? "[" : " ") << button.text << (isDefault ? "] " : "  ");
        }
        out_ << std::endl;
        return buttons.size() > 1 && canAnswer_() ? ask(buttons, byDefault) : byDefault.answer;
    }

    void DispatchPendingMessages() override {
        if (messagePump_) messagePump_();
    }

   private:
    MessageAnswer ask(std::span<const Button> buttons, const Button& byDefault) {
        std::string line;
        while (out_ << "> " << std::flush && std::getline(in_, line)) {
            const std::string_view typed = text::trim(line);
            if (typed.empty()) break;
            if (const Button* button = buttonFor(buttons, typed)) return button->answer;
        }
        return byDefault.answer;
    }

    std::ostream& out_;
    std::istream& in_;
    std::function<bool()> canAnswer_;
    std::function<void()> messagePump_;
};

}  // namespace

std::unique_ptr<WindowsAndMessages> makeWindowsAndMessages(const PortableOptions& options) {
    return std::make_unique<TerminalMessages>(options);
}

}  // namespace t_genproc::portable
