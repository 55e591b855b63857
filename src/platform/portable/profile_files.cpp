#include <algorithm>
#include <array>

#include "platform/portable/adapters.h"
#include "platform/portable/profile_text.h"
#include "platform/portable/replace_file.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

/// Ahead of a text in 16-bit units, which is not handled here.
constexpr std::array<std::string_view, 2> kWideTextMarks{"\xFF\xFE", "\xFE\xFF"};

bool isOneLine(std::string_view text) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

/// A bare name stands for a file in the Windows folder.
std::string inItsFolder(const std::string& fileName) {
    const bool isBare = !fileName.empty() && fileName.find_first_of("\\/:") == std::string::npos;
    return isBare ? "C:\\Windows\\" + fileName : fileName;
}

class PortableProfileFiles : public ProfileFiles {
   public:
    explicit PortableProfileFiles(std::shared_ptr<DriveMap> drives) : drives_(std::move(drives)) {}

    std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                         std::string_view defaultValue, std::size_t size,
                                         const std::string& fileName) override {
        const std::string_view found =
            withoutQuotes(find(section, key, inItsFolder(fileName)).value_or(defaultValue));
        const std::size_t most = size == 0 ? 0 : size - 1;
        return found.size() <= most ? std::string(found)
                                    : text::left(found, static_cast<std::ptrdiff_t>(most));
    }

    int WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                   const std::string& fileName) override {
        if (!isOneLine(section) || !isOneLine(key) || !isOneLine(value)) return 0;
        const Outcome<std::string> location = drives_->actualPath(inItsFolder(fileName));
        if (!location) return 0;
        const auto change = [&](std::string_view text) -> Outcome<TextChange> {
            const bool isWide = std::ranges::find(kWideTextMarks, text.substr(0, 2)) != kWideTextMarks.end();
            if (isWide) return {{}, SystemError::NotSupported};
            return {profileChange(text, section, key, value)};
        };
        return changeFile(location.value, buffer_, change) == SystemError::Success ? 1 : 0;
    }

   private:
    /// Most files stand under exactly the name that is asked for, and hold the key. Before it counts as
    /// missing, the file is looked for under other spellings, and no writer is at work in it.
    std::optional<std::string_view> find(std::string_view section, std::string_view key,
                                         const std::string& fileName) {
        const Outcome<std::string> exact = drives_->exactPath(fileName);
        if (!exact) return {};
        if (const auto value = findIn(exact.value, Reading::AtOnce, section, key)) return value;
        return findIn(drives_->actualPath(fileName).value, Reading::BetweenWrites, section, key);
    }

    std::optional<std::string_view> findIn(const std::string& location, Reading reading,
                                           std::string_view section, std::string_view key) {
        const Outcome<std::string_view> text = readFile(location, reading, buffer_);
        return text ? profileValue(text.value, section, key) : std::nullopt;
    }

    std::shared_ptr<DriveMap> drives_;
    ReadBuffer buffer_;
};

}  // namespace

std::unique_ptr<ProfileFiles> makeProfileFiles(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableProfileFiles>(std::move(drives));
}

}  // namespace t_genproc::portable
