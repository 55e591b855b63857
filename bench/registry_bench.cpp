/// A read of a registry value, beside a key file that holds the same values.
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "folder.h"
#include "platform/portable/portable_platform.h"
#include "ratio_table.h"

namespace t_genproc::bench {
namespace {

constexpr int kValues = 50;
constexpr const char *kKey = "Software\\Tavoru\\Settings", *kName = "Setting 25", *kValue = "C:/Tavoru/25";

alignas(4096) char buffer[1 << 20];

/// Makes a registry key with 50 values, and a key file with a group of the same.
void makeValues(Registry& registry, const std::string& keyFile) {
    const auto key = registry.RegCreateKeyExA(RootKey::CurrentUser, kKey, "", KeyAccess::Full);
    std::string text = std::string("[") + kKey + "]\n";
    for (int i = 1; i <= kValues; ++i) {
        const std::string name = "Setting " + std::to_string(i), value = "C:/Tavoru/" + std::to_string(i);
        registry.RegSetValueExA(key.value, name, value);
        text += name + "=" + value + "\n";
    }
    g_file_set_contents(keyFile.c_str(), text.c_str(), -1, nullptr);
}

/// What nobody can do without: open, read and close, for the key and for its value.
void readBare(const std::string& file) {
    for (int look = 0; look < 2; ++look) {
        const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
        if (::read(descriptor, buffer, sizeof buffer) <= 0) std::abort();
        ::close(descriptor);
    }
}

void readRegistry(Registry& registry, std::uint32_t access) {
    const auto key = registry.RegOpenKeyExA(RootKey::CurrentUser, kKey, access);
    const auto value = registry.RegQueryValueExA(key.value, kName, 255);
    registry.RegCloseKey(key.value);
    if (value.value.bytes.c_str() != std::string_view(kValue)) std::abort();
}

void readKeyFile(const std::string& file) {
    g_autoptr(GKeyFile) keys = g_key_file_new();
    g_key_file_load_from_file(keys, file.c_str(), G_KEY_FILE_NONE, nullptr);
    const g_autofree char* value = g_key_file_get_string(keys, kKey, kName, nullptr);
    if (value == nullptr || value != std::string_view(kValue)) std::abort();
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    benchmark::Initialize(&argc, argv);
    const bench::Folder folder;
    const std::string file = folder.file("Windows/registry.txt"), keyFile = folder.file("values.ini");
    const Platform platform = portablePlatform({.driveC = folder.file("")});
    bench::makeValues(*platform.registry, keyFile);
    const std::pair<const char*, bench::Work> peers[] = {
        {"system calls alone", [&] { bench::readBare(file); }},
        {"Registry, to read", [&] { bench::readRegistry(*platform.registry, KeyAccess::QueryValue); }},
        {"Registry, all rights", [&] { bench::readRegistry(*platform.registry, KeyAccess::Full); }},
        {"GKeyFile", [&] { bench::readKeyFile(keyFile); }},
    };
    std::cout << "|";
    for (const auto& [name, read] : peers) {
        bench::compare(std::string("read 1 of 50 values/") + name, peers->second, read);
        std::cout << " | " << name;
    }
    std::cout << " |\n|---|---|---|---|---|\n";
    bench::RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
}
