#include <gtest/gtest.h>

#include <random>

#include "runtime/number_text.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;
using t_gencvf::MemoryControlArray;
using t_gencvf::MemoryObject;
using test::failureOf;

struct FormsTest : testing::Test, test::TestWorld {
    std::shared_ptr<MemoryControlArray> controls = std::make_shared<MemoryControlArray>();

    /// Each text box is in the form by its tab position, and in the order of the calls.
    std::shared_ptr<MemoryObject> addBox(int tab, int left, int width, bool enabled = true,
                                         bool visible = true) {
        auto box = controls->add("TextBox");
        box->add("TabIndex", tab).add("Left", left).add("Width", width);
        box->add("Enabled", enabled).add("Visible", visible).add("Text", "");
        box->addMethod("SetFocus", [this, box = std::weak_ptr(box)](t_gencvf::Arguments) -> Variant {
            form->add("ActiveControl", ObjectPointer(box.lock()));
            return Empty{};
        });
        return box;
    }
    void focus(const std::shared_ptr<MemoryObject>& box) { form->add("ActiveControl", ObjectPointer(box)); }
    std::string focused() { return LateBound(form)["ActiveControl"]["TabIndex"].text(); }

    FormsTest() { form->add("Controls", ObjectPointer(controls)); }
};

TEST_F(FormsTest, MoveInAGrid) {
    // Three rows of four boxes, with a label ahead; 5 is disabled, 6 hidden, 7 is narrower, 8 is moved.
    controls->add("Label")->add("TabIndex", 1);
    std::vector<std::shared_ptr<MemoryObject>> grid;
    for (int tab = 0; tab < 12; ++tab) {
        const int left = tab % 4 * 100 + (tab == 8 ? 100 : 0);
        grid.push_back(addBox(tab, left, tab == 7 ? 10 : 100, tab != 5, tab != 6));
    }
    const auto down = &cGenProcs::TextBoxDownAdvance, up = &cGenProcs::TextBoxUpAdvance;
    struct Row {
        decltype(down) move;
        int from;
        std::int16_t step;
        int to;  // -1: does not move
    };
    const Row rows[] = {
        {down, 1, 4, 9},  {down, 2, 4, 10}, {down, 3, 4, 7},   {down, 7, 4, 11}, {down, 0, 4, 4},
        {down, 4, 4, -1}, {down, 8, 4, -1}, {down, 11, 1, -1}, {up, 9, 4, 1},    {up, 10, 4, 2},
        {up, 3, 4, -1},   {up, 8, 4, -1},   {up, 4, 1, 0},     {down, 3, 0, 3},  {up, 5, 0, -1},
        {down, 9, -8, 1}, {up, 1, -8, 9},
    };
    for (const auto& [move, from, step, to] : rows) {
        SCOPED_TRACE(std::to_string(from) + " by " + std::to_string(step));
        focus(grid[static_cast<std::size_t>(from)]);
        EXPECT_EQ((procs.*move)(form, step), to >= 0);
        EXPECT_EQ(focused(), std::to_string(to >= 0 ? to : from));
    }
    std::string order;
    focus(grid[3]);
    do order += focused() + ' ';
    while (procs.TextBoxEnterAdvance(form));
    EXPECT_EQ(order, "3 4 7 8 9 10 11 ");
}

