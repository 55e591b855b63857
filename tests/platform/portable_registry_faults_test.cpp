#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <random>

#include "support/child_process.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using test::becomeOrdinaryUser, test::start, test::succeeds;

using enum SystemError;
using Codes = std::vector<SystemError>;
constexpr const char *kFile = "C:\\Windows\\registry.txt", *kPath = "Software\\Classes\\a\\b";

struct PortableRegistryFaultsTest : testing::Test {
    SystemError open() { return registry.RegOpenKeyExA(RootKey::LocalMachine, kPath, KeyAccess::Full).error; }
    SystemError find(const std::string& name) { return registry.RegQueryValueExA(key, name, 2).error; }
    SystemError set(const std::string& name) { return registry.RegSetValueExA(key, name, "v"); }

    test::PlatformUnderTest system;
    Registry& registry = *system.platform.registry;
    const RegistryKey key = registry.RegCreateKeyExA(RootKey::ClassesRoot, "a\\b", "", KeyAccess::Full).value;
    const std::string whole = set("one") == set("two") ? system.read(kFile) : "";
    std::mt19937 random{1};
};

TEST_F(PortableRegistryFaultsTest, LeaveADamagedFileToBeRescued) {
    std::string bytes;
    while (bytes.size() < 2000) bytes += static_cast<char>(random());
    std::vector damages{bytes, std::string(2000, '\0'), whole + '\n', whole + whole, whole + bytes + whole};
    for (const std::string line : {"two", "two=%4", "[two"})
        damages.push_back(std::string(whole).replace(whole.find("two=v"), 5, line));
    for (std::size_t length = 1; length < whole.size(); ++length) damages.push_back(whole.substr(0, length));
    for (const std::string& damage : damages) {
        system.write(kFile, damage);
        const SystemError deleted = registry.SHDeleteKeyA(RootKey::ClassesRoot, "a");
        EXPECT_EQ((Codes{find("none"), set("one"), deleted}), Codes(3, DamagedRegistry)) << damage;
        EXPECT_EQ(system.read(kFile), damage);
    }
    system.write(kFile, "");
    EXPECT_EQ((Codes{open(), find("one"), set("one")}), (Codes{FileNotFound, KeyDeleted, KeyDeleted}));
    EXPECT_EQ(registry.SHDeleteKeyA(RootKey::LocalMachine, "software"), AccessDenied);  // always there
}

TEST_F(PortableRegistryFaultsTest, ReadWhatMayNotBeWritten) {
    const auto outcomes = [&] { return Codes{open(), set("one"), find("one"), find("none")}; };
    const Codes unreadable(4, AccessDenied), readOnly{AccessDenied, AccessDenied, Success, FileNotFound};
    for (const auto& [mode, expected] : {std::pair(0444, readOnly), {0, unreadable}, {0644, readOnly}}) {
        std::filesystem::permissions(system.onDisk("../Windows/registry.txt"), std::filesystem::perms(mode));
        const auto asExpected = [&, codes = expected] { return becomeOrdinaryUser() && outcomes() == codes; };
        EXPECT_TRUE(::getuid() != 0 || succeeds(start(asExpected))) << mode;
        EXPECT_TRUE(mode != 0444 || outcomes() == readOnly);
    }
    EXPECT_EQ(system.read(kFile), whole);
}

TEST_F(PortableRegistryFaultsTest, LoseNothingToOtherWritersAndKills) {
    const auto write = [&](int i) {
        while (i < 200 && set(std::to_string(i)) == Success) i += 2;
        return i >= 200;
    };
    for (int kills = 50; kills >= 0; --kills) {
        const pid_t one = start([&] { return write(0); }), two = start([&] { return write(1); });
        ::usleep(static_cast<useconds_t>(random() % 10000));
        if (kills > 0) ::kill(one, SIGKILL), ::kill(two, SIGKILL);
        EXPECT_TRUE((succeeds(one) + succeeds(two) == 2 || kills > 0) && open() == Success);
    }
    for (int i = 0; i < 200; ++i) EXPECT_EQ(find(std::to_string(i)), Success) << i;
}

}  // namespace
}  // namespace t_genproc
