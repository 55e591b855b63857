/// The print and the page-setup dialog: answered by the host's functions, or on the terminal.
#pragma once

#include <optional>
#include <string>

#include "platform/device_settings.h"
#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/global_memory.h"
#include "platform/linux_desktop/printers.h"

namespace t_genproc::linux_desktop {

class Dialogs {
   public:
    Dialogs(const LinuxDesktopOptions& options, GlobalMemory& memory) : options_(options), memory_(memory) {}

    /// What the dialogs give as Printing's functions of the same purpose. An answer that cannot be taken
    /// cancels them, and the host is told why.
    std::int32_t print(PrintDialog& dialog);
    std::int32_t setUpPage(PageSetupDialog& dialog);

   private:
    /// What the two blocks hold.
    struct Selection {
        Printer printer{};
        std::string output{};
        DeviceSettings settings{};
    };
    /// None where its printer is gone.
    std::optional<Selection> selected(MemoryBlock devMode, MemoryBlock devNames) const;

    // ---- False where they refuse

    bool apply(const PrinterAnswer& answer, Selection& selection) const;
    bool apply(const PageAnswer& answer, const PageAnswer& offer, DeviceSettings& settings) const;
    bool keep(const Selection& selection, MemoryBlock& devMode, MemoryBlock& devNames) const;
    bool refuse(const std::string& reason) const;

    const LinuxDesktopOptions& options_;
    GlobalMemory& memory_;
};

}  // namespace t_genproc::linux_desktop
