#include <cairo.h>
#include <xcb/xcb.h>

#include <memory>

#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/x_display.h"
#include "support/desktop.h"
#include "support/xvfb.h"

namespace t_genproc::test {
namespace {

using linux_desktop::Reply;

constexpr std::uint16_t kBorder = 3;
constexpr std::uint16_t kCaption = 15;

xcb_connection_t* display() {
    static xcb_connection_t* const connection = ::xcb_connect(displayOfTests().c_str(), nullptr);
    return connection;
}

void waitForDisplay() {
    Reply<void>(::xcb_get_input_focus_reply(display(), ::xcb_get_input_focus(display()), nullptr));
}

xcb_window_t x(WindowHandle window) { return static_cast<xcb_window_t>(window); }

std::uint32_t pixelOf(const xcb_screen_t& screen, std::uint32_t colour) {
    const auto part = [colour](unsigned shift) {
        return static_cast<std::uint16_t>((colour >> shift & 0xFFU) * 0x101U);
    };
    const auto asked = ::xcb_alloc_color(display(), screen.default_colormap, part(16), part(8), part(0));
    return Reply<xcb_alloc_color_reply_t>(::xcb_alloc_color_reply(display(), asked, nullptr))->pixel;
}

xcb_pixmap_t pattern(const xcb_screen_t& screen) {
    const xcb_pixmap_t pixels = ::xcb_generate_id(display());
    ::xcb_create_pixmap(display(), screen.root_depth, pixels, screen.root, TestWindow::kWidth,
                        TestWindow::kHeight);
    for (const std::uint32_t colour : TestWindow::kColours) {
        const xcb_gcontext_t pen = ::xcb_generate_id(display());
        const std::uint32_t pixel = pixelOf(screen, colour);
        ::xcb_create_gc(display(), pen, pixels, XCB_GC_FOREGROUND, &pixel);
        for (std::int16_t row = 0; row < TestWindow::kHeight; ++row) {
            for (std::int16_t column = 0; column < TestWindow::kWidth; ++column) {
                const xcb_point_t point{column, row};
                if (TestWindow::colour(column, row) != colour) continue;
                ::xcb_poly_point(display(), XCB_COORD_MODE_ORIGIN, pixels, pen, 1, &point);
            }
        }
        ::xcb_free_gc(display(), pen);
    }
    return pixels;
}

/// Of the type that has the same name, as window managers do, or of `type`.
void setProperty(xcb_window_t window, const std::string& name, std::uint32_t value, xcb_atom_t type = 0) {
    const auto asked = ::xcb_intern_atom(display(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Reply<xcb_intern_atom_reply_t> atom(::xcb_intern_atom_reply(display(), asked, nullptr));
    ::xcb_change_property(display(), XCB_PROP_MODE_REPLACE, window, atom->atom, type == 0 ? atom->atom : type,
                          32, 1, &value);
}

/// Shows `look` by itself, whatever has covered it.
WindowHandle open(xcb_window_t in, std::int16_t top, std::uint16_t height, std::uint16_t border,
                  std::uint32_t kind, std::initializer_list<std::uint32_t> look) {
    const xcb_window_t window = ::xcb_generate_id(display());
    ::xcb_create_window(display(), XCB_COPY_FROM_PARENT, window, in, 0, top, TestWindow::kWidth, height,
                        border, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, kind, look.begin());
    ::xcb_map_window(display(), window);
    return window;
}

}  // namespace

const Rectangle TestWindow::kInside{kBorder, kBorder + kCaption, kBorder + kWidth,
                                    kBorder + kCaption + kHeight};
const int TestWindow::kScreens = 3;

TestWindow::TestWindow(int screen) {
    auto on = ::xcb_setup_roots_iterator(::xcb_get_setup(display()));
    while (screen-- > 0) ::xcb_screen_next(&on);
    const std::uint32_t colour = pixelOf(*on.data, kFrameColour);
    frame_ = open(on.data->root, 0, kCaption + kHeight, kBorder, XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL,
                  {colour, colour});
    window_ = open(x(frame_), kCaption, kHeight, 0, XCB_CW_BACK_PIXMAP, {pattern(*on.data)});
    setProperty(x(window_), "WM_STATE", 1);
    waitForDisplay();
}

void TestWindow::moveTo(std::int32_t left, std::int32_t top) {
    const std::int32_t place[]{left, top};
    ::xcb_configure_window(display(), x(frame_), XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
    waitForDisplay();
}

void TestWindow::activate(bool byManager) {
    if (byManager) {
        const auto root = ::xcb_setup_roots_iterator(::xcb_get_setup(display())).data->root;
        setProperty(root, "_NET_ACTIVE_WINDOW", x(window_), XCB_ATOM_WINDOW);
    } else {
        ::xcb_set_input_focus(display(), XCB_INPUT_FOCUS_NONE, x(window_), XCB_CURRENT_TIME);
    }
    waitForDisplay();
}

void TestWindow::hide() {
    ::xcb_unmap_window(display(), x(frame_));
    waitForDisplay();
}

void TestWindow::close() {
    ::xcb_destroy_window(display(), x(frame_));
    waitForDisplay();
}

Desktop::Desktop(Platform& platform) {
    LinuxDesktopOptions options;
    options.display = displayOfTests();
    auto desktop = std::make_shared<linux_desktop::Desktop>(std::move(options), *platform.files);
    platform.graphics = linux_desktop::makeGraphics(desktop);
    shared_ = std::move(desktop);
}

std::size_t Desktop::count() const {
    const auto& desktop = *static_cast<const linux_desktop::Desktop*>(shared_.get());
    return desktop.contexts.size() + desktop.objects.size();
}

Image readPng(const std::filesystem::path& file) {
    const std::unique_ptr<cairo_surface_t, decltype(&::cairo_surface_destroy)> surface(
        ::cairo_image_surface_create_from_png(file.c_str()), &::cairo_surface_destroy);
    Image image{::cairo_image_surface_get_width(surface.get()),
                ::cairo_image_surface_get_height(surface.get())};
    const auto* const pixels =
        reinterpret_cast<const std::uint32_t*>(::cairo_image_surface_get_data(surface.get()));
    image.pixels.assign(pixels, pixels + std::ptrdiff_t{image.width} * image.height);
    for (std::uint32_t& pixel : image.pixels) pixel &= 0xFFFFFFU;
    return image;
}

}  // namespace t_genproc::test
