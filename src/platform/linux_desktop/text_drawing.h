/// Lines of text in a font, for Graphics::TextOutA.
#pragma once

#include "platform/linux_desktop/desktop.h"

namespace t_genproc::linux_desktop {

/// Draws `text` at `x`, `y` with the colour and alignment of `context`. False where there is nothing to draw
/// on.
bool drawText(Context& context, const LogicalFont& font, std::int32_t x, std::int32_t y,
              const std::string& text);

}  // namespace t_genproc::linux_desktop
