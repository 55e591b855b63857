#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/scripted_services.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::Arguments, t_gencvf::LateBound, t_gencvf::MemoryControlArray, t_gencvf::MemoryObject;
using test::failureOf;

struct RecordingViewer : HelpViewer {
    std::string calls;

    WindowHandle HtmlHelpA(WindowHandle owner, const std::string& file, std::uint32_t command,
                           std::int32_t data) override {
        calls += std::to_string(owner) + ' ' + file + ' ' + std::to_string(command) + ' ' +
                 std::to_string(data) + '\n';
        return 0;
    }
};

/// Has as many columns as its longest format, each 100 wide for a character and 13 where it is empty.
struct Grid : MemoryObject {
    int divider = 13;

    void let(std::string_view member, const Variant& value, Arguments arguments) override {
        MemoryObject::let(member, value, arguments);
        const std::string format = toText(get("FormatString")) + '|';
        const std::ptrdiff_t columns = std::ranges::count(format, '|');
        if (member == "FormatString" && columns > toInt32(get("Cols")))
            add("Cols", static_cast<int>(columns));
        const int column = toInt32(get("Col"));
        if (member != "col") return;
        std::size_t start = 0;
        for (int i = 0; i < column; ++i) start = format.find('|', start) + 1;
        const auto length = static_cast<int>(format.find('|', start) - start);
        add("CellWidth", length == 0 ? divider : length * 100);
    }
};

struct DisplayTest : testing::Test, test::TestWorld {};

TEST_F(DisplayTest, PromptInPlaceOfTheDatum) {
    LateBound window(form);
    for (const char* name : {"pnlPrompt", "pnlDatumV", "pnlProjection"}) {
        const auto panel = std::make_shared<MemoryObject>();
        panel->add("Caption", "").add("Tag", "").add("Visible", true).add("BackColor", 1);
        form->add(name, ObjectPointer(panel));
    }
    struct Row {
        std::string display, tag;
        bool yellow;
        std::string expected;  // caption, colour, whether the prompt, the datum and the projection are shown
    };
    const Row rows[] = {
        {" Pick ", "", false, " Pick |1|True False False"},
        {"Pick", "0", true, "Pick|-2147483624|True False False"},
        {"Next", "x1", false, "Next|-2147483624|True False False"},
        {"  ", "", true, "|12632256|False True True"},
        {"Kept", " 2x", true, "Kept|12632256|False True True"},
        {"\t", "", false, "\t|12632256|True False False"},
        {"", "-.5", false, "|12632256|True False False"},
    };
    for (const auto& [display, tag, yellow, expected] : rows) {
        window["pnlPrompt"]["Tag"] = tag;
        pumped = 0;
        procs.WindowPrompt(display, form, yellow);
        const LateBound panel = window["pnlPrompt"];
        EXPECT_EQ(panel["Caption"].text() + '|' + panel["BackColor"].text() + '|' + panel["Visible"].text() +
                      ' ' + window["pnlDatumV"]["Visible"].text() + ' ' +
                      window["pnlProjection"]["Visible"].text(),
                  expected);
        EXPECT_EQ(pumped, 1);
    }
    window["pnlPrompt"]["Tag"] = "";
    procs.WindowPrompt("", form);
    form->add("pnlProjection", ObjectPointer());
    EXPECT_EQ(failureOf([&] { procs.WindowPrompt("x", form); }),
              "91 (Class Module) cGenProcs::Sub WindowPrompt");
    EXPECT_EQ(window["pnlPrompt"]["Caption"].text() + window["pnlDatumV"]["Visible"].text() +
                  window["pnlPrompt"]["Visible"].text() + std::to_string(pumped),
              "xFalseFalse2");
}

TEST_F(DisplayTest, AskTheHelpViewerForTopics) {
    auto& viewer = *new RecordingViewer;
    system.platform.helpViewer.reset(&viewer);
    names.helpFile = "C:\\own.chm";
    for (const int topic : {1, 7100, 7110, 7111, 0, -1}) procs.ShowTopicID(topic, 99);
    std::string none, other = "C:\\other.chm";
    procs.ShowTopicID(2, 0, &none);
    procs.ShowTopicID(3, 0, &other);
    form->add("HelpContextID", 40000).add("hWnd", 12);
    procs.HelpActiveForm(form, "C:\\P\\");
    EXPECT_EQ(viewer.calls,
              "0 C:\\own.chm 1 1\n0 C:\\own.chm 1 7100\n0 C:\\own.chm 1 7110\n0 C:\\own.chm 15 7111\n"
              "0 C:\\own.chm 15 0\n0 C:\\own.chm 15 -1\n0 C:\\own.chm 15 2\n0 C:\\other.chm 15 3\n"
              "0 C:\\own.chm 15 40000\n");
    EXPECT_EQ(none + other, "C:\\own.chmC:\\other.chm");
    const auto noHandle = std::make_shared<MemoryObject>();
    noHandle->add("HelpContextID", 1);
    EXPECT_EQ(failureOf([&] { procs.HelpActiveForm(noHandle, ""); }),
              "438 (Class Module) cGenProcs::Sub HelpActiveForm");
}

