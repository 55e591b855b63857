/// The platform's printing with the host between it and the library: the host has the page-setup dialog begin
/// with the page that the settings keep, or answers it with that page, and hears what becomes of a document.
///
///     PrintJob job{.page = readPageSetting(tavoru)};
///     const Replaced watched(platform.printing, std::make_unique<PrintWatch>(*platform.printing, job));
#pragma once

#include "page_setting.h"
#include "platform/printer_options.h"
#include "platform/printing.h"

namespace tavoru {

/// For cPrinter::PageSetup.
inline constexpr std::int32_t kPageOptions =
    t_genproc::PSD_MARGINS | t_genproc::PSD_INHUNDREDTHSOFMILLIMETERS;

struct PrintJob {
    PageSetting page{};         ///< from the dialog on, what the user has chosen
    bool asksForPage = false;   ///< otherwise the page-setup dialog is not shown
    bool wasConfirmed = false;  ///< the last dialog
    bool hasFailed = false;     ///< a document
    int pages = 0;
    std::string output{};  ///< where they have gone; empty: to the printer
};

class PrintWatch final : public t_genproc::Printing {
    using Context = t_genproc::DeviceContext;
    using Block = t_genproc::MemoryBlock;

   public:
    /// Both outlive it.
    PrintWatch(t_genproc::Printing& printing, PrintJob& job) : printing_(printing), job_(job) {}

    std::int32_t PrintDlgA(t_genproc::PrintDialog& dialog) override;
    std::int32_t PageSetupDlgA(t_genproc::PageSetupDialog& dialog) override;

    std::int32_t StartDocA(Context context, const t_genproc::DocumentInformation& document) override;
    std::int32_t StartPage(Context context) override;
    std::int32_t EndPage(Context context) override { return heard(printing_.EndPage(context)); }
    std::int32_t EndDoc(Context context) override { return heard(printing_.EndDoc(context)); }

    // What concerns the host no more than it does the library

    std::size_t GlobalSize(Block block) override { return printing_.GlobalSize(block); }
    std::byte* GlobalLock(Block block) override { return printing_.GlobalLock(block); }
    void GlobalUnlock(Block block) override { printing_.GlobalUnlock(block); }
    void GlobalFree(Block block) override { printing_.GlobalFree(block); }
    std::size_t lstrlenA(const std::string& text) override { return printing_.lstrlenA(text); }
    Context CreateDCA(const std::string& device, std::span<const std::byte> settings) override {
        return printing_.CreateDCA(device, settings);
    }
    std::intptr_t SendMessageA(t_genproc::WindowHandle window, std::uint32_t message, bool render,
                               const t_genproc::FormatRange* range) override {
        return printing_.SendMessageA(window, message, render, range);
    }

   private:
    /// The result of a call, 0 or below where it has failed.
    std::int32_t heard(std::int32_t result);
    /// Fills a dialog that has no printer yet with the system's default one. False where there is none.
    bool takeDefault(t_genproc::PageSetupDialog& dialog);
    void writePage(t_genproc::PageSetupDialog& dialog);
    void readPage(const t_genproc::PageSetupDialog& dialog);

    t_genproc::Printing& printing_;
    PrintJob& job_;
};

}  // namespace tavoru
