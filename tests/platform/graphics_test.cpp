#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "host/object.h"
#include "platform/picture.h"
#include "support/desktop.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kBitmap = 80;  // larger than the window in both directions

struct Copy {
    bool whole = false;
    std::int32_t x = 0, y = 0, width = 0, height = 0, sourceX = 0, sourceY = 0;
    const char* deviation = "";
};

const Copy kCopies[]{
    {false, 0, 0, kBitmap, kBitmap, 0, 0},
    {true, 0, 0, kBitmap, kBitmap, 0, 0},
    {false, 3, 5, 20, 10, 7, 9},
    {true, 10, 10, 30, 30, -12, -7},  // partly outside
    {false, 40, 40, 60, 60, 50, 30},
    {false, -5, -6, 30, 30, 2, 3},
    {false, 0, 0, 1, 1, 59, 39},
    {false, 0, 0, 0, 9, 0, 0},
    {true, 0, 0, kBitmap, kBitmap, 80, 0},  // nothing of it
    {false, 1, 2, kMost, kMost, 3, 4, "Wine: numbers overflow"},
    {false, 0, 0, kMost, kMost, kMost, kMost},
    {true, kMost, 0, 9, 9, kLeast, 0},
    {true, kLeast, kLeast, kMost, kMost, kLeast, kLeast},
};

bool isIn(const Rectangle& area, std::int64_t x, std::int64_t y) {
    return x >= area.left && x < area.right && y >= area.top && y < area.bottom;
}

/// What the copy makes of a black pixel, from a window whose frame is at `left`, `top` of the screen. Windows
/// may also show the frame around what is asked for, and what is beyond the edge of the screen: no value.
std::optional<std::uint32_t> expected(const Copy& copy, std::int32_t left, std::int32_t top,
                                      std::int64_t column, std::int64_t row) {
    const Rectangle inside = TestWindow::kInside;
    const Rectangle whole{0, 0, inside.right + inside.left, inside.bottom + inside.left};
    column -= copy.x;
    row -= copy.y;
    if (!isIn({0, 0, copy.width, copy.height}, column, row)) return 0;
    column += std::int64_t{copy.sourceX} + (copy.whole ? 0 : inside.left);  // from the frame's corner
    row += std::int64_t{copy.sourceY} + (copy.whole ? 0 : inside.top);
    const bool isOnScreen = column + left >= 0 && row + top >= 0;
    const bool isFrame = isIn(whole, column, row) && !isIn(inside, column, row);
    if (!isOnScreen || (isFrame && !copy.whole)) {
        return systemName() == "portable" ? std::optional(0U) : std::nullopt;
    }
    if (isFrame) return TestWindow::kFrameColour;
    return isIn(inside, column, row) ? TestWindow::colour(column - inside.left, row - inside.top) : 0;
}

class GraphicsContract : public testing::Test {
   protected:
    PlatformUnderTest system_;
    Desktop desktop_{system_.platform};
    Graphics& graphics_ = *system_.platform.graphics;
    DeviceContext screen_ = graphics_.GetDC(0).value;

    ~GraphicsContract() override { EXPECT_TRUE(graphics_.ReleaseDC(0, screen_)); }

    Outcome<bool> blit(DeviceContext source, DeviceContext target, const Copy& copy) {
        return graphics_.BitBlt(target, copy.x, copy.y, copy.width, copy.height, source, copy.sourceX,
                                copy.sourceY, kSourceCopy);
    }

    /// A picture of a new bitmap that `draw` has drawn on.
    template <class Draw>
    ObjectPointer picture(DeviceContext like, std::int32_t width, std::int32_t height, const Draw& draw) {
        const DeviceContext memory = graphics_.CreateCompatibleDC(like).value;
        const GraphicsObject bitmap = graphics_.CreateCompatibleBitmap(like, width, height).value;
        const GraphicsObject before = graphics_.SelectObject(memory, bitmap).value;
        EXPECT_TRUE(memory != 0 && bitmap != 0 && before != 0);
        draw(memory);
        EXPECT_EQ(graphics_.SelectObject(memory, before).value, bitmap);
        EXPECT_TRUE(graphics_.DeleteDC(memory));
        return graphics_.OleCreatePictureIndirect({.bitmap = bitmap}, true);
    }

