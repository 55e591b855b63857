#include "printing/cPrinter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "host/memory_object.h"
#include "runtime/errors.h"
#include "support/scripted_devices.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::MemoryObject;

struct PrinterTest : testing::Test, test::TestWorld, test::ScriptedDevices {
    PrinterTest() {
        system.platform.printing = std::make_unique<test::ScriptedPrinting>(*this);
        system.platform.graphics = std::make_unique<test::ScriptedGraphics>(*this);
        caps = {{DeviceCaps::LogPixelsX, 600},      {DeviceCaps::LogPixelsY, 300},
                {DeviceCaps::PhysicalWidth, 4960},  {DeviceCaps::PhysicalHeight, 3508},
                {DeviceCaps::PhysicalOffsetX, 100}, {DeviceCaps::PhysicalOffsetY, 60}};
        onPrintDialog = [](PrintDialog& dialog) {
            dialog.devMode = 11;
            dialog.devNames = 12;
            return kDialogConfirmed;
        };
        blocks[11].assign(156, std::byte{1});
        DeviceNames chosen;
        chosen.assign("driver", "Plotter", "LPT1:");
        blocks[12].assign(chosen.bytes().begin(), chosen.bytes().end());
        control->add("hWnd", 21).add("SelStart", 3).add("SelLength", 0).add("Text", "0123456789");
    }
    ~PrinterTest() override { EXPECT_EQ(locked, 0); }

    std::string takeCalls() { return std::exchange(calls, {}); }

    std::shared_ptr<MemoryObject> control = std::make_shared<MemoryObject>("RichTextBox");
};

TEST_F(PrinterTest, ANewPrinterIsEmpty) {
    cPrinter printer(library);
    EXPECT_EQ(printer.DeviceName() + printer.OutputName(), "");
    EXPECT_EQ(printer.Orientation(), 0);
    EXPECT_EQ(printer.colour(), 0);
    EXPECT_EQ(printer.PixelsPerMMX() + printer.PixelsPerMMY(), 0.0F);
    bool cancelled = false;
    printer.PageSetup(5, 3, false, cancelled, true);
    EXPECT_EQ(takeCalls(), "PageSetupDlg 5 3 2000 2000 ");
}

TEST_F(PrinterTest, BlocksAreKeptUpToTheirSizes) {
    for (const std::size_t size : {0U, 1U, 121U, 122U, 123U, 207U, 208U, 209U, 10000U}) {
        cPrinter printer(library);
        const auto fillBlocks = [&](char character) {
            for (const MemoryBlock block : {11, 12})
                blocks[block].assign(size, static_cast<std::byte>(character));
        };
        fillBlocks('a');
        printer.ShowPrintDlg(0, 0);
        fillBlocks('b');
        onPrintDialog = [&](PrintDialog& dialog) {
            for (const auto& [block, kept] : {std::pair{dialog.devMode, 122U}, {dialog.devNames, 208U}}) {
                const std::string bytes(reinterpret_cast<const char*>(blocks[block].data()), size);
                const std::size_t changed = std::min<std::size_t>(size, kept);
                EXPECT_EQ(bytes, std::string(changed, 'a') + std::string(size - changed, 'b'));
            }
            fillBlocks('c');
            return 0;
        };
        printer.ShowPrintDlg(0, 0);
        printer.hdc();
        const std::size_t kept = std::min<std::size_t>(size, 122);
        EXPECT_EQ(openedSettings, std::string(kept, 'a') + std::string(122 - kept, '\0'));
        onPrintDialog = [](PrintDialog& dialog) {
            dialog.devMode = 11;
            dialog.devNames = 12;
            return kDialogConfirmed;
        };
    }
}

TEST_F(PrinterTest, NamesAreReadAtTheirOffsets) {
    struct Row {
        unsigned offset;
        std::size_t size;
        std::string expected;
    };
    const Row rows[] = {{0, 208, ""},
                        {4, 208, ""},
                        {8, 208, "abc"},
                        {10, 208, "c"},
                        {11, 208, ""},
                        {12, 208, std::string(196, 'x')},
                        {207, 208, "x"},
                        {208, 208, ""},
                        {65535, 10000, ""},
                        {12, 100, std::string(88, 'x')},
                        {12, 10000, std::string(196, 'x')},
                        {8, 3, ""}};
    for (const Row& row : rows) {
        blocks[12].assign(row.size, std::byte{'x'});
        const std::string_view start{"\0\0ddoo\0\0abc\0", 12};
        for (std::size_t i = 0; i < std::min(start.size(), row.size); ++i)
            blocks[12][i] = static_cast<std::byte>(start[i]);
        for (const std::size_t at : {2U, 4U}) {
            if (row.size <= at + 1) continue;
            blocks[12][at] = static_cast<std::byte>(row.offset & 255U);
            blocks[12][at + 1] = static_cast<std::byte>(row.offset >> 8U);
        }
        cPrinter printer(library);
        printer.ShowPrintDlg(0, 0);
        EXPECT_EQ(printer.DeviceName(), row.expected) << row.offset;
        EXPECT_EQ(printer.OutputName(), row.expected) << row.offset;
    }
}

