/// Contexts of pixels: windows, and bitmaps in memory.
#pragma once

#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/surface.h"
#include "platform/linux_desktop/x_windows.h"

namespace t_genproc::linux_desktop {

/// Black until something else is drawn; it takes its memory not before.
class Bitmap final : public DrawingObject {
   public:
    static constexpr std::int32_t kMost = 32767;  ///< pixels of a direction that Cairo has numbers for

    Bitmap(std::int32_t width, std::int32_t height) : width_(width), height_(height) {}

    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    cairo_surface_t* pixels();
    cairo_t* drawing();

    /// Takes the place of all pixels by others, without a copy. False: they are of another size.
    bool takeWhole(Surface& pixels);

   private:
    std::int32_t width_;
    std::int32_t height_;
    Surface pixels_;
    Drawing drawing_;
};

/// A context whose pixels can be copied.
class PixelContext : public Context {
   public:
    explicit PixelContext(Resolution resolution) : resolution_(resolution) {}
    std::int32_t deviceCaps(std::int32_t index) const override;

    /// Which pixels there are.
    virtual Outcome<Rectangle> readable() = 0;
    /// A copy of some of them.
    virtual Outcome<Surface> read(const Rectangle& area) = 0;

   private:
    Resolution resolution_;
};

class WindowContext final : public PixelContext {
   public:
    /// `origin`: where 0, 0 of the context is, from the corner within the window's border; in both
    /// directions.
    WindowContext(std::shared_ptr<XDisplay> display, xcb_window_t window, std::int32_t origin,
                  Resolution resolution)
        : PixelContext(resolution), display_(std::move(display)), window_(window), origin_(origin) {}

    cairo_t* drawing() override { return nullptr; }
    Outcome<Rectangle> readable() override;
    Outcome<Surface> read(const Rectangle& area) override;

   private:
    std::shared_ptr<XDisplay> display_;
    xcb_window_t window_;
    std::int32_t origin_;
};

class MemoryContext final : public PixelContext {
   public:
    MemoryContext(GraphicsObject handle, std::shared_ptr<Bitmap> bitmap, Resolution resolution)
        : PixelContext(resolution), handle_(handle), bitmap_(std::move(bitmap)) {}

    cairo_t* drawing() override { return bitmap_->drawing(); }
    Outcome<Rectangle> readable() override { return {{0, 0, bitmap_->width(), bitmap_->height()}}; }
    Outcome<Surface> read(const Rectangle& area) override;

    Bitmap& bitmap() { return *bitmap_; }
    /// Gives the handle of the bitmap that was selected before.
    GraphicsObject select(GraphicsObject handle, std::shared_ptr<Bitmap> bitmap);

   private:
    GraphicsObject handle_;
    std::shared_ptr<Bitmap> bitmap_;
};

/// From the source's place `sourceX`, `sourceY` to the target's `x`, `y`.
struct PixelCopy {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t sourceX = 0;
    std::int32_t sourceY = 0;
};
/// Copies what of it is within both. NotSupported: a target that cannot be drawn on.
SystemError copyPixels(PixelContext& source, Context& target, const PixelCopy& copy);

}  // namespace t_genproc::linux_desktop
