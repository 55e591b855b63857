#include <algorithm>
#include <utility>

#include "platform/linux_desktop/bitmap_picture.h"
#include "platform/linux_desktop/text_drawing.h"

namespace t_genproc::linux_desktop {
namespace {

constexpr std::uint32_t kNoContext = 0xFFFFFFFF;  // CLR_INVALID, GDI_ERROR

class LinuxGraphics final : public Graphics {
   public:
    explicit LinuxGraphics(std::shared_ptr<Desktop> desktop)
        : desktop_(std::move(desktop)), display_(std::make_shared<XDisplay>(desktop_->options.display)) {}

    // ---- Windows

    WindowHandle GetForegroundWindow() override {
        return display_->isThere() ? WindowHandle{activeWindow(*display_)} : 0;
    }

    Outcome<Rectangle> GetWindowRect(WindowHandle window) override {
        if (window == 0 && display_->isThere()) return {.error = SystemError::InvalidHandle};
        const Outcome<XWindow> found = whole(window);
        const XWindow& place = found.value;
        return {{place.left + place.outside.left, place.top + place.outside.top,
                 place.left + place.outside.right, place.top + place.outside.bottom},
                found.error};
    }

    Outcome<DeviceContext> GetDC(WindowHandle window) override { return contextOf(inside(window), 0); }

    Outcome<DeviceContext> GetWindowDC(WindowHandle window) override {
        const Outcome<XWindow> found = whole(window);
        return contextOf(found, -found.value.border);
    }

    bool ReleaseDC(WindowHandle /*window*/, DeviceContext context) override {
        return find<WindowContext>(context) && desktop_->contexts.remove(context);
    }

    // ---- Device contexts and what is selected into them

    Outcome<DeviceContext> CreateCompatibleDC(DeviceContext context) override {
        const Outcome<Resolution> resolution = resolutionOf(context);
        if (!resolution) return {.error = resolution.error};
        return {desktop_->contexts.add(
            std::make_shared<MemoryContext>(stockBitmapHandle_, stockBitmap_, resolution.value))};
    }

    bool DeleteDC(DeviceContext context) override { return desktop_->contexts.remove(context); }

    std::int32_t GetDeviceCaps(DeviceContext context, std::int32_t index) override {
        const auto found = find<Context>(context);
        return found ? found->deviceCaps(index) : 0;
    }

    Outcome<GraphicsObject> SelectObject(DeviceContext context, GraphicsObject object) override {
        const auto into = find<Context>(context);
        const auto selected = desktop_->objects.find(object);
        if (into && std::dynamic_pointer_cast<Font>(selected)) {
            const GraphicsObject before = std::exchange(into->font, object);
            return {before == 0 ? stockFont_ : before};
        }
        const auto memory = std::dynamic_pointer_cast<MemoryContext>(into);
        auto bitmap = std::dynamic_pointer_cast<Bitmap>(selected);
        if (!memory || !bitmap) return {.error = SystemError::InvalidHandle};
        return {memory->select(object, std::move(bitmap))};
    }

    bool DeleteObject(GraphicsObject object) override {
        const bool isStock = object == stockFont_ || object == stockBitmapHandle_;
        return isStock || desktop_->objects.remove(object);
    }

    // ---- Bitmaps, palettes and pictures

    Outcome<GraphicsObject> CreateCompatibleBitmap(DeviceContext context, std::int32_t width,
                                                   std::int32_t height) override {
        if (width <= 0 || height <= 0) return {.error = SystemError::InvalidParameter};
        if (!find<Context>(context)) return {.error = SystemError::InvalidHandle};
        if (std::max(width, height) > Bitmap::kMost) return {.error = SystemError::NotEnoughMemory};
        return {desktop_->objects.add(std::make_shared<Bitmap>(width, height))};
    }

    Outcome<bool> BitBlt(DeviceContext target, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height, DeviceContext source, std::int32_t sourceX,
                         std::int32_t sourceY, std::uint32_t operation) override {
        const auto to = find<Context>(target);
        const auto from = find<PixelContext>(source);
        if (!to || !from) return {.error = SystemError::InvalidHandle};
        if (operation != kSourceCopy) return {.error = SystemError::NotSupported};
        const SystemError error = copyPixels(*from, *to, {x, y, width, height, sourceX, sourceY});
        return {error == SystemError::Success, error};
    }

