#include "frame/GenUtil.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "os/cAPIprocs.h"
#include "platform/graphics.h"
#include "runtime/errors.h"

namespace t_genproc {
namespace {

constexpr std::string_view kCaptureWindow = "(Class Module) cAPIprocs::Function CaptureWindow";
constexpr std::int32_t kPaletteSize = 256;

// Units of ScaleX and ScaleY.
constexpr std::int16_t kTwips = 1;
constexpr std::int16_t kPixels = 3;

/// A call of the system that gave nothing.
struct FailedCall {
    std::string_view name;
    SystemError reason;
};

template <class Value>
Value given(std::string_view call, const Outcome<Value>& outcome) {
    if (!outcome || outcome.value == Value{}) throw FailedCall{call, outcome.error};
    return outcome.value;
}

struct Capture {
    GraphicsObject bitmap = 0;
    GraphicsObject palette = 0;
};

/// Where a call fails, the handles obtained until then are left as they are.
Capture capture(Graphics& graphics, WindowHandle window, bool client, std::int32_t left, std::int32_t top,
                std::int32_t width, std::int32_t height) {
    const DeviceContext source =
        client ? given("GetDC", graphics.GetDC(window)) : given("GetWindowDC", graphics.GetWindowDC(window));
    const DeviceContext memory = given("CreateCompatibleDC", graphics.CreateCompatibleDC(source));
    Capture captured{given("CreateCompatibleBitmap", graphics.CreateCompatibleBitmap(source, width, height))};
    const GraphicsObject previous = given("SelectObject", graphics.SelectObject(memory, captured.bitmap));

    const bool hasPalette = (graphics.GetDeviceCaps(source, DeviceCaps::RasterCaps) & kRasterPalette) != 0 &&
                            graphics.GetDeviceCaps(source, DeviceCaps::SizePalette) == kPaletteSize;
    GraphicsObject previousPalette = 0;
    if (hasPalette) {
        auto entries =
            given("GetSystemPaletteEntries", graphics.GetSystemPaletteEntries(source, 0, kPaletteSize));
        entries.resize(kPaletteSize);
        captured.palette = given("CreatePalette", graphics.CreatePalette({.entries = entries}));
        previousPalette = given("SelectPalette", graphics.SelectPalette(memory, captured.palette, false));
        given("RealizePalette", graphics.RealizePalette(memory));
    }

    given("BitBlt", graphics.BitBlt(memory, 0, 0, width, height, source, left, top, kSourceCopy));
    given("SelectObject", graphics.SelectObject(memory, previous));
    if (hasPalette) given("SelectPalette", graphics.SelectPalette(memory, previousPalette, false));

    graphics.DeleteDC(memory);
    graphics.ReleaseDC(window, source);
    return captured;
}

void log(Library& library, const std::string& message) {
    const t_gencvf::ProgramState* const state = library.programState();
    if (state != nullptr) return GenUtil::WriteDLLerror(library, message, *state);
    t_gencvf::ProgramState unknown;
    unknown.tempPath = cAPIprocs(library).GetWindowsTempDir();
    GenUtil::WriteDLLerror(library, message, unknown);
}

/// Logs the failure of CaptureWindow and raises it. The number 0 stands for error 5.
[[noreturn]] void fail(Library& library, std::int32_t number, const std::string& description) {
    try {
        log(library, description);
    } catch (...) {  // a log that fails must not hide what it was told
    }
    if (number == 0) number = static_cast<std::int32_t>(ErrorNumber::InvalidProcedureCall);
    throw RuntimeError(number, kCaptureWindow, description);
}

}  // namespace

// Not under the guard of the other procedures: its error keeps a description of its own.
ObjectPointer cAPIprocs::CaptureWindow(WindowHandle hWndSrc, bool Client, std::int32_t LeftSrc,
                                       std::int32_t TopSrc, std::int32_t WidthSrc, std::int32_t HeightSrc) {
    std::string description(kCaptureWindow);
    try {
        const Capture captured =
            capture(*library_.platform().graphics, hWndSrc, Client, LeftSrc, TopSrc, WidthSrc, HeightSrc);
        return CreateBitmapPicture(captured.bitmap, captured.palette);
    } catch (const FailedCall& call) {
        if (call.reason == SystemError::Success) fail(library_, 0, description);
        description.append(" in ").append(call.name).append(" DLL function call");
        fail(library_, static_cast<std::int32_t>(ErrorNumber::CannotPerformOperation), description);
    } catch (...) {
        fail(library_, guard::currentNumber(), description);
    }
}

ObjectPointer cAPIprocs::CapturePicture(const ObjectPointer& sourceObject) {
    return procedure(library_, "(Class Module) cAPIprocs::Function CapturePicture", [&] {
        const t_gencvf::LateBound source{sourceObject};
        const std::int32_t width = toInt32(source["ScaleX"].call(source["Width"].get(), kTwips, kPixels));
        const std::int32_t height = toInt32(source["ScaleY"].call(source["Height"].get(), kTwips, kPixels));
        return CaptureWindow(toInt32(source["hWnd"].get()), false, 0, 0, width, height);
    });
}

ObjectPointer cAPIprocs::CreateBitmapPicture(GraphicsObject bitmap, GraphicsObject palette) {
    return procedure(library_, "(Class Module) cAPIprocs::Function CreateBitmapPicture", [&] {
        return library_.platform().graphics->OleCreatePictureIndirect(
            {.pictureType = kPictureTypeBitmap, .bitmap = bitmap, .palette = palette}, true);
    });
}

}  // namespace t_genproc