TEST_F(FormsTest, ReportWhatTheFormLacks) {
    const auto failure = [&](std::int16_t step) {
        return failureOf([&] { procs.TextBoxDownAdvance(form, step); });
    };
    const std::string name = " (Class Module) cGenProcs::Function TextBoxDownAdvance";
    EXPECT_EQ(failure(1), "438" + name);
    form->add("ActiveControl", ObjectPointer());
    EXPECT_EQ(failure(1), "91" + name);
    form->add("ActiveControl", ObjectPointer(std::make_shared<MemoryObject>("Label")));
    EXPECT_FALSE(procs.TextBoxDownAdvance(form, 1));  // no text box: nothing else is asked of it

    const auto box = addBox(0, 0, 32767);
    focus(box);
    EXPECT_EQ(failure(-1), "6" + name);  // counts down to the end of 16 bits
    box->add("TabIndex", 32000);
    EXPECT_FALSE(procs.TextBoxDownAdvance(form, 1));
    EXPECT_EQ(failure(1000), "6" + name);
    box->add("Left", 1);
    EXPECT_EQ(failure(1), "6" + name);
    box->add("Left", -10'000).add("Width", 40'000);
    EXPECT_EQ(failure(1), "6" + name);

    focus(addBox(0, 0, 10));
    addBox(1, 20, 10);
    addBox(1, 30, 10, false);
    const auto second = addBox(1, 0, 10);  // the first of that position that is in the column
    EXPECT_TRUE(procs.TextBoxDownAdvance(form, 1));
    EXPECT_EQ(toObject(form->get("ActiveControl")), second);
    form->add("Controls", ObjectPointer(std::make_shared<MemoryControlArray>()));
    EXPECT_FALSE(procs.TextBoxDownAdvance(form, 1));
    form->add("Controls", ObjectPointer(controls));
    controls->add("TextBox")->add("Text", "");
    EXPECT_EQ(failure(1), "438" + name);
    EXPECT_EQ(failureOf([&] { procs.SelectText(form); }), "438 (Class Module) cGenProcs::Sub SelectText");
    EXPECT_EQ(failureOf([&] { procs.TrimTextBoxes(nullptr); }),
              "91 (Class Module) cGenProcs::Sub TrimTextBoxes");
}

TEST_F(FormsTest, SelectAndTrim) {
    controls->add("Label")->add("Text", "  ");
    const std::pair<std::string, std::string> rows[] = {// text; what SelectText and TrimTextBoxes leave
                                                        {"  Höhe 2 ", "Höhe 2 0+6"},
                                                        {"   ", ""},
                                                        {"", ""},
                                                        {" \t ", "\t 0+1"}};
    for (const bool enabled : {true, false}) {
        for (const auto& [text, expected] : rows) {
            const auto box = addBox(0, 0, 10, enabled);
            box->add("Text", text).add("SelStart", Empty{}).add("SelLength", Empty{});
            procs.SelectText(box);
            const std::string start = toText(box->get("SelStart"));
            procs.TrimTextBoxes(form);
            const std::string selection =
                start.empty() ? "" : " " + start + "+" + toText(box->get("SelLength"));
            EXPECT_EQ(toText(box->get("Text")) + selection, expected);
            EXPECT_EQ(box->get("Enabled"), Variant(enabled));
        }
    }
    addBox(0, 0, 10)->add("Text", "  ").add("Enabled", Null{});
    EXPECT_EQ(failureOf([&] { procs.TrimTextBoxes(form); }),
              "94 (Class Module) cGenProcs::Sub TrimTextBoxes");
}

TEST_F(FormsTest, FormatNumbersByTheirDigits) {
    struct Row {
        std::string text;
        std::int16_t decimals;
        std::string fixed, expanded;
    };
    const std::string zeros(300, '0');
    const Row rows[] = {
        {" 1.23456", 3, "1.235", "1.23456"},
        {"", 2, "0.00", "0.00"},
        {"   ", 0, "0.", "0."},
        {"12", 0, "12.", "12."},
        {"0.125", 2, "0.13", "0.125"},
        {"1.005", 2, "1.01", "1.005"},
        {"2.5", 0, "3.", "2.5"},
        {"-2.5", 0, "-3.", "-2.5"},
        {"-.5", 1, "-0.5", "-0.5"},
        {"-0.04", 1, "0.0", "-0.04"},
        {"-0", 1, "0.0", "0.0"},
        {"999.995", 2, "1000.00", "999.995"},
        {"-99.95", 1, "-100.0", "-99.95"},
        {"1e3", 1, "1000.0", "1000.0"},
        {"1.5D-2x", 3, "0.015", "0.01500"},
        {"+7.E1", 1, "70.0", "70.00"},
        {"1e", 1, "1.0", "1.0"},
        {"1E+ 5", 1, "1.0", "1.0"},
        {"1 2.75", 1, "1.0", "1.00"},
        {"12.50 m", 1, "12.5", "12.5000"},
        {"1.2.34", 1, "1.2", "1.2000"},
        {"abc", 2, "0.00", "0.00"},
        {".", 1, "0.0", "0.0"},
        {".e5", 1, "0.0", "0.00"},
        {"--1", 1, "0.0", "0.0"},
        {"&H10", 1, "0.0", "0.0"},
        {"\t1", 1, "0.0", "0.0"},
        {"0e999", 1, "0.0", "0.0"},
        {"1e-300", 2, "0.00", "0.00"},
        {"1,5", 1, "1.0", "1.0"},
        {"9.99é", 1, "10.0", "9.990"},
        {"5e-999999999999999999999", 1, "0.0", "0.0"},
        {"1e300", 0, "1" + zeros + ".", "1" + zeros + "."},
        {"-1.5e300", 1, "-15" + zeros.substr(1) + ".0", "-15" + zeros.substr(1) + ".00000"},
        {"0." + zeros + "5", 300, "0." + zeros.substr(1) + "1", "0." + zeros + "5"},
        {"1.7976931348623157e308", 0, "17976931348623157" + zeros.substr(8) + ".",
         "17976931348623157" + zeros.substr(8) + "." + zeros.substr(280)},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(procs.SetNumericField(row.text, row.decimals, false), Variant(row.fixed)) << row.text;
        EXPECT_EQ(procs.SetNumericField(row.text, row.decimals, true), Variant(row.expanded)) << row.text;
    }
    const std::string name = " (Class Module) cGenProcs::Function SetNumericField";
    EXPECT_EQ(failureOf([&] { procs.SetNumericField("1.5", -1, true); }), "5" + name);
    for (const char* text : {"1.7976931348623158e308", "1e309", "-1e99999999999999999999"})
        EXPECT_EQ(failureOf([&] { procs.SetNumericField(text, 0, false); }), "6" + name) << text;
}

