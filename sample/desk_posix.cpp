#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>

#include "desk.h"
#include "host/rich_text_control.h"
#include "host/rich_text_format.h"
#include "platform/linux_desktop/linux_desktop.h"

namespace tavoru {
namespace {

using t_genproc::WindowHandle;

// ---- Windows by their titles

template <class Type>
using FromXcb = std::unique_ptr<Type, decltype([](Type* memory) { std::free(memory); })>;

std::string titleOf(xcb_connection_t* display, xcb_window_t window) {
    constexpr std::uint32_t kMost = 256;  // words of four bytes
    const FromXcb<xcb_get_property_reply_t> title(xcb_get_property_reply(
        display, xcb_get_property(display, 0, window, XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0, kMost), nullptr));
    if (!title) return {};
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(title.get()));
    return {static_cast<const char*>(xcb_get_property_value(title.get())), length};
}

/// `window` or one below it; 0: none of them has the title.
xcb_window_t findTitle(xcb_connection_t* display, xcb_window_t window, const std::string& title) {
    if (titleOf(display, window) == title) return window;
    const FromXcb<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(display, xcb_query_tree(display, window), nullptr));
    if (!tree) return 0;
    const std::span children(xcb_query_tree_children(tree.get()),
                             static_cast<std::size_t>(xcb_query_tree_children_length(tree.get())));
    for (const xcb_window_t child : children) {
        if (const xcb_window_t found = findTitle(display, child, title); found != 0) return found;
    }
    return 0;
}

// ---- The desk

class LinuxDesk final : public Desk {
   public:
    LinuxDesk(t_genproc::Platform& platform, const std::optional<PrinterChoice>& choice)
        : platform_(platform),
          printing_(std::move(platform.printing)),
          graphics_(std::move(platform.graphics)) {
        t_genproc::LinuxDesktopOptions options;
        options.richText = [this](WindowHandle window) { return texts_.find(window); };
        options.failed = [this](const std::string& message) { failure_ = message; };
        if (choice) options.choosePrinter = [answer = answerOf(*choice)] { return answer; };
        options.answers = &std::cin;  // a pipe may answer too; its end cancels
        t_genproc::addLinuxDesktop(platform, std::move(options));
    }
    LinuxDesk(const LinuxDesk&) = delete;
    LinuxDesk& operator=(const LinuxDesk&) = delete;
    ~LinuxDesk() override {
        platform_.printing = std::move(printing_);
        platform_.graphics = std::move(graphics_);
    }

    std::vector<std::string> printerNames() override { return t_genproc::printerNames(); }
    t_genproc::ObjectPointer openRichText(const std::string& rtf) override {
        return texts_.open(t_gencvf::readRichText(rtf));
    }
    std::string failure() const override { return failure_; }

    WindowHandle windowTitled(const std::string& title) override {
        int screen = 0;
        const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> display(
            xcb_connect(nullptr, &screen), xcb_disconnect);
        if (xcb_connection_has_error(display.get()) != 0) return 0;
        xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(display.get()));
        for (; screen > 0; --screen) xcb_screen_next(&screens);
        return findTitle(display.get(), screens.data->root, title);
    }

   private:
    static t_genproc::PrinterAnswer answerOf(const PrinterChoice& choice) {
        const bool isFile = choice.printer.empty() && !choice.outputFile.empty();
        return {.printer = isFile ? t_genproc::kPdfPrinter : choice.printer,
                .outputFile = choice.outputFile,
                .selection = true};
    }

    t_genproc::Platform& platform_;
    std::unique_ptr<t_genproc::Printing> printing_;  // the platform's, which come back at the end
    std::unique_ptr<t_genproc::Graphics> graphics_;
    t_gencvf::RichTextWindows texts_;
    std::string failure_;
};

}  // namespace

const bool kAnswersPrintDialog = true;

std::unique_ptr<Desk> openDesk(t_genproc::Platform& platform, const std::optional<PrinterChoice>& choice) {
    return std::make_unique<LinuxDesk>(platform, choice);
}

std::string pathOnDrive(const std::string& name) {
    if (name.size() > 1 && name[1] == ':') return name;
    std::string path = "Z:" + std::filesystem::absolute(name).lexically_normal().string();
    std::ranges::replace(path, '/', '\\');
    return path;
}

}  // namespace tavoru
