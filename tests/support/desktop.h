/// Windows of a known look, on the desktop of the tests.
#pragma once

#include <array>
#include <filesystem>
#include <vector>

#include "platform/platform.h"

namespace t_genproc::test {

/// Colours are 0xRRGGBB.
struct Image {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<std::uint32_t> pixels{};  // row by row
};
/// A PNG file, as another library reads it.
Image readPng(const std::filesystem::path& file);

/// Puts the graphics service of the desktop into `platform`.
class Desktop {
   public:
    explicit Desktop(Platform& platform);
    /// How many contexts and objects this process has.
    std::size_t count() const;

   private:
    std::shared_ptr<void> shared_;
};

/// A window of kWidth by kHeight pixels in eight colours, with a frame of one colour around it.
class TestWindow {
   public:
    static constexpr std::int32_t kWidth = 60;
    static constexpr std::int32_t kHeight = 40;
    static constexpr std::uint32_t kFrameColour = 0xFFFF00;
    static const Rectangle
        kInside;                ///< from the frame's corner; below and beside it the frame is as on the left
    static const int kScreens;  ///< of the desktop

    static constexpr std::array<std::uint32_t, 8> kColours{0,        0xFF,     0xFF00,   0xFFFF,
                                                           0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
    static std::uint32_t colour(std::int64_t x, std::int64_t y) {
        return kColours[static_cast<std::size_t>(x * x / 3 + y * y / 5 + x * y) % 8];
    }

    explicit TestWindow(int screen = 0);
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow() { close(); }

    WindowHandle handle() const { return window_; }
    void moveTo(std::int32_t left, std::int32_t top);
    /// Gives it the keyboard, or has the window manager call it active, where these are two things.
    void activate(bool byManager);
    void hide();
    void close();

   private:
    WindowHandle window_ = 0;
    WindowHandle frame_ = 0;
};

}  // namespace t_genproc::test