TEST_F(DisplayTest, WaitAndKeepTheWindowsAlive) {
    auto& clock = *new test::ScriptedClock;
    system.platform.clock.reset(&clock);
    struct Row {
        std::uint32_t start;
        std::int32_t wait;
        std::uint32_t oversleep;
        std::uint32_t end;
        int pumps;
        std::string failure;
    };
    const std::string overflow = "6 (Class Module) cGenProcs::Sub Delay";
    const Row rows[] = {
        {100, 25, 0, 125, 4, "none"},
        {100, 25, 5, 130, 3, "none"},
        {100, 0, 0, 100, 1, "none"},
        {100, -7, 0, 100, 1, "none"},
        {4294967290U, 8, 0, 2, 2, "none"},
        {2147483640, 7, 0, 2147483647, 2, "none"},
        {2147483640, 7, 5, 2147483652U, 2, "none"},  // the count has turned negative
        {2147483640, 8, 0, 2147483640, 1, overflow},
        {2147483648U, -1, 0, 2147483648U, 1, overflow},
    };
    for (const auto& [start, wait, oversleep, end, pumps, failure] : rows) {
        clock.ticks = start;
        pumped = 0;
        clock.oversleep = oversleep;
        EXPECT_EQ(failureOf([&, ms = wait] { procs.Delay(ms); }), failure) << start;
        EXPECT_EQ(clock.ticks, end) << start;
        EXPECT_EQ(pumped, pumps) << start;
    }
    clock.local = {2026, 11, 6, 20, 23, 59, 59, 500};
    float start = 86399;
    procs.DoEventsTimer(start, 1);
    clock.local = {2026, 11, 0, 21, 0, 0, 2, 0};
    pumped = 0;
    for (int i = 0; i < 2; ++i) procs.DoEventsTimer(start, 1);
    EXPECT_EQ(start, 2);
    EXPECT_EQ(pumped, 1);
}

TEST_F(DisplayTest, MeasureGridsAndPlaceTexts) {
    const std::string wide(400, 'w');
    const std::pair<std::string, std::string> rows[] = {{"a|bb|ccc", "626 3 a|bb|ccc 2"},
                                                        {wide, "40026 1 " + wide + " 0"},
                                                        {"", "39 1  0"},
                                                        {"x|", "139 2 x| 1"},
                                                        {"\xC3\xA9", "226 1 \xC3\xA9 0"}};
    for (const auto& [format, expected] : rows) {
        const auto grid = std::make_shared<Grid>();
        grid->add("FormatString", format).add("Cols", 0).add("Col", 0).add("CellWidth", 0);
        const LateBound left(grid);
        const std::string width = std::to_string(procs.ColumnsWidth(grid, false));
        EXPECT_EQ(
            width + ' ' + left["Cols"].text() + ' ' + left["FormatString"].text() + ' ' + left["Col"].text(),
            expected);
        grid->divider = 40000;
        EXPECT_EQ(failureOf([&] { procs.ColumnsWidth(grid, true); }),
                  "6 (Class Module) cGenProcs::Function ColumnsWidth");
        EXPECT_EQ(left["FormatString"].text(), format + '|');
    }
    const auto none = std::make_shared<MemoryObject>();  // a grid that stays without columns
    none->add("FormatString", "").add("Cols", 0).add("col", 0).add("CellWidth", 7);
    EXPECT_EQ(procs.ColumnsWidth(none, false), 14);
    EXPECT_EQ(LateBound(none)["Cols"].text(), "-1");

    const auto printer = std::make_shared<MemoryObject>();
    std::string printed;
    printer->add("CurrentX", 0).add("CurrentY", 0);
    printer->addMethod("Print", [&](Arguments texts) { return printed += toText(texts[0]), Variant(); });
    const auto widths = [&](double ofBlank) {
        printer->addMethod("TextWidth", [=](Arguments texts) {
            const std::string text = toText(texts[0]);
            return Variant(text.starts_with(' ') ? ofBlank * static_cast<double>(text.size()) : 95.0);
        });
    };
    const auto place = [&] {
        return LateBound(printer)["CurrentX"].text() + ' ' + LateBound(printer)["CurrentY"].text();
    };
    procs.PrinterPrintAt(printer, " a", 300, 70000);
    EXPECT_EQ(place() + printed, "300 70000 a");
    EXPECT_EQ(failureOf([&] { procs.PrinterPrintAt(printer, "a", 1, 2, true); }),
              "438 (Class Module) cGenProcs::Sub PrinterPrintAt");
    EXPECT_EQ(place(), "1 2");
    for (const double width : {10.0, 0.0, -1.0, std::nan("")}) {
        widths(width);
        procs.PrinterPrintAt(printer, "b", -1, 7, true);
        EXPECT_EQ(place() + printed, "-1 7 a");
    }

    for (const auto& [records, every, page, expected] :
         {std::tuple{0, true, 1, 1}, {3, false, 1, 0}, {3, false, 2, 1}, {3, true, 2, 0}, {-1, true, 1, 1}}) {
        std::int16_t start = 7;
        procs.CheckPageHeader(static_cast<std::int16_t>(records), every, page, start);
        EXPECT_EQ(start, expected);
    }
}

TEST_F(DisplayTest, ReadTheNamesOfControlsAndWindows) {
    procs.ListLoadedForms();
    const auto all = std::make_shared<MemoryControlArray>();
    form->add("Controls", ObjectPointer(all));
    openForms = all;
    all->add("TextBox")->add("name", "txtA");
    procs.ListControls(form);
    procs.ListLoadedForms();
    all->add("Label");
    EXPECT_EQ(failureOf([&] { procs.ListControls(form); }), "438 (Class Module) cGenProcs::Sub ListControls");
    EXPECT_EQ(failureOf([&] { procs.ListLoadedForms(); }),
              "438 (Class Module) cGenProcs::Sub ListLoadedForms");
}

}  // namespace
}  // namespace t_genproc
