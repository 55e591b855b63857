#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>

#include "platform/portable/portable_platform.h"
#include "support/child_process.h"

namespace t_genproc {
namespace {

using test::becomeOrdinaryUser, test::start, test::succeeds;

namespace fs = std::filesystem;

constexpr uid_t kOrdinaryUser = 65534;
const std::string kOld = "[s]\r\nk=1\r\n", kNew = "[s]\r\nk=2\r\n";

/// A settings file, and processes that may fail or be killed while they change it.
struct PortableFaultsTest : testing::Test {
    PortableFaultsTest() {
        fs::create_directory(folder);
        put(kOld);
    }
    ~PortableFaultsTest() override { fs::remove_all(folder); }

    void put(const std::string& text) { std::ofstream(file) << text; }
    std::string text() { return {std::istreambuf_iterator<char>(std::ifstream(file).rdbuf()), {}}; }
    auto entries() { return std::distance(fs::directory_iterator(folder), {}); }
    bool write(const std::string& key, const std::string& value) {
        return platform.profileFiles->WritePrivateProfileStringA("s", key, value, "C:\\a.ini") != 0;
    }

    fs::path folder = fs::temp_directory_path() / ("t_genproc_faults_" + std::to_string(::getpid()));
    fs::path file = folder / "a.ini";
    Platform platform = portablePlatform({.driveC = folder.string()});
};

bool fillDisk() {
    const rlimit limit{5000, 5000};
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

TEST_F(PortableFaultsTest, LeaveTheOldTextWhereTheNewOneCannotBeKept) {
    const std::string large(10000, 'x'), wide("\xFF\xFE[\0s\0]\0\n\0", 10);
    EXPECT_TRUE(succeeds(start([&] { return fillDisk() && !write("k", large); })));
    EXPECT_EQ(text(), kOld);
    fs::permissions(file, fs::perms(0444));
    EXPECT_FALSE(write("k", "2"));
    EXPECT_EQ(text(), kOld);

    fs::permissions(file, fs::perms(0666));
    fs::permissions(folder, fs::perms(0555));  // takes no new file: the old one is changed in place
    EXPECT_TRUE(succeeds(start([&] { return becomeOrdinaryUser() && fillDisk() && !write("k", large); })));
    EXPECT_EQ(text(), kOld);
    EXPECT_TRUE(succeeds(start([&] { return becomeOrdinaryUser() && write("k", "12") && write("k", "2"); })));
    EXPECT_EQ(text(), kNew);
    fs::permissions(folder, fs::perms(0755));

    put(wide);
    EXPECT_TRUE(!write("k", "2") && text() == wide);
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_FALSE(write("k", "2"));
    EXPECT_EQ(entries(), 1);
}

TEST_F(PortableFaultsTest, LeaveNoHalfOfACopy) {
    put(std::string(10000, 'x'));
    const auto copy = [&] { return platform.files->CopyFileA("C:\\a.ini", "C:\\b.ini"); };
    EXPECT_TRUE(succeeds(start([&] { return fillDisk() && copy() == SystemError::DiskFull; })));
    EXPECT_EQ(entries(), 1);
}

TEST_F(PortableFaultsTest, SurviveKilledWriters) {
    const std::string values[] = {std::string(300000, 'a'), std::string(450000, 'b')};
    std::mt19937 random(1);
    for (int kill = 0; kill < 200; ++kill) {
        const pid_t writer = start([&] {
            for (int i = 0; write("k", values[i % 2]); ++i) continue;
            return true;
        });
        ::usleep(static_cast<useconds_t>(random() % 10000));
        ::kill(writer, SIGKILL);
        EXPECT_FALSE(succeeds(writer));
        const std::string now = text();
        const bool complete =
            now == "[s]\r\nk=" + values[0] + "\r\n" || now == "[s]\r\nk=" + values[1] + "\r\n";
        EXPECT_TRUE(complete || now == kOld) << now.size();
        EXPECT_LE(entries(), 2);
    }
    EXPECT_NE(text(), kOld);
    EXPECT_TRUE(write("k", "2"));
    EXPECT_EQ(text() + std::to_string(entries()), kNew + '1');
}

TEST_F(PortableFaultsTest, LoseNoSettingOfSavesThatAreKilled) {
    constexpr int kSettings = 100;
    std::string before = "[s]\r\n";
    for (int i = 0; i < kSettings; ++i) before += "k" + std::to_string(i) + "=old\r\n";
    std::mt19937 random(1);
    int halfway = 0;
    for (int kill = 0; kill < 200; ++kill) {
        put(before);
        const pid_t writer = start([&] {
            for (const char* value = "new";; value = value[0] == 'n' ? "old" : "new") {
                for (int i = 0; i < kSettings; ++i) write("k" + std::to_string(i), value);
            }
            return true;
        });
        ::usleep(static_cast<useconds_t>(random() % 20000));
        ::kill(writer, SIGKILL);
        EXPECT_FALSE(succeeds(writer));

        // Every setting is there, and one save reached up to one of them.
        std::string expected = "[s]\r\n", now = text(), value, last;
        int changes = 0;
        for (int i = 0; i < kSettings; ++i, last = value) {
            const std::string key = "k" + std::to_string(i) + "=";
            value = now.find(key + "new\r\n") != std::string::npos ? "new" : "old";
            expected += key + value + "\r\n";
            if (i > 0 && value != last) ++changes;
        }
        EXPECT_EQ(now, expected);
        EXPECT_LE(changes, 1);
        halfway += changes;
    }
    EXPECT_GT(halfway, 0);
}

TEST_F(PortableFaultsTest, LetTwoWritersTakeTurns) {
    const auto writer = [this](const std::string& name) {
        return start([this, name] {
            int i = 0;
            while (i < 200 && write(name + std::to_string(i), "v")) ++i;
            return i == 200;
        });
    };
    const pid_t one = writer("a"), two = writer("b");
    EXPECT_EQ(succeeds(one) + succeeds(two), 2);
    const std::string all = text();
    EXPECT_EQ(std::count(all.begin(), all.end(), 'v'), 400);
}

TEST_F(PortableFaultsTest, ChangeNothingElse) {
    std::string bytes(5000000, ' ');
    std::mt19937 random(1);
    for (char& byte : bytes) byte = static_cast<char>(random());
    put(bytes + "\n[s]\nk=1\n" + bytes);
    EXPECT_EQ(platform.profileFiles->GetPrivateProfileStringA("S", "K", "", 200, "C:\\A.INI"), "1");
    EXPECT_TRUE(write("k", "23"));
    EXPECT_TRUE(text() == bytes + "\n[s]\nk=23\n" + bytes);

    const fs::path target = folder / "b" / "target";
    fs::create_directory(folder / "b");
    fs::rename(file, target);
    fs::create_symlink("b/target", file);
    fs::permissions(target, fs::perms(0640));
    EXPECT_TRUE(::getuid() != 0 || ::chown(target.c_str(), kOrdinaryUser, kOrdinaryUser) == 0);
    EXPECT_TRUE(write("k", "1"));
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    EXPECT_TRUE(succeeds(start([&] { return becomeOrdinaryUser() && ::chmod(target.c_str(), 0600) == 0; })));
    fs::remove(target);
    EXPECT_TRUE(write("k", "1"));
    EXPECT_TRUE(fs::is_symlink(file) && fs::is_regular_file(target) && text() == kOld);
}

}  // namespace
}  // namespace t_genproc
