#include <gtest/gtest.h>

#include <fstream>

#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

struct JobFilesTest : testing::Test, test::TestWorld {
    JobFilesTest() { names.settingsSection = "jobs"; }
};

TEST_F(JobFilesTest, OpenAndFindFiles) {
    const std::string in = " (Class Module) cGenProcs::", file = path("5.txt"), none = path("none.txt");
    std::int16_t fileNo = 1;
    EXPECT_TRUE(procs.OpenFileForOutput(fileNo, file));
    library.files().print(fileNo, "12345");
    procs.CloseFile(fileNo);
    EXPECT_EQ(fileNo, 0);
    EXPECT_FALSE(procs.OpenFileForInput(1, none));
    EXPECT_EQ(boxes, "; Error reading file < " + none + " > - file empty !!|Tavoru procedures|0\n");
    EXPECT_TRUE(procs.OpenFileForInput(1, file) && procs.OpenFileForInput(2, file));
    EXPECT_EQ(library.files().lineInput(2), "12345");
    EXPECT_EQ(failureOf([&] { procs.OpenFileForInput(1, file); }), "55" + in + "Function OpenFileForInput");
    EXPECT_EQ(failureOf([&] { procs.OpenFileForOutput(3, path("")); }),
              "75" + in + "Function OpenFileForOutput");

    for (const char* name : {"ö.txt", ".txt", "a.dat"}) system.write(path(name), "");
    system.hide(path(".txt"));
    EXPECT_TRUE(procs.CreatePath(path("many\\folder.txt")));
    for (int i = 0; i < 5000; ++i) std::ofstream(system.onDisk("many") / std::to_string(i));
    std::string found;
    for (const std::string name :
         {"5.TXT", "a.dat", "none.txt", "many", "*.txt", "?.???", "*.none", "none\\*", "many\\*"}) {
        std::int32_t size = -1;
        found += procs.FileExist(path(name), &size) ? "yes" : "no";
        found += std::to_string(size) + (procs.FileExistsNonZero(path(name)) ? "+ " : " ");
    }
    EXPECT_EQ(found, "yes5+ yes0 no0 no0 yes2+ yes3+ no0 no0 yes5000+ ");
}

TEST_F(JobFilesTest, TakePathsApart) {
    std::string all;
    for (std::string name : {"C:\\Jobs\\A\\file.txt", "C:\\f", "f", "C:f", "C:", "C:\\Jobs\\", "\\f",
                             "\\\\pc\\x\\f", " C:\\a \\b ", "  ", "", "é:\\測\\ö"}) {
        std::string folder, drive;
        procs.FileNameDetails(name, name, &folder, &drive);
        all += drive + '|' + folder + '|' + name + '\n';
    }
    EXPECT_EQ(all,
              "C:|\\Jobs\\A|file.txt\nC:|\\|f\n||f\nC:||f\nC:||\nC:|\\Jobs|\n|\\|f\n|\\\\pc\\x|f\nC:|\\a |b "
              "\n||  \n||\né:|\\測|ö\n");
    all.clear();
    for (const bool trimDot : {true, false}) {
        for (std::string name : {"C:\\a.b\\file", ".profile", " f.txt ", "f.txt\\", "測.ö", "f.", "a.b. \\",
                                 "C:", "C:\\", "\\", "", "f"}) {
            const std::string extension = procs.FileNameExtn(name, &name, trimDot);
            all += name + '|' + extension + ' ';
        }
    }
    EXPECT_EQ(all,
              "C:\\a|b\\file .profile|profile f|txt f|txt 測|ö f.| a.b. |  C:| C:| | | f| "
              "C:\\a|.b\\file .profile|.profile f|.txt f|.txt 測|.ö f|. a.b|.  C:| C:| | | f| ");
}

