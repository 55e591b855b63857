#include <windows.h>
// After <windows.h>.
#include <commdlg.h>
#include <richedit.h>

#include <algorithm>
#include <cstring>

#include "platform/windows/adapters.h"
#include "platform/windows/ansi.h"

namespace t_genproc {
namespace {

static_assert(sizeof(void*) != 4 || sizeof(PRINTDLGA) == 66);  // packed on 32-bit Windows
static_assert(sizeof(void*) != 4 || sizeof(PAGESETUPDLGA) == 84);
static_assert(sizeof(DEVMODEA) == 156);

/// Where the members of a DEVMODEA end that a bit of dmFields tells of, in ascending order.
struct SettingsMember {
    DWORD bit;
    std::size_t end;
};
constexpr SettingsMember kSettingsMembers[] = {
    {DM_ORIENTATION, 46},
    {DM_PAPERSIZE, 48},
    {DM_PAPERLENGTH, 50},
    {DM_PAPERWIDTH, 52},
    {DM_POSITION, 52},
    {DM_SCALE, 54},
    {DM_COPIES, 56},
    {DM_DISPLAYORIENTATION, 56},
    {DM_DEFAULTSOURCE, 58},
    {DM_PRINTQUALITY, 60},
    {DM_DISPLAYFIXEDOUTPUT, 60},
    {DM_COLOR, 62},
    {DM_DUPLEX, 64},
    {DM_YRESOLUTION, 66},
    {DM_TTOPTION, 68},
    {DM_COLLATE, 70},
    {DM_FORMNAME, 102},
    {DM_LOGPIXELS, 104},
    {DM_BITSPERPEL, 108},
    {DM_PELSWIDTH, 112},
    {DM_PELSHEIGHT, 116},
    {DM_DISPLAYFLAGS, 120},
    {DM_NUP, 120},
    {DM_DISPLAYFREQUENCY, 124},
    {DM_ICMMETHOD, 128},
    {DM_ICMINTENT, 132},
    {DM_MEDIATYPE, 136},
    {DM_DITHERTYPE, 140},
    {DM_PANNINGWIDTH, 152},
    {DM_PANNINGHEIGHT, 156},
};

/// Settings of which the beginning is given, as a record that holds all it claims to hold: nothing of the
/// driver's own, and no member that was not given.
DEVMODEA wholeSettings(std::span<const std::byte> beginning) {
    DEVMODEA settings{};
    const std::size_t given = std::min(beginning.size(), sizeof settings);
    if (given > 0) std::memcpy(&settings, beginning.data(), given);
    settings.dmSize = std::min<WORD>(settings.dmSize, sizeof settings);
    settings.dmDriverExtra = 0;
    for (const SettingsMember& member : kSettingsMembers) {
        if (member.end > given) settings.dmFields &= ~member.bit;
    }
    return settings;
}

HGLOBAL systemBlock(MemoryBlock block) { return reinterpret_cast<HGLOBAL>(block); }
MemoryBlock fromSystem(HGLOBAL block) { return reinterpret_cast<MemoryBlock>(block); }
HDC systemContext(DeviceContext context) { return reinterpret_cast<HDC>(context); }
HWND systemWindow(WindowHandle window) { return reinterpret_cast<HWND>(window); }

RECT toSystem(const Rectangle& area) { return {area.left, area.top, area.right, area.bottom}; }
Rectangle fromSystem(const RECT& area) {
    return {static_cast<std::int32_t>(area.left), static_cast<std::int32_t>(area.top),
            static_cast<std::int32_t>(area.right), static_cast<std::int32_t>(area.bottom)};
}

/// To a window of another process the address of a record would mean nothing.
bool isOwn(HWND window) {
    DWORD process = 0;
    return ::GetWindowThreadProcessId(window, &process) != 0 && process == ::GetCurrentProcessId();
}

class WindowsPrinting final : public Printing {
   public:
    std::int32_t PrintDlgA(PrintDialog& dialog) override {
        PRINTDLGA record{};
        record.lStructSize = sizeof record;
        record.hwndOwner = systemWindow(dialog.owner);
        record.hDevMode = systemBlock(dialog.devMode);
        record.hDevNames = systemBlock(dialog.devNames);
        record.hDC = systemContext(dialog.context);
        record.Flags = dialog.flags;
        record.nFromPage = dialog.fromPage;
        record.nToPage = dialog.toPage;
        record.nMinPage = dialog.minPage;
        record.nMaxPage = dialog.maxPage;
        record.nCopies = dialog.copies;
        const BOOL result = ::PrintDlgA(&record);
        dialog = {.owner = dialog.owner,
                  .devMode = fromSystem(record.hDevMode),
                  .devNames = fromSystem(record.hDevNames),
                  .context = reinterpret_cast<DeviceContext>(record.hDC),
                  .flags = record.Flags,
                  .fromPage = record.nFromPage,
                  .toPage = record.nToPage,
                  .minPage = record.nMinPage,
                  .maxPage = record.nMaxPage,
                  .copies = record.nCopies};
        return result;
    }

