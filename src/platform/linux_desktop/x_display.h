/// The connection to an X display.
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>

#include "platform/system_error.h"

namespace t_genproc::linux_desktop {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Answer>
using Reply = std::unique_ptr<Answer, FreeMemory>;

/// While one exists, writing to a display that is gone fails, and does not end the program.
class NoBrokenPipe {
   public:
    NoBrokenPipe();
    NoBrokenPipe(const NoBrokenPipe&) = delete;
    NoBrokenPipe& operator=(const NoBrokenPipe&) = delete;
    ~NoBrokenPipe();

   private:
    bool wasPending_;
    bool wasBlocked_ = false;
};

class XDisplay {
   public:
    /// Empty: the display that DISPLAY names.
    explicit XDisplay(std::string name) : name_(std::move(name)) {}

    /// Whether there is a display. It is opened when first asked for, and again where it was lost.
    bool isThere();

    /// Sends a request and waits for its reply; none where it was refused, or where the display is lost.
    ///
    ///     const auto place = display.ask<xcb_get_geometry, xcb_get_geometry_reply>(window);
    template <auto request, auto reply, class... Values>
    auto ask(Values... values) {
        const NoBrokenPipe guard;
        xcb_connection_t* const display = connection_.get();
        using Answer = std::remove_pointer_t<decltype(reply(display, request(display, values...), nullptr))>;
        if (display == nullptr) return Reply<Answer>();
        return Reply<Answer>(reply(display, request(display, values...), nullptr));
    }

    /// Why the last request has no reply: NotReady of a lost display, or `refused`.
    SystemError failure(SystemError refused) const;

    xcb_atom_t atom(const std::string& name);

    const xcb_setup_t& setup() const { return *::xcb_get_setup(connection_.get()); }
    /// The screen with this root window; the display's own where there is none.
    const xcb_screen_t& screen(xcb_window_t root = 0) const;

   private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { ::xcb_disconnect(connection); }
    };
    bool isLost() const { return !connection_ || ::xcb_connection_has_error(connection_.get()) != 0; }

    std::string name_;
    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    int ownScreen_ = 0;
};

}  // namespace t_genproc::linux_desktop
