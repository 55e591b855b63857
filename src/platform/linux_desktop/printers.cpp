#include "platform/linux_desktop/printers.h"

#include <cups/cups.h>

#include <algorithm>
#include <memory>
#include <span>

#include "platform/linux_desktop/linux_desktop.h"

namespace t_genproc {
namespace linux_desktop {
namespace {

/// What CUPS hands out, given back at the end.
class Destinations {
   public:
    Destinations() : count_(::cupsGetDests2(CUPS_HTTP_DEFAULT, &first_)) {}
    explicit Destinations(const std::string& name)
        : first_(::cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.c_str(), nullptr)), count_(first_ ? 1 : 0) {}
    Destinations(const Destinations&) = delete;
    Destinations& operator=(const Destinations&) = delete;
    ~Destinations() { ::cupsFreeDests(count_, first_); }

    std::span<cups_dest_t> all() const { return {first_, static_cast<std::size_t>(count_)}; }

   private:
    cups_dest_t* first_ = nullptr;
    int count_ = 0;
};

class Options {
   public:
    Options() = default;
    Options(const Options&) = delete;
    Options& operator=(const Options&) = delete;
    ~Options() { ::cupsFreeOptions(count_, first_); }

    void add(const char* name, const std::string& value) {
        count_ = ::cupsAddOption(name, value.c_str(), count_, &first_);
    }
    int count() const { return count_; }
    cups_option_t* first() const { return first_; }

   private:
    cups_option_t* first_ = nullptr;
    int count_ = 0;
};

Sheet sheetOf(const cups_size_t& size) {
    return {size.media,
            {(size.width + 5) / 10, (size.length + 5) / 10},
            {size.left, size.top, size.right, size.bottom}};
}

/// Completes `printer` with what its driver tells.
void describe(Printer& printer, cups_dest_t& destination) {
    const std::unique_ptr<cups_dinfo_t, decltype(&::cupsFreeDestInfo)> details(
        ::cupsCopyDestInfo(CUPS_HTTP_DEFAULT, &destination), &::cupsFreeDestInfo);
    if (!details) return;
    cups_dinfo_t* const told = details.get();
    cups_size_t size{};
    if (::cupsGetDestMediaDefault(CUPS_HTTP_DEFAULT, &destination, told, 0, &size) != 0) {
        printer.sheets.push_back(sheetOf(size));
        printer.paper = printer.sheets.front().size;
    }
    const int count = ::cupsGetDestMediaCount(CUPS_HTTP_DEFAULT, &destination, told, 0);
    for (int i = 0; i < count; ++i) {
        if (::cupsGetDestMediaByIndex(CUPS_HTTP_DEFAULT, &destination, told, i, 0, &size) != 0)
            printer.sheets.push_back(sheetOf(size));
    }
    ipp_attribute_t* const resolution =
        ::cupsFindDestDefault(CUPS_HTTP_DEFAULT, &destination, told, "printer-resolution");
    ipp_res_t unit = IPP_RES_PER_INCH;
    int down = 0;
    const int across = resolution != nullptr ? ::ippGetResolution(resolution, 0, &down, &unit) : 0;
    if (across > 0 && unit == IPP_RES_PER_INCH) printer.resolution = across;
}

/// Printers turn pages one way or the other: both have to find room.
Sheet turned(const Sheet& sheet) {
    const std::int32_t side = std::max(sheet.unprintable.top, sheet.unprintable.bottom);
    const std::int32_t end = std::max(sheet.unprintable.left, sheet.unprintable.right);
    return {sheet.media, {sheet.size.height, sheet.size.width}, {side, end, side, end}};
}

}  // namespace

std::int16_t chosen(const DeviceSettings& settings, std::uint32_t field, DeviceSettings::Member member,
                    std::int16_t otherwise) {
    return (settings.fields() & field) != 0 ? settings.get(member) : otherwise;
}

Sheet Printer::sheet(const DeviceSettings& settings) const {
    using Member = DeviceSettings::Member;
    const PaperSize size = paperSize(settings, paper);
    const auto found =
        std::ranges::find_if(sheets, [size](const Sheet& sheet) { return isAlike(sheet.size, size); });
    Sheet upright = found == sheets.end() ? Sheet{} : *found;
    upright.size = size;
    const bool isTurned =
        chosen(settings, DeviceFields::Orientation, Member::Orientation, 0) == DMORIENT_LANDSCAPE;
    return isTurned ? turned(upright) : upright;
}

std::optional<Printer> findPrinter(const std::string& name) {
    if (name == kPdfPrinter) return Printer{name};
    if (name.empty()) return std::nullopt;
    const Destinations found(name);
    if (found.all().empty()) return std::nullopt;
    Printer printer{name, false};
    describe(printer, found.all().front());
    return printer;
}

std::string defaultPrinter() {
    const Destinations found;
    const auto isDefault = [](const cups_dest_t& each) { return each.is_default != 0; };
    const auto chosen = std::ranges::find_if(found.all(), isDefault);
    return chosen == found.all().end() ? kPdfPrinter : chosen->name;
}

std::string sendToPrinter(const std::string& printer, const PrintJob& job) {
    Options options;
    options.add("copies", std::to_string(job.copies));
    options.add("print-scaling", "none");
    if (!job.media.empty()) options.add("media", job.media);
    if (job.monochrome) options.add("print-color-mode", "monochrome");
    const int number = ::cupsPrintFile(printer.c_str(), job.file.c_str(), job.title.c_str(), options.count(),
                                       options.first());
    if (number != 0) return {};
    const std::string reason = ::cupsLastErrorString();  // that of a missing printer speaks of a file
    return Destinations(printer).all().empty() ? "there is no such printer" : reason;
}

}  // namespace linux_desktop

std::vector<std::string> printerNames() {
    std::vector<std::string> names{kPdfPrinter};
    const linux_desktop::Destinations found;
    for (const cups_dest_t& each : found.all()) {
        if (each.instance == nullptr) names.emplace_back(each.name);
    }
    return names;
}

}  // namespace t_genproc
