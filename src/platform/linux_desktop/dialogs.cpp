#include "platform/linux_desktop/dialogs.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/linux_desktop/questions.h"
#include "platform/linux_desktop/terminal.h"
#include "platform/printer_options.h"

namespace t_genproc::linux_desktop {
namespace {

using Member = DeviceSettings::Member;
using Name = DeviceNames::Name;

constexpr std::size_t kSettingsSize = 156;
constexpr std::int16_t kVersion = 0x401;
constexpr std::size_t kLongestDeviceName = 31;
constexpr std::int32_t kMostCopies = 9999;
constexpr double kHundredthsPerTenth = 10;
constexpr Rectangle kInchEachSide{2540, 2540, 2540, 2540};

std::string upToZero(std::string_view name) { return std::string(name.substr(0, name.find(char{}))); }

void set(DeviceSettings& settings, std::uint32_t field, Member member, std::int16_t value) {
    settings.set(member, value);
    settings.fields(settings.fields() | field);
}

void setPaper(DeviceSettings& settings, PaperSize size) {
    const Paper* const paper = paperOfSize(size);
    set(settings, DeviceFields::PaperSize, Member::PaperSize,
        paper != nullptr ? paper->number : std::int16_t{DMPAPER_USER});
    settings.fields(settings.fields() & ~(DeviceFields::PaperWidth | DeviceFields::PaperLength));
    if (paper != nullptr) return;
    set(settings, DeviceFields::PaperWidth, Member::PaperWidth, static_cast<std::int16_t>(size.width));
    set(settings, DeviceFields::PaperLength, Member::PaperLength, static_cast<std::int16_t>(size.height));
}

/// `settings` with whatever they leave to the printer.
DeviceSettings completed(DeviceSettings settings, const Printer& printer) {
    std::ranges::fill(settings.bytes().first(kLongestDeviceName + 1), std::byte{});
    std::ranges::copy(
        std::as_bytes(std::span(printer.name)).first(std::min(printer.name.size(), kLongestDeviceName)),
        settings.bytes().begin());
    settings.set(Member::SpecVersion, kVersion);
    settings.set(Member::Size, kSettingsSize);
    settings.set(Member::DriverExtra, 0);
    const auto complete = [&](std::uint32_t field, Member member, std::int16_t value) {
        set(settings, field, member, chosen(settings, field, member, value));
    };
    complete(DeviceFields::Orientation, Member::Orientation, DMORIENT_PORTRAIT);
    complete(DeviceFields::Copies, Member::Copies, 1);
    complete(DeviceFields::Color, Member::Color, DMCOLOUR_COLOUR);
    setPaper(settings, paperSize(settings, printer.paper));
    return settings;
}

/// Lengths of a page-setup dialog and hundredths of a millimetre.
class Unit {
   public:
    explicit Unit(std::uint32_t flags) : hundredths_((flags & PSD_INTHOUSANDTHSOFINCHES) != 0 ? 2.54 : 1) {}
    std::int32_t fromHundredths(double value) const { return rounded(value / hundredths_); }
    Rectangle fromHundredths(const Rectangle& each) const {
        return {fromHundredths(each.left), fromHundredths(each.top), fromHundredths(each.right),
                fromHundredths(each.bottom)};
    }
    Rectangle toHundredths(const Rectangle& each) const {
        return {rounded(each.left * hundredths_), rounded(each.top * hundredths_),
                rounded(each.right * hundredths_), rounded(each.bottom * hundredths_)};
    }

