#include <map>

#include "platform/portable/adapters.h"
#include "platform/portable/ensure_folder.h"
#include "platform/portable/registry_text.h"
#include "platform/portable/replace_file.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr const char *kFolder = "C:\\Windows", *kFile = "C:\\Windows\\registry.txt";

/// Rights to a key beside KeyAccess::QueryValue.
constexpr std::uint32_t kSetValue = 0x2, kCreateSubKey = 0x4, kEnumerateSubKeys = 0x8;

struct OpenKey {
    std::string path;
    std::uint32_t access = KeyAccess::Full;
};

std::string applied(std::string_view text, const TextChange& change) {
    return std::string(text).replace(change.position, change.length, change.replacement);
}

class PortableRegistry : public Registry {
   public:
    explicit PortableRegistry(std::shared_ptr<DriveMap> drives)
        : drives_(std::move(drives)), exactLocation_(drives_->exactPath(kFile).value) {}

    Outcome<RegistryKey> RegCreateKeyExA(RegistryKey parent, const std::string& subKey,
                                         const std::string& /*className*/, std::uint32_t access) override {
        const Outcome<RegistryKey> there = RegOpenKeyExA(parent, subKey, access);
        if (there.error != SystemError::FileNotFound) return there;
        const SystemError error = change(parent, 0, [&](std::string_view text, std::string_view path) {
            return withKey(text, path, registryPath(path, subKey));
        });
        return error == SystemError::Success ? RegOpenKeyExA(parent, subKey, access)
                                             : Outcome<RegistryKey>{{}, error};
    }

    Outcome<RegistryKey> RegOpenKeyExA(RegistryKey parent, const std::string& subKey,
                                       std::uint32_t access) override {
        if (subKey.starts_with('\\')) return {{}, SystemError::BadPathName};
        const bool forWriting = (access & (kSetValue | kCreateSubKey)) != 0;
        const auto findKey = [&](std::string_view text, std::string_view path) {
            return registryKey(text, path, registryPath(path, subKey));
        };
        Outcome<std::string> path = find(parent, 0, findKey, forWriting ? Purpose::Change : Purpose::Read);
        if (path.error == SystemError::WriteProtected) path.error = SystemError::AccessDenied;
        if (!path) return {{}, path.error};
        keys_[++lastKey_] = {std::move(path.value), access};
        return {lastKey_};
    }

    SystemError RegCloseKey(RegistryKey key) override {
        const bool isOpen = keys_.contains(key);
        if (key > 0) keys_.erase(key);
        return isOpen ? SystemError::Success : SystemError::InvalidHandle;
    }

    Outcome<RegistryValue> RegQueryValueExA(RegistryKey key, const std::string& name,
                                            std::size_t size) override {
        const auto findValue = [&](std::string_view text, std::string_view path) {
            return registryValue(text, path, name);
        };
        Outcome<std::string> found = find(key, KeyAccess::QueryValue, findValue);
        if (!found) return {{}, found.error};
        if (!found.value.empty()) found.value += '\0';
        const auto isLonger = [&] { return static_cast<std::size_t>(text::length(found.value)) > size; };
        if (found.value.size() > size && isLonger()) return {{}, SystemError::MoreData};
        return {{ValueType::Text, std::move(found.value)}};
    }

    SystemError RegSetValueExA(RegistryKey key, const std::string& name, const std::string& value) override {
        return change(key, kSetValue, [&](std::string_view text, std::string_view path) {
            return withValue(text, path, name, value);
        });
    }

    SystemError RegDeleteValueA(RegistryKey key, const std::string& name) override {
        return change(key, kSetValue, [&](std::string_view text, std::string_view path) {
            return withoutValue(text, path, name);
        });
    }

