#include "platform/portable/adapters.h"

namespace t_genproc::portable {
namespace {

/// A system without a display: there are no windows, and nothing to draw on.
class NoGraphics final : public Graphics {
   public:
    WindowHandle GetForegroundWindow() override { return 0; }
    Outcome<Rectangle> GetWindowRect(WindowHandle /*window*/) override { return {.error = kNone}; }
    Outcome<DeviceContext> GetDC(WindowHandle /*window*/) override { return {.error = kNone}; }
    Outcome<DeviceContext> GetWindowDC(WindowHandle /*window*/) override { return {.error = kNone}; }
    bool ReleaseDC(WindowHandle /*window*/, DeviceContext /*context*/) override { return false; }

    Outcome<DeviceContext> CreateCompatibleDC(DeviceContext /*context*/) override { return {.error = kNone}; }
    bool DeleteDC(DeviceContext /*context*/) override { return false; }
    std::int32_t GetDeviceCaps(DeviceContext /*context*/, std::int32_t /*index*/) override { return 0; }
    Outcome<GraphicsObject> SelectObject(DeviceContext /*context*/, GraphicsObject /*object*/) override {
        return {.error = kNone};
    }
    bool DeleteObject(GraphicsObject /*object*/) override { return false; }

    Outcome<GraphicsObject> CreateCompatibleBitmap(DeviceContext /*context*/, std::int32_t /*width*/,
                                                   std::int32_t /*height*/) override {
        return {.error = kNone};
    }
    Outcome<bool> BitBlt(DeviceContext /*target*/, std::int32_t /*x*/, std::int32_t /*y*/,
                         std::int32_t /*width*/, std::int32_t /*height*/, DeviceContext /*source*/,
                         std::int32_t /*sourceX*/, std::int32_t /*sourceY*/,
                         std::uint32_t /*operation*/) override {
        return {.error = kNone};
    }
    Outcome<std::vector<PaletteEntry>> GetSystemPaletteEntries(DeviceContext /*context*/,
                                                               std::uint32_t /*start*/,
                                                               std::uint32_t /*count*/) override {
        return {.error = kNone};
    }
    Outcome<GraphicsObject> CreatePalette(const LogicalPalette& /*palette*/) override {
        return {.error = kNone};
    }
    Outcome<GraphicsObject> SelectPalette(DeviceContext /*context*/, GraphicsObject /*palette*/,
                                          bool /*background*/) override {
        return {.error = kNone};
    }
    Outcome<std::uint32_t> RealizePalette(DeviceContext /*context*/) override { return {.error = kNone}; }
    ObjectPointer OleCreatePictureIndirect(const PictureDescription& /*description*/, bool /*own*/) override {
        return nullptr;
    }

    GraphicsObject CreateFontIndirectA(const LogicalFont& /*font*/) override { return 0; }
    std::uint32_t SetTextColor(DeviceContext /*context*/, std::uint32_t /*colour*/) override { return 0; }
    std::uint32_t SetTextAlign(DeviceContext /*context*/, std::uint32_t /*align*/) override { return 0; }
    bool TextOutA(DeviceContext /*context*/, std::int32_t /*x*/, std::int32_t /*y*/,
                  const std::string& /*text*/) override {
        return false;
    }

   private:
    static constexpr SystemError kNone = SystemError::NotSupported;
};

}  // namespace

std::unique_ptr<Graphics> makeGraphics() { return std::make_unique<NoGraphics>(); }

}  // namespace t_genproc::portable
