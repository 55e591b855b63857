#include <windows.h>

#include <algorithm>
#include <limits>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

/// Windows would write it, and read back something else.
bool hasLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

class WindowsProfileFiles final : public ProfileFiles {
   public:
    std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                         std::string_view defaultValue, std::size_t size,
                                         const std::string& fileName) override {
        const auto name = toAnsi(fileName), sectionName = toAnsi(section), keyName = toAnsi(key);
        if (!name || !sectionName || !keyName) return std::string(defaultValue);

        std::string value(std::min<std::size_t>(size, std::numeric_limits<DWORD>::max()), '\0');
        value.resize(::GetPrivateProfileStringA(sectionName->c_str(), keyName->c_str(),
                                                toAnsiWithLoss(defaultValue).c_str(), value.data(),
                                                static_cast<DWORD>(value.size()), name->c_str()));
        return fromAnsi(value);
    }

    int WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                   const std::string& fileName) override {
        if (hasLineBreak(section) || hasLineBreak(key) || hasLineBreak(value)) return 0;
        const auto name = toAnsi(fileName), sectionName = toAnsi(section), keyName = toAnsi(key),
                   valueText = toAnsi(value);
        if (!name || !sectionName || !keyName || !valueText) return 0;
        return ::WritePrivateProfileStringA(sectionName->c_str(), keyName->c_str(), valueText->c_str(),
                                            name->c_str());
    }
};

}  // namespace

std::unique_ptr<ProfileFiles> makeProfileFiles() { return std::make_unique<WindowsProfileFiles>(); }

}  // namespace t_genproc