    Image imageOf(const ObjectPointer& picture) {
        dynamic_cast<Picture&>(*picture).saveAsPng(system_.path("a.png"));
        return readPng(system_.onDisk("a.png"));
    }

    /// How many pixels are not as expected.
    int wrongPixels(const TestWindow& window, const Copy& copy, std::int32_t left, std::int32_t top) {
        const WindowHandle handle = window.handle();
        const DeviceContext source =
            (copy.whole ? graphics_.GetWindowDC(handle) : graphics_.GetDC(handle)).value;
        const Image image = imageOf(picture(source, kBitmap, kBitmap, [&](DeviceContext memory) {
            EXPECT_TRUE(blit(source, memory, copy));
        }));
        EXPECT_TRUE(graphics_.ReleaseDC(handle, source));
        int wrong = 0;
        for (std::int32_t i = 0; i < kBitmap * kBitmap; ++i) {
            const std::uint32_t pixel = image.pixels.at(static_cast<std::size_t>(i));
            if (expected(copy, left, top, i % kBitmap, i / kBitmap).value_or(pixel) != pixel) ++wrong;
        }
        return wrong;
    }
};

TEST_F(GraphicsContract, CopiesWindowsPixelByPixel) {
    for (int screen = 0; screen < TestWindow::kScreens; ++screen) {
        TestWindow window(screen);
        for (const std::int32_t left : {30, -10}) {
            window.moveTo(left, left / 2);
            wrongPixels(window, {}, 0, 0);  // keeps objects for later, on Windows
            const std::size_t objects = desktop_.count();
            for (const Copy& copy : kCopies) {
                if (isLeftOut(copy.deviation)) continue;
                EXPECT_EQ(wrongPixels(window, copy, left, left / 2), 0)
                    << "screen " << screen << ", left " << left << ", copy " << &copy - kCopies;
            }
            EXPECT_EQ(desktop_.count(), objects);
        }
    }
}

TEST_F(GraphicsContract, FindsWindows) {
    TestWindow window;
    const TestWindow other;
    window.moveTo(30, 20);
    const auto [left, top, right, bottom] = TestWindow::kInside;
    const Rectangle whole{30, 20, 30 + right + left, 20 + bottom + left};
    EXPECT_EQ(graphics_.GetWindowRect(window.handle()).value, whole);
    for (const bool byManager : {false, true}) {
        window.activate(byManager);
        EXPECT_EQ(graphics_.GetWindowRect(graphics_.GetForegroundWindow()).value, whole) << byManager;
    }
}

TEST_F(GraphicsContract, MakesPicturesThatTellOfThemselves) {
    const std::int32_t perInch = graphics_.GetDeviceCaps(screen_, DeviceCaps::LogPixelsX);
    EXPECT_EQ(graphics_.GetDeviceCaps(screen_, DeviceCaps::RasterCaps) & kRasterPalette, 0);
    ObjectPointer made = picture(screen_, 60, 1, [](DeviceContext) {});
    const GraphicsObject bitmap = toInt32(made->get("Handle"));
    EXPECT_EQ(toText(made->get("hpal")) + toText(made->get("Type")), "01");
    EXPECT_EQ(toInt32(made->get("Width")), std::lround(60 * 2540.0 / perInch));
    EXPECT_EQ(toInt32(made->get("Height")), std::lround(2540.0 / perInch));
    EXPECT_EQ(errorOf([&] { made->let("Handle", 1); }), 383);
    EXPECT_EQ(errorOf([&] { made->get("Depth"); }), 438);
    EXPECT_EQ(errorOf([&] { dynamic_cast<Picture&>(*made).saveAsPng(system_.path("none\\a.png")); }), 76);
    made.reset();
    EXPECT_FALSE(graphics_.DeleteObject(bitmap));  // it went with its picture
}