TEST_F(PrinterTest, TheDeviceIsOpenedOnceWithWhatWasRequested) {
    {
        cPrinter printer(library);
        printer.Orientation(DMORIENT_LANDSCAPE);
        printer.colour(DMCOLOUR_MONOCHROME);
        EXPECT_EQ(printer.hdc() + printer.hdc(), 14);
        EXPECT_EQ(takeCalls(), "PrintDlg 0 1048576 0 0 0 0 CreateDC [Plotter] ");
        EXPECT_EQ(openedSettings.substr(40, 6), "\x01\x09\x01\x01\x02" + std::string(1, '\0'));
        EXPECT_EQ(openedSettings.substr(60, 2), "\x01" + std::string(1, '\0'));
        EXPECT_EQ(printer.Orientation() * 10 + printer.colour(), 22);
        EXPECT_FLOAT_EQ(printer.PixelsPerMMX(), 600 / 25.4F);
        EXPECT_FLOAT_EQ(printer.PixelsPerMMY(), 300 / 25.4F);

        bool cancelled = false;
        blocks[13].assign(156, std::byte{3});
        blocks[14] = blocks[12];
        onPageSetup = [](PageSetupDialog& dialog) {
            EXPECT_EQ(dialog.devMode * 100 + dialog.devNames, 1112);
            dialog.devMode = 13;
            dialog.devNames = 14;
            return kDialogConfirmed;
        };
        printer.PageSetup(5, 0x10F, true, cancelled, true);  // only PSD_DISABLEORIENTATION survives
        EXPECT_EQ(takeCalls(), "DeleteDC 7 PageSetupDlg 5 256 1500 1200 ");
        EXPECT_FALSE(cancelled);
        EXPECT_EQ(printer.Orientation(), 0x0303);

        onPageSetup = [this](PageSetupDialog&) { return blocks[13].assign(156, std::byte{4}), 0; };
        printer.PageSetup(5, 0, false, cancelled, true);
        EXPECT_TRUE(cancelled);
        EXPECT_EQ(printer.Orientation(), 0x0303);
        printer.PageSetup(5, 0, false, cancelled, false);
        EXPECT_EQ(printer.Orientation(), 0x0404);
        takeCalls();

        printer.hdc();
        onPrintDialog = [](PrintDialog& dialog) { return dialog.context = 8, kDialogConfirmed; };
        printer.ShowPrintDlg(0, PD_RETURNDC);
        EXPECT_EQ(takeCalls(), "CreateDC [Plotter] DeleteDC 7 PrintDlg 0 256 0 0 0 0 DeleteDC 8 ");
        printer.hdc();
        takeCalls();
    }
    EXPECT_EQ(takeCalls(), "DeleteDC 7 GlobalFree 13 GlobalFree 14 ");

    cPrinter printer(library);
    printer.colour(1 << 20);
    EXPECT_EQ(test::failureOf([&] { printer.hdc(); }), "6 (Class Module) cPrinter::Function hdc");
    printer.colour(DMCOLOUR_MONOCHROME);
    caps[DeviceCaps::LogPixelsY] = 0;
    EXPECT_EQ(test::failureOf([&] { printer.hdc(); }), "11 (Class Module) cPrinter::Function hdc");
    EXPECT_TRUE(calls.ends_with("DeleteDC 7 ")) << calls;
}

