#include "print_watch.h"

#include <algorithm>

#include "platform/device_settings.h"
#include "platform/printer_options.h"

namespace tavoru {
namespace {

using namespace t_genproc;

/// The settings of a printer in a block of memory, as far as the block reaches.
std::span<std::byte> lockedSettings(Printing& printing, MemoryBlock block) {
    std::byte* const start = printing.GlobalLock(block);
    return {start, start == nullptr ? 0 : std::min(printing.GlobalSize(block), DeviceSettings::kSize)};
}

}  // namespace

std::int32_t PrintWatch::PrintDlgA(PrintDialog& dialog) {
    const std::int32_t result = printing_.PrintDlgA(dialog);
    job_.wasConfirmed = result == kDialogConfirmed;
    return result;
}

std::int32_t PrintWatch::PageSetupDlgA(PageSetupDialog& dialog) {
    job_.wasConfirmed = takeDefault(dialog);
    if (!job_.wasConfirmed) return 0;
    writePage(dialog);
    if (!job_.asksForPage) return kDialogConfirmed;
    const std::int32_t result = printing_.PageSetupDlgA(dialog);
    job_.wasConfirmed = result == kDialogConfirmed;
    if (job_.wasConfirmed) readPage(dialog);
    return result;
}

bool PrintWatch::takeDefault(PageSetupDialog& dialog) {
    if (dialog.devMode != 0) return true;
    const std::uint32_t flags = dialog.flags;
    dialog.flags |= PSD_RETURNDEFAULT;
    const bool hasDefault = printing_.PageSetupDlgA(dialog) == kDialogConfirmed;
    dialog.flags = flags;
    return hasDefault;
}

void PrintWatch::writePage(PageSetupDialog& dialog) {
    dialog.margin = job_.page.margins;
    const std::span<std::byte> block = lockedSettings(printing_, dialog.devMode);
    DeviceSettings settings;
    std::ranges::copy(block, settings.bytes().begin());
    settings.set(DeviceSettings::Member::Orientation,
                 static_cast<std::int16_t>(job_.page.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT));
    settings.fields(settings.fields() | DeviceFields::Orientation);
    if (job_.page.paper != 0) {
        settings.set(DeviceSettings::Member::PaperSize, job_.page.paper);
        const std::uint32_t ownSize = DeviceFields::PaperLength | DeviceFields::PaperWidth;
        settings.fields((settings.fields() | DeviceFields::PaperSize) & ~ownSize);
    }
    std::ranges::copy(settings.bytes().first(block.size()), block.begin());
    printing_.GlobalUnlock(dialog.devMode);
}

void PrintWatch::readPage(const PageSetupDialog& dialog) {
    const std::span<std::byte> block = lockedSettings(printing_, dialog.devMode);
    DeviceSettings settings;
    std::ranges::copy(block, settings.bytes().begin());
    printing_.GlobalUnlock(dialog.devMode);
    job_.page.margins = dialog.margin;
    job_.page.landscape = settings.get(DeviceSettings::Member::Orientation) == DMORIENT_LANDSCAPE;
    const std::int16_t paper = settings.get(DeviceSettings::Member::PaperSize);
    job_.page.paper = paper == DMPAPER_USER ? std::int16_t{0} : paper;
}

std::int32_t PrintWatch::StartDocA(DeviceContext context, const DocumentInformation& document) {
    job_.output = document.output;
    return heard(printing_.StartDocA(context, document));
}

std::int32_t PrintWatch::StartPage(DeviceContext context) {
    ++job_.pages;
    return heard(printing_.StartPage(context));
}

std::int32_t PrintWatch::heard(std::int32_t result) {
    job_.hasFailed = job_.hasFailed || result <= 0;
    return result;
}

}  // namespace tavoru
