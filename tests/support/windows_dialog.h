/// Somebody who answers the dialogs and message boxes of this process.
#pragma once

#include <windows.h>

namespace t_genproc::test {

/// Waits until there is one to answer.
inline HWND waitForDialog() {
    HWND dialog = nullptr;
    DWORD process = 0;
    while (process != ::GetCurrentProcessId() || !::IsWindowVisible(dialog)) {
        ::Sleep(5);
        dialog = ::FindWindowExA(nullptr, dialog, "#32770", nullptr);
        ::GetWindowThreadProcessId(dialog, &process);
    }
    return dialog;
}

inline void press(HWND dialog, int button) {
    ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

}  // namespace t_genproc::test
