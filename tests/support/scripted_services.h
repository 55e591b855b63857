/// Services that say what a test has them say, for what no real system can be brought to do.
#pragma once

#include <map>
#include <random>

#include "platform/platform.h"

namespace t_genproc::test {

/// Special folders by number: a status, and a text as a call leaves it in the caller's buffer.
struct ScriptedShell : Shell {
    std::map<std::int32_t, ShellOutcome<std::string>> folders;
    std::string calls;

    ShellOutcome<std::string> find(std::int32_t folder) {
        const auto found = folders.find(folder - kCreateFolder);
        return found == folders.end() ? ShellOutcome<std::string>{ShellStatus::InvalidArgument}
                                      : found->second;
    }
    ShellOutcome<std::string> SHGetFolderPathA(std::int32_t folder) override {
        calls += "folder path ";
        return find(folder);
    }
    ShellOutcome<ItemIdList> SHGetSpecialFolderLocation(std::int32_t folder) override {
        calls += "location ";
        return {find(folder).status, folder};
    }
    std::string SHGetPathFromIDListA(ItemIdList list) override {
        calls += "list path ";
        return find(static_cast<std::int32_t>(list)).value;
    }
    void CoTaskMemFree(ItemIdList /*list*/) override { calls += "free "; }
    int SHFileOperationA(std::uint32_t, const std::string&, const std::string&, std::uint16_t) override {
        return 1;
    }
};

struct ScriptedSystem : SystemInformation {
    Outcome<OsVersion> version{
        {.major = 6, .minor = 1, .build = 7601 + 65536, .platform = 2, .servicePack = ""}};
    std::map<std::string, std::string> folders;  // "windows", "system", "temp"
    std::string userProfile;

    static CountedText counted(const std::string& text) { return {text.size(), text}; }
    Outcome<OsVersion> GetVersionExA() override { return version; }
    std::uint64_t GlobalMemoryStatus() override { return 1572864; }
    CountedText GetSystemDirectoryA(std::size_t) override { return counted(folders["system"]); }
    CountedText GetWindowsDirectoryA(std::size_t) override { return counted(folders["windows"]); }
    CountedText GetTempPathA(std::size_t) override { return counted(folders["temp"]); }
    Outcome<std::string> GetTempFileNameA(const std::string&, const std::string&) override {
        return {.error = SystemError::Directory};
    }
    CountedText GetEnvironmentVariableA(const std::string& name, std::size_t) override {
        return counted(name == "USERPROFILE" ? userProfile : "");
    }
    std::string GetEnvironmentStringsW() override { return std::string("A=1\0B=\0=C:=C:\\x\0\0", 15); }
    Outcome<Guid> CoCreateGuid() override { return {.error = SystemError::NotSupported}; }
};

/// The time and the zone that a test sets. The rules of a zone and internet dates are those of a real clock,
/// where the test hands one in.
struct ScriptedClock : Clock {
    explicit ScriptedClock(std::unique_ptr<Clock> of = nullptr) : real(std::move(of)) {}

    std::unique_ptr<Clock> real;
    SystemTime local;
    SystemTime universal;
    std::uint32_t ticks = 0;
    std::uint32_t oversleep = 0;  // how much longer a sleep takes
    CurrentTimeZone zone;
    Outcome<FileTime> toLocal;  // of every file time
    Outcome<SystemTime> toRecord;

    SystemTime GetLocalTime() override { return local; }
    SystemTime GetSystemTime() override { return universal; }
    std::uint32_t GetTickCount() override { return ticks; }
    void Sleep(std::uint32_t milliseconds) override { ticks += milliseconds + oversleep; }
    CurrentTimeZone GetTimeZoneInformation() override { return zone; }
    Outcome<SystemTime> SystemTimeToTzSpecificLocalTime(const TimeZoneInformation& of,
                                                        const SystemTime& time) override {
        if (!real) return {.error = SystemError::NotSupported};
        return real->SystemTimeToTzSpecificLocalTime(of, time);
    }
    Outcome<SystemTime> InternetTimeToSystemTimeA(const std::string& text) override {
        if (!real) return {.error = SystemError::NotSupported};
        return real->InternetTimeToSystemTimeA(text);
    }
    Outcome<FileTime> FileTimeToLocalFileTime(const FileTime&) override { return toLocal; }
    Outcome<SystemTime> FileTimeToSystemTime(const FileTime&) override { return toRecord; }
    std::string GetDateFormatA(const SystemTime& time) override {
        return std::to_string(time.day) + '/' + std::to_string(time.month) + '/' + std::to_string(time.year);
    }
    std::string GetTimeFormatA(const SystemTime& time) override { return std::to_string(time.hour) + " h"; }
};

/// A program that starts, or does not, and runs for some polls.
struct ScriptedProcesses : Processes {
    Launch launch;
    int polls = 0;
    std::string calls;

