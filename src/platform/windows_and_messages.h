/// Message boxes and the message pump.
#pragma once

#include <cstdint>
#include <string>

namespace t_genproc {

/// The style of a message box: one kind of buttons, one icon, one default button, added up.
namespace MessageStyle {
inline constexpr std::uint32_t Ok = 0x0;
inline constexpr std::uint32_t OkCancel = 0x1;
inline constexpr std::uint32_t AbortRetryIgnore = 0x2;
inline constexpr std::uint32_t YesNoCancel = 0x3;
inline constexpr std::uint32_t YesNo = 0x4;
inline constexpr std::uint32_t RetryCancel = 0x5;
inline constexpr std::uint32_t Critical = 0x10;
inline constexpr std::uint32_t Question = 0x20;
inline constexpr std::uint32_t Exclamation = 0x30;
inline constexpr std::uint32_t Information = 0x40;
inline constexpr std::uint32_t DefaultButton2 = 0x100;
inline constexpr std::uint32_t DefaultButton3 = 0x200;

inline constexpr std::uint32_t ButtonsMask = 0x0F;
inline constexpr std::uint32_t IconMask = 0xF0;
inline constexpr std::uint32_t DefaultButtonMask = 0xF00;
}  // namespace MessageStyle

/// The button that closed a message box.
enum class MessageAnswer : int { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

class WindowsAndMessages {
   public:
    virtual ~WindowsAndMessages() = default;

    /// Shows a message box and waits for the answer.
    virtual MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                                      std::uint32_t style) = 0;

    /// Lets the host's windows process what waits for them (PeekMessageA to DispatchMessageA, until nothing
    /// waits).
    virtual void DispatchPendingMessages() = 0;
};

}  // namespace t_genproc
