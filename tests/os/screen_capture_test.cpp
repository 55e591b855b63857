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

/// What is asked of the window's context and of the one in memory; `inBetween` where there is a palette.
std::string captured(int context, const std::string& from, const std::string& inBetween = "") {
    const std::string source = std::to_string(context) + ' ';
    return "CreateCompatibleDC " + source + "CreateCompatibleBitmap " + source + "100 50 SelectObject 3 41 " +
           inBetween + "BitBlt 3 0 0 100 50 " + source + from + " 13369376 SelectObject 3 40 ";
}

TEST_F(CaptureTest, WindowsClientAreasAndPalettes) {
    struct Row {
        bool client;
        std::int32_t rasterCaps, paletteSize;
        std::string expected;
    };
    const std::string palette =
        "GetSystemPaletteEntries 2 0 CreatePalette 768 256 SelectPalette 3 42 0 RealizePalette 3 ";
    const std::string whole =
        "GetWindowDC 9 " + captured(2, "4 6") + "DeleteDC 3 ReleaseDC 9 2 Picture 1 41 0 1 ";
    const Row rows[] = {
        {true, 1, 0, "GetDC 9 " + captured(1, "4 6") + "DeleteDC 3 ReleaseDC 9 1 Picture 1 41 0 1 "},
        {false, 1, 256, whole},
        {false, 256, 255, whole},
        {false, 257, 256,
         "GetWindowDC 9 " + captured(2, "4 6", palette) +
             "SelectPalette 3 43 0 DeleteDC 3 ReleaseDC 9 2 Picture 1 41 42 1 "},
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
    const auto expectFailure = [&](int number, const std::string& description) {
        calls.clear();
        try {
            apis.CaptureWindow(9, true, 4, 6, 100, 50);
            ADD_FAILURE() << description;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), number);
            EXPECT_EQ(error.source(), name);
            EXPECT_EQ(error.description(), description);
        }
        EXPECT_EQ(calls.find("DeleteDC"), std::string::npos);  // nothing is released
        EXPECT_TRUE(system.read(path("t_eveml")).ends_with(" : " + description + "\r\n"));
    };
    for (const char* call :
         {"GetDC", "CreateCompatibleDC", "CreateCompatibleBitmap", "SelectObject", "GetSystemPaletteEntries",
          "CreatePalette", "SelectPalette", "RealizePalette", "BitBlt"}) {
        failing = call;
        expectFailure(17, name + " in " + call + " DLL function call");
    }
    reason = SystemError::Success;
    expectFailure(5, name);
    struct NoMemory : test::ScriptedGraphics {
        using ScriptedGraphics::ScriptedGraphics;
        Outcome<DeviceContext> GetDC(WindowHandle) override { throw std::bad_alloc(); }
    };
    system.platform.graphics = std::make_unique<NoMemory>(*this);
    expectFailure(7, name);
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
    EXPECT_TRUE(ofForm.starts_with("GetWindowDC 9 " + captured(2, "0 0"))) << ofForm;

    calls.clear();
    cPrinter(library).CaptureActiveWindow();
    EXPECT_EQ(calls, "GetWindowDC 5 " + captured(2, "0 0") + "DeleteDC 3 ReleaseDC 5 2 Picture 1 41 0 1 ");

    failing = "BitBlt";
    EXPECT_EQ(test::failureOf([&] { cPrinter(library).CaptureActiveWindow(); }),
              "17 (Class Module) cPrinter::Function CaptureActiveWindow");
}

}  // namespace
}  // namespace t_genproc
