#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

class WindowsWindowsAndMessages final : public WindowsAndMessages {
   public:
    /// A box that cannot be shown counts as cancelled.
    MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                              std::uint32_t style) override {
        const int answer = ::MessageBoxA(::GetActiveWindow(), toAnsiWithLoss(text).c_str(),
                                         toAnsiWithLoss(caption).c_str(), style);
        return answer == 0 ? MessageAnswer::Cancel : static_cast<MessageAnswer>(answer);
    }

    void DispatchPendingMessages() override {
        MSG message{};
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (message.message == WM_QUIT) {  // meant for the host's own loop
                ::PostQuitMessage(static_cast<int>(message.wParam));
                return;
            }
            ::TranslateMessage(&message);
            ::DispatchMessageA(&message);
        }
    }
};

}  // namespace

std::unique_ptr<WindowsAndMessages> makeWindowsAndMessages() {
    return std::make_unique<WindowsWindowsAndMessages>();
}

}  // namespace t_genproc