    SystemError SHDeleteKeyA(RegistryKey parent, const std::string& subKey) override {
        return change(parent, 0, [&](std::string_view text, std::string_view path) -> Outcome<TextChange> {
            if (subKey.starts_with('\\')) return {{}, SystemError::BadPathName};
            const std::string doomed = registryPath(path, subKey);
            if (registryKey(kEmptyRegistry, doomed, doomed)) return {{}, SystemError::AccessDenied};
            return withoutKey(text, path, doomed);
        });
    }

    Outcome<std::string> RegEnumKeyExA(RegistryKey key, std::uint32_t index) override {
        return find(key, kEnumerateSubKeys, [&](std::string_view text, std::string_view path) {
            return subKeyName(text, path, index);
        });
    }

    Outcome<std::string> RegEnumValueA(RegistryKey key, std::uint32_t index) override {
        return find(key, KeyAccess::QueryValue, [&](std::string_view text, std::string_view path) {
            return valueName(text, path, index);
        });
    }

   private:
    /// The key, where it may be used as `rights` says.
    Outcome<std::string_view> pathOf(RegistryKey key, std::uint32_t rights) const {
        const auto found = keys_.find(key);
        if (found == keys_.end()) return {{}, SystemError::InvalidHandle};
        if ((found->second.access & rights) != rights) return {{}, SystemError::AccessDenied};
        return {found->second.path};
    }

    /// What `findIn` finds in the text for the path of `key`. Before that counts as missing, the file is
    /// looked for under other spellings, no writer is at work in it, and every line of it has been seen.
    Outcome<std::string> find(RegistryKey key, std::uint32_t rights, const auto& findIn,
                              Purpose purpose = Purpose::Read) {
        const Outcome<std::string_view> path = pathOf(key, rights);
        if (!path) return {{}, path.error};
        Outcome<std::string_view> text = readFile(exactLocation_, Reading::AtOnce, buffer_, purpose);
        if (text && mayBeWhole(text.value)) {
            if (Outcome<std::string> found = findIn(text.value, path.value)) return found;
        }
        const std::string location = drives_->actualPath(kFile).value;
        text = readFile(location, Reading::BetweenWrites, buffer_, purpose);
        if (text.error == SystemError::FileNotFound) text = {};
        if (!text) return {{}, text.error};
        if (text.value.empty()) return findIn(kEmptyRegistry, path.value);
        if (!isWhole(text.value)) return {{}, SystemError::DamagedRegistry};
        return findIn(text.value, path.value);
    }

    /// Applies what `makeChange` makes of the text for the path of `key`.
    SystemError change(RegistryKey key, std::uint32_t rights, const auto& makeChange) {
        const Outcome<std::string_view> path = pathOf(key, rights);
        if (!path) return path.error;
        ensureFolder(*drives_, kFolder);  // where that fails, so does the next call
        const std::string location = drives_->actualPath(kFile).value;
        return changeFile(location, buffer_, [&](std::string_view text) -> Outcome<TextChange> {
            if (!text.empty() && !isWhole(text)) return {{}, SystemError::DamagedRegistry};
            if (!text.empty()) return makeChange(text, path.value);
            const Outcome<TextChange> first = makeChange(kEmptyRegistry, path.value);
            return {{0, 0, applied(kEmptyRegistry, first.value)}, first.error};
        });
    }

    std::shared_ptr<DriveMap> drives_;
    std::string exactLocation_;
    ReadBuffer buffer_;
    std::map<RegistryKey, OpenKey> keys_{
        {RootKey::ClassesRoot, {"HKEY_LOCAL_MACHINE\\Software\\Classes"}},
        {RootKey::CurrentUser, {"HKEY_CURRENT_USER"}},
        {RootKey::LocalMachine, {"HKEY_LOCAL_MACHINE"}},
        {RootKey::Users, {"HKEY_USERS"}},
        {RootKey::CurrentConfig, {"HKEY_CURRENT_CONFIG"}},
    };
    RegistryKey lastKey_ = 0;
};

}  // namespace

std::unique_ptr<Registry> makeRegistry(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableRegistry>(std::move(drives));
}

}  // namespace t_genproc::portable
