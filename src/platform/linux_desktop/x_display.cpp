#include "platform/linux_desktop/x_display.h"

#include <csignal>
#include <ctime>

namespace t_genproc::linux_desktop {
namespace {

sigset_t brokenPipe() {
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGPIPE);
    return signals;
}

bool isBrokenPipePending() {
    sigset_t pending;
    return ::sigpending(&pending) == 0 && ::sigismember(&pending, SIGPIPE) == 1;
}

}  // namespace

NoBrokenPipe::NoBrokenPipe() : wasPending_(isBrokenPipePending()) {
    const sigset_t signals = brokenPipe();
    sigset_t before;
    ::sigemptyset(&before);
    ::pthread_sigmask(SIG_BLOCK, &signals, &before);
    wasBlocked_ = ::sigismember(&before, SIGPIPE) == 1;
}

NoBrokenPipe::~NoBrokenPipe() {
    const sigset_t signals = brokenPipe();
    constexpr timespec kNow{};
    if (!wasPending_ && isBrokenPipePending()) ::sigtimedwait(&signals, nullptr, &kNow);
    if (!wasBlocked_) ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

bool XDisplay::isThere() {
    const NoBrokenPipe guard;
    if (connection_) {  // events are of no use, but tell when the display is gone
        while (Reply<xcb_generic_event_t>(::xcb_poll_for_event(connection_.get()))) {
        }
    }
    if (isLost()) connection_.reset(::xcb_connect(name_.empty() ? nullptr : name_.c_str(), &ownScreen_));
    return !isLost();
}

SystemError XDisplay::failure(SystemError refused) const {
    return isLost() ? SystemError::NotReady : refused;
}

xcb_atom_t XDisplay::atom(const std::string& name) {
    constexpr std::uint8_t kAlsoNew = 0;
    const auto found = ask<xcb_intern_atom, xcb_intern_atom_reply>(
        kAlsoNew, static_cast<std::uint16_t>(name.size()), name.c_str());
    return found ? found->atom : xcb_atom_t{XCB_ATOM_NONE};
}

const xcb_screen_t& XDisplay::screen(xcb_window_t root) const {
    xcb_screen_iterator_t each = ::xcb_setup_roots_iterator(&setup());
    const xcb_screen_t* own = each.data;
    for (int number = 0; each.rem > 0; ::xcb_screen_next(&each), ++number) {
        if (each.data->root == root) return *each.data;
        if (number == ownScreen_) own = each.data;
    }
    return *own;
}

}  // namespace t_genproc::linux_desktop
