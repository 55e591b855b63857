/// Parts of a formatted text, broken into lines by Pango. Lengths are twips.
#pragma once

#include <pango/pangocairo.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/rich_text.h"

namespace t_genproc::linux_desktop {

struct UnreferWithGLib {
    void operator()(gpointer object) const { ::g_object_unref(object); }
};
template <class Thing>
using Shared = std::unique_ptr<Thing, UnreferWithGLib>;

/// What is laid out at once: no more than a paragraph, and of a long one only a part, so that pages of any
/// text take their own time and memory, not the text's.
struct Part {
    std::size_t begin = 0;  // bytes
    std::size_t end = 0;
    std::int64_t characters = 0;
    char ending = 0;  ///< "\n", "\f" or "\v", the last character of it; 0: none
    bool startsParagraph = false;
    bool endsParagraph = false;
    bool endsLine = false;  ///< otherwise its last line goes on behind it
};

/// From the byte `begin` on, which is before the end of the text: at most `characters` of them, at least 1,
/// and hardly more than `bytes`.
Part takePart(const t_gencvf::RichText& text, std::size_t begin, std::int64_t characters, std::size_t bytes);

const t_gencvf::ParagraphFormat& paragraphAt(const t_gencvf::RichText& text, std::size_t position);

struct PartLayout {
    Shared<PangoLayout> lines;
    double left = 0;  ///< from the left edge of the area
};

class TextLayouts {
   public:
    TextLayouts();
    PartLayout layOut(const t_gencvf::RichText& text, const Part& part, std::int64_t width, bool monochrome);

   private:
    Shared<PangoFontMap> fonts_;
    Shared<PangoContext> context_;
};

}  // namespace t_genproc::linux_desktop
