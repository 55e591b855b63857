#include <windows.h>

// Behind <windows.h>:
#include <shlwapi.h>

#include <algorithm>
#include <limits>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

constexpr DWORD kMostOfKeyName = 255, kMostOfValueName = 16383;

HKEY systemKey(RegistryKey key) { return reinterpret_cast<HKEY>(key); }

SystemError outcome(LSTATUS status) { return static_cast<SystemError>(status); }

bool isText(DWORD type) { return type == ValueType::Text || type == ValueType::ExpandableText; }

/// A zero ends the text.
std::optional<std::string> ansi(std::string_view text) { return toAnsi(text.substr(0, text.find('\0'))); }

class WindowsRegistry final : public Registry {
   public:
    Outcome<RegistryKey> RegCreateKeyExA(RegistryKey parent, const std::string& subKey,
                                         const std::string& className, std::uint32_t access) override {
        const auto name = ansi(subKey);
        auto keyClass = ansi(className);
        if (!name || !keyClass) return {.error = SystemError::InvalidName};
        HKEY key = nullptr;
        const LSTATUS status = ::RegCreateKeyExA(systemKey(parent), name->c_str(), 0, keyClass->data(),
                                                 REG_OPTION_NON_VOLATILE, access, nullptr, &key, nullptr);
        return {reinterpret_cast<RegistryKey>(key), outcome(status)};
    }

    Outcome<RegistryKey> RegOpenKeyExA(RegistryKey parent, const std::string& subKey,
                                       std::uint32_t access) override {
        const auto name = ansi(subKey);
        if (!name) return {.error = SystemError::InvalidName};
        HKEY key = nullptr;
        const LSTATUS status = ::RegOpenKeyExA(systemKey(parent), name->c_str(), 0, access, &key);
        return {reinterpret_cast<RegistryKey>(key), outcome(status)};
    }

    SystemError RegCloseKey(RegistryKey key) override { return outcome(::RegCloseKey(systemKey(key))); }

    Outcome<RegistryValue> RegQueryValueExA(RegistryKey key, const std::string& name,
                                            std::size_t size) override {
        const auto valueName = ansi(name);
        if (!valueName) return {.error = SystemError::InvalidName};
        std::string bytes(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()), ' ');
        auto length = static_cast<DWORD>(bytes.size());
        DWORD type = REG_SZ;
        const LSTATUS status = ::RegQueryValueExA(systemKey(key), valueName->c_str(), nullptr, &type,
                                                  reinterpret_cast<BYTE*>(bytes.data()), &length);
        if (status != ERROR_SUCCESS) return {.error = outcome(status)};
        bytes.resize(length);
        return {{type, isText(type) ? fromAnsi(bytes) : bytes}};
    }

    SystemError RegSetValueExA(RegistryKey key, const std::string& name, const std::string& text) override {
        const auto valueName = ansi(name), value = ansi(text);
        if (!valueName || !value) return SystemError::InvalidName;
        return outcome(::RegSetValueExA(systemKey(key), valueName->c_str(), 0, REG_SZ,
                                        reinterpret_cast<const BYTE*>(value->c_str()),
                                        static_cast<DWORD>(value->size())));  // Windows adds the zero
    }

    SystemError RegDeleteValueA(RegistryKey key, const std::string& name) override {
        const auto valueName = ansi(name);
        if (!valueName) return SystemError::InvalidName;
        return outcome(::RegDeleteValueA(systemKey(key), valueName->c_str()));
    }

    SystemError SHDeleteKeyA(RegistryKey parent, const std::string& subKey) override {
        const auto name = ansi(subKey);
        if (!name) return SystemError::InvalidName;
        return outcome(static_cast<LSTATUS>(::SHDeleteKeyA(systemKey(parent), name->c_str())));
    }

    Outcome<std::string> RegEnumKeyExA(RegistryKey key, std::uint32_t index) override {
        std::string name(2 * kMostOfKeyName, '\0');  // a character may take two bytes
        auto length = static_cast<DWORD>(name.size() + 1);
        const LSTATUS status =
            ::RegEnumKeyExA(systemKey(key), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS) return {.error = outcome(status)};
        return {fromAnsi(name.substr(0, length))};
    }

    Outcome<std::string> RegEnumValueA(RegistryKey key, std::uint32_t index) override {
        std::string name(2 * kMostOfValueName, '\0');
        auto length = static_cast<DWORD>(name.size() + 1);
        const LSTATUS status =
            ::RegEnumValueA(systemKey(key), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS) return {.error = outcome(status)};
        return {fromAnsi(name.substr(0, length))};
    }
};

}  // namespace

std::unique_ptr<Registry> makeRegistry() { return std::make_unique<WindowsRegistry>(); }

}  // namespace t_genproc
