/// Windows' own picture objects.
#pragma once

#include "platform/graphics.h"

namespace t_genproc {

/// Graphics::OleCreatePictureIndirect.
ObjectPointer makePicture(const PictureDescription& description, bool own);

}  // namespace t_genproc