    // No display of today has a palette.
    Outcome<std::vector<PaletteEntry>> GetSystemPaletteEntries(DeviceContext /*context*/,
                                                               std::uint32_t /*start*/,
                                                               std::uint32_t /*count*/) override {
        return {.error = SystemError::NotSupported};
    }
    Outcome<GraphicsObject> CreatePalette(const LogicalPalette& /*palette*/) override {
        return {.error = SystemError::NotSupported};
    }
    Outcome<GraphicsObject> SelectPalette(DeviceContext /*context*/, GraphicsObject /*palette*/,
                                          bool /*background*/) override {
        return {.error = SystemError::NotSupported};
    }
    Outcome<std::uint32_t> RealizePalette(DeviceContext /*context*/) override {
        return {.error = SystemError::NotSupported};
    }

    ObjectPointer OleCreatePictureIndirect(const PictureDescription& description, bool own) override {
        auto bitmap = std::dynamic_pointer_cast<Bitmap>(desktop_->objects.find(description.bitmap));
        if (!bitmap || description.pictureType != kPictureTypeBitmap) return nullptr;
        const Resolution resolution = resolutionOf(0).value;
        return std::make_shared<BitmapPicture>(desktop_, std::move(bitmap), description, own, resolution);
    }

    // ---- Text

    GraphicsObject CreateFontIndirectA(const LogicalFont& font) override {
        return desktop_->objects.add(std::make_shared<Font>(font));
    }

    std::uint32_t SetTextColor(DeviceContext context, std::uint32_t colour) override {
        const auto found = find<Context>(context);
        return found ? std::exchange(found->textColour, colour) : kNoContext;
    }

    std::uint32_t SetTextAlign(DeviceContext context, std::uint32_t align) override {
        const auto found = find<Context>(context);
        return found ? std::exchange(found->textAlign, align) : kNoContext;
    }

    bool TextOutA(DeviceContext context, std::int32_t x, std::int32_t y, const std::string& text) override {
        const auto found = find<Context>(context);
        if (!found) return false;
        const auto font = std::dynamic_pointer_cast<Font>(desktop_->objects.find(found->font));
        return drawText(*found, font ? font->logical : LogicalFont{}, x, y, text);
    }

   private:
    /// Null where there is no such context, or none of this kind.
    template <class Kind>
    std::shared_ptr<Kind> find(DeviceContext context) const {
        return std::dynamic_pointer_cast<Kind>(desktop_->contexts.find(context));
    }

    /// 0 is the screen.
    Outcome<XWindow> inside(WindowHandle window) {
        if (!display_->isThere()) return {.error = SystemError::NotReady};
        if (window == 0) return lookAt(*display_, display_->screen().root);
        if (!std::in_range<xcb_window_t>(window)) return {.error = SystemError::InvalidHandle};
        return lookAt(*display_, static_cast<xcb_window_t>(window));
    }

    Outcome<XWindow> whole(WindowHandle window) {
        const Outcome<XWindow> found = inside(window);
        return found ? lookAt(*display_, frameOf(*display_, found.value.window)) : found;
    }

    Outcome<DeviceContext> contextOf(const Outcome<XWindow>& window, std::int32_t origin) {
        if (!window) return {.error = window.error};
        const Resolution resolution = linux_desktop::resolutionOf(display_->screen(window.value.root));
        return {desktop_->contexts.add(
            std::make_shared<WindowContext>(display_, window.value.window, origin, resolution))};
    }

    /// 0 is the screen.
    Outcome<Resolution> resolutionOf(DeviceContext context) {
        if (const auto found = find<Context>(context)) {
            return {{found->deviceCaps(DeviceCaps::LogPixelsX), found->deviceCaps(DeviceCaps::LogPixelsY)}};
        }
        if (context != 0) return {.error = SystemError::InvalidHandle};
        if (!display_->isThere()) return {.error = SystemError::NotReady};
        return {linux_desktop::resolutionOf(display_->screen())};
    }

    std::shared_ptr<Desktop> desktop_;
    std::shared_ptr<XDisplay> display_;

    // What is selected until something else is; it is never deleted.
    std::shared_ptr<Bitmap> stockBitmap_ = std::make_shared<Bitmap>(1, 1);
    GraphicsObject stockBitmapHandle_ = desktop_->objects.add(stockBitmap_);
    GraphicsObject stockFont_ = desktop_->objects.add(std::make_shared<Font>(LogicalFont{}));
};

}  // namespace

std::unique_ptr<Graphics> makeGraphics(std::shared_ptr<Desktop> desktop) {
    return std::make_unique<LinuxGraphics>(std::move(desktop));
}

}  // namespace t_genproc::linux_desktop
