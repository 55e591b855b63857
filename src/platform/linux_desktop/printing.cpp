#include <algorithm>

#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/dialogs.h"
#include "platform/linux_desktop/global_memory.h"
#include "platform/linux_desktop/printer_context.h"
#include "platform/linux_desktop/rich_text_formatter.h"
#include "platform/linux_desktop/terminal.h"

namespace t_genproc::linux_desktop {
namespace {

class DesktopPrinting final : public Printing {
   public:
    explicit DesktopPrinting(std::shared_ptr<Desktop> desktop)
        : desktop_(std::move(desktop)), dialogs_(desktop_->options, memory_) {}

    std::int32_t PrintDlgA(PrintDialog& dialog) override { return dialogs_.print(dialog); }
    std::int32_t PageSetupDlgA(PageSetupDialog& dialog) override { return dialogs_.setUpPage(dialog); }

    std::size_t GlobalSize(MemoryBlock block) override { return memory_.bytes(block).size(); }
    std::byte* GlobalLock(MemoryBlock block) override { return memory_.bytes(block).data(); }
    void GlobalUnlock(MemoryBlock /*block*/) override {}
    void GlobalFree(MemoryBlock block) override { memory_.free(block); }
    std::size_t lstrlenA(const std::string& text) override {
        return std::min(text.find(char{}), text.size());
    }

    DeviceContext CreateDCA(const std::string& device, std::span<const std::byte> settings) override {
        if (device.empty()) return 0;
        std::optional<Printer> printer = findPrinter(device);
        if (!printer) {
            tellFailure(desktop_->options, "There is no printer " + device + '.');
            return 0;
        }
        return desktop_->contexts.add(std::make_shared<PrinterContext>(*desktop_, std::move(*printer),
                                                                       copyOf<DeviceSettings>(settings)));
    }
    std::int32_t StartDocA(DeviceContext context, const DocumentInformation& document) override {
        const auto printer = printerAt(context);
        return printer && printer->startDocument(document) ? 1 : 0;
    }
    std::int32_t StartPage(DeviceContext context) override {
        const auto printer = printerAt(context);
        return printer && printer->startPage() ? 1 : 0;
    }
    std::int32_t EndPage(DeviceContext context) override {
        const auto printer = printerAt(context);
        return printer && printer->endPage() ? 1 : 0;
    }
    std::int32_t EndDoc(DeviceContext context) override {
        const auto printer = printerAt(context);
        return printer && printer->endDocument() ? 1 : 0;
    }

    std::intptr_t SendMessageA(WindowHandle window, std::uint32_t message, bool render,
                               const FormatRange* range) override {
        if (message != kFormatRange) return 0;
        if (range == nullptr) formatter_.forget(window);
        const auto text =
            range != nullptr && desktop_->options.richText ? desktop_->options.richText(window) : nullptr;
        if (text == nullptr) return 0;
        const auto context = desktop_->contexts.find(range->context);
        return formatter_.format(window, text, *range, render ? context.get() : nullptr);
    }

   private:
    std::shared_ptr<PrinterContext> printerAt(DeviceContext context) const {
        return std::dynamic_pointer_cast<PrinterContext>(desktop_->contexts.find(context));
    }

    std::shared_ptr<Desktop> desktop_;
    GlobalMemory memory_;
    Dialogs dialogs_;
    RichTextFormatter formatter_;
};

}  // namespace

std::unique_ptr<Printing> makePrinting(std::shared_ptr<Desktop> desktop) {
    return std::make_unique<DesktopPrinting>(std::move(desktop));
}

}  // namespace t_genproc::linux_desktop