    Launch CreateProcessA(const std::string& commandLine, bool inherit, std::uint32_t flags) override {
        calls += "start " + commandLine + (inherit ? " 1 " : " 0 ") + std::to_string(flags) + '\n';
        return launch;
    }
    std::uint32_t WaitForInputIdle(ProcessHandle process, std::uint32_t milliseconds) override {
        calls += "idle " + std::to_string(process) + (milliseconds == kInfinite ? " infinite\n" : "\n");
        return kWaitFailed;
    }
    std::uint32_t WaitForSingleObject(ProcessHandle process, std::uint32_t milliseconds) override {
        calls += "poll " + std::to_string(process) + ' ' + std::to_string(milliseconds) + '\n';
        return polls-- > 0 ? kWaitTimeout : kWaitObject;
    }
    SystemError CloseHandle(ProcessHandle handle) override {
        calls += "close " + std::to_string(handle) + '\n';
        return SystemError::Success;
    }
};

/// The real registry, all roots of which lie below a key of the test's own, removed at the end. Calls fail as
/// the test says.
struct TestRegistry : Registry {
    explicit TestRegistry(std::unique_ptr<Registry> of) : real(std::move(of)) {}
    ~TestRegistry() override { real->SHDeleteKeyA(RootKey::CurrentUser, below); }

    const std::string below = "Software\\t_genproc test " + std::to_string(std::random_device()());
    std::unique_ptr<Registry> real;
    SystemError onWriting = SystemError::Success;
    SystemError onReading = SystemError::Success;
    SystemError onSetting = SystemError::Success;
    int open = 0;

    std::string place(RegistryKey root, const std::string& subKey) const {
        return below + ('\\' + std::to_string(root)) + '\\' + subKey;
    }
    Outcome<RegistryKey> counted(const Outcome<RegistryKey>& key) {
        if (key) ++open;
        return key;
    }
    Outcome<RegistryKey> RegCreateKeyExA(RegistryKey root, const std::string& subKey, const std::string& name,
                                         std::uint32_t access) override {
        if (onWriting != SystemError::Success) return {.error = onWriting};
        return counted(real->RegCreateKeyExA(RootKey::CurrentUser, place(root, subKey), name, access));
    }
    Outcome<RegistryKey> RegOpenKeyExA(RegistryKey root, const std::string& subKey,
                                       std::uint32_t access) override {
        const SystemError refusal = access == KeyAccess::Full ? onWriting : onReading;
        if (refusal != SystemError::Success) return {.error = refusal};
        return counted(real->RegOpenKeyExA(RootKey::CurrentUser, place(root, subKey), access));
    }
    SystemError RegCloseKey(RegistryKey key) override {
        --open;
        return real->RegCloseKey(key);
    }
    SystemError RegSetValueExA(RegistryKey key, const std::string& name, const std::string& text) override {
        return onSetting != SystemError::Success ? onSetting : real->RegSetValueExA(key, name, text);
    }
    Outcome<RegistryValue> RegQueryValueExA(RegistryKey key, const std::string& name,
                                            std::size_t size) override {
        return real->RegQueryValueExA(key, name, size);
    }
    SystemError RegDeleteValueA(RegistryKey key, const std::string& name) override {
        return real->RegDeleteValueA(key, name);
    }
    SystemError SHDeleteKeyA(RegistryKey root, const std::string& subKey) override {
        return real->SHDeleteKeyA(RootKey::CurrentUser, place(root, subKey));
    }
    Outcome<std::string> RegEnumKeyExA(RegistryKey key, std::uint32_t index) override {
        return real->RegEnumKeyExA(key, index);
    }
    Outcome<std::string> RegEnumValueA(RegistryKey key, std::uint32_t index) override {
        return real->RegEnumValueA(key, index);
    }
};

}  // namespace t_genproc::test
