#include "platform/registry.h"

#include <gtest/gtest.h>

#include <random>

#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using namespace std::string_literals;
using enum SystemError;

using Name = const std::string&;
using Codes = std::vector<SystemError>;

/// A key below "Software" that is removed at the end.
struct RegistryTest : testing::Test {
    ~RegistryTest() override { EXPECT_EQ(registry.SHDeleteKeyA(root, path), Success); }

    RegistryKey create(RegistryKey in, Name subKey, std::uint32_t access = KeyAccess::Full) {
        return registry.RegCreateKeyExA(in, subKey, "class", access).value;
    }
    SystemError open(RegistryKey in, Name subKey) { return registry.RegOpenKeyExA(in, subKey, 1).error; }
    SystemError query(RegistryKey of, Name name) { return registry.RegQueryValueExA(of, name, 5).error; }
    SystemError set(RegistryKey of, Name name) { return registry.RegSetValueExA(of, name, "v"); }
    /// What a call enumerates, and the code that ends it. Names are written in the order of the alphabet.
    std::string all(RegistryKey of, decltype(&Registry::RegEnumKeyExA) next = &Registry::RegEnumKeyExA) {
        std::string names;
        Outcome<std::string> name;
        for (std::uint32_t i = 0; (name = (registry.*next)(of, i)); ++i) names += name.value + '|';
        return names + std::to_string(static_cast<int>(name.error));
    }
    test::PlatformUnderTest system;
    Registry& registry = *system.platform.registry;
    const std::string path = "Software\\t_genproc test " + std::to_string(std::random_device{}());
    const RegistryKey root = RootKey::CurrentUser, key = create(root, path);
};

TEST_F(RegistryTest, KeepAnyText) {
    const std::string odd = "[a]\"'%41%\t;=\r\n[end]\n\\ é ";
    struct Row {
        std::string name, value, askedName, found, deviation{};
    };
    const Row rows[] = {
        {"", "", "", ""},
        {"1\0b"s, "c\0d"s, "1\0x"s, "c\0"s},
        {"2e", "C:\\A\\", "2E", "C:\\A\\\0"s},
        {odd, odd, odd, odd + '\0'},
        {"été", "[a]=b", "ÉTÉ", "[a]=b\0"s, "Wine: tells the cases of letters outside ASCII apart"},
        {"測量", "ё", "測量", "ё\0"s},
    };
    for (const auto& [name, value, askedName, found, deviation] : rows) {
        const SystemError written = system.canKeep(name) ? Success : InvalidName;
        EXPECT_EQ((Codes{set(key, name), registry.RegSetValueExA(key, name, value)}), Codes(2, written));
        if (written != Success || test::isLeftOut(deviation)) continue;
        const Outcome<RegistryValue> read = registry.RegQueryValueExA(key, askedName, found.size());
        EXPECT_TRUE(read && read.value.bytes == found && read.value.type == ValueType::Text) << name;
    }
    const std::string names = "|1|2e|" + odd + "|été|" + (system.canKeep("測") ? "測量|" : "");
    EXPECT_EQ(all(key, &Registry::RegEnumValueA), names + "259");
    EXPECT_EQ((Codes{query(key, "2e"), registry.RegDeleteValueA(key, "2E"), query(key, "2e")}),
              (Codes{MoreData, Success, FileNotFound}));
}

TEST_F(RegistryTest, KeepKeysInATree) {
    const RegistryKey three = create(key, "One\\=[%2]\\Three");
    for (const char* const name : {"oNE\\Four", "ONE", "One2"}) create(key, name);
    EXPECT_EQ(all(key) + all(create(key, "one")), "One|One2|259=[%2]|Four|259");
    EXPECT_EQ(set(create(root, path + "\\ONE\\=[%2]\\\\three\\"), "v"), Success);
    EXPECT_EQ((Codes{query(three, "V"), open(key, "One\\Three"), open(key, "\\One")}),
              (Codes{Success, FileNotFound, BadPathName}));
    EXPECT_EQ(registry.SHDeleteKeyA(key, "ONE"), Success);
    EXPECT_EQ(registry.SHDeleteKeyA(key, "One"), FileNotFound);
    EXPECT_EQ(all(key), "One2|259");
    EXPECT_EQ((Codes{query(three, "v"), set(three, "v"), open(three, "a")}), Codes(3, KeyDeleted));
}

TEST_F(RegistryTest, RefuseWhatTheHandleDoesNotAllow) {
    const RegistryKey reading = create(root, path, KeyAccess::QueryValue), closed = create(key, "a");
    EXPECT_EQ((Codes{query(reading, "v"), set(reading, "v"), registry.RegCloseKey(closed)}),
              (Codes{FileNotFound, AccessDenied, Success}));
    for (const RegistryKey none : {closed, RegistryKey{0x7654}})
        EXPECT_EQ((Codes{query(none, "v"), open(none, "a"), registry.RegCloseKey(none)}),
                  Codes(3, InvalidHandle));
}

}  // namespace
}  // namespace t_genproc
