/// Choosing a printer, its settings, and print jobs. What a page shows is drawn by graphics.h, or by the
/// formatter of a rich-text control.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/graphics.h"
#include "platform/window_handle.h"

namespace t_genproc {

using MemoryBlock = std::intptr_t;  ///< a block of global memory; 0 is none

inline constexpr std::int32_t kDialogConfirmed = 1;

/// The print dialog. The names of flags are those of ePrintOptions (platform/printer_options.h).
struct PrintDialog {
    WindowHandle owner = 0;
    MemoryBlock devMode = 0;   ///< the printer's settings; the dialog may put another block in its place
    MemoryBlock devNames = 0;  ///< its names, likewise
    DeviceContext context = 0;
    std::uint32_t flags = 0;
    std::uint16_t fromPage = 0;
    std::uint16_t toPage = 0;
    std::uint16_t minPage = 0;
    std::uint16_t maxPage = 0;
    std::uint16_t copies = 0;
};

/// The page-setup dialog. All lengths are thousandths of an inch or hundredths of a millimetre, as its flags
/// say.
struct PageSetupDialog {
    WindowHandle owner = 0;
    MemoryBlock devMode = 0;
    MemoryBlock devNames = 0;
    std::uint32_t flags = 0;
    std::int32_t paperWidth = 0;
    std::int32_t paperHeight = 0;
    Rectangle minMargin{};
    Rectangle margin{};
};

struct DocumentInformation {
    std::int32_t size = 0;  ///< as the caller states it
    std::string documentName{};
    std::string output{};  ///< where the pages go; empty: to the printer
};

inline constexpr std::uint32_t kFormatRange = 1081;  // EM_FORMATRANGE

/// What a formatter is to print, and where. Rectangles are in twips, characters count from 0.
struct FormatRange {
    DeviceContext context = 0;
    DeviceContext target = 0;
    Rectangle area{};
    Rectangle page{};
    std::int32_t firstCharacter = 0;
    std::int32_t endCharacter = -1;  ///< -1: to the end of the text
};

class Printing {
   public:
    virtual ~Printing() = default;

    // ---- Dialogs: kDialogConfirmed, or 0 where they were cancelled or could not be shown

    virtual std::int32_t PrintDlgA(PrintDialog& dialog) = 0;
    virtual std::int32_t PageSetupDlgA(PageSetupDialog& dialog) = 0;

    // ---- Blocks of memory that the dialogs hand over

    virtual std::size_t GlobalSize(MemoryBlock block) = 0;  ///< bytes; 0 of no block
    virtual std::byte* GlobalLock(MemoryBlock block) = 0;   ///< its bytes; null where there are none
    virtual void GlobalUnlock(MemoryBlock block) = 0;
    virtual void GlobalFree(MemoryBlock block) = 0;
    virtual std::size_t lstrlenA(const std::string& text) = 0;  ///< bytes up to the first zero

    // ---- Print jobs: above 0 where a call succeeded

    /// The printer `device` with the beginning of its settings; what they do not reach takes the printer's
    /// own. 0 where there is no such printer.
    virtual DeviceContext CreateDCA(const std::string& device, std::span<const std::byte> settings) = 0;
    virtual std::int32_t StartDocA(DeviceContext context, const DocumentInformation& document) = 0;
    virtual std::int32_t StartPage(DeviceContext context) = 0;
    virtual std::int32_t EndPage(DeviceContext context) = 0;
    virtual std::int32_t EndDoc(DeviceContext context) = 0;

    /// With kFormatRange: has the rich-text control `window` measure, and with `render` print, as many whole
    /// lines of `range` as fit its area, and gives the character that follows them; without a range, has it
    /// forget what it remembers of printing. Any other window answers as it likes, none with 0.
    virtual std::intptr_t SendMessageA(WindowHandle window, std::uint32_t message, bool render,
                                       const FormatRange* range) = 0;
};

}  // namespace t_genproc