    std::int32_t PageSetupDlgA(PageSetupDialog& dialog) override {
        PAGESETUPDLGA record{};
        record.lStructSize = sizeof record;
        record.hwndOwner = systemWindow(dialog.owner);
        record.hDevMode = systemBlock(dialog.devMode);
        record.hDevNames = systemBlock(dialog.devNames);
        record.Flags = dialog.flags;
        record.ptPaperSize = {dialog.paperWidth, dialog.paperHeight};
        record.rtMinMargin = toSystem(dialog.minMargin);
        record.rtMargin = toSystem(dialog.margin);
        const BOOL result = ::PageSetupDlgA(&record);
        dialog = {.owner = dialog.owner,
                  .devMode = fromSystem(record.hDevMode),
                  .devNames = fromSystem(record.hDevNames),
                  .flags = record.Flags,
                  .paperWidth = static_cast<std::int32_t>(record.ptPaperSize.x),
                  .paperHeight = static_cast<std::int32_t>(record.ptPaperSize.y),
                  .minMargin = fromSystem(record.rtMinMargin),
                  .margin = fromSystem(record.rtMargin)};
        return result;
    }

    std::size_t GlobalSize(MemoryBlock block) override { return ::GlobalSize(systemBlock(block)); }
    std::byte* GlobalLock(MemoryBlock block) override {
        return static_cast<std::byte*>(::GlobalLock(systemBlock(block)));
    }
    void GlobalUnlock(MemoryBlock block) override { ::GlobalUnlock(systemBlock(block)); }
    void GlobalFree(MemoryBlock block) override { ::GlobalFree(systemBlock(block)); }
    std::size_t lstrlenA(const std::string& text) override {
        return static_cast<std::size_t>(::lstrlenA(text.c_str()));
    }

    DeviceContext CreateDCA(const std::string& device, std::span<const std::byte> settings) override {
        const auto name = toAnsi(device);
        if (!name) return 0;
        const DEVMODEA whole = wholeSettings(settings);
        return reinterpret_cast<DeviceContext>(
            ::CreateDCA(nullptr, name->c_str(), nullptr, whole.dmSize == 0 ? nullptr : &whole));
    }

    std::int32_t StartDocA(DeviceContext context, const DocumentInformation& document) override {
        const auto output = toAnsi(document.output);
        if (!output) return 0;
        const std::string name = toAnsiWithLoss(document.documentName);
        DOCINFOA record{};
        record.cbSize = document.size;
        record.lpszDocName = name.c_str();
        record.lpszOutput = output->empty() ? nullptr : output->c_str();
        return ::StartDocA(systemContext(context), &record);
    }
    std::int32_t StartPage(DeviceContext context) override { return ::StartPage(systemContext(context)); }
    std::int32_t EndPage(DeviceContext context) override { return ::EndPage(systemContext(context)); }
    std::int32_t EndDoc(DeviceContext context) override { return ::EndDoc(systemContext(context)); }

    std::intptr_t SendMessageA(WindowHandle window, std::uint32_t message, bool render,
                               const FormatRange* range) override {
        const HWND receiver = systemWindow(window);
        if (!isOwn(receiver)) return 0;
        if (range == nullptr) return ::SendMessageA(receiver, message, render, 0);
        FORMATRANGE record{.hdc = systemContext(range->context),
                           .hdcTarget = systemContext(range->target),
                           .rc = toSystem(range->area),
                           .rcPage = toSystem(range->page),
                           .chrg = {range->firstCharacter, range->endCharacter}};
        return ::SendMessageA(receiver, message, render, reinterpret_cast<LPARAM>(&record));
    }
};

}  // namespace

std::unique_ptr<Printing> makePrinting() { return std::make_unique<WindowsPrinting>(); }

}  // namespace t_genproc
