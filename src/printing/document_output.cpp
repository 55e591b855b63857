// Documents of cPrinter: jobs, pages, and the text of a rich-text control.

#include "frame/library.h"
#include "frame/message_title.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "os/cAPIprocs.h"
#include "printing/cPrinter.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

constexpr std::int32_t kTextOptions = PD_HIDEPRINTTOFILE | PD_USEDEVMODECOPIES | PD_NOPAGENUMS;
constexpr std::uint16_t kLastPage = 65535;
constexpr double kTwipsPerHundredthMillimetre = 1440.0 / 2540;
constexpr std::intptr_t kNothingLeft = -1;

constexpr float kHeaderHeight = 4.5F;  // millimetres
constexpr float kHeaderAboveText = 9;
constexpr std::uint32_t kBlack = 0;

/// The nearest whole number, halves to the even one.
std::int32_t rounded(double number) { return toInt32(Variant(number)); }

/// The host's mouse pointer is the hourglass as long as this stands.
class Hourglass {
   public:
    explicit Hourglass(Library& library) : library_(library) {
        library.mousePointer(t_gencvf::MousePointer::Hourglass);
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() {
        finalProcedure(library_, "(Class Module) cPrinter::Sub PrintRTF",
                       [&] { library_.mousePointer(t_gencvf::MousePointer::Default); });
    }

   private:
    Library& library_;
};

/// The line above the text of each page.
class Header {
   public:
    Header(Graphics& graphics, float pixelsPerMillimetre)
        : graphics_(graphics),
          font_(graphics.CreateFontIndirectA({.height = rounded(kHeaderHeight * pixelsPerMillimetre),
                                              .weight = 700,
                                              .charSet = 1,
                                              .quality = 2,
                                              .faceName = "Arial"})) {}
    Header(const Header&) = delete;
    Header& operator=(const Header&) = delete;
    ~Header() { graphics_.DeleteObject(font_); }

    /// `x`, `y`: the text's lower right corner.
    void draw(DeviceContext context, std::int32_t x, std::int32_t y, const std::string& text) const {
        const GraphicsObject previous = graphics_.SelectObject(context, font_).value;
        graphics_.SetTextColor(context, kBlack);
        graphics_.SetTextAlign(context, TextAlign::Right | TextAlign::Bottom);
        if (!text.empty()) graphics_.TextOutA(context, x, y, text);
        graphics_.SetTextAlign(context, TextAlign::LeftTop);
        graphics_.SelectObject(context, previous);
    }

   private:
    Graphics& graphics_;
    GraphicsObject font_;
};

}  // namespace

void cPrinter::StartDocument(const std::string& PrintJobTitle) {
    procedure(library_, "(Class Module) cPrinter::Sub StartDocument", [&] {
        const Platform& platform = library_.platform();
        const DeviceContext context = hdc();
        if (context == 0) {
            platform.windows->MessageBoxA("Unable to print", kMessageTitle, MessageStyle::Ok);
            return;
        }
        DocumentInformation document{.documentName = library_.application().title + " - " + PrintJobTitle,
                                     .output = OutputName()};
        // Not the size of the record, but what its texts take.
        document.size = checkedNarrow<std::int32_t>(text::length(document.documentName) +
                                                    text::length(document.output) + 2);
        platform.printing->StartDocA(context, document);
        platform.printing->StartPage(context);
    });
}

void cPrinter::NewPage() {
    procedure(library_, "(Class Module) cPrinter::Sub NewPage", [&] {
        library_.platform().printing->EndPage(context_);
        library_.platform().printing->StartPage(context_);
    });
}

void cPrinter::EndDocument() {
    procedure(library_, "(Class Module) cPrinter::Sub EndDocument", [&] {
        library_.platform().printing->EndPage(context_);
        library_.platform().printing->EndDoc(context_);
    });
}

