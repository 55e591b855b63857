#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"
#include "platform/windows/picture.h"

namespace t_genproc {
namespace {

constexpr std::uint32_t kMostSystemEntries = 256;
static_assert(sizeof(PaletteEntry) == sizeof(PALETTEENTRY));

template <class Handle>
Handle to(std::intptr_t number) {
    return reinterpret_cast<Handle>(number);
}

template <class Result>
auto plain(Result result) {
    if constexpr (std::is_pointer_v<Result>) {
        return reinterpret_cast<std::intptr_t>(result);
    } else {
        return result;
    }
}

/// What `call` gives, where it is 0 with the code of its own.
template <class Value, class Call>
Outcome<Value> ask(const Call& call) {
    ::SetLastError(0);
    const auto value = static_cast<Value>(plain(call()));
    return {value, value == Value{} ? lastError() : SystemError::Success};
}

LOGFONTA record(const LogicalFont& font) {
    LOGFONTA record{};
    record.lfHeight = font.height;
    record.lfWeight = font.weight;
    record.lfCharSet = font.charSet;
    record.lfQuality = font.quality;
    const std::string name = toAnsiWithLoss(font.faceName);
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1), record.lfFaceName);
    return record;
}

class WindowsGraphics final : public Graphics {
   public:
    // ---- Windows

    WindowHandle GetForegroundWindow() override { return plain(::GetForegroundWindow()); }

    Outcome<Rectangle> GetWindowRect(WindowHandle window) override {
        RECT found{};
        const auto outcome = ask<bool>([&] { return ::GetWindowRect(to<HWND>(window), &found); });
        return {{found.left, found.top, found.right, found.bottom}, outcome.error};
    }

    Outcome<DeviceContext> GetDC(WindowHandle window) override {
        return ask<DeviceContext>([&] { return ::GetDC(to<HWND>(window)); });
    }

    Outcome<DeviceContext> GetWindowDC(WindowHandle window) override {
        return ask<DeviceContext>([&] { return ::GetWindowDC(to<HWND>(window)); });
    }

    bool ReleaseDC(WindowHandle window, DeviceContext context) override {
        return ::ReleaseDC(to<HWND>(window), to<HDC>(context)) != 0;
    }

    // ---- Device contexts and what is selected into them

    Outcome<DeviceContext> CreateCompatibleDC(DeviceContext context) override {
        return ask<DeviceContext>([&] { return ::CreateCompatibleDC(to<HDC>(context)); });
    }

    bool DeleteDC(DeviceContext context) override { return ::DeleteDC(to<HDC>(context)) != 0; }

    std::int32_t GetDeviceCaps(DeviceContext context, std::int32_t index) override {
        return ::GetDeviceCaps(to<HDC>(context), index);
    }

    Outcome<GraphicsObject> SelectObject(DeviceContext context, GraphicsObject object) override {
        return ask<GraphicsObject>([&] { return ::SelectObject(to<HDC>(context), to<HGDIOBJ>(object)); });
    }

    bool DeleteObject(GraphicsObject object) override { return ::DeleteObject(to<HGDIOBJ>(object)) != 0; }

    // ---- Bitmaps, palettes and pictures

    /// Windows itself gives a bitmap of one pixel for a size of 0.
    Outcome<GraphicsObject> CreateCompatibleBitmap(DeviceContext context, std::int32_t width,
                                                   std::int32_t height) override {
        if (width <= 0 || height <= 0) return {.error = SystemError::InvalidParameter};
        return ask<GraphicsObject>([&] { return ::CreateCompatibleBitmap(to<HDC>(context), width, height); });
    }

    Outcome<bool> BitBlt(DeviceContext target, std::int32_t x, std::int32_t y, std::int32_t width,
                         std::int32_t height, DeviceContext source, std::int32_t sourceX,
                         std::int32_t sourceY, std::uint32_t operation) override {
        return ask<bool>([&] {
            return ::BitBlt(to<HDC>(target), x, y, width, height, to<HDC>(source), sourceX, sourceY,
                            operation);
        });
    }

    Outcome<std::vector<PaletteEntry>> GetSystemPaletteEntries(DeviceContext context, std::uint32_t start,
                                                               std::uint32_t count) override {
        std::vector<PaletteEntry> entries(std::min(count, kMostSystemEntries));
        const auto found = ask<UINT>([&] {
            return ::GetSystemPaletteEntries(to<HDC>(context), start, static_cast<UINT>(entries.size()),
                                             reinterpret_cast<PALETTEENTRY*>(entries.data()));
        });
        entries.resize(found.value);
        return {std::move(entries), found.error};
    }

    Outcome<GraphicsObject> CreatePalette(const LogicalPalette& palette) override {
        const std::vector<PaletteEntry>& entries = palette.entries;
        if (!std::in_range<WORD>(entries.size())) return {.error = SystemError::InvalidParameter};
        LOGPALETTE head{};
        head.palVersion = palette.version;
        head.palNumEntries = static_cast<WORD>(entries.size());
        std::vector<std::byte> record(sizeof head + entries.size() * sizeof(PaletteEntry));
        std::memcpy(record.data(), &head, sizeof head);
        std::ranges::copy(std::as_bytes(std::span(entries)),
                          record.begin() + offsetof(LOGPALETTE, palPalEntry));
        return ask<GraphicsObject>(
            [&] { return ::CreatePalette(reinterpret_cast<const LOGPALETTE*>(record.data())); });
    }

    Outcome<GraphicsObject> SelectPalette(DeviceContext context, GraphicsObject palette,
                                          bool background) override {
        return ask<GraphicsObject>(
            [&] { return ::SelectPalette(to<HDC>(context), to<HPALETTE>(palette), background); });
    }

    Outcome<std::uint32_t> RealizePalette(DeviceContext context) override {
        const auto changed = ask<std::uint32_t>([&] { return ::RealizePalette(to<HDC>(context)); });
        if (changed.value == GDI_ERROR) return {0, lastError()};
        return changed;
    }

    ObjectPointer OleCreatePictureIndirect(const PictureDescription& description, bool own) override {
        return makePicture(description, own);
    }

    // ---- Text

    GraphicsObject CreateFontIndirectA(const LogicalFont& font) override {
        const LOGFONTA described = record(font);
        return plain(::CreateFontIndirectA(&described));
    }

    std::uint32_t SetTextColor(DeviceContext context, std::uint32_t colour) override {
        return ::SetTextColor(to<HDC>(context), colour);
    }

    std::uint32_t SetTextAlign(DeviceContext context, std::uint32_t align) override {
        return ::SetTextAlign(to<HDC>(context), align);
    }

    bool TextOutA(DeviceContext context, std::int32_t x, std::int32_t y, const std::string& text) override {
        const std::string bytes = toAnsiWithLoss(text);
        return ::TextOutA(to<HDC>(context), x, y, bytes.data(), static_cast<int>(bytes.size())) != 0;
    }
};

}  // namespace

std::unique_ptr<Graphics> makeGraphics() { return std::make_unique<WindowsGraphics>(); }

}  // namespace t_genproc
