/// One printer: its selection, its page set-up and the documents that go to it.
///
///     cPrinter printer{library};
///     bool cancelled = false;
///     printer.PageSetup(window, PSD_INHUNDREDTHSOFMILLIMETERS | PSD_MARGINS, true, cancelled, true);
///     printer.PrintRTF(reportControl, "Report", "Quarry 2026");
///
/// It owns the blocks of memory that the dialogs hand over, and the device context. Errors of every member:
/// those that it names; whatever else goes wrong inside.
#pragma once

#include <cstdint>
#include <string>

#include "platform/device_settings.h"
#include "platform/printer_options.h"
#include "platform/printing.h"
#include "runtime/variant.h"

namespace t_genproc {

class Library;

class cPrinter {
   public:
    explicit cPrinter(Library& library);
    cPrinter(const cPrinter&) = delete;
    cPrinter& operator=(const cPrinter&) = delete;
    ~cPrinter();

    /// A flag of the host's: False until the host sets it.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    /// Shows the print dialog, then prints the text of a rich-text control (members `hWnd`, `SelStart`,
    /// `SelLength`, `Text`), or its selection where the dialog says so, page by page, with `projectID` 9 mm
    /// above the text's right end. The control counts characters as its formatter does, those that end lines
    /// too. The margins are those of PageSetup, in hundredths of a millimetre. `printerHDC` becomes the
    /// device context, unless the dialog is cancelled. Without a printer, a message box says so. Error 482:
    /// the control prints nothing more although text remains; what it has printed is printed. An error on the
    /// way leaves the job open.
    void PrintRTF(const ObjectPointer& RTF, const std::string& PrintJobTitle = "",
                  const std::string& projectID = "", DeviceContext* printerHDC = nullptr);

    /// Shows the print dialog with flags of ePrintOptions. The chosen printer and its settings are kept;
    /// cancelled, they stay as they were. `hWnd` is taken for the sake of callers that give it: the dialog
    /// has no owner.
    void ShowPrintDlg(WindowHandle hWnd, std::int32_t options);

    /// Shows the page-setup dialog with flags of ePageSetupOptions; of these only PSD_DISABLEORIENTATION
    /// counts once an orientation has been requested. With `presetMargins` the margins are 1500 left and
    /// right, 1200 at the top and bottom, in the dialog's unit. `dialogCancel` becomes True where the dialog
    /// is cancelled, and is left alone otherwise. Without `showPageDialog` nothing is shown, and the kept
    /// settings are read again.
    void PageSetup(WindowHandle hWnd, std::int32_t options, bool presetMargins, bool& dialogCancel,
                   bool showPageDialog);

    /// The device context of the printer, opened with the requested colour and orientation when there is
    /// none; the print dialog comes first where no printer was chosen. 0: there is no such printer. Error 6:
    /// a request does not fit 16 bits; 11: the device has no resolution.
    DeviceContext hdc();

    /// Device pixels per millimetre; 0 while no device context is held.
    float PixelsPerMMX();
    float PixelsPerMMY();

    /// The chosen printer, and where its pages go; empty before one is chosen.
    std::string DeviceName();
    std::string OutputName();

    /// The orientation of the kept settings, an eOrientation; 0 before a printer is chosen.
    std::int32_t Orientation();
    /// Requests an orientation, for when the device context is opened next.
    void Orientation(std::int32_t orientation);

    /// The same as Orientation: the kept orientation, not the colour.
    std::int32_t colour();
    /// Requests an eColour, for when the device context is opened next.
    void colour(std::int32_t colour);

    /// Starts a document, titled by the host's title and `PrintJobTitle`, and its first page. Without a
    /// printer, a message box says so. Errors: those of hdc.
    void StartDocument(const std::string& PrintJobTitle = "");
    void NewPage();
    void EndDocument();

    /// A picture (platform/picture.h) of the window that the user works with, its frame included. Errors:
    /// those of cAPIprocs::CaptureWindow.
    ObjectPointer CaptureActiveWindow();

   private:
    void Class_Initialize();
    void Class_Terminate();

    // Between a block of memory and the kept copy, as far as both reach; without a block, nothing.
    void GetDevMode(MemoryBlock block);
    void PutDevMode(MemoryBlock block) const;
    void GetDevNames(MemoryBlock block);
    void PutDevNames(MemoryBlock block) const;
    static void DisplayClassError() {}

    void deleteContext(DeviceContext& context);
    /// Makes the print dialog's blocks those of the page set-up too, and keeps what they hold.
    void takeDialogBlocks();
    void applyRequests();
    DeviceContext openDevice();
    float pixelsPerMillimetre(std::int32_t index);
    std::string nameFrom(DeviceNames::Name name);

    void choosePrinterFor(WindowHandle window, bool hasSelection);
    Rectangle textArea();
    bool printPages(WindowHandle window, FormatRange& range, std::int32_t end, const std::string& projectID);

    Library& library_;
    PageSetupDialog pageSetup_;
    PrintDialog printDialog_;
    std::int32_t dialogResult_ = 0;
    std::int32_t orientationRequest_ = 0;  // 0: none; with the mark DMORIENT_DISABLE_CHANGE: to be applied
    std::int32_t colourRequest_ = 0;       // likewise
    DeviceSettings settings_;
    DeviceNames names_;
    DeviceContext context_ = 0;
    float twipsPerPixelX_ = 0;
    float twipsPerPixelY_ = 0;
    bool classActive_ = false;
};

}  // namespace t_genproc