TEST_F(PrinterTest, RichTextPageByPage) {
    struct Row {
        int selected;
        std::uint32_t flagsBefore, flagsChosen;
        std::string project;
        std::function<std::intptr_t(const FormatRange&)> format;
        std::string expected;  // from the dialog to the end of the job, without fonts and alignments
        std::string failure;
    };
    const auto by = [](std::intptr_t step) {
        return [step](const FormatRange& range) { return range.firstCharacter + step; };
    };
    const std::string none = "none";
    const std::string start = "CreateDC [Plotter] StartDoc 7 19 Tavoru - Job [LPT1:] StartPage 7 ";
    const std::string next = "EndPage 7 StartPage 7 ";
    const std::string end = "EndPage 7 EndDoc 7 Format 21 ";
    const std::string text = "Text 4435 58 P7 ";
    const Row rows[] = {
        {0, 0, 4, "P7", by(6),
         "PrintDlg 0 1310732 1 65535 1 65535 " + start + "Format 21 0 -1 " + text + next + "Format 21 6 -1 " +
             text + end,
         none},
        {0, 0, 4, "", by(10), "PrintDlg 0 1310732 1 65535 1 65535 " + start + "Format 21 0 -1 " + end, none},
        {0, 0, 4, "", [](const FormatRange&) { return -1; },
         "PrintDlg 0 1310732 1 65535 1 65535 " + start + "Format 21 0 -1 " + end, none},
        {4, 1, 1, "", by(3),
         "PrintDlg 0 1310729 1 65535 1 65535 " + start + "Format 21 3 7 " + next + "Format 21 6 7 " + end,
         none},
        {4, 1, 0, "", by(9),
         "PrintDlg 0 1310729 1 65535 1 65535 " + start + "Format 21 0 -1 " + next + "Format 21 9 -1 " + end,
         none},
        {0, 0, 4, "",
         [](const FormatRange& range) {
             return std::min(range.firstCharacter, 5) + (range.firstCharacter == 0 ? 5 : -1);
         },
         "PrintDlg 0 1310732 1 65535 1 65535 " + start + "Format 21 0 -1 " + next + "Format 21 5 -1 " + end,
         "482 (Class Module) cPrinter::Sub PrintRTF"},
    };
    names.title = "Tavoru";
    for (const Row& row : rows) {
        cPrinter printer(library);
        onPrintDialog = [&](PrintDialog& dialog) {
            dialog.devMode = 11;
            dialog.devNames = 12;
            dialog.flags = row.flagsBefore;
            return kDialogConfirmed;
        };
        printer.ShowPrintDlg(0, 0);
        bool cancelled = false;
        onPageSetup = [](PageSetupDialog& dialog) {
            dialog.margin = {2000, 1900, 1800, 1700};
            return kDialogConfirmed;
        };
        printer.PageSetup(0, 0, false, cancelled, true);
        takeCalls();
        pointers.clear();
        onPrintDialog = [&](PrintDialog& dialog) { return dialog.flags = row.flagsChosen, kDialogConfirmed; };
        format = [&](const FormatRange& range) {
            EXPECT_EQ(range.area, (Rectangle{894, 789, 10644, 15586}));
            EXPECT_EQ(range.page, range.area);
            EXPECT_EQ(range.context + range.target, 14);
            return row.format(range);
        };
        control->add("SelLength", row.selected);
        DeviceContext context = 0;
        EXPECT_EQ(test::failureOf([&] { printer.PrintRTF(control, "Job", row.project, &context); }),
                  row.failure);
        EXPECT_EQ(context, 7);
        std::string made = takeCalls();
        EXPECT_NE(made.find("Font Arial 53 700 1 2 "), std::string::npos) << made;
        for (const std::string part : {"Font Arial 53 700 1 2 ", "SelectObject 7 44 Colour 0 Align 10 ",
                                       "Align 0 SelectObject 7 40 ", "DeleteObject 44 "}) {
            for (std::size_t at = made.find(part); at != std::string::npos; at = made.find(part))
                made.erase(at, part.size());
        }
        EXPECT_EQ(made, row.expected);
        EXPECT_EQ(pointers, "11 0 ");
        EXPECT_EQ(boxes, "");
    }
}

TEST_F(PrinterTest, NothingIsPrintedWithoutConsentOrPrinter) {
    cPrinter printer(library);
    DeviceContext context = 99;
    onPrintDialog = [](PrintDialog&) { return 0; };
    printer.PrintRTF(control, "Job", "P7", &context);
    EXPECT_EQ(takeCalls() + pointers, "PrintDlg 0 1310732 1 65535 1 65535 11 0 ");
    EXPECT_EQ(context, 99);

    onPrintDialog = [](PrintDialog&) { return kDialogConfirmed; };
    device = 0;
    printer.PrintRTF(control, "Job", "P7", &context);
    EXPECT_EQ(takeCalls(),
              "PrintDlg 0 1310732 1 65535 1 65535 PrintDlg 0 1048576 1 65535 1 65535 CreateDC [] Format 21 ");
    EXPECT_EQ(boxes, "Unable to print|Tavoru procedures|0\n");
    EXPECT_EQ(context, 0);

    device = 7;
    pointers.clear();
    EXPECT_EQ(test::failureOf([&] { printer.PrintRTF(form, "Job"); }),
              "438 (Class Module) cPrinter::Sub PrintRTF");
    format = [](const FormatRange&) -> std::intptr_t { throw RuntimeError(ErrorNumber::OutOfMemory); };
    EXPECT_EQ(test::failureOf([&] { printer.PrintRTF(control, "Job"); }),
              "7 (Class Module) cPrinter::Sub PrintRTF");
    EXPECT_TRUE(calls.ends_with("DeleteObject 44 ")) << calls;  // the job stays open
    EXPECT_EQ(pointers, "11 0 11 0 ");
}

}  // namespace
}  // namespace t_genproc
