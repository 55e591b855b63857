/// The page set-up that the user's settings file keeps.
///
///     [Printing]
///     Orientation=Landscape
///     Paper=A4
///     Margins=2000,2500,2000,2000
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/graphics.h"
#include "tavoru.h"

namespace tavoru {

struct PageSetting {
    bool landscape = false;
    std::int16_t paper = 0;                                ///< an ePaperSize; 0: the printer's own
    t_genproc::Rectangle margins{2000, 2000, 2000, 2000};  ///< hundredths of a millimetre, from each edge
};

/// A setting that cannot be read counts as missing.
PageSetting readPageSetting(Tavoru& tavoru);
void keepPageSetting(Tavoru& tavoru, const PageSetting& page);

/// "A4" and so on, in any letter case; "9" is A4 too. None: there is no such paper.
std::optional<std::int16_t> paperNumber(const std::string& name);

/// Left, top, right, bottom: "2000,2500,2000,2000". None: they are not four numbers from 0 to 100000.
std::optional<t_genproc::Rectangle> marginsOf(std::string_view text);

/// The page in words.
Lines pageLines(const PageSetting& page);

}  // namespace tavoru
