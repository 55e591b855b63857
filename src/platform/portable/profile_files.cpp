#include "platform/portable/adapters.h"
#include "platform/portable/profile_text.h"
#include "platform/portable/replace_file.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::string_view kWideTextMark =
    "\xFF\xFE";  // the text is in 16-bit units, which are not handled here

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
            withoutQuotes(profileValue(read(inItsFolder(fileName)), section, key).value_or(defaultValue));
        const std::size_t most = size == 0 ? 0 : size - 1;
        return found.size() <= most ? std::string(found)
                                    : text::left(found, static_cast<std::ptrdiff_t>(most));
    }

    int WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                   const std::string& fileName) override {
        if (!isOneLine(section) || !isOneLine(key) || !isOneLine(value)) return 0;
        const Outcome<std::string> location = drives_->actualPath(inItsFolder(fileName));
        if (!location) return 0;
        const auto change = [&](std::string_view text) -> std::optional<TextChange> {
            if (text.starts_with(kWideTextMark)) return {};
            return profileChange(text, section, key, value);
        };
        return changeFile(location.value, buffer_, change) == SystemError::Success ? 1 : 0;
    }

   private:
    /// The text of a file; empty where there is none. Most files stand under exactly the name that is asked
    /// for.
    std::string_view read(const std::string& fileName) {
        const Outcome<std::string> exact = drives_->exactPath(fileName);
        if (!exact) return {};
        if (const std::optional<std::string_view> text = readWhole(exact.value, buffer_)) return *text;
        const Outcome<std::string> actual = drives_->actualPath(fileName);
        return actual.value == exact.value ? "" : readWhole(actual.value, buffer_).value_or("");
    }

    std::shared_ptr<DriveMap> drives_;
    std::string buffer_;
};

}  // namespace

std::unique_ptr<ProfileFiles> makeProfileFiles(std::shared_ptr<DriveMap> drives) {
    return std::make_unique<PortableProfileFiles>(std::move(drives));
}

}  // namespace t_genproc::portable
