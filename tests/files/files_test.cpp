#include <gtest/gtest.h>

#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

struct JobFilesTest : testing::Test, test::TestWorld {};

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

    for (const char* name : {"测.txt", ".txt", "a.dat"}) system.write(path(name), "");
    system.hide(path(".txt"));
    EXPECT_TRUE(procs.CreatePath(path("many\\folder.txt")));
    for (int i = 0; i < 5000; ++i) system.write(path("many\\") + std::to_string(i), "");
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
                             "\\\\pc\\x\\f", " C:\\a \\b ", "  ", "", "é:\\测\\ö"}) {
        std::string folder, drive;
        procs.FileNameDetails(name, name, &folder, &drive);
        all += drive + '|' + folder + '|' + name + '\n';
    }
    EXPECT_EQ(all,
              "C:|\\Jobs\\A|file.txt\nC:|\\|f\n||f\nC:||f\nC:||\nC:|\\Jobs|\n|\\|f\n|\\\\pc\\x|f\nC:|\\a |b "
              "\n||  \n||\né:|\\测|ö\n");
    all.clear();
    for (const bool trimDot : {true, false}) {
        for (std::string name : {"C:\\a.b\\file", ".profile", " f.txt ", "f.txt\\", "测.ö", "f.", "a.b. \\",
                                 "C:", "C:\\", "\\", "", "f"}) {
            const std::string extension = procs.FileNameExtn(name, &name, trimDot);
            all += name + '|' + extension + ' ';
        }
    }
    EXPECT_EQ(all,
              "C:\\a|b\\file .profile|profile f|txt f|txt 测|ö f.| a.b. |  C:| C:| | | f| "
              "C:\\a|.b\\file .profile|.profile f|.txt f|.txt 测|.ö f|. a.b|.  C:| C:| | | f| ");
}

TEST_F(JobFilesTest, CreatePathLevelByLevel) {
    const auto create = [&](const std::string& folder, bool subdueError) {
        boxes.clear();
        std::int32_t number = 0;
        std::string reached;
        const bool made = procs.CreatePath(folder, subdueError, &number, &reached);
        return boxes + (made ? "made " : "failed ") + std::to_string(number) + ' ' + reached;
    };
    const std::string start = " in CreatePath w", end = "|Tavoru procedures|48\nfailed 0 ";
    system.write(path("file"), "");
    for (const char* name : {"a\\测 b", "a\\测 b\\", "a"})
        EXPECT_EQ(create(path(name), false),
                  "made 0 " + path(name).substr(0, path(name).find_last_not_of('\\') + 1));
    EXPECT_EQ(folderOf("."), path("a"));
    EXPECT_EQ(create(path("").substr(0, 3), false), "made 0 ");
    EXPECT_EQ(create(path("file\\b"), true), "failed 76 " + path("").substr(0, path("").size() - 1));
    EXPECT_EQ(
        create(path("a\\b?\\c"), false),
        "Error 52" + start + "hile attempting to create directory b? in " + path("a\\") + end + path("a"));
    EXPECT_EQ(create("Q:\\a", false), "Error 68" + start + "hen accessing destination drive Q:" + end);
    EXPECT_EQ(create("Q:\\a", true) + create("", true), "failed 68 failed 68 ");
}

TEST_F(JobFilesTest, KeepTheRecentJobs) {
    const auto caption = [](int i, char job) {
        return job == '-'
                   ? std::string()
                   : "&" + std::to_string(i + 1) + "  C:\\测" + (job == '+' ? "" : std::string(1, job));
    };
    // Entries by their letters: "-" has no caption
    const auto expect = [&](const std::string& before, const std::function<void()>& change,
                            const std::string& after, const std::string& visible = "11111") {
        std::string captions, shown, expected;
        for (int i = 0; i < 5; ++i)
            menu->element(i).add("Caption", caption(i, before[i])).add("Visible", true);
        change();
        for (int i = 0; i < 5; ++i)
            captions += toText(menu->element(i).get("Caption")) + '\n',
                shown += toBoolean(menu->element(i).get("Visible")) ? '1' : '0',
                expected += caption(i, after[i]) + '\n';
        EXPECT_EQ(captions + shown, expected + visible) << before;
    };
    const auto add = [&](const std::string& job) {
        return [&, job] { procs.RecentJobsNewItem({job, "", "", job}, form, prog); };
    };
}

}  // namespace
}  // namespace t_genproc
