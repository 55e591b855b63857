/// Device contexts, what is drawn on them, and pictures of windows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/object.h"
#include "platform/system_error.h"
#include "platform/window_handle.h"

namespace t_genproc {

using DeviceContext = std::intptr_t;   ///< of a printer, a window or memory; 0 is none
using GraphicsObject = std::intptr_t;  ///< a font, bitmap or palette; 0 is none

struct Rectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;   ///< behind the last column
    std::int32_t bottom = 0;  ///< below the last row

    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

/// What GetDeviceCaps tells of a device.
namespace DeviceCaps {
inline constexpr std::int32_t BitsPerPixel = 12;
inline constexpr std::int32_t RasterCaps = 38;
inline constexpr std::int32_t LogPixelsX = 88;  ///< pixels per inch
inline constexpr std::int32_t LogPixelsY = 90;
inline constexpr std::int32_t SizePalette = 104;    ///< entries
inline constexpr std::int32_t PhysicalWidth = 110;  ///< of the paper, pixels
inline constexpr std::int32_t PhysicalHeight = 111;
inline constexpr std::int32_t PhysicalOffsetX = 112;  ///< from the paper's edge to where printing can start
inline constexpr std::int32_t PhysicalOffsetY = 113;
}  // namespace DeviceCaps

inline constexpr std::int32_t kRasterPalette = 256;  // RC_PALETTE, a bit of RasterCaps

/// How a text lies to its position; one of each direction, added up.
namespace TextAlign {
inline constexpr std::uint32_t LeftTop = 0;
inline constexpr std::uint32_t Right = 2;
inline constexpr std::uint32_t Bottom = 8;
}  // namespace TextAlign

/// A font; what is left 0 is the system's choice.
struct LogicalFont {
    std::int32_t height = 0;  ///< of a line, in device units; below 0 that of the letters alone
    std::int32_t weight = 0;  ///< 400 is normal, 700 bold
    std::uint8_t charSet = 0;
    std::uint8_t quality = 0;
    std::string faceName{};
};

struct PaletteEntry {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t flags = 0;

    friend bool operator==(const PaletteEntry&, const PaletteEntry&) = default;
};

struct LogicalPalette {
    std::uint16_t version = 0x300;
    std::vector<PaletteEntry> entries{};
};

inline constexpr std::uint32_t kPictureTypeBitmap = 1;    // PICTYPE_BITMAP
inline constexpr std::uint32_t kSourceCopy = 0x00CC0020;  // SRCCOPY

struct PictureDescription {
    std::uint32_t pictureType = kPictureTypeBitmap;
    GraphicsObject bitmap = 0;
    GraphicsObject palette = 0;
};

/// Where a call gives an Outcome, a value of 0 (of false, of no entries) says that it failed; the code may be
/// Success even so, where the system gives no reason.
class Graphics {
   public:
    virtual ~Graphics() = default;

    // ---- Windows

    /// The window that the user works with; 0: none.
    virtual WindowHandle GetForegroundWindow() = 0;
    /// The window with its frame, in pixels of the screen.
    virtual Outcome<Rectangle> GetWindowRect(WindowHandle window) = 0;
    virtual Outcome<DeviceContext> GetDC(WindowHandle window) = 0;        ///< the window without its frame
    virtual Outcome<DeviceContext> GetWindowDC(WindowHandle window) = 0;  ///< with it
    virtual bool ReleaseDC(WindowHandle window, DeviceContext context) = 0;

    // ---- Device contexts and what is selected into them

    /// A context in memory with the colours of `context`; it has no pixels until a bitmap is selected into
    /// it.
    virtual Outcome<DeviceContext> CreateCompatibleDC(DeviceContext context) = 0;
    virtual bool DeleteDC(DeviceContext context) = 0;
    virtual std::int32_t GetDeviceCaps(DeviceContext context, std::int32_t index) = 0;  ///< 0 of no context
    /// Selects a font or bitmap; gives what was selected before.
    virtual Outcome<GraphicsObject> SelectObject(DeviceContext context, GraphicsObject object) = 0;
    virtual bool DeleteObject(GraphicsObject object) = 0;

    // ---- Bitmaps, palettes and pictures

    /// Fails with InvalidParameter for a width or height of 0 or below.
    virtual Outcome<GraphicsObject> CreateCompatibleBitmap(DeviceContext context, std::int32_t width,
                                                           std::int32_t height) = 0;
    /// Copies a rectangle of pixels into `target`, at `x`, `y`. What is outside the source stays as it was,
    /// where the system does not fill it.
    virtual Outcome<bool> BitBlt(DeviceContext target, std::int32_t x, std::int32_t y, std::int32_t width,
                                 std::int32_t height, DeviceContext source, std::int32_t sourceX,
                                 std::int32_t sourceY, std::uint32_t operation) = 0;

    /// As many entries as there are, `count` at most.
    virtual Outcome<std::vector<PaletteEntry>> GetSystemPaletteEntries(DeviceContext context,
                                                                       std::uint32_t start,
                                                                       std::uint32_t count) = 0;
    virtual Outcome<GraphicsObject> CreatePalette(const LogicalPalette& palette) = 0;
    /// Gives the palette that was selected before.
    virtual Outcome<GraphicsObject> SelectPalette(DeviceContext context, GraphicsObject palette,
                                                  bool background) = 0;
    virtual Outcome<std::uint32_t> RealizePalette(DeviceContext context) = 0;  ///< how many entries changed

    /// A picture object (picture.h) of a bitmap and its palette, for IDispatch. With `own` they are deleted
    /// with it. Nothing where it cannot be made.
    virtual ObjectPointer OleCreatePictureIndirect(const PictureDescription& description, bool own) = 0;

    // ---- Text

    virtual GraphicsObject CreateFontIndirectA(const LogicalFont& font) = 0;
    virtual std::uint32_t SetTextColor(DeviceContext context, std::uint32_t colour) = 0;  ///< 0x00BBGGRR
    virtual std::uint32_t SetTextAlign(DeviceContext context, std::uint32_t align) = 0;
    virtual bool TextOutA(DeviceContext context, std::int32_t x, std::int32_t y, const std::string& text) = 0;
};

}  // namespace t_genproc
