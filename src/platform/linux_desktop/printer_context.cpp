#include "platform/linux_desktop/printer_context.h"

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "platform/linux_desktop/terminal.h"
#include "platform/linux_desktop/valid_text.h"

namespace t_genproc::linux_desktop {
namespace {

constexpr double kInch = 254;  // tenths of a millimetre
constexpr double kPoints = 72;

// What else is asked of printers
constexpr std::int32_t kTechnology = 2;
constexpr std::int32_t kWidthInMillimetres = 4;
constexpr std::int32_t kHeightInMillimetres = 6;
constexpr std::int32_t kPrintableWidth = 8;  // pixels
constexpr std::int32_t kPrintableHeight = 10;
constexpr std::int32_t kPlanes = 14;
constexpr std::int32_t kRasterPrinter = 2;

}  // namespace

PrinterContext::TemporaryFile::TemporaryFile() {
    std::error_code none;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
    if (none) return;
    path = (folder / "print-XXXXXX").string();
    const portable::Descriptor file(::mkstemp(path.data()));
    if (!file) path.clear();
}

PrinterContext::TemporaryFile::~TemporaryFile() {
    if (!path.empty()) ::unlink(path.c_str());
}

PrinterContext::PrinterContext(Desktop& desktop, Printer printer, const DeviceSettings& settings)
    : desktop_(desktop), printer_(std::move(printer)) {
    using Member = DeviceSettings::Member;
    sheet_ = printer_.sheet(settings);
    job_.media = sheet_.media;
    job_.copies = std::max<std::int16_t>(chosen(settings, DeviceFields::Copies, Member::Copies, 1), 1);
    job_.monochrome = chosen(settings, DeviceFields::Color, Member::Color, 0) == DMCOLOUR_MONOCHROME;
}

std::int32_t PrinterContext::pixels(double tenthsOfMillimetre) const {
    return static_cast<std::int32_t>(std::lround(tenthsOfMillimetre * printer_.resolution / kInch));
}

std::int32_t PrinterContext::deviceCaps(std::int32_t index) const {
    const Rectangle& margin = sheet_.unprintable;
    const double printableWidth = sheet_.size.width - (margin.left + margin.right) / 10.0;
    const double printableHeight = sheet_.size.height - (margin.top + margin.bottom) / 10.0;
    switch (index) {
        case DeviceCaps::LogPixelsX:
        case DeviceCaps::LogPixelsY: return printer_.resolution;
        case DeviceCaps::PhysicalWidth: return pixels(sheet_.size.width);
        case DeviceCaps::PhysicalHeight: return pixels(sheet_.size.height);
        case DeviceCaps::PhysicalOffsetX: return pixels(margin.left / 10.0);
        case DeviceCaps::PhysicalOffsetY: return pixels(margin.top / 10.0);
        case kPrintableWidth: return pixels(printableWidth);
        case kPrintableHeight: return pixels(printableHeight);
        case kWidthInMillimetres: return static_cast<std::int32_t>(std::lround(printableWidth / 10));
        case kHeightInMillimetres: return static_cast<std::int32_t>(std::lround(printableHeight / 10));
        case DeviceCaps::BitsPerPixel: return job_.monochrome ? 1 : 24;
        case kPlanes: return 1;
        case kTechnology: return kRasterPrinter;
        default: return 0;
    }
}

cairo_t* PrinterContext::drawing() { return pageIsOpen_ ? file_->drawing() : nullptr; }

bool PrinterContext::startDocument(const DocumentInformation& document) {
    if (file_) return false;
    job_.title = validText(document.documentName);
    hasPages_ = false;
    if (printer_.writesFile) {
        outcome_ = "Cannot write " + (document.output.empty() ? "a PDF file" : document.output);
        if (document.output.empty()) return fail("it has no name");
        const Outcome<std::string> path = desktop_.files.nativePath(document.output);
        if (!path) return fail("there is no such place");
        job_.file = path.value;
    } else {
        outcome_ = "Cannot print on " + printer_.name;
        temporary_ = std::make_unique<TemporaryFile>();
        if (temporary_->path.empty()) return fail("the temporary folder takes no file");
        job_.file = temporary_->path;
    }
    file_ = std::make_unique<PdfFile>(job_.file, job_.title, sheet_.size.width * kPoints / kInch,
                                      sheet_.size.height * kPoints / kInch);
    return file_->failure().empty() || fail(file_->failure());
}

bool PrinterContext::startPage() {
    if (!file_ || pageIsOpen_) return false;
    pageIsOpen_ = hasPages_ = true;
    const double scale = kPoints / printer_.resolution;
    ::cairo_reset_clip(drawing());
    ::cairo_identity_matrix(drawing());
    ::cairo_scale(drawing(), scale, scale);
    ::cairo_translate(drawing(), deviceCaps(DeviceCaps::PhysicalOffsetX),
                      deviceCaps(DeviceCaps::PhysicalOffsetY));
    return true;
}

bool PrinterContext::endPage() {
    if (!pageIsOpen_) return false;
    pageIsOpen_ = false;
    file_->endPage();
    return file_->failure().empty() || fail(file_->failure());
}

bool PrinterContext::endDocument() {
    if (!file_ || (pageIsOpen_ && !endPage())) return false;
    if (hasPages_) {
        file_->finish();
        std::string failure = file_->failure();
        if (failure.empty() && !printer_.writesFile) failure = sendToPrinter(printer_.name, job_);
        if (!failure.empty()) return fail(failure);
    }
    file_.reset();
    temporary_.reset();
    return true;
}

bool PrinterContext::fail(const std::string& reason) {
    pageIsOpen_ = false;
    file_.reset();
    temporary_.reset();
    tellFailure(desktop_.options, outcome_ + ": " + reason + '.');
    return false;
}

}  // namespace t_genproc::linux_desktop
