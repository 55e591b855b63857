#include <gtest/gtest.h>

#include "frame/GenUtil.h"
#include "frame/procedure.h"
#include "instanthelp/cInstHelp.h"
#include "instanthelp/cInstHelpSettings.h"
#include "os/cAPIprocs.h"
#include "printing/cPrinter.h"
#include "runtime/errors.h"
#include "startup/cStartProcs.h"
#include "support/test_world.h"
#include "time/cTimeProcs.h"

namespace t_genproc {
namespace {

using test::failureOf;

struct FrameTest : testing::Test, test::TestWorld {};

TEST_F(FrameTest, TellTheTrailOfAnErrorAndRaiseItsNumber) {
    const std::pair<std::string, std::function<void()>> rows[] = {{"1004", [] { throw RuntimeError(1004); }},
                                                                  {"7", [] { throw std::bad_alloc(); }},
                                                                  {"9", [] { throw std::out_of_range(""); }},
                                                                  {"51", [] { throw 1; }}};
    for (const auto& row : rows) {
        const auto inner = [&] { procedure(library, "Inner", row.second); };
        const auto outer = [&] { procedure(library, "Outer", [&] { procedure(library, "Middle", inner); }); };
        const std::string rest = "Inner > Middle\nMiddle > Outer\n";
        for (const std::string& expected : {"t_genproc > Inner\n" + rest, rest, std::string()}) {
            reports.clear();
            suppressNextReport = expected == rest;
            reporterFails = expected.empty();
            EXPECT_EQ(failureOf(outer), row.first + " Outer");
            EXPECT_EQ(reports, expected);
            EXPECT_FALSE(suppressNextReport);
        }
    }
    EXPECT_EQ(reporters, 1);
}

TEST_F(FrameTest, KeepTheFlagOfEachClass) {
    const auto flags = [](auto&&... instances) {  // at first, and when they are set to the opposite
        std::string all;
        ((all += instances.ClassActive() ? '1' : '0', instances.ClassActive(!instances.ClassActive())), ...);
        ((all += instances.ClassActive() ? '1' : '0'), ...);
        return all;
    };
    EXPECT_EQ(flags(cGenProcs(library), cStartProcs(library), cInstHelp(library), cTimeProcs(library)),
              "11110000");
    EXPECT_EQ(flags(cInstHelpSettings(), cPrinter(library), cAPIprocs(library)), "000111");
}

TEST_F(FrameTest, AppendToTheErrorLog) {
    now = 46340 + 79509.0 / 86400;
    std::string expected;
    const auto log = [&] { GenUtil::WriteDLLerror(library, "Höhe", prog); };
    const auto expect = [&](std::int32_t code, const std::string& text) {
        prog.errorLogCode = code;
        prog.errorLogBrief = text.empty();
        log();
        expected += "14-11-2026  22:05:09 : Höhe" + text + "\r\n";
        EXPECT_EQ(system.read(path("t_eveml")), system.stored(expected));
    };
    expect(0, " [0]");
    expect(1, " [2]");
    expect(10, " [1024]");
    expect(45, " [35184372088832]");
    expect(46, " [46]");
    expect(7, "");
    expect(-1, " [-1]");
    expect(INT32_MAX, " [2147483647]");
    expect(INT32_MIN, " [-2147483648]");

    prog.tempPath = path("none\\");
    EXPECT_EQ(failureOf(log), "none");
    prog.tempPath = path("a\\");
    procs.CreatePath(path("a\\t_eveml"));
    EXPECT_EQ(failureOf(log), "75 (Module) GenUtil::Sub WriteDLLerror");
    EXPECT_EQ(reports, "t_genproc > (Module) GenUtil::Sub WriteDLLerror\n");
    EXPECT_EQ(library.files().freeFile(), 1);
}

TEST_F(FrameTest, ReadSingleKeysAndKeepDefaults) {
    const std::string file = path("a.ini"), none = path("none.ini"), folder = path(""), kept(199, 'x');
    std::int16_t changes = 0;
    const auto expect = [&](const std::string& before, const std::string& byDefault,
                            const std::string& expected, const std::string& after) {
        changes = 32766;
        system.write(file, "[s]\r\n" + before + "\r\n");
        EXPECT_EQ(procs.INIstringGet(file, "s", "k", byDefault, false, &changes), expected) << before;
        EXPECT_EQ(system.read(file), "[s]\r\n" + after + "\r\n");
        EXPECT_EQ(changes, before == after ? 32766 : 32767) << before;
    };
    expect("k=", "d", "", "k=");
    expect("k=notfound", "d", "notfound", "k=notfound");
    expect("k=NotFound", "", "", "k=NotFound");
    expect("k=" + kept + "yz", "d", kept, "k=" + kept + "yz");
    expect("k=NotFound", "d", "d", "k=d");
    expect("j=1", "d", "d", "j=1\r\nk=d");
    const std::string failure = "6 (Class Module) cGenProcs::Function INIstring";
    EXPECT_EQ(failureOf([&] { procs.INIstringSet(file, "s", "k", "e", &changes); }), failure + "Set");
    EXPECT_EQ(failureOf([&] { procs.INIstringGet(file, "s", "l", "f", false, &changes); }), failure + "Get");
    EXPECT_EQ(system.read(file) + std::to_string(changes), "[s]\r\nj=1\r\nk=e\r\nl=f\r\n32767");

    changes = 0;
    EXPECT_EQ(procs.INIstringGet(none, "s", "k", "", true, &changes) + system.read(none), "none");
    EXPECT_EQ(procs.INIstringGet(folder, "s", "k", "d", false, &changes), "");
    EXPECT_FALSE(procs.INIstringSet(folder, "s", "k", "d", &changes));
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(procs.INIstringGet(folder, "s", "k", "d", true, &changes), "d");
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(procs.INIstringSet(none, "s", "k", "e", &changes));
    EXPECT_EQ(system.read(none) + std::to_string(changes), "[s]\r\nk=e\r\n3");
}

}  // namespace
}  // namespace t_genproc
