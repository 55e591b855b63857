#include "platform/linux_desktop/bitmap_picture.h"

#include <cmath>

#include "platform/file_system.h"

namespace t_genproc::linux_desktop {
namespace {

std::int32_t hundredthsOfMillimetre(std::int32_t pixels, std::int32_t pixelsPerInch) {
    return static_cast<std::int32_t>(std::lround(pixels * 2540.0 / pixelsPerInch));
}

cairo_status_t append(void* text, const unsigned char* bytes, unsigned length) {
    static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), length);
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

BitmapPicture::BitmapPicture(const std::shared_ptr<Desktop>& desktop, std::shared_ptr<Bitmap> bitmap,
                             const PictureDescription& description, bool own, Resolution resolution)
    : Picture({.handle = static_cast<std::int32_t>(description.bitmap),
               .palette = static_cast<std::int32_t>(description.palette),
               .type = kPictureTypeBitmap,
               .width = hundredthsOfMillimetre(bitmap->width(), resolution.x),
               .height = hundredthsOfMillimetre(bitmap->height(), resolution.y)}),
      desktop_(desktop),
      bitmap_(std::move(bitmap)),
      handle_(description.bitmap),
      own_(own) {}

BitmapPicture::~BitmapPicture() {
    const auto desktop = desktop_.lock();
    if (own_ && desktop) desktop->objects.remove(handle_);
}

void BitmapPicture::saveAsPng(const std::string& fileName) {
    const auto desktop = desktop_.lock();
    if (!desktop) raiseOnFailure(SystemError::NotReady);
    std::string png;
    if (::cairo_surface_write_to_png_stream(bitmap_->pixels(), &append, &png) != CAIRO_STATUS_SUCCESS) {
        raiseOnFailure(SystemError::NotEnoughMemory);
    }
    writeFile(desktop->files, fileName, png);
}

}  // namespace t_genproc::linux_desktop
