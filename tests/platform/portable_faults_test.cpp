#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>

#include "platform/portable/portable_platform.h"

namespace t_genproc {
namespace {

namespace fs = std::filesystem;

constexpr uid_t kOrdinaryUser = 65534;
const std::string kOld = "[s]\r\nk=1\r\n", kNew = "[s]\r\nk=2\r\n";

struct PortableFaultsTest : testing::Test {
    PortableFaultsTest() {
        fs::create_directory(folder);
        put(kOld);
    }
    ~PortableFaultsTest() override { fs::remove_all(folder); }

    void put(const std::string& text) { std::ofstream(file) << text; }
    std::string text() const {
        std::ifstream stream(file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    bool write(const std::string& key, const std::string& value) {
        return platform.profileFiles->WritePrivateProfileStringA("s", key, value, "C:\\a.ini") != 0;
    }
    auto files() const { return std::distance(fs::directory_iterator(folder), {}); }

    fs::path folder = fs::temp_directory_path() / ("t_genproc_faults_" + std::to_string(::getpid()));
    fs::path file = folder / "a.ini";
    Platform platform = portablePlatform({.driveC = folder.string()});
};

pid_t start(const std::function<bool()>& body) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(body() ? 0 : 1);
    return child;
}

bool succeeds(pid_t child) {
    int status = 0;
    return ::waitpid(child, &status, 0) == child && status == 0;
}

bool becomeOrdinary() { return ::getuid() != 0 || ::setuid(kOrdinaryUser) == 0; }

bool fillDisk() {
    const rlimit limit{5000, 5000};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

TEST_F(PortableFaultsTest, LeaveTheOldTextWhereTheNewOneCannotBeKept) {
    const std::string large(10000, 'x'), wide("\xFF\xFE[\0s\0]\0", 8);
    EXPECT_TRUE(succeeds(start([&] { return fillDisk() && !write("k", large); })));
    EXPECT_EQ(text(), kOld);
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(write("k", "2"));
    EXPECT_EQ(text(), kOld);
    fs::permissions(file, fs::perms(0666));

    fs::permissions(folder, fs::perms(0555));  // takes no new file: the old one is changed in place
    EXPECT_TRUE(succeeds(start([&] { return becomeOrdinary() && fillDisk() && !write("k", large); })));
    EXPECT_EQ(text(), kOld);
    EXPECT_TRUE(succeeds(
        start([&] { return becomeOrdinary() && write("k", "2") && write("k", "12") && write("k", "2"); })));
    EXPECT_EQ(text(), kNew);
    fs::permissions(folder, fs::perms(0755));

    put(wide);
    EXPECT_FALSE(write("k", "2"));
    EXPECT_EQ(text(), wide);
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_FALSE(write("k", "2"));
    EXPECT_EQ(files(), 1);
}

TEST_F(PortableFaultsTest, SurviveKilledWriters) {
    const std::string values[] = {std::string(100000, 'a'), std::string(150000, 'b')};
    std::mt19937 random(1);
    for (int kill = 0; kill < 200; ++kill) {
        const pid_t writer = start([&] {
            for (int i = 0; write("k", values[i % 2]); ++i) continue;
            return false;
        });
        ::usleep(static_cast<useconds_t>(random() % 3000));
        ::kill(writer, SIGKILL);
        EXPECT_FALSE(succeeds(writer));
        const std::string now = text();
        EXPECT_TRUE(now == kOld || now == "[s]\r\nk=" + values[0] + "\r\n" ||
                    now == "[s]\r\nk=" + values[1] + "\r\n")
            << now.size();
        EXPECT_LE(files(), 2);
    }
    EXPECT_TRUE(write("k", "2"));
    EXPECT_EQ(text(), kNew);
    EXPECT_EQ(files(), 1);
}

TEST_F(PortableFaultsTest, LetTwoWritersTakeTurns) {
    const auto writer = [this](const std::string& name) {
        return start([this, name] {
            for (int i = 0; i < 200; ++i) {
                if (!write(name + std::to_string(i), "v")) return false;
            }
            return true;
        });
    };
    const pid_t one = writer("a"), two = writer("b");
    EXPECT_TRUE(succeeds(one) && succeeds(two));
    const std::string all = text();
    for (int i = 0; i < 200; ++i)
        EXPECT_TRUE(all.find("\na" + std::to_string(i) + "=v\r") <
                    all.find("\nb" + std::to_string(i) + "=v\r") + all.size())
            << i;
}

TEST_F(PortableFaultsTest, ChangeNothingElse) {
    std::string bytes(10000000, ' ');
    std::mt19937 random(1);
    for (char& byte : bytes) byte = static_cast<char>(random());
    put(bytes + "\n[s]\nk=1\n" + bytes);
    EXPECT_EQ(platform.profileFiles->GetPrivateProfileStringA("s", "k", "", 200, "C:\\A.INI"), "1");
    EXPECT_TRUE(write("k", "23"));
    EXPECT_TRUE(text() == bytes + "\n[s]\nk=23\n" + bytes);

    // Permissions, owner and links, of which one leads nowhere yet
    fs::create_directory(folder / "b");
    fs::rename(file, folder / "b" / "target");
    fs::create_symlink("b/target", file);
    fs::permissions(folder / "b" / "target", fs::perms(0640));
    EXPECT_TRUE(write("k", "1"));
    EXPECT_TRUE(fs::is_symlink(file) && fs::status(file).permissions() == fs::perms(0640));
    fs::remove(folder / "b" / "target");
    EXPECT_TRUE(write("k", "1"));
    EXPECT_TRUE(fs::is_symlink(file) && text() == kOld);
    fs::resize_file(file, std::uintmax_t{3} << 30);
}

}  // namespace
}  // namespace t_genproc
