#include <windows.h>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

using HtmlHelp = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

/// Windows' viewer, loaded when help is first asked for. It stays, since its windows live in it.
HtmlHelp htmlHelp() {
    static const HMODULE viewer = ::LoadLibraryA("hhctrl.ocx");
    if (viewer == nullptr) return nullptr;
    return reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(::GetProcAddress(viewer, "HtmlHelpA")));
}

class WindowsHelpViewer final : public HelpViewer {
   public:
    WindowHandle HtmlHelpA(WindowHandle owner, const std::string& helpFile, std::uint32_t command,
                           std::int32_t data) override {
        const HtmlHelp call = htmlHelp();
        if (call == nullptr) {
            ::MessageBoxA(::GetActiveWindow(), "This system has no viewer for help (hhctrl.ocx).", "Help",
                          MB_ICONEXCLAMATION);
            return 0;
        }
        // Any other command would take the number for the address of a text.
        const auto topic = static_cast<DWORD_PTR>(command == HelpCommand::Topic ? data : 0);
        return reinterpret_cast<WindowHandle>(
            call(reinterpret_cast<HWND>(owner), toAnsiWithLoss(helpFile).c_str(), command, topic));
    }
};

}  // namespace

std::unique_ptr<HelpViewer> makeHelpViewer() { return std::make_unique<WindowsHelpViewer>(); }

}  // namespace t_genproc