TEST_F(JobFilesTest, CreatePathLevelByLevel) {
    const auto expect = [&](const std::string& folder, bool subdueError, const std::string& outcome) {
        std::int32_t number = 0;
        std::string reached;
        boxes.clear();
        const bool made = procs.CreatePath(folder, subdueError, &number, &reached);
        EXPECT_EQ(boxes + (made ? "made " : "failed ") + std::to_string(number) + ' ' + reached, outcome);
    };
    const std::string end = "|Tavoru procedures|48\nfailed 0 ",
                      here = path("").substr(0, path("").size() - 1);
    system.write(path("file"), "");
    expect(path("a\\ö b"), false, "made 0 " + path("a\\ö b"));
    expect(path("a\\"), false, "made 0 " + path("a"));
    EXPECT_EQ(system.platform.folders->GetFullPathNameA("x").value, path("a\\x"));
    expect(here.substr(0, 3), false, "made 0 ");
    expect(path("file\\b"), true, "failed 76 " + here);
    expect(
        path("a\\b?\\c"), false,
        "Error 52 in CreatePath while attempting to create directory b? in " + path("a\\") + end + path("a"));
    expect("Q:\\a", false, "Error 68 in CreatePath when accessing destination drive Q:" + end);
    expect("", true, "failed 68 ");
}

TEST_F(JobFilesTest, KeepTheRecentJobs) {
    // A letter stands for an entry with that path, "+" and "_" for an empty and a blank path, "-" for "".
    const auto caption = [](int entry, char job) {
        const std::string path = job == '+' ? "" : job == '_' ? "  " : std::string("C:\\ö\\") + job;
        return job == '-' ? "" : "&" + std::to_string(entry + 1) + "  " + path;
    };
    const auto expect = [&](const std::string& before, const std::function<void()>& change,
                            const std::string& after, const std::string& visible = "11111") {
        std::string shown;
        for (int i = 0; i < 5; ++i)
            menu->element(i).add("Caption", caption(i, before.begin()[i])).add("Visible", true);
        change();
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(toText(menu->element(i).get("Caption")), caption(i, after.begin()[i])) << before << i;
            shown += toBoolean(menu->element(i).get("Visible")) ? '1' : '0';
        }
        EXPECT_EQ(shown, visible) << before;
    };
    const auto add = [&](const std::string& job) {
        return [&, job] { procs.RecentJobsNewItem({job, "", "", job}, form, prog); };
    };
    const auto first = [&](std::int16_t entry) {
        return [&, entry] { procs.RecentJobsReOrder(entry, form); };
    };
    const auto clear = [&](std::int16_t entry) {
        return [&, entry] { procs.RecentJobsClearDeleted(entry, form); };
    };
    expect("ABCDE", add("C:\\ö\\X"), "XABCD");
    expect("A----", add("C:\\ö\\X"), "XA+++");
    expect("ABCDE", add("C:\\ö\\C"), "CABDE");
    expect("ABCDE", add("ö"), "EABCD");  // part of all entries: the last one counts
    expect("ABC--", add(""), "+ABC+");
    expect("ABCDE", first(0), "ABCDE");
    expect("ABCDE", first(3), "DABCE");
    expect("ABCDE", clear(0), "BCDE-");
    expect("ABCDE", clear(4), "ABCD-");
    expect("ABC--", clear(1), "AC---", "11001");
    expect("A_BC-", clear(0), "-BC--", "01101");
    expect(
        "A++C-", [&] { procs.RecentJobsValidate(form); }, "A++C-", "10010");
    expect("ABCDE", add("C:\\ö\\A"), "ABCDE");
    EXPECT_EQ(system.read(prog.userINIpath), system.stored("[jobs]\r\nLast=ö\r\n"));

    const std::string in = "340 (Class Module) cGenProcs::Sub RecentJobs";
    for (const auto& wrong : {first(-1), first(5)}) EXPECT_EQ(failureOf(wrong), in + "ReOrder");
    EXPECT_EQ(failureOf(clear(-1)), in + "ClearDeleted");
}

}  // namespace
}  // namespace t_genproc
