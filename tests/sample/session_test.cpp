#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

namespace {

namespace fs = std::filesystem;
using testing::ContainsRegex;

std::string contents(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The sample host as a user runs it, in a folder of its own.
class SampleHost : public testing::Test {
   protected:
    SampleHost() { fs::create_directory(folder_); }
    ~SampleHost() override { fs::remove_all(folder_); }

    int run(const std::string& words) {
        const std::string program = "cd " + folder_.string() + "; " TAVORU_PROGRAM " --drive drive ";
        const int status = std::system((program + words + " >out 2>err").c_str());
        out_ = contents(folder_ / "out");
        err_ = contents(folder_ / "err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    fs::path folder_ = fs::temp_directory_path() / ("tavoru_session_" + std::to_string(::getpid()));
    std::string out_;
    std::string err_;
};

TEST_F(SampleHost, TellsASessionAndRemembersIt) {
    ASSERT_EQ(run("session"), 0) << err_;
    const std::size_t start = out_.find("Six jobs");
    const std::string jobs = out_.substr(start, out_.find("The menu follows") - start);
    const std::regex menu("File\n      \\[1\\]");
    EXPECT_EQ(std::distance(std::sregex_iterator(jobs.begin(), jobs.end(), menu), std::sregex_iterator()), 6);
    EXPECT_TRUE(jobs.ends_with("[5]  C:\\Users\\Surveyor\\Tavoru\\Data\\Harbour.job\n\n\n")) << jobs;
    EXPECT_THAT(out_, ContainsRegex("[0-9-]{10}  [0-9:]{8} : Error in [^\n]* 2 \\[16\\]\n"));

    ASSERT_EQ(run("open quarry"), 0) << err_;
    ASSERT_EQ(run("recent"), 0) << err_;
    EXPECT_THAT(out_, ContainsRegex("  \\[1\\]  [^\n]*Quarry.job\n  \\[2\\]  [^\n]*Church.job\n"));
}

TEST_F(SampleHost, AnswersWrongUseAndFailuresInOneLine) {
    for (const std::string use : {"paint", "setting get General", "recent remove 6", "recent remove 5"}) {
        EXPECT_EQ(run(use), use == "recent remove 5" ? 1 : 2) << use;
        EXPECT_THAT(err_, testing::MatchesRegex("tavoru: [^\n]+\n")) << use;
        EXPECT_EQ(out_, "") << use;
    }
}

}  // namespace