TEST_F(GraphicsContract, DrawsTextsInALinesHeight) {
    const std::size_t objects = desktop_.count();
    const GraphicsObject font =
        graphics_.CreateFontIndirectA({.height = 40, .weight = 700, .faceName = "Arial"});
    for (const bool toTheLeft : {false, true}) {
        const std::uint32_t align = toTheLeft ? TextAlign::Right | TextAlign::Bottom : TextAlign::LeftTop;
        const Image image = imageOf(picture(screen_, 200, 100, [&](DeviceContext memory) {
            const GraphicsObject usual = graphics_.SelectObject(memory, font).value;
            EXPECT_EQ(graphics_.SetTextColor(memory, 0x0000FF), 0U);  // red
            EXPECT_EQ(graphics_.SetTextAlign(memory, align), TextAlign::LeftTop);
            EXPECT_TRUE(graphics_.TextOutA(memory, 100, 50, "EE"));
            EXPECT_EQ(graphics_.SelectObject(memory, usual).value, font);
        }));
        Rectangle ink{200, 100, 0, 0};
        for (std::int32_t i = 0; i < 200 * 100; ++i) {
            if (image.pixels.at(static_cast<std::size_t>(i)) != 0xFF0000) continue;
            ink = {std::min(ink.left, i % 200), std::min(ink.top, i / 200), std::max(ink.right, i % 200 + 1),
                   std::max(ink.bottom, i / 200 + 1)};
        }
        const Rectangle room = toTheLeft ? Rectangle{0, 10, 100, 50} : Rectangle{100, 50, 200, 90};
        EXPECT_TRUE(isIn(room, ink.left, ink.top) && isIn(room, ink.right, ink.bottom)) << toTheLeft;
        EXPECT_LE(toTheLeft ? 100 - ink.right : ink.left - 100, 6);
        EXPECT_NEAR(ink.bottom - ink.top, 25, 3);  // capital letters
    }
    EXPECT_TRUE(graphics_.DeleteObject(font));
    EXPECT_EQ(desktop_.count(), objects);
}

TEST_F(GraphicsContract, RefusesWhatIsNotThere) {
    for (const std::int32_t size : {0, -1, kLeast}) {
        EXPECT_EQ(graphics_.CreateCompatibleBitmap(screen_, size, 5).error, SystemError::InvalidParameter);
        EXPECT_EQ(graphics_.CreateCompatibleBitmap(screen_, 5, size).error, SystemError::InvalidParameter);
    }
    EXPECT_EQ(graphics_.CreateCompatibleBitmap(screen_, kMost, kMost).value, 0);
    for (const std::intptr_t none :
         {std::intptr_t{-2}, std::intptr_t{0x7FFF1234}, std::numeric_limits<std::intptr_t>::min()}) {
        EXPECT_EQ(graphics_.GetDC(none).value + graphics_.GetWindowDC(none).value, 0);
        EXPECT_EQ(graphics_.GetWindowRect(none).value, Rectangle{});
        EXPECT_EQ(graphics_.CreateCompatibleDC(none).value, 0);
        EXPECT_EQ(graphics_.CreateCompatibleBitmap(none, 5, 5).value, 0);
        EXPECT_EQ(graphics_.SelectObject(none, none).value + graphics_.SelectObject(screen_, none).value, 0);
        EXPECT_EQ(graphics_.GetDeviceCaps(none, DeviceCaps::LogPixelsX), 0);
        EXPECT_FALSE(graphics_.DeleteDC(none) || graphics_.DeleteObject(none));
        EXPECT_FALSE(graphics_.TextOutA(none, 0, 0, "a"));
        EXPECT_FALSE(blit(none, screen_, {}).value || blit(screen_, none, {}).value);
        const ObjectPointer made = graphics_.OleCreatePictureIndirect({.bitmap = none}, true);
        EXPECT_TRUE(made == nullptr || errorOf([&] { imageOf(made); }) != 0);
    }
    TestWindow window;
    const DeviceContext context = graphics_.GetDC(window.handle()).value;
    picture(screen_, 9, 9, [&](DeviceContext memory) {
        window.hide();  // Windows copies nothing of it
        EXPECT_NE(blit(context, memory, {.width = 9, .height = 9}).value, systemName() == "portable");
        window.close();
        EXPECT_FALSE(blit(context, memory, {.width = 9, .height = 9}).value);
    });
    EXPECT_EQ(graphics_.GetDC(window.handle()).value, 0);
}

}  // namespace
}  // namespace t_genproc::test
