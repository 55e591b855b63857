#include "printing/cPrinter.h"

#include <algorithm>

#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/integers.h"

namespace t_genproc {
namespace {

constexpr std::int32_t kDefaultMargin = 2000;
constexpr Rectangle kPresetMargins{.left = 1500, .top = 1200, .right = 1500, .bottom = 1200};
constexpr float kTwipsPerInch = 1440;
constexpr double kMillimetresPerInch = 25.4;

/// A block of memory, locked, up to `most` bytes of it.
class LockedBlock {
   public:
    LockedBlock(Printing& printing, MemoryBlock block, std::size_t most)
        : printing_(printing), block_(block), start_(block == 0 ? nullptr : printing.GlobalLock(block)) {
        if (start_ != nullptr) size_ = std::min(printing.GlobalSize(block), most);
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;
    ~LockedBlock() {
        if (start_ != nullptr) printing_.GlobalUnlock(block_);
    }

    std::span<std::byte> bytes() const { return {start_, size_}; }

   private:
    Printing& printing_;
    MemoryBlock block_;
    std::byte* start_;
    std::size_t size_ = 0;
};

void readBlock(Printing& printing, MemoryBlock block, std::span<std::byte> copy) {
    const LockedBlock locked(printing, block, copy.size());
    std::ranges::copy(locked.bytes(), copy.begin());
}

void writeBlock(Printing& printing, MemoryBlock block, std::span<const std::byte> copy) {
    const LockedBlock locked(printing, block, copy.size());
    std::ranges::copy(copy.first(locked.bytes().size()), locked.bytes().begin());
}

constexpr std::int32_t kRequested = DMORIENT_DISABLE_CHANGE;
static_assert(kRequested == std::int32_t{DMCOLOUR_DISABLE_CHANGE});

bool isRequested(std::int32_t request) { return (request & kRequested) != 0; }

}  // namespace

cPrinter::cPrinter(Library& library) : library_(library) { Class_Initialize(); }

cPrinter::~cPrinter() { Class_Terminate(); }

void cPrinter::Class_Initialize() {
    procedure(library_, "(Class Module) cPrinter::Sub Class_Initialize", [&] {
        pageSetup_.margin = {kDefaultMargin, kDefaultMargin, kDefaultMargin, kDefaultMargin};
        colourRequest_ = DMCOLOUR_MONOCHROME;
    });
}

void cPrinter::Class_Terminate() {
    finalProcedure(library_, "(Class Module) cPrinter::Sub Class_Terminate", [&] {
        deleteContext(context_);
        for (const MemoryBlock block : {printDialog_.devMode, printDialog_.devNames}) {
            if (block != 0) library_.platform().printing->GlobalFree(block);
        }
    });
}

void cPrinter::ShowPrintDlg(WindowHandle /*hWnd*/, std::int32_t options) {
    procedure(library_, "(Class Module) cPrinter::Sub ShowPrintDlg", [&] {
        deleteContext(context_);
        printDialog_.flags = static_cast<std::uint32_t>(options);
        PutDevMode(printDialog_.devMode);
        PutDevNames(printDialog_.devNames);
        dialogResult_ = library_.platform().printing->PrintDlgA(printDialog_);
        deleteContext(printDialog_.context);  // that of PD_RETURNDC, which nobody could reach
        if (dialogResult_ != kDialogConfirmed) return;
        GetDevMode(printDialog_.devMode);
        GetDevNames(printDialog_.devNames);
    });
}

void cPrinter::PageSetup(WindowHandle hWnd, std::int32_t options, bool presetMargins, bool& dialogCancel,
                         bool showPageDialog) {
    procedure(library_, "(Class Module) cPrinter::Sub PageSetup", [&] {
        deleteContext(context_);
        pageSetup_.owner = hWnd;
        if (isRequested(orientationRequest_)) options &= PSD_DISABLEORIENTATION;
        pageSetup_.flags = static_cast<std::uint32_t>(options);
        pageSetup_.devMode = printDialog_.devMode;
        pageSetup_.devNames = printDialog_.devNames;
        if (presetMargins) pageSetup_.margin = kPresetMargins;

        dialogResult_ = kDialogConfirmed;
        if (showPageDialog) {
            dialogResult_ = library_.platform().printing->PageSetupDlgA(pageSetup_);
            if (dialogResult_ != kDialogConfirmed) {
                dialogCancel = true;
                return;
            }
            printDialog_.devMode = pageSetup_.devMode;
            printDialog_.devNames = pageSetup_.devNames;
        }
        takeDialogBlocks();
    });
}

DeviceContext cPrinter::hdc() {
    return procedure(library_, "(Class Module) cPrinter::Function hdc", [&] {
        if (context_ != 0) return context_;
        if (printDialog_.devMode == 0) ShowPrintDlg(0, PD_HIDEPRINTTOFILE);
        applyRequests();
        return openDevice();
    });
}

float cPrinter::PixelsPerMMX() {
    return procedure(library_, "(Class Module) cPrinter::Property Get PixelsPerMMX",
                     [&] { return pixelsPerMillimetre(DeviceCaps::LogPixelsX); });
}

float cPrinter::PixelsPerMMY() {
    return procedure(library_, "(Class Module) cPrinter::Property Get PixelsPerMMY",
                     [&] { return pixelsPerMillimetre(DeviceCaps::LogPixelsY); });
}

std::string cPrinter::DeviceName() {
    return procedure(library_, "(Class Module) cPrinter::Property Get DeviceName",
                     [&] { return nameFrom(DeviceNames::Name::Device); });
}

std::string cPrinter::OutputName() {
    return procedure(library_, "(Class Module) cPrinter::Property Get OutputName",
                     [&] { return nameFrom(DeviceNames::Name::Output); });
}

std::int32_t cPrinter::Orientation() {
    return procedure(library_, "(Class Module) cPrinter::Property Get Orientation",
                     [&]() -> std::int32_t { return settings_.get(DeviceSettings::Member::Orientation); });
}

void cPrinter::Orientation(std::int32_t orientation) {
    procedure(library_, "(Class Module) cPrinter::Property Let Orientation",
              [&] { orientationRequest_ = orientation | DMORIENT_DISABLE_CHANGE; });
}

std::int32_t cPrinter::colour() {
    return procedure(library_, "(Class Module) cPrinter::Property Get colour",
                     [&]() -> std::int32_t { return settings_.get(DeviceSettings::Member::Orientation); });
}

void cPrinter::colour(std::int32_t colour) {
    procedure(library_, "(Class Module) cPrinter::Property Let colour",
              [&] { colourRequest_ = colour | DMCOLOUR_DISABLE_CHANGE; });
}

void cPrinter::GetDevMode(MemoryBlock block) {
    readBlock(*library_.platform().printing, block, settings_.bytes());
}

void cPrinter::PutDevMode(MemoryBlock block) const {
    writeBlock(*library_.platform().printing, block, settings_.bytes());
}

void cPrinter::GetDevNames(MemoryBlock block) {
    readBlock(*library_.platform().printing, block, names_.bytes());
}

void cPrinter::PutDevNames(MemoryBlock block) const {
    writeBlock(*library_.platform().printing, block, names_.bytes());
}

void cPrinter::deleteContext(DeviceContext& context) {
    if (context != 0) library_.platform().graphics->DeleteDC(context);
    context = 0;
}

void cPrinter::takeDialogBlocks() {
    pageSetup_.devMode = printDialog_.devMode;
    pageSetup_.devNames = printDialog_.devNames;
    GetDevMode(pageSetup_.devMode);
    GetDevNames(pageSetup_.devNames);
}

void cPrinter::applyRequests() {
    using Member = DeviceSettings::Member;
    if (isRequested(colourRequest_)) {
        settings_.set(Member::Color, checkedNarrow<std::int16_t>(colourRequest_ & DMCOLOUR_MASK_CHANGE));
        settings_.fields(settings_.fields() | DeviceFields::Color);
    }
    if (isRequested(orientationRequest_)) {
        settings_.set(Member::Orientation,
                      checkedNarrow<std::int16_t>(orientationRequest_ & DMORIENT_MASK_CHANGE));
        settings_.fields(settings_.fields() | DeviceFields::Orientation);
    }
}

DeviceContext cPrinter::openDevice() {
    Graphics& graphics = *library_.platform().graphics;
    context_ =
        library_.platform().printing->CreateDCA(nameFrom(DeviceNames::Name::Device), settings_.bytes());
    if (context_ == 0) return 0;
    const auto twipsPerPixel = [&](std::int32_t index) {
        const std::int32_t resolution = graphics.GetDeviceCaps(context_, index);
        if (resolution == 0) {
            deleteContext(context_);
            throw RuntimeError(ErrorNumber::DivisionByZero);
        }
        return kTwipsPerInch / static_cast<float>(resolution);
    };
    twipsPerPixelX_ = twipsPerPixel(DeviceCaps::LogPixelsX);
    twipsPerPixelY_ = twipsPerPixel(DeviceCaps::LogPixelsY);
    return context_;
}

float cPrinter::pixelsPerMillimetre(std::int32_t index) {
    const double pixels = library_.platform().graphics->GetDeviceCaps(context_, index);
    return static_cast<float>(pixels / kMillimetresPerInch);
}

std::string cPrinter::nameFrom(DeviceNames::Name name) {
    const Platform& platform = library_.platform();
    std::string bytes(names_.from(name));
    bytes.resize(platform.printing->lstrlenA(bytes));
    return platform.files->decode(bytes);
}

}  // namespace t_genproc
