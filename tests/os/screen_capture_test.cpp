#include <gtest/gtest.h>

#include "host/memory_object.h"
#include "os/cAPIprocs.h"
#include "printing/cPrinter.h"
#include "runtime/errors.h"
#include "support/scripted_devices.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::Arguments, t_gencvf::MemoryObject;

struct CaptureTest : testing::Test, test::TestWorld, test::ScriptedDevices {
    CaptureTest() { system.platform.graphics = std::make_unique<test::ScriptedGraphics>(*this); }

    cAPIprocs apis{library};
};

const std::string kCaptured =
    "CreateCompatibleDC 100 50 CreateCompatibleBitmap 3 41 SelectObject 3 0 0 100 50 ";

TEST_F(CaptureTest, WindowsClientAreasAndPalettes) {
    struct Row {
        bool client;
        std::int32_t rasterCaps, paletteSize;
        std::string expected;
    };
    const std::string copied = "4 6 13369376 BitBlt 3 40 SelectObject ";
    const std::string palette =
        "0 GetSystemPaletteEntries 768 256 CreatePalette 42 0 SelectPalette RealizePalette ";
    const std::string beforePalette = kCaptured.substr(0, kCaptured.find("3 0 0"));
    const Row rows[] = {
        {true, 1, 0, "GetDC " + kCaptured + "1 " + copied + "DeleteDC 3 ReleaseDC 9 1 Picture 1 41 0 1 "},
        {false, 1, 256,
         "GetWindowDC " + kCaptured + "2 " + copied + "DeleteDC 3 ReleaseDC 9 2 Picture 1 41 0 1 "},
        {false, 256, 255,
         "GetWindowDC " + kCaptured + "2 " + copied + "DeleteDC 3 ReleaseDC 9 2 Picture 1 41 0 1 "},
        {false, 257, 256,
         "GetWindowDC " + beforePalette + palette + "3 0 0 100 50 2 " + copied +
             "43 0 SelectPalette DeleteDC 3 ReleaseDC 9 2 Picture 1 41 42 1 "},
    };
    for (const Row& row : rows) {
        calls.clear();
        caps = {{DeviceCaps::RasterCaps, row.rasterCaps}, {DeviceCaps::SizePalette, row.paletteSize}};
        apis.CaptureWindow(9, row.client, 4, 6, 100, 50);
        EXPECT_EQ(calls, row.expected);
    }
}

TEST_F(CaptureTest, EachFailureNamesItsCall) {
    caps = {{DeviceCaps::RasterCaps, 256}, {DeviceCaps::SizePalette, 256}};
    const std::string name = "(Class Module) cAPIprocs::Function CaptureWindow";
    prog.errorLogBrief = true;
    for (const std::string call :
         {"GetDC", "CreateCompatibleDC", "CreateCompatibleBitmap", "SelectObject", "GetSystemPaletteEntries",
          "CreatePalette", "SelectPalette", "RealizePalette", "BitBlt"}) {
        for (const bool hasReason : {true, false}) {
            calls.clear();
            failing = call;
            reason = hasReason ? SystemError::InvalidParameter : SystemError::Success;
            const std::string description = hasReason ? name + " in " + call + " DLL function call" : name;
            try {
                apis.CaptureWindow(9, true, 4, 6, 100, 50);
                ADD_FAILURE() << call;
            } catch (const RuntimeError& error) {
                EXPECT_EQ(error.number(), hasReason ? 17 : 5);
                EXPECT_EQ(error.source(), name);
                EXPECT_EQ(error.description(), description);
            }
            EXPECT_TRUE(calls.ends_with(call + ' ')) << calls;  // nothing is released
            EXPECT_TRUE(system.read(path("t_eveml")).ends_with(" : " + description + "\r\n"));
        }
    }
    EXPECT_EQ(reports, "");
}

TEST_F(CaptureTest, FormsAndTheActiveWindow) {
    caps = {{DeviceCaps::RasterCaps, 1}};
    form->add("hWnd", 9).add("Width", 1500).add("Height", 750);
    for (const char* scale : {"ScaleX", "ScaleY"}) {
        form->addMethod(scale, [](Arguments arguments) -> Variant {
            EXPECT_EQ(toInt32(arguments[1]), 1);
            EXPECT_EQ(toInt32(arguments[2]), 3);
            return toDouble(arguments[0]) / 15;
        });
    }
    apis.CapturePicture(form);
    const std::string ofForm = calls;
    EXPECT_TRUE(ofForm.starts_with("GetWindowDC " + kCaptured + "2 0 0 ")) << ofForm;

    calls.clear();
    cPrinter(library).CaptureActiveWindow();
    EXPECT_EQ(calls.substr(0, calls.find(" ReleaseDC")), ofForm.substr(0, ofForm.find(" ReleaseDC")));
    EXPECT_TRUE(calls.ends_with("ReleaseDC 5 2 Picture 1 41 0 1 ")) << calls;

    failing = "BitBlt";
    EXPECT_EQ(test::failureOf([&] { cPrinter(library).CaptureActiveWindow(); }),
              "17 (Class Module) cPrinter::Function CaptureActiveWindow");
}

}  // namespace
}  // namespace t_genproc
