#include <array>
#include <filesystem>

#include "platform/portable/adapters.h"
#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

bool isAddress(std::string_view page) { return text::contains(page, "://"); }

/// A path of this system as the address of a file.
std::string addressOf(std::string_view path) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string address = "file://";
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (text::contains(kPlain, {&character, 1})) {
            address += character;
        } else {
            address += {'%', kDigits[byte / 16], kDigits[byte % 16]};
        }
    }
    return address;
}

/// A quote would end the argument that the address is.
std::string withoutQuotes(std::string address) {
    for (std::size_t at = 0; (at = address.find('"', at)) != std::string::npos;)
        address.replace(at, 1, "%22");
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
        } else if (isAddress(page)) {
            show(withoutQuotes(page), page);
        } else {
            showFile(besideHelpFile(page, helpFile));
        }
        return 0;
    }

   private:
    static std::string besideHelpFile(const std::string& page, const std::string& helpFile) {
        if (text::contains(page, ":")) return page;
        return helpFile.substr(0, helpFile.find_last_of("\\/:") + 1) + page;
    }

    /// Behind "#" stands a place of the page.
    void showFile(const std::string& page) {
        const std::size_t end = page.find('#');
        const std::string file = page.substr(0, end),
                          place = end == std::string::npos ? "" : page.substr(end);
        const Outcome<std::string> path = drives_->actualPath(file);
        std::error_code none;
        if (path && std::filesystem::is_regular_file(path.value, none)) {
            show(addressOf(path.value) + place, file);
        } else {
            tell("There is no help page " + file + '.');
        }
    }

    void show(const std::string& address, const std::string& page) {
        const Launch launch =
            processes_->CreateProcessA(browser_ + " \"" + address + '"', false, kNormalPriority);
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
