/// Prints a rich text, area by area.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "host/rich_text.h"
#include "platform/linux_desktop/desktop.h"
#include "platform/linux_desktop/text_layout.h"

namespace t_genproc::linux_desktop {

class Column;

class RichTextFormatter {
   public:
    /// Puts as many whole lines as fit into the area of `range`, on `context` or, where that is null or has
    /// nothing to draw on, nowhere; gives the first character behind them. A line that is taller than the
    /// area is cut off; an area without width or height takes nothing. Space ahead of a paragraph is left
    /// out at the top of the area.
    ///
    /// It remembers where the characters of this window's text stand, so that pages in a row take no longer
    /// towards the end.
    std::int32_t format(WindowHandle window, const std::shared_ptr<const t_gencvf::RichText>& text,
                        const FormatRange& range, Context* context);

    void forget(WindowHandle window) { known_.erase(window); }

   private:
    struct Place {
        std::int64_t character = 0;
        std::size_t byte = 0;
    };
    struct Known {
        std::weak_ptr<const t_gencvf::RichText> text{};
        Place first{};  // of the last area
        Place next{};   // behind it
    };
    static Place placeOf(const t_gencvf::RichText& text, const Known& known, std::int64_t character);
    void fill(Column& column, const t_gencvf::RichText& text, Place& place, std::int64_t end);

    TextLayouts layouts_;
    std::map<WindowHandle, Known> known_;
};

}  // namespace t_genproc::linux_desktop
