#include "platform/linux_desktop/text_layout.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/linux_desktop/valid_text.h"
#include "runtime/text.h"

namespace t_genproc::linux_desktop {
namespace {

using t_gencvf::Alignment;
using t_gencvf::CharacterFormat;
using t_gencvf::ParagraphFormat;
using t_gencvf::RichText;

constexpr double kPointsPerInch = 72;
constexpr std::int64_t kTwipsPerPoint = 20;
constexpr std::int64_t kMost = 1'440'000;  // a thousand inches; Pango counts 1,024 units a point
constexpr std::int64_t kTabs = 720;
constexpr double kLeastSize = 1;  // points
constexpr double kLargestSize = 1638;
constexpr const char* kFont = "Arial";

std::int64_t bounded(std::int64_t twips) { return std::clamp(twips, -kMost, kMost); }
int units(std::int64_t twips) { return static_cast<int>(bounded(twips) * PANGO_SCALE / kTwipsPerPoint); }

/// The first of `stretches` that ends behind `position`.
template <class Stretch>
auto stretchAt(const std::vector<Stretch>& stretches, std::size_t position) {
    return std::ranges::upper_bound(stretches, position, {}, &Stretch::end);
}

struct FreeWithPango {
    void operator()(PangoFontDescription* font) const { ::pango_font_description_free(font); }
    void operator()(PangoAttrList* attributes) const { ::pango_attr_list_unref(attributes); }
    void operator()(PangoTabArray* tabs) const { ::pango_tab_array_free(tabs); }
};
template <class Thing>
using Owned = std::unique_ptr<Thing, FreeWithPango>;

Owned<PangoFontDescription> fontOf(const CharacterFormat& format) {
    Owned<PangoFontDescription> font(::pango_font_description_new());
    const std::string family = format.font.empty() ? kFont : validText(format.font);
    const double size = std::fmin(std::fmax(format.size, kLeastSize), kLargestSize);
    ::pango_font_description_set_family(font.get(), family.c_str());
    ::pango_font_description_set_size(font.get(), static_cast<int>(std::lround(size * PANGO_SCALE)));
    ::pango_font_description_set_weight(font.get(), format.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    ::pango_font_description_set_style(font.get(), format.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return font;
}

PangoAttribute* colourOf(std::uint32_t colour, bool monochrome) {
    std::uint32_t red = colour >> 16 & 0xFFU;
    std::uint32_t green = colour >> 8 & 0xFFU;
    std::uint32_t blue = colour & 0xFFU;
    if (monochrome) red = green = blue = (299 * red + 587 * green + 114 * blue) / 1000;
    const auto wide = [](std::uint32_t value) { return static_cast<guint16>(value * 0x101U); };
    return ::pango_attr_foreground_new(wide(red), wide(green), wide(blue));
}

/// The formats of the runs in `part`, counted from its beginning.
Owned<PangoAttrList> attributesOf(const RichText& text, const Part& part, bool monochrome) {
    Owned<PangoAttrList> attributes(::pango_attr_list_new());
    std::size_t begin = part.begin;
    for (auto run = stretchAt(text.runs, begin); run != text.runs.end() && begin < part.end; ++run) {
        const std::size_t end = std::min(run->end, part.end);
        const auto add = [&](PangoAttribute* attribute) {
            attribute->start_index = static_cast<guint>(begin - part.begin);
            attribute->end_index = static_cast<guint>(end - part.begin);
            ::pango_attr_list_insert(attributes.get(), attribute);
        };
        add(::pango_attr_font_desc_new(fontOf(run->format).get()));
        if (run->format.underline) add(::pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
        if (run->format.colour != 0) add(colourOf(run->format.colour, monochrome));
        begin = end;
    }
    return attributes;
}

/// Tab stops from `left` on: the paragraph's own, then one every half inch of the area.
Owned<PangoTabArray> tabsOf(const ParagraphFormat& format, std::int64_t left, std::int64_t width) {
    std::vector<std::int64_t> stops;
    for (const std::int32_t tab : format.tabs) {
        if (bounded(tab) > left) stops.push_back(bounded(tab));
    }
    const std::int64_t last = stops.empty() ? left : stops.back();
    std::int64_t next = last - (last % kTabs + kTabs) % kTabs;
    do {  // Pango repeats the distance of the last two
        next += kTabs;
        stops.push_back(next);
        stops.push_back(next += kTabs);
    } while (next < left + width);
    Owned<PangoTabArray> tabs(::pango_tab_array_new(static_cast<gint>(stops.size()), FALSE));
    for (std::size_t i = 0; i < stops.size(); ++i)
        ::pango_tab_array_set_tab(tabs.get(), static_cast<gint>(i), PANGO_TAB_LEFT, units(stops[i] - left));
    return tabs;
}

PangoAlignment alignmentOf(Alignment alignment) {
    switch (alignment) {
        case Alignment::Centre: return PANGO_ALIGN_CENTER;
        case Alignment::Right: return PANGO_ALIGN_RIGHT;
        default: return PANGO_ALIGN_LEFT;
    }
}

}  // namespace

const ParagraphFormat& paragraphAt(const RichText& text, std::size_t position) {
    static const ParagraphFormat kPlain;
    const auto paragraph = stretchAt(text.paragraphs, position);
    return paragraph == text.paragraphs.end() ? kPlain : paragraph->format;
}

Part takePart(const RichText& text, std::size_t begin, std::int64_t characters, std::size_t bytes) {
    const auto isEnd = [](char character) { return character == '\n' || character == '\f'; };
    const std::string_view whole = text.text;
    const auto paragraph = stretchAt(text.paragraphs, begin);
    const bool isLast = paragraph == text.paragraphs.end();
    const std::size_t paragraphEnd = isLast ? whole.size() : std::min(paragraph->end, whole.size());
    const bool isFirst = paragraph == text.paragraphs.begin();
    const std::size_t paragraphBegin = isFirst ? 0 : std::prev(paragraph)->end;

    Part part{begin, begin};
    part.startsParagraph = begin == paragraphBegin || isEnd(whole[begin - 1]);
    std::string_view rest = whole.substr(begin, paragraphEnd - begin);
    while (part.ending == 0 && !rest.empty() && part.characters < characters && part.end - begin < bytes) {
        const char first = rest.front();
        text::takeCharacter(rest);
        if (isEnd(first) || first == '\v') part.ending = first;
        ++part.characters;
        part.end = paragraphEnd - rest.size();
    }
    part.endsParagraph = isEnd(part.ending) || rest.empty();
    part.endsLine = part.endsParagraph || part.ending != 0 || part.characters == characters;
    return part;
}

TextLayouts::TextLayouts()
    : fonts_(::pango_cairo_font_map_new()), context_(::pango_font_map_create_context(fonts_.get())) {
    // Points, as a page has them: with another scale Cairo would look each font up anew for each word, and
    // Pango takes empty lines and underlines for that much higher.
    ::pango_cairo_context_set_resolution(context_.get(), kPointsPerInch);
    ::pango_context_set_base_dir(context_.get(), PANGO_DIRECTION_LTR);
    // Widths are those of the outlines, whatever the device's pixels.
    ::pango_context_set_round_glyph_positions(context_.get(), FALSE);
    const std::unique_ptr<cairo_font_options_t, decltype(&::cairo_font_options_destroy)> options(
        ::cairo_font_options_create(), &::cairo_font_options_destroy);
    ::cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    ::cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    ::pango_cairo_context_set_font_options(context_.get(), options.get());
}

PartLayout TextLayouts::layOut(const RichText& text, const Part& part, std::int64_t width, bool monochrome) {
    const ParagraphFormat& format = paragraphAt(text, part.begin);
    const std::int64_t indent = part.startsParagraph ? bounded(format.firstLineIndent) : 0;
    const std::int64_t left = bounded(format.leftIndent) + std::min<std::int64_t>(indent, 0);
    const std::int64_t room = std::clamp<std::int64_t>(width - left - bounded(format.rightIndent), 1, kMost);

    PartLayout made{Shared<PangoLayout>(::pango_layout_new(context_.get())), static_cast<double>(left)};
    PangoLayout* const layout = made.lines.get();
    ::pango_layout_set_auto_dir(layout, FALSE);
    ::pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
    ::pango_layout_set_width(layout, units(room));
    ::pango_layout_set_indent(layout, units(indent));
    ::pango_layout_set_alignment(layout, alignmentOf(format.alignment));
    ::pango_layout_set_justify(layout, format.alignment == Alignment::Justified ? TRUE : FALSE);

    const std::size_t ending = part.ending != 0 ? 1 : 0;
    const std::string shown =
        validText(std::string_view(text.text).substr(part.begin, part.end - part.begin - ending));
    const auto run = stretchAt(text.runs, part.begin);
    const CharacterFormat first = run == text.runs.end() ? CharacterFormat{} : run->format;
    ::pango_layout_set_font_description(layout, fontOf(first).get());
    ::pango_layout_set_attributes(layout, attributesOf(text, part, monochrome).get());
    if (text::contains(shown, "\t")) ::pango_layout_set_tabs(layout, tabsOf(format, left, room).get());
    ::pango_layout_set_text(layout, shown.c_str(), static_cast<int>(shown.size()));
    return made;
}

}  // namespace t_genproc::linux_desktop
