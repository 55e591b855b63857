#include <algorithm>
#include <filesystem>

#include "platform/portable/adapters.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

/// As addresses have it: whatever is neither plain nor in `signs` becomes "%" and its code.
std::string encoded(std::string_view text, std::string_view signs = {}) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string address;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (text::contains(kPlain, {&character, 1}) || text::contains(signs, {&character, 1})) {
            address += character;
        } else {
            address += {'%', kDigits[byte / 16], kDigits[byte % 16]};
        }
    }
    return address;
}

/// The pages of PortableOptions::helpPages in the user's browser.
class BrowserHelpViewer final : public HelpViewer {
   public:
    BrowserHelpViewer(std::shared_ptr<DriveMap> drives, const PortableOptions& options)
        : drives_(std::move(drives)),
          processes_(makeProcesses(drives_)),
          messages_(makeWindowsAndMessages(options)),
          pages_(options.helpPages),
          browser_(options.browser) {}

    /// A message box tells why nothing can be shown. There is no window to give in any case.
    WindowHandle HtmlHelpA(WindowHandle /*owner*/, const std::string& helpFile, std::uint32_t command,
                           std::int32_t data) override {
        const bool isTopic = command == HelpCommand::Topic;
        const auto found = isTopic ? pages_.topics.find(data) : pages_.topics.end();
        const std::string page =
            isTopic ? (found == pages_.topics.end() ? "" : found->second) : pages_.contents;
        if (page.empty()) {
            tell(isTopic ? "The help has no page for topic " + std::to_string(data) + '.'
                         : "The help has no table of contents.");
        } else {
            // Behind "#" stands a place of the page.
            const std::size_t end = std::min(page.find('#'), page.size());
            show(page.substr(0, end), page.substr(end), helpFile);
        }
        return 0;
    }

   private:
    void show(const std::string& page, const std::string& place, const std::string& helpFile) {
        if (text::contains(page, "://")) return open(page + place, page);
        const bool hasDrive = text::contains(page, ":");
        const std::string folder = helpFile.substr(0, helpFile.find_last_of("\\/:") + 1);
        const std::string file = hasDrive ? page : folder + page;
        const Outcome<std::string> path = drives_->actualPath(file);
        std::error_code none;
        if (!path || !std::filesystem::is_regular_file(path.value, none)) {
            return tell("There is no help page " + file + '.');
        }
        open("file://" + encoded(path.value) + place, file);
    }

    void open(const std::string& address, const std::string& page) {
        constexpr std::string_view kSigns = ":?#[]@!$&'()*+,;=%";
        const std::string argument = " \"" + encoded(address, kSigns) + '"';
        const Launch launch = processes_->CreateProcessA(browser_ + argument, false, kNormalPriority);
        if (!launch.started) return tell("Cannot start " + browser_ + " to show the help page " + page + '.');
        processes_->CloseHandle(launch.information.process);
        processes_->CloseHandle(launch.information.thread);
    }

    void tell(const std::string& text) {
        messages_->MessageBoxA(text, "Help", MessageStyle::Exclamation | MessageStyle::Ok);
    }

    std::shared_ptr<DriveMap> drives_;
    std::unique_ptr<Processes> processes_;
    std::unique_ptr<WindowsAndMessages> messages_;
    HelpPages pages_;
    std::string browser_;
};

}  // namespace

std::unique_ptr<HelpViewer> makeHelpViewer(std::shared_ptr<DriveMap> drives, const PortableOptions& options) {
    return std::make_unique<BrowserHelpViewer>(std::move(drives), options);
}

}  // namespace t_genproc::portable
