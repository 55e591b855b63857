#include "platform/linux_desktop/window_pixels.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

namespace t_genproc::linux_desktop {
namespace {

using Image = Reply<xcb_get_image_reply_t>;

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0x0000FF;
constexpr auto kOwnOrder =
    std::endian::native == std::endian::little ? XCB_IMAGE_ORDER_LSB_FIRST : XCB_IMAGE_ORDER_MSB_FIRST;

struct ImageLayout {
    std::size_t pixel = 0;  // bytes
    std::size_t line = 0;
    bool lowByteFirst = true;
};

/// Nothing of pixels that are no whole bytes.
std::optional<ImageLayout> layoutOf(const xcb_setup_t& setup, std::uint8_t depth, std::int32_t width) {
    const std::span formats(::xcb_setup_pixmap_formats(&setup),
                            static_cast<std::size_t>(::xcb_setup_pixmap_formats_length(&setup)));
    const auto format = std::ranges::find(formats, depth, &xcb_format_t::depth);
    if (format == formats.end() || format->bits_per_pixel % 8 != 0) return std::nullopt;
    const std::size_t bits = static_cast<std::size_t>(width) * format->bits_per_pixel;
    const std::size_t pad = format->scanline_pad;
    return ImageLayout{.pixel = format->bits_per_pixel / 8U,
                       .line = (bits + pad - 1) / pad * pad / 8,
                       .lowByteFirst = setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST};
}

const xcb_visualtype_t* findVisual(const xcb_setup_t& setup, xcb_visualid_t wanted) {
    for (auto screen = ::xcb_setup_roots_iterator(&setup); screen.rem > 0; ::xcb_screen_next(&screen)) {
        auto depth = ::xcb_screen_allowed_depths_iterator(screen.data);
        for (; depth.rem > 0; ::xcb_depth_next(&depth)) {
            auto visual = ::xcb_depth_visuals_iterator(depth.data);
            for (; visual.rem > 0; ::xcb_visualtype_next(&visual)) {
                if (visual.data->visual_id == wanted) return visual.data;
            }
        }
    }
    return nullptr;
}

bool isOwnFormat(const xcb_setup_t& setup, const ImageLayout& layout, const xcb_visualtype_t& visual) {
    return layout.pixel == 4 && setup.image_byte_order == kOwnOrder && visual.red_mask == kRed &&
           visual.green_mask == kGreen && visual.blue_mask == kBlue;
}

/// The surface's memory is that of the image.
Surface adopt(Image image, std::int32_t width, std::int32_t height, const ImageLayout& layout) {
    Surface pixels(::cairo_image_surface_create_for_data(
        ::xcb_get_image_data(image.get()), CAIRO_FORMAT_RGB24, width, height, static_cast<int>(layout.line)));
    static const cairo_user_data_key_t kImage{};
    if (::cairo_surface_set_user_data(pixels.get(), &kImage, image.get(), &std::free) !=
        CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    static_cast<void>(image.release());
    return pixels;
}

/// What the values of pixels mean: red, green and blue in a byte each.
class Colours {
   public:
    Colours(XDisplay& display, const xcb_visualtype_t& visual, xcb_colormap_t map) : visual_(visual) {
        if (visual.red_mask != 0) return;
        std::vector<std::uint32_t> values(visual.colormap_entries);
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = static_cast<std::uint32_t>(i);
        const auto answer = display.ask<xcb_query_colors, xcb_query_colors_reply>(
            map, static_cast<std::uint32_t>(values.size()), values.data());
        if (!answer) return;
        for (const xcb_rgb_t& each :
             std::span(::xcb_query_colors_colors(answer.get()),
                       static_cast<std::size_t>(::xcb_query_colors_colors_length(answer.get())))) {
            table_.push_back(
                static_cast<std::uint32_t>(each.red >> 8U << 16U | each.green >> 8U << 8U | each.blue >> 8U));
        }
    }

    std::uint32_t operator()(std::uint32_t pixel) const {
        if (visual_.red_mask == 0) return pixel < table_.size() ? table_[pixel] : 0;
        return part(pixel, visual_.red_mask) << 16U | part(pixel, visual_.green_mask) << 8U |
               part(pixel, visual_.blue_mask);
    }

   private:
    static std::uint32_t part(std::uint32_t pixel, std::uint32_t mask) {
        if (mask == 0) return 0;
        const int zeros = std::countr_zero(mask);
        const std::uint64_t most = mask >> zeros;
        const std::uint64_t value = (pixel & mask) >> zeros;
        return static_cast<std::uint32_t>((value * 255 + most / 2) / most);
    }

    xcb_visualtype_t visual_;
    std::vector<std::uint32_t> table_;
};

std::uint32_t pixelValue(const std::uint8_t* bytes, const ImageLayout& layout) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < layout.pixel; ++i) {
        value = value << 8U | bytes[layout.lowByteFirst ? layout.pixel - 1 - i : i];
    }
    return value;
}

Surface convert(const Image& image, std::int32_t width, std::int32_t height, const ImageLayout& layout,
                const Colours& colours) {
    Surface pixels = makePixels(width, height);
    if (!isSound(pixels)) return pixels;
    ::cairo_surface_flush(pixels.get());
    const auto stride = static_cast<std::size_t>(::cairo_image_surface_get_stride(pixels.get()));
    for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row) {
        const std::uint8_t* from = ::xcb_get_image_data(image.get()) + row * layout.line;
        std::uint8_t* to = ::cairo_image_surface_get_data(pixels.get()) + row * stride;
        for (std::int32_t i = 0; i < width; ++i, from += layout.pixel, to += sizeof(std::uint32_t)) {
            const std::uint32_t colour = colours(pixelValue(from, layout));
            std::memcpy(to, &colour, sizeof colour);
        }
    }
    ::cairo_surface_mark_dirty(pixels.get());
    return pixels;
}

}  // namespace

Outcome<Surface> pixelsOf(XDisplay& display, xcb_window_t window, const Rectangle& area) {
    const std::int32_t width = area.right - area.left;
    const std::int32_t height = area.bottom - area.top;
    const auto kind = display.ask<xcb_get_window_attributes, xcb_get_window_attributes_reply>(window);
    if (!kind) return {.error = display.failure(SystemError::InvalidHandle)};
    Image image = display.ask<xcb_get_image, xcb_get_image_reply>(
        std::uint8_t{XCB_IMAGE_FORMAT_Z_PIXMAP}, window, static_cast<std::int16_t>(area.left),
        static_cast<std::int16_t>(area.top), static_cast<std::uint16_t>(width),
        static_cast<std::uint16_t>(height), ~0U);
    if (!image) return {.error = display.failure(SystemError::GeneralFailure)};

    const auto layout = layoutOf(display.setup(), image->depth, width);
    const xcb_visualtype_t* const visual = findVisual(display.setup(), image->visual);
    if (!layout || visual == nullptr) return {.error = SystemError::NotSupported};
    Surface pixels = isOwnFormat(display.setup(), *layout, *visual)
                         ? adopt(std::move(image), width, height, *layout)
                         : convert(image, width, height, *layout, {display, *visual, kind->colormap});
    if (!isSound(pixels)) return {.error = SystemError::NotEnoughMemory};
    return {std::move(pixels)};
}

}  // namespace t_genproc::linux_desktop
