#include "platform/linux_desktop/pdf_file.h"

#include <cairo-pdf.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <system_error>

namespace t_genproc::linux_desktop {
namespace {

constexpr std::size_t kMostOfName = 200;  // leaves room for the rest
constexpr mode_t kPermissionBits = 0777;

}  // namespace

PdfFile::PdfFile(const std::string& path, const std::string& title, double width, double height)
    : path_(path) {
    open();
    surface_.reset(::cairo_pdf_surface_create_for_stream(&PdfFile::write, this, width, height));
    ::cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    drawing_.reset(::cairo_create(surface_.get()));
}

PdfFile::~PdfFile() {
    discard();
    error_ = ECANCELED;  // what Cairo still holds is not wanted
}

void PdfFile::endPage() { ::cairo_show_page(drawing()); }

void PdfFile::finish() {
    ::cairo_surface_finish(surface_.get());
    if (failure().empty() && ::close(file_.release()) != 0) error_ = errno;
    if (!failure().empty()) return discard();
    if (unfinished_.empty()) return;
    if (::rename(unfinished_.c_str(), path_.c_str()) != 0) {
        error_ = errno;
        return discard();
    }
    unfinished_.clear();
}

std::string PdfFile::failure() const {
    if (error_ != 0) return std::generic_category().message(error_);
    const cairo_status_t ofSurface = ::cairo_surface_status(surface_.get());
    const cairo_status_t status =
        ofSurface != CAIRO_STATUS_SUCCESS ? ofSurface : ::cairo_status(drawing_.get());
    return status == CAIRO_STATUS_SUCCESS ? "" : ::cairo_status_to_string(status);
}

void PdfFile::open() {
    // A link leads to the file that is to be replaced.
    std::error_code none;
    const std::filesystem::path target = std::filesystem::canonical(path_, none);
    if (!none) path_ = target.string();

    struct stat old {};
    const bool exists = ::stat(path_.c_str(), &old) == 0;
    if (exists && S_ISCHR(old.st_mode)) {
        file_ = portable::Descriptor(::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
        if (!file_) error_ = errno;
    } else if (exists && !S_ISREG(old.st_mode)) {
        error_ = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
    } else if (exists && (portable::isReadOnly(old.st_mode) || ::access(path_.c_str(), W_OK) != 0)) {
        error_ = EACCES;
    } else {
        openBeside();
        if (exists && file_ && ::fchmod(file_.number(), old.st_mode & kPermissionBits) != 0) error_ = errno;
    }
}

void PdfFile::openBeside() {
    const std::size_t nameStart = path_.find_last_of('/') + 1;
    const std::string beginning =
        path_.substr(0, nameStart) + '.' + path_.substr(nameStart, kMostOfName) + '.';
    std::random_device random;
    do {
        unfinished_ = beginning + std::to_string(random()) + ".new";
        file_ =
            portable::Descriptor(::open(unfinished_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    } while (!file_ && errno == EEXIST);
    if (file_) return;
    error_ = errno;
    unfinished_.clear();
}

void PdfFile::discard() {
    if (!unfinished_.empty()) ::unlink(unfinished_.c_str());
    unfinished_.clear();
}

cairo_status_t PdfFile::write(void* closure, const unsigned char* bytes, unsigned length) {
    PdfFile& file = *static_cast<PdfFile*>(closure);
    const std::string_view text(reinterpret_cast<const char*>(bytes), length);
    if (file.error_ == 0 && portable::writeAll(file.file_.number(), text) != SystemError::Success)
        file.error_ = errno;
    return file.error_ == 0 ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace t_genproc::linux_desktop
