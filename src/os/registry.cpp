#include <optional>

#include "frame/library.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"
#include "platform/file_system.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::string_view kSource = "SetRegString";
constexpr std::int32_t kSetValueFailed = 32002;
constexpr std::int32_t kCreateKeyFailed = 32003;
constexpr std::size_t kBufferSize = 255;  // characters, the terminating zero among them
constexpr std::size_t kLongestValue = std::size_t{1024} * 1024;

/// A key, closed with its owner.
class OpenKey {
   public:
    OpenKey(Registry& registry, const Outcome<RegistryKey>& opened)
        : registry_(registry), key_(opened.value), error_(opened.error) {}
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey() {
        if (isOpen()) registry_.RegCloseKey(key_);
    }

    bool isOpen() const { return error_ == SystemError::Success; }
    SystemError error() const { return error_; }
    RegistryKey key() const { return key_; }

   private:
    Registry& registry_;
    RegistryKey key_;
    SystemError error_;
};

bool isText(const RegistryValue& value) {
    return value.type == ValueType::Text || value.type == ValueType::ExpandableText;
}

/// A text as it is, a number in decimal; none for other types.
std::optional<std::string> plainText(const RegistryValue& value) {
    if (isText(value)) return value.bytes.substr(0, value.bytes.find('\0'));
    if (value.type != ValueType::Number) return std::nullopt;
    std::uint32_t number = 0;
    for (std::size_t i = value.bytes.size(); i-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(value.bytes[i]);
    }
    return numberText(std::int64_t{number});
}

/// All that `next` gives for 0, 1 and so on.
template <class Next>
std::vector<std::string> namesFrom(const Next& next) {
    std::vector<std::string> names;
    for (std::uint32_t index = 0;; ++index) {
        const Outcome<std::string> name = next(index);
        if (!name) return names;
        names.push_back(name.value);
    }
}

}  // namespace

bool cAPIprocs::SetRegString(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName,
                             const std::string& strSetting, bool noError, bool /*developmentOnly*/) {
    return procedure(library_, "(Class Module) cAPIprocs::Function SetRegString", [&] {
        Registry& registry = *library_.platform().registry;
        const auto failed = [noError](std::int32_t number) {
            if (!noError) throw RuntimeError(number, kSource);
            return false;
        };
        const OpenKey key(registry, registry.RegCreateKeyExA(hkey, strSubKey, strClassName, KeyAccess::Full));
        if (!key.isOpen()) return failed(kCreateKeyFailed);
        const SystemError error = registry.RegSetValueExA(key.key(), strClassName, strSetting);
        return error == SystemError::Success || failed(kSetValueFailed);
    });
}

std::string cAPIprocs::GetRegString(std::int32_t hkey, const std::string& strSubKey,
                                    const std::string& strClassName, const std::string& defaultVal,
                                    bool /*Trace*/) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetRegString", [&]() -> std::string {
        Registry& registry = *library_.platform().registry;
        const auto madeFromDefault = [&]() -> std::string {
            if (text::isBlank(defaultVal)) return {};
            SetRegString(hkey, strSubKey, strClassName, defaultVal);
            return defaultVal;
        };

        Outcome<RegistryKey> opened = registry.RegOpenKeyExA(hkey, strSubKey, KeyAccess::Full);
        const bool writable = static_cast<bool>(opened);
        if (!writable) opened = registry.RegOpenKeyExA(hkey, strSubKey, KeyAccess::QueryValue);
        const OpenKey key(registry, opened);
        if (!key.isOpen()) return key.error() == SystemError::AccessDenied ? "" : madeFromDefault();

        const Outcome<RegistryValue> value = registry.RegQueryValueExA(key.key(), strClassName, kBufferSize);
        const std::string buffer =
            isText(value.value) ? value.value.bytes : library_.platform().files->decode(value.value.bytes);
        const std::ptrdiff_t size = value ? text::length(buffer) : 0;
        if (size > 1) return text::left(buffer, size - 1);  // without the terminating zero
        return value || writable ? madeFromDefault() : "";
    });
}

bool cAPIprocs::DeleteRegKey(std::int32_t hkey, const std::string& strSubKey,
                             const std::string& strClassName) {
    return procedure(library_, "(Class Module) cAPIprocs::Function DeleteRegKey", [&] {
        Registry& registry = *library_.platform().registry;
        if (strClassName.empty()) {
            const std::string_view key = std::string_view(strSubKey).substr(0, strSubKey.find('\0'));
            const bool namesKey = key.find_first_not_of('\\') != std::string_view::npos;
            return namesKey && registry.SHDeleteKeyA(hkey, strSubKey) == SystemError::Success;
        }
        const OpenKey key(registry, registry.RegOpenKeyExA(hkey, strSubKey, KeyAccess::Full));
        return key.isOpen() && registry.RegDeleteValueA(key.key(), strClassName) == SystemError::Success;
    });
}

bool cAPIprocs::GetKeyValue(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName,
                            std::string& keyVal) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetKeyValue", [&] {
        Registry& registry = *library_.platform().registry;
        const OpenKey key(registry, registry.RegOpenKeyExA(hkey, strSubKey, KeyAccess::QueryValue));
        Outcome<RegistryValue> found{.error = key.error()};
        if (key.isOpen()) found = registry.RegQueryValueExA(key.key(), strClassName, kBufferSize);
        if (found.error == SystemError::MoreData) {
            found = registry.RegQueryValueExA(key.key(), strClassName, kLongestValue);
        }
        const std::optional<std::string> text = found ? plainText(found.value) : std::nullopt;
        keyVal = text.value_or("");
        return text.has_value();
    });
}

KeyContent cAPIprocs::KeyDetails(std::int32_t hkey, const std::string& strSubKey) {
    return procedure(library_, "(Class Module) cAPIprocs::Function KeyDetails", [&]() -> KeyContent {
        Registry& registry = *library_.platform().registry;
        const OpenKey key(registry, registry.RegOpenKeyExA(hkey, strSubKey, KeyAccess::Read));
        if (!key.isOpen()) return {};
        return {namesFrom([&](std::uint32_t index) { return registry.RegEnumKeyExA(key.key(), index); }),
                namesFrom([&](std::uint32_t index) { return registry.RegEnumValueA(key.key(), index); })};
    });
}

std::string cAPIprocs::ValidateRegPath(const std::string& regPath) {
    return procedure(library_, "(Class Module) cAPIprocs::Function ValidateRegPath", [&]() -> std::string {
        std::string path(text::trim(regPath.substr(0, regPath.find('\0'))));
        if (path.starts_with('"')) {
            path.erase(0, 1);
            path = text::trim(path.substr(0, path.find('"')));
        }
        const bool namesDrive = path.size() >= 3 && path[1] == ':' && path[2] == '\\';
        if (!namesDrive && !path.starts_with("\\\\")) return {};
        if (!path.ends_with('\\') && folderExists(*library_.platform().files, path)) path += '\\';
        return path;
    });
}

}  // namespace t_genproc
