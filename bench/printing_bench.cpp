/// A report of 100 pages into a PDF file beside Pango and Cairo alone; the picture of a window beside the
/// request to the display that it rests on.
#include <cairo-pdf.h>
#include <pango/pangocairo.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <fstream>
#include <iostream>

#include "host/rich_text_control.h"
#include "host/rich_text_format.h"
#include "os/cAPIprocs.h"
#include "platform/linux_desktop/linux_desktop.h"
#include "printing/cPrinter.h"
#include "ratio_table.h"
#include "world.h"

namespace t_genproc::bench {
namespace {

struct FreeWithLibrary {
    void operator()(cairo_surface_t* surface) const { ::cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { ::cairo_destroy(context); }
    void operator()(PangoLayout* layout) const { ::g_object_unref(layout); }
    void operator()(PangoFontDescription* font) const { ::pango_font_description_free(font); }
    void operator()(xcb_connection_t* display) const { ::xcb_disconnect(display); }
    void operator()(xcb_get_image_reply_t* image) const { std::free(image); }
};
template <class Thing>
using Owned = std::unique_ptr<Thing, FreeWithLibrary>;

// ---- A report

constexpr const char* kFont = "Liberation Mono";
constexpr int kSize = 10;  // points
constexpr int kPages = 100;
constexpr double kWidth = 595.28, kHeight = 841.89, kMargin = 20 / 25.4 * 72;  // A4, points

std::string pageText(int page) {
    constexpr int kLines = 60;
    std::string text;
    for (int line = 1; line <= kLines; ++line) {
        const std::string number = std::to_string(page * kLines + line);
        text += "Station " + number + "    angle 92 06 42.7    distance 225." + number + " m    height " +
                number + ".250 m\n";
    }
    text.pop_back();
    return text;
}

void printBare(const std::string& fileName) {
    const Owned<cairo_surface_t> file(::cairo_pdf_surface_create(fileName.c_str(), kWidth, kHeight));
    const Owned<cairo_t> context(::cairo_create(file.get()));
    const Owned<PangoFontDescription> font(::pango_font_description_new());
    ::pango_font_description_set_family(font.get(), kFont);
    ::pango_font_description_set_absolute_size(font.get(), kSize * PANGO_SCALE);
    for (int page = 0; page < kPages; ++page) {
        const std::string text = pageText(page);
        const Owned<PangoLayout> layout(::pango_cairo_create_layout(context.get()));
        ::pango_layout_set_font_description(layout.get(), font.get());
        ::pango_layout_set_width(layout.get(), static_cast<int>((kWidth - 2 * kMargin) * PANGO_SCALE));
        ::pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
        ::cairo_move_to(context.get(), kMargin, kMargin);
        ::pango_cairo_show_layout(context.get(), layout.get());
        ::cairo_show_page(context.get());
    }
    ::cairo_surface_finish(file.get());
    require(::cairo_surface_status(file.get()) == CAIRO_STATUS_SUCCESS);
}

t_gencvf::RichText report() {
    std::string text;
    for (int page = 0; page < kPages; ++page) text += (page == 0 ? "" : "\f") + pageText(page);
    return t_gencvf::plainText(text, {.font = kFont, .size = kSize});
}

/// Whether both files hold the same lines on the same pages.
bool isSameText(const std::string& one, const std::string& other) {
    const std::string read = "pdftotext -layout '" + one + "' '" + one + ".txt' && pdftotext -layout '" +
                             other + "' '" + other + ".txt' && cmp '" + one + ".txt' '" + other + ".txt'";
    return std::system(read.c_str()) == 0;
}

// ---- A window

/// A window of noise over the whole screen of the display that DISPLAY names.
class Noise {
   public:
    static constexpr std::uint16_t kWindowWidth = 1920, kWindowHeight = 1080;

    Noise() {
        if (::xcb_connection_has_error(display_.get()) != 0) return;
        const xcb_screen_t& screen = *::xcb_setup_roots_iterator(::xcb_get_setup(display_.get())).data;
        window_ = ::xcb_generate_id(display_.get());
        const std::uint32_t withoutManager = 1;
        ::xcb_create_window(display_.get(), screen.root_depth, window_, screen.root, 0, 0, kWindowWidth,
                            kWindowHeight, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual,
                            XCB_CW_OVERRIDE_REDIRECT, &withoutManager);
        ::xcb_map_window(display_.get(), window_);
        const xcb_gcontext_t context = ::xcb_generate_id(display_.get());
        ::xcb_create_gc(display_.get(), context, window_, 0, nullptr);
        for (std::uint32_t i = 0; i < 20'000; ++i) {
            const std::uint32_t colour = i * 2654435761U;
            ::xcb_change_gc(display_.get(), context, XCB_GC_FOREGROUND, &colour);
            const xcb_rectangle_t place{static_cast<std::int16_t>(colour % kWindowWidth),
                                        static_cast<std::int16_t>(colour / 7 % kWindowHeight), 60, 40};
            ::xcb_poly_fill_rectangle(display_.get(), window_, context, 1, &place);
        }
        ask();  // and so waits until all is drawn
    }

    bool isThere() const { return window_ != 0; }
    WindowHandle window() const { return static_cast<WindowHandle>(window_); }

    void ask() const {
        constexpr std::uint32_t kAllPlanes = ~0U;
        const Owned<xcb_get_image_reply_t> image(
            ::xcb_get_image_reply(display_.get(),
                                  ::xcb_get_image(display_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_, 0, 0,
                                                  kWindowWidth, kWindowHeight, kAllPlanes),
                                  nullptr));
        require(image != nullptr);
    }

   private:
    Owned<xcb_connection_t> display_{::xcb_connect(nullptr, nullptr)};
    xcb_window_t window_ = 0;
};

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    World world;
    t_gencvf::RichTextWindows texts;
    addLinuxDesktop(world.platform,
                    {.choosePrinter =
                         [] {
                             return PrinterAnswer{kPdfPrinter, "C:\\own.pdf"};
                         },
                     .richText = [&texts](WindowHandle window) { return texts.find(window); }});

    const auto control = texts.open(report());
    const Work print = [&] {
        DeviceContext context = 0;
        cPrinter(world.library).PrintRTF(control, "Report", "", &context);
        require(context != 0);
    };
    const std::string bareFile = world.folder.file("bare.pdf");
    const Work bare = [&] { printBare(bareFile); };
    print();
    bare();
    require(isSameText(world.folder.file("own.pdf"), bareFile));
    compare("100 pages of 60 lines/bare", bare, bare);
    compare("100 pages of 60 lines/own", bare, print);
    printTable("| printing | Pango and Cairo alone | PrintRTF |", "pages");

    const Noise noise;
    if (!noise.isThere()) {
        std::cerr << "There is no display to capture windows of.\n";
        return 1;
    }
    const Work ask = [&] { noise.ask(); };
    compare("1,920 by 1,080 pixels/bare", ask, ask);
    compare("1,920 by 1,080 pixels/own", ask, [&] {
        const ObjectPointer picture =
            cAPIprocs(world.library)
                .CaptureWindow(noise.window(), true, 0, 0, Noise::kWindowWidth, Noise::kWindowHeight);
        require(picture != nullptr);
    });
    printTable("| pictures of windows | the request alone | CaptureWindow |", "pixels");
}
