/// The device context of a printer: its page, and the document that is printed on it.
#pragma once

#include <memory>
#include <string>

#include "platform/device_settings.h"
#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/pdf_file.h"
#include "platform/linux_desktop/printers.h"

namespace t_genproc::linux_desktop {

/// The host is told once, in one line, why a document cannot be printed; nothing of it is left then, nor of
/// one that the context is deleted in. Without pages nothing is printed.
class PrinterContext final : public Context {
   public:
    PrinterContext(Desktop& desktop, Printer printer, const DeviceSettings& settings);

    std::int32_t deviceCaps(std::int32_t index) const override;
    cairo_t* drawing() override;  ///< where printing can start is its origin

    // ---- False where they failed, or are called out of turn

    bool startDocument(const DocumentInformation& document);
    bool startPage();
    bool endPage();
    bool endDocument();

   private:
    std::int32_t pixels(double tenthsOfMillimetre) const;
    bool fail(const std::string& reason);

    /// Removed at the end.
    struct TemporaryFile {
        TemporaryFile();
        TemporaryFile(const TemporaryFile&) = delete;
        TemporaryFile& operator=(const TemporaryFile&) = delete;
        ~TemporaryFile();
        std::string path;
    };

    Desktop& desktop_;
    Printer printer_;
    Sheet sheet_;  // as it is held: its width is that of the page
    PrintJob job_;

    std::string outcome_;                       // what failing it is called
    std::unique_ptr<TemporaryFile> temporary_;  // on its way to CUPS
    std::unique_ptr<PdfFile> file_;             // while there is a document
    bool pageIsOpen_ = false;
    bool hasPages_ = false;
};

}  // namespace t_genproc::linux_desktop
