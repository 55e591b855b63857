#include "platform/linux_desktop/x_windows.h"

#include <algorithm>
#include <cmath>

namespace t_genproc::linux_desktop {
namespace {

Rectangle common(const Rectangle& a, const Rectangle& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

xcb_window_t belowRoot(XDisplay& display, xcb_window_t window) {
    for (;;) {
        const auto tree = display.ask<xcb_query_tree, xcb_query_tree_reply>(window);
        if (!tree || tree->parent == tree->root || tree->parent == XCB_NONE) return window;
        window = tree->parent;
    }
}

Reply<xcb_get_property_reply_t> property(XDisplay& display, xcb_window_t window, const std::string& name) {
    constexpr std::uint8_t kKeep = 0;
    return display.ask<xcb_get_property, xcb_get_property_reply>(
        kKeep, window, display.atom(name), xcb_atom_t{XCB_GET_PROPERTY_TYPE_ANY}, 0U, 1U);
}

}  // namespace

Outcome<XWindow> lookAt(XDisplay& display, xcb_window_t window) {
    XWindow found;
    for (xcb_window_t each = window; each != XCB_NONE;) {
        const auto place = display.ask<xcb_get_geometry, xcb_get_geometry_reply>(each);
        const auto tree = display.ask<xcb_query_tree, xcb_query_tree_reply>(each);
        if (!place || !tree) return {.error = display.failure(SystemError::InvalidHandle)};
        // The windows around `window` are counted from its own 0, 0, as it is from theirs.
        if (each == window) {
            const std::int32_t border = place->border_width;
            found = {.window = window, .root = place->root, .border = border};
            found.outside = {-border, -border, place->width + border, place->height + border};
            found.visible = found.outside;
        } else {
            found.visible = common(found.visible, {-found.left, -found.top, place->width - found.left,
                                                   place->height - found.top});
        }
        found.left += place->x + place->border_width;
        found.top += place->y + place->border_width;
        each = tree->parent;
    }
    return {found};
}

xcb_window_t frameOf(XDisplay& display, xcb_window_t window) {
    // Window managers mark what they have put a frame around; controls inside have none.
    const auto managed = property(display, window, "WM_STATE");
    return managed && managed->type != XCB_NONE ? belowRoot(display, window) : window;
}

xcb_window_t activeWindow(XDisplay& display) {
    const auto active = property(display, display.screen().root, "_NET_ACTIVE_WINDOW");
    if (active && active->type == XCB_ATOM_WINDOW && ::xcb_get_property_value_length(active.get()) == 4) {
        const auto* const window = static_cast<xcb_window_t*>(::xcb_get_property_value(active.get()));
        if (*window != XCB_NONE) return *window;
    }
    const auto focus = display.ask<xcb_get_input_focus, xcb_get_input_focus_reply>();
    if (!focus || focus->focus <= XCB_INPUT_FOCUS_POINTER_ROOT) return XCB_NONE;
    return belowRoot(display, focus->focus);
}

Resolution resolutionOf(const xcb_screen_t& screen) {
    const auto perInch = [](int pixels, int millimetres) {
        return millimetres > 0 ? static_cast<std::int32_t>(std::lround(pixels * 25.4 / millimetres)) : 96;
    };
    return {perInch(screen.width_in_pixels, screen.width_in_millimeters),
            perInch(screen.height_in_pixels, screen.height_in_millimeters)};
}

}  // namespace t_genproc::linux_desktop
