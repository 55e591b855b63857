/// A picture of a bitmap in memory.
#pragma once

#include "platform/linux_desktop/pixel_contexts.h"
#include "platform/picture.h"

namespace t_genproc::linux_desktop {

class BitmapPicture final : public Picture {
   public:
    /// With `own` the bitmap is deleted from the desktop's objects with the picture.
    BitmapPicture(const std::shared_ptr<Desktop>& desktop, std::shared_ptr<Bitmap> bitmap,
                  const PictureDescription& description, bool own, Resolution resolution);
    BitmapPicture(const BitmapPicture&) = delete;
    BitmapPicture& operator=(const BitmapPicture&) = delete;
    ~BitmapPicture() override;

    void saveAsPng(const std::string& fileName) override;

   private:
    std::weak_ptr<Desktop> desktop_;  // a picture may outlive it
    std::shared_ptr<Bitmap> bitmap_;
    GraphicsObject handle_;
    bool own_;
};

}  // namespace t_genproc::linux_desktop