void cPrinter::PrintRTF(const ObjectPointer& RTF, const std::string& PrintJobTitle,
                        const std::string& projectID, DeviceContext* printerHDC) {
    procedure(library_, "(Class Module) cPrinter::Sub PrintRTF", [&] {
        const Hourglass hourglass(library_);
        const LateBound control{RTF};
        const WindowHandle window = toInt32(control["hWnd"].get());
        choosePrinterFor(window, toInt32(control["SelLength"].get()) != 0);
        if (dialogResult_ != kDialogConfirmed) return;

        takeDialogBlocks();
        StartDocument(PrintJobTitle);
        bool isComplete = true;
        if (context_ != 0) {
            FormatRange range{.context = context_, .target = context_, .area = textArea()};
            range.page = range.area;
            std::int32_t end = 0;
            if ((printDialog_.flags & PD_SELECTION) != 0) {
                range.firstCharacter = toInt32(control["SelStart"].get());
                end = checkedAdd(range.firstCharacter, toInt32(control["SelLength"].get()));
                range.endCharacter = end;
            } else {
                end = checkedNarrow<std::int32_t>(text::length(control["Text"].text()));
            }
            isComplete = printPages(window, range, end, projectID);
            EndDocument();
        }
        library_.platform().printing->SendMessageA(window, kFormatRange, false, nullptr);
        if (printerHDC != nullptr) *printerHDC = context_;
        if (!isComplete) throw RuntimeError(ErrorNumber::PrinterError);
    });
}

ObjectPointer cPrinter::CaptureActiveWindow() {
    return procedure(library_, "(Class Module) cPrinter::Function CaptureActiveWindow", [&] {
        Graphics& graphics = *library_.platform().graphics;
        const WindowHandle window = graphics.GetForegroundWindow();
        const Outcome<Rectangle> found = graphics.GetWindowRect(window);
        const Rectangle area = found ? found.value : Rectangle{};
        return cAPIprocs(library_).CaptureWindow(window, false, 0, 0, checkedSubtract(area.right, area.left),
                                                 checkedSubtract(area.bottom, area.top));
    });
}

void cPrinter::choosePrinterFor(WindowHandle window, bool hasSelection) {
    const std::int32_t flags = hasSelection ? static_cast<std::int32_t>(printDialog_.flags) : PD_NOSELECTION;
    printDialog_.fromPage = printDialog_.minPage = 1;
    printDialog_.toPage = printDialog_.maxPage = kLastPage;
    ShowPrintDlg(window, flags | kTextOptions);
}

/// What the margins leave of the paper, in twips from where the printer can start.
Rectangle cPrinter::textArea() {
    Graphics& graphics = *library_.platform().graphics;
    const auto twips = [&](std::int32_t index, float twipsPerPixel) {
        return rounded(static_cast<double>(graphics.GetDeviceCaps(context_, index)) * twipsPerPixel);
    };
    const std::int32_t offsetX = twips(DeviceCaps::PhysicalOffsetX, twipsPerPixelX_);
    const std::int32_t offsetY = twips(DeviceCaps::PhysicalOffsetY, twipsPerPixelY_);
    const std::int32_t width = twips(DeviceCaps::PhysicalWidth, twipsPerPixelX_);
    const std::int32_t height = twips(DeviceCaps::PhysicalHeight, twipsPerPixelY_);
    const auto margin = [](std::int32_t length) { return length * kTwipsPerHundredthMillimetre; };
    return {.left = rounded(margin(pageSetup_.margin.left) - offsetX),
            .top = rounded(margin(pageSetup_.margin.top) - offsetY),
            .right = rounded(width - margin(pageSetup_.margin.right) - offsetX),
            .bottom = rounded(height - margin(pageSetup_.margin.bottom) - offsetY)};
}

/// False where the control prints nothing more ahead of `end`.
bool cPrinter::printPages(WindowHandle window, FormatRange& range, std::int32_t end,
                          const std::string& projectID) {
    const Platform& platform = library_.platform();
    const float pixelsPerMillimetre = PixelsPerMMY();
    const Header header(*platform.graphics, pixelsPerMillimetre);
    const std::int32_t x = rounded(static_cast<double>(range.area.right) / twipsPerPixelX_);
    const std::int32_t y = rounded(static_cast<double>(range.area.top) / twipsPerPixelY_ -
                                   kHeaderAboveText * pixelsPerMillimetre);
    for (;;) {
        const std::intptr_t next = platform.printing->SendMessageA(window, kFormatRange, true, &range);
        header.draw(context_, x, y, projectID);
        if (next >= end || next == kNothingLeft) return true;
        if (next <= range.firstCharacter) return false;
        range.firstCharacter = static_cast<std::int32_t>(next);
        NewPage();
    }
}

}  // namespace t_genproc
