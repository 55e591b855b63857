#include "platform/linux_desktop/pixel_contexts.h"

#include <algorithm>
#include <cmath>

#include "platform/linux_desktop/window_pixels.h"

namespace t_genproc::linux_desktop {
namespace {

constexpr std::int32_t kCopiesPixels = 1;  // RC_BITBLT
constexpr std::int32_t kBitsPerPixel = 32;

/// From one edge to the other, in one direction. Of 64 bits, since places are moved by any 32-bit number.
struct Span {
    std::int64_t first = 0;
    std::int64_t end = 0;

    bool isEmpty() const { return first >= end; }
    Span movedBy(std::int64_t distance) const { return {first + distance, end + distance}; }
    Span within(const Span& other) const { return {std::max(first, other.first), std::min(end, other.end)}; }
};

struct Area {
    Span columns;
    Span rows;

    explicit operator Rectangle() const {
        return {static_cast<std::int32_t>(columns.first), static_cast<std::int32_t>(rows.first),
                static_cast<std::int32_t>(columns.end), static_cast<std::int32_t>(rows.end)};
    }
};

/// Where pixels can be put; empty where nothing can be drawn.
Area drawableOf(Context& target, MemoryContext* memory) {
    if (memory != nullptr) return {{0, memory->bitmap().width()}, {0, memory->bitmap().height()}};
    if (target.drawing() == nullptr) return {};
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    ::cairo_clip_extents(target.drawing(), &left, &top, &right, &bottom);
    return {{std::llround(std::floor(left)), std::llround(std::ceil(right))},
            {std::llround(std::floor(top)), std::llround(std::ceil(bottom))}};
}

SystemError paint(cairo_t* drawing, cairo_surface_t* pixels, double x, double y) {
    ::cairo_save(drawing);
    ::cairo_set_source_surface(drawing, pixels, x, y);
    ::cairo_pattern_set_filter(::cairo_get_source(drawing), CAIRO_FILTER_NEAREST);
    ::cairo_paint(drawing);
    ::cairo_restore(drawing);
    return ::cairo_status(drawing) == CAIRO_STATUS_SUCCESS ? SystemError::Success
                                                           : SystemError::NotEnoughMemory;
}

Rectangle movedBy(std::int32_t distance, const Rectangle& area) {
    return {area.left + distance, area.top + distance, area.right + distance, area.bottom + distance};
}

}  // namespace

cairo_surface_t* Bitmap::pixels() {
    if (!pixels_) pixels_ = makePixels(width_, height_);
    return pixels_.get();
}

cairo_t* Bitmap::drawing() {
    if (!drawing_) drawing_.reset(::cairo_create(pixels()));
    return drawing_.get();
}

bool Bitmap::takeWhole(Surface& pixels) {
    const bool isWhole = ::cairo_image_surface_get_width(pixels.get()) == width_ &&
                         ::cairo_image_surface_get_height(pixels.get()) == height_;
    if (!isWhole) return false;
    drawing_.reset();
    pixels_ = std::move(pixels);
    return true;
}

std::int32_t PixelContext::deviceCaps(std::int32_t index) const {
    switch (index) {
        case DeviceCaps::RasterCaps: return kCopiesPixels;
        case DeviceCaps::BitsPerPixel: return kBitsPerPixel;
        case DeviceCaps::LogPixelsX: return resolution_.x;
        case DeviceCaps::LogPixelsY: return resolution_.y;
        default: return 0;
    }
}

Outcome<Rectangle> WindowContext::readable() {
    if (!display_->isThere()) return {.error = SystemError::NotReady};
    const Outcome<XWindow> window = lookAt(*display_, window_);
    return {movedBy(-origin_, window.value.visible), window.error};
}

Outcome<Surface> WindowContext::read(const Rectangle& area) {
    return pixelsOf(*display_, window_, movedBy(origin_, area));
}

Outcome<Surface> MemoryContext::read(const Rectangle& area) {
    Surface pixels = makePixels(area.right - area.left, area.bottom - area.top);
    const Drawing copy(::cairo_create(pixels.get()));
    const SystemError error = paint(copy.get(), bitmap_->pixels(), -area.left, -area.top);
    return {std::move(pixels), error};
}

GraphicsObject MemoryContext::select(GraphicsObject handle, std::shared_ptr<Bitmap> bitmap) {
    bitmap_ = std::move(bitmap);
    return std::exchange(handle_, handle);
}

SystemError copyPixels(PixelContext& source, Context& target, const PixelCopy& copy) {
    auto* const memory = dynamic_cast<MemoryContext*>(&target);
    const Area drawable = drawableOf(target, memory);
    if (drawable.columns.isEmpty()) return SystemError::NotSupported;
    const Outcome<Rectangle> readable = source.readable();
    if (!readable) return readable.error;

    // All in places of the source.
    const Rectangle& there = readable.value;
    const std::int64_t right = std::int64_t{copy.sourceX} - copy.x;
    const std::int64_t down = std::int64_t{copy.sourceY} - copy.y;
    const Area copied{.columns = Span{copy.sourceX, std::int64_t{copy.sourceX} + copy.width}
                                     .within({there.left, there.right})
                                     .within(drawable.columns.movedBy(right)),
                      .rows = Span{copy.sourceY, std::int64_t{copy.sourceY} + copy.height}
                                  .within({there.top, there.bottom})
                                  .within(drawable.rows.movedBy(down))};
    if (copied.columns.isEmpty() || copied.rows.isEmpty()) return SystemError::Success;

    Outcome<Surface> pixels = source.read(Rectangle(copied));
    if (!pixels) return pixels.error;
    if (memory != nullptr && memory->bitmap().takeWhole(pixels.value)) return SystemError::Success;
    return paint(target.drawing(), pixels.value.get(), static_cast<double>(copied.columns.first - right),
                 static_cast<double>(copied.rows.first - down));
}

}  // namespace t_genproc::linux_desktop