/// Whole numbers shifted by a power of ten are rounded in whole numbers too.
TEST_F(FormsTest, FormatLikeWholeNumberArithmetic) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20'000; ++i) {
        const auto digits = static_cast<std::int64_t>(random() >> (random() % 55 + 5));
        const auto point = static_cast<int>(random() % 12);
        const auto decimals = static_cast<std::int16_t>(random() % 12);
        const auto scaled = [](std::int64_t value, int power) {
            for (; power > 0; --power) value *= 10;
            return value;
        };
        const int surplus = std::max(point - decimals, 0);
        std::int64_t rounded = digits / scaled(1, surplus);
        if (surplus > 0 && digits / scaled(1, surplus - 1) % 10 >= 5) ++rounded;
        std::string expected = std::to_string(rounded) +
                               std::string(static_cast<std::size_t>(std::max(decimals - point, 0)), '0');
        if (std::ssize(expected) <= decimals)
            expected.insert(0, static_cast<std::size_t>(decimals) + 1 - expected.size(), '0');
        expected.insert(expected.size() - static_cast<std::size_t>(decimals), ".");
        const std::string text = std::to_string(digits) + "e-" + std::to_string(point);
        EXPECT_EQ(procs.SetNumericField(text, decimals, false), Variant(expected)) << text;
    }
}

TEST(ReportText, HasFifteenDigitsAtMost) {
    const std::pair<double, std::string> rows[] = {{0, " 0"},
                                                   {-0.0, " 0"},
                                                   {12.5, " 12.5"},
                                                   {-12.5, "-12.5"},
                                                   {0.25, " .25"},
                                                   {-0.25, "-.25"},
                                                   {0.1 + 0.2, " .3"},
                                                   {1.0 / 3, " .333333333333333"},
                                                   {1e15, " 1E+15"},
                                                   {999999999999999, " 999999999999999"},
                                                   {999999999999999.9, " 1E+15"},
                                                   {1e-15, " .000000000000001"},
                                                   {-9.5e-16, "-9.5E-16"},
                                                   {1e300, " 1E+300"},
                                                   {-0.0000081204, "-.0000081204"},
                                                   {123456789.123456789, " 123456789.123457"}};
    for (const auto& [value, expected] : rows) EXPECT_EQ(reportText(value), expected);
    EXPECT_EQ(reportText(0.1F), " .1");
    EXPECT_EQ(reportText(16777216.0F), " 16777220");

    std::mt19937_64 random(2);
    char fifteen[40];
    for (int i = 0; i < 20'000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value)) continue;
        std::snprintf(fifteen, sizeof fifteen, "%.15g", value);
        const std::string text = reportText(value);
        EXPECT_EQ(std::strtod(text.c_str(), nullptr), std::strtod(fifteen, nullptr)) << fifteen;
    }
}

}  // namespace
}  // namespace t_genproc
