/// The papers that settings of a printer know by number.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/device_settings.h"

namespace t_genproc {

/// Upright, in tenths of a millimetre.
struct PaperSize {
    std::int32_t width = 0;
    std::int32_t height = 0;
};

struct Paper {
    std::int16_t number;  ///< DMPAPER_A4 and so on
    std::string_view name;
    PaperSize size;
};

std::span<const Paper> papers();

/// Whether they differ by less than a millimetre.
bool isAlike(PaperSize a, PaperSize b);

/// In any letter case; null where no paper has this name.
const Paper* paperNamed(std::string_view name);
/// Null where no paper has this number.
const Paper* paperNumbered(std::int32_t number);
/// Null where no paper is of this size.
const Paper* paperOfSize(PaperSize size);

/// The paper that settings ask for, by number or by a size of its own; `otherwise` where they ask for none.
PaperSize paperSize(const DeviceSettings& settings, PaperSize otherwise);

}  // namespace t_genproc