   private:
    static std::int32_t rounded(double value) {
        using Limits = std::numeric_limits<std::int32_t>;
        return static_cast<std::int32_t>(std::clamp<double>(std::round(value), Limits::min(), Limits::max()));
    }
    double hundredths_;
};

/// What the page-setup dialog offers to change, as it stands.
PageAnswer offered(std::uint32_t flags, const DeviceSettings& settings, const Rectangle& margins) {
    PageAnswer offer;
    if ((flags & PSD_DISABLEPAPER) == 0) {
        const Paper* const paper = paperOfSize(paperSize(settings, {}));
        offer.paper = paper != nullptr ? paper->name : "another";
    }
    if ((flags & PSD_DISABLEORIENTATION) == 0)
        offer.landscape = settings.get(Member::Orientation) == DMORIENT_LANDSCAPE;
    if ((flags & PSD_DISABLEMARGINS) == 0) offer.margins = margins;
    return offer;
}

Rectangle atLeast(const Rectangle& margins, const Rectangle& least) {
    return {std::max(margins.left, least.left), std::max(margins.top, least.top),
            std::max(margins.right, least.right), std::max(margins.bottom, least.bottom)};
}

}  // namespace

std::int32_t Dialogs::print(PrintDialog& dialog) {
    const bool wantsDefault = (dialog.flags & PD_RETURNDEFAULT) != 0;
    if (wantsDefault && (dialog.devMode != 0 || dialog.devNames != 0)) return 0;
    std::optional<Selection> selection = selected(dialog.devMode, dialog.devNames);
    if (!selection) selection = selected(dialog.devMode, 0);  // its printer is gone
    if (!selection) return refuse("There is no printer");
    if (wantsDefault) return keep(*selection, dialog.devMode, dialog.devNames);

    const bool offersSelection = (dialog.flags & PD_NOSELECTION) == 0;
    const bool copiesBySettings = (dialog.flags & PD_USEDEVMODECOPIES) != 0;
    const std::int32_t copies = copiesBySettings
                                    ? chosen(selection->settings, DeviceFields::Copies, Member::Copies, 1)
                                    : dialog.copies;
    const PrinterAnswer preset{selection->printer.name, selection->output, (dialog.flags & PD_SELECTION) != 0,
                               static_cast<std::int16_t>(std::clamp(copies, 1, kMostCopies))};
    const std::optional<PrinterAnswer> answer = askForPrinter(options_, preset, offersSelection);
    if (!answer || !apply(*answer, *selection)) return 0;

    constexpr std::int16_t kOne = 1;
    const std::int16_t wanted = std::max(answer->copies, kOne);
    set(selection->settings, DeviceFields::Copies, Member::Copies, copiesBySettings ? wanted : kOne);
    if (!keep(*selection, dialog.devMode, dialog.devNames)) return 0;
    dialog.copies = static_cast<std::uint16_t>(copiesBySettings ? 1 : wanted);
    dialog.flags &= ~std::uint32_t{PD_SELECTION | PD_PAGENUMS};
    if (offersSelection && answer->selection) dialog.flags |= PD_SELECTION;
    return kDialogConfirmed;
}

std::int32_t Dialogs::setUpPage(PageSetupDialog& dialog) {
    const bool wantsDefault = (dialog.flags & PSD_RETURNDEFAULT) != 0;
    if (wantsDefault && (dialog.devMode != 0 || dialog.devNames != 0)) return 0;
    std::optional<Selection> selection = selected(dialog.devMode, dialog.devNames);
    if (!selection) return refuse("The printer is not there any more");

    const Unit unit(dialog.flags);
    Rectangle margin = (dialog.flags & PSD_MARGINS) != 0 ? dialog.margin : unit.fromHundredths(kInchEachSide);
    if (!wantsDefault) {
        const PageAnswer offer = offered(dialog.flags, selection->settings, unit.toHundredths(margin));
        const std::optional<PageAnswer> answer = askForPage(options_, offer);
        if (!answer || !apply(*answer, offer, selection->settings)) return 0;
        if (offer.margins && answer->margins) margin = unit.fromHundredths(*answer->margins);
    }
    if (!keep(*selection, dialog.devMode, dialog.devNames)) return 0;

    const Sheet sheet = selection->printer.sheet(selection->settings);
    if ((dialog.flags & PSD_MINMARGINS) == 0) dialog.minMargin = unit.fromHundredths(sheet.unprintable);
    dialog.margin = atLeast(margin, dialog.minMargin);
    dialog.paperWidth = unit.fromHundredths(sheet.size.width * kHundredthsPerTenth);
    dialog.paperHeight = unit.fromHundredths(sheet.size.height * kHundredthsPerTenth);
    if ((dialog.flags & PSD_INTHOUSANDTHSOFINCHES) == 0) dialog.flags |= PSD_INHUNDREDTHSOFMILLIMETERS;
    return kDialogConfirmed;
}

std::optional<Dialogs::Selection> Dialogs::selected(MemoryBlock devMode, MemoryBlock devNames) const {
    const DeviceNames names = copyOf<DeviceNames>(memory_.bytes(devNames));
    const std::string name = upToZero(names.from(Name::Device));
    std::optional<Printer> printer = findPrinter(name.empty() ? defaultPrinter() : name);
    if (!printer) return std::nullopt;
    const auto settings = copyOf<DeviceSettings>(memory_.bytes(devMode));
    return Selection{*printer, upToZero(names.from(Name::Output)), completed(settings, *printer)};
}

bool Dialogs::apply(const PrinterAnswer& answer, Selection& selection) const {
    if (!answer.printer.empty() && answer.printer != selection.printer.name) {
        std::optional<Printer> printer = findPrinter(answer.printer);
        if (!printer) return refuse("There is no printer " + answer.printer);
        selection = {std::move(*printer), {}, selection.settings};
    }
    if (!answer.outputFile.empty()) selection.output = answer.outputFile;
    const bool needsFile = selection.printer.writesFile && selection.output.empty();
    return !needsFile || refuse("The name of the PDF file is missing");
}

bool Dialogs::apply(const PageAnswer& answer, const PageAnswer& offer, DeviceSettings& settings) const {
    if (!offer.paper.empty() && !answer.paper.empty()) {
        const Paper* const paper = paperNamed(answer.paper);
        if (paper == nullptr) return refuse("There is no paper " + answer.paper);
        setPaper(settings, paper->size);
    }
    if (offer.landscape && answer.landscape) {
        set(settings, DeviceFields::Orientation, Member::Orientation,
            *answer.landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT);
    }
    return true;
}

bool Dialogs::keep(const Selection& selection, MemoryBlock& devMode, MemoryBlock& devNames) const {
    const Printer& printer = selection.printer;
    DeviceNames names;
    const bool fits = printer.writesFile ? names.assign("pdf", printer.name, selection.output)
                                         : names.assign("cups", printer.name, "cups:" + printer.name);
    if (!fits) return refuse("The name is too long: " + selection.output);
    const DeviceSettings settings = completed(selection.settings, printer);
    std::vector<std::byte> block(settings.bytes().begin(), settings.bytes().end());
    block.resize(kSettingsSize);
    memory_.replace(devMode, std::move(block));
    memory_.replace(devNames, {names.bytes().begin(), names.bytes().end()});
    return true;
}

bool Dialogs::refuse(const std::string& reason) const {
    tellFailure(options_, reason + '.');
    return false;
}

}  // namespace t_genproc::linux_desktop
