#include "platform/linux_desktop/rich_text_formatter.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "runtime/text.h"

namespace t_genproc::linux_desktop {
namespace {

using t_gencvf::ParagraphFormat;
using t_gencvf::RichText;

constexpr double kPointsPerInch = 72;
constexpr double kTwipsPerPoint = 20;
constexpr std::size_t kPartBytes = 1000;  // a good deal less than a page has

double twips(int units) { return static_cast<double>(units) / PANGO_SCALE * kTwipsPerPoint; }
double points(double twips) { return twips / kTwipsPerPoint; }

/// Draws in points what is given in twips; device pixels are back at its end.
class TwipsDrawing {
   public:
    explicit TwipsDrawing(Context* context) : drawing_(context == nullptr ? nullptr : context->drawing()) {
        if (drawing_ == nullptr) return;
        ::cairo_save(drawing_);
        ::cairo_scale(drawing_, context->deviceCaps(DeviceCaps::LogPixelsX) / kPointsPerInch,
                      context->deviceCaps(DeviceCaps::LogPixelsY) / kPointsPerInch);
        ::cairo_set_source_rgb(drawing_, 0, 0, 0);
    }
    TwipsDrawing(const TwipsDrawing&) = delete;
    TwipsDrawing& operator=(const TwipsDrawing&) = delete;
    ~TwipsDrawing() {
        if (drawing_ == nullptr) return;
        ::cairo_new_path(drawing_);
        ::cairo_restore(drawing_);
    }

    void clip(const Rectangle& area) {
        if (drawing_ == nullptr) return;
        ::cairo_rectangle(drawing_, points(area.left), points(area.top),
                          points(static_cast<double>(area.right) - area.left),
                          points(static_cast<double>(area.bottom) - area.top));
        ::cairo_clip(drawing_);
    }
    void show(PangoLayoutLine* line, double x, double baseline) {
        if (drawing_ == nullptr) return;
        ::cairo_move_to(drawing_, points(x), points(baseline));
        ::pango_cairo_show_layout_line(drawing_, line);
    }

   private:
    cairo_t* drawing_;
};

}  // namespace

/// An area that is filled from the top.
class Column {
   public:
    Column(const Rectangle& area, Context* context)
        : area_(area),
          drawing_(context),
          top_(area.top),
          isMonochrome_(context != nullptr && context->deviceCaps(DeviceCaps::BitsPerPixel) == 1) {}
    std::int64_t width() const { return std::int64_t{area_.right} - area_.left; }
    bool isMonochrome() const { return isMonochrome_; }

    bool isFull() const { return full_; }
    void end() { full_ = true; }
    void leave(std::int32_t space) { top_ += std::max(space, 0); }
    void leaveUnlessEmpty(std::int32_t space) {
        if (!empty_) leave(space);
    }

    /// False, and nothing placed, where the line does not fit.
    bool place(PangoLayoutLine* line, double fromLeft) {
        PangoRectangle extents{};
        ::pango_layout_line_get_extents(line, nullptr, &extents);
        const bool fits = top_ + twips(extents.height) <= area_.bottom;
        full_ = !fits;
        if (!fits && !empty_) return false;
        if (!fits) drawing_.clip(area_);
        drawing_.show(line, area_.left + fromLeft, top_ - twips(extents.y));
        top_ += twips(extents.height);
        empty_ = false;
        return true;
    }

   private:
    const Rectangle& area_;
    TwipsDrawing drawing_;
    double top_;
    bool isMonochrome_;
    bool empty_ = true;
    bool full_ = false;
};

namespace {

/// Places the lines of a part, as far as there is room; gives how many bytes of it they take.
std::size_t placeLines(const PartLayout& layout, const Part& part, Column& column) {
    PangoLayout* const lines = layout.lines.get();
    const int count = ::pango_layout_get_line_count(lines);
    const int wholeLines = part.endsLine ? count : count - 1;
    const std::unique_ptr<PangoLayoutIter, decltype(&::pango_layout_iter_free)> each(
        ::pango_layout_get_iter(lines), &::pango_layout_iter_free);
    int placed = 0;
    while (placed < wholeLines && !column.isFull()) {
        PangoRectangle extents{};
        ::pango_layout_iter_get_line_extents(each.get(), nullptr, &extents);
        PangoLayoutLine* const line = ::pango_layout_iter_get_line_readonly(each.get());
        if (!column.place(line, layout.left + twips(extents.x))) break;
        ::pango_layout_iter_next_line(each.get());
        ++placed;
    }
    if (placed == count) return part.end - part.begin;
    return static_cast<std::size_t>(::pango_layout_get_line_readonly(lines, placed)->start_index);
}

}  // namespace

std::int32_t RichTextFormatter::format(WindowHandle window, const std::shared_ptr<const RichText>& text,
                                       const FormatRange& range, Context* context) {
    const Rectangle& area = range.area;
    if (area.right <= area.left || area.bottom <= area.top) return range.firstCharacter;
    Known& known = known_[window];
    if (known.text.lock() != text) known = {text};
    Place place = placeOf(*text, known, range.firstCharacter);
    known.first = place;

    Column column(area, context);
    const std::int64_t end =
        range.endCharacter < 0 ? std::numeric_limits<std::int64_t>::max() : range.endCharacter;
    while (!column.isFull() && place.byte < text->text.size() && place.character < end) {
        fill(column, *text, place, end);
    }
    known.next = place;
    return static_cast<std::int32_t>(place.character);
}

/// Counts on from the nearest place that is known.
RichTextFormatter::Place RichTextFormatter::placeOf(const RichText& text, const Known& known,
                                                    std::int64_t character) {
    Place place;
    for (const Place& each : {known.first, known.next}) {
        if (each.character <= character && each.character >= place.character) place = each;
    }
    std::string_view rest = std::string_view(text.text).substr(place.byte);
    for (; place.character < character && !rest.empty(); ++place.character) text::takeCharacter(rest);
    place.byte = text.text.size() - rest.size();
    return place;
}

/// Puts the part of a paragraph that begins at `place` into the column, and moves `place` behind what found
/// room.
void RichTextFormatter::fill(Column& column, const RichText& text, Place& place, std::int64_t end) {
    const ParagraphFormat& format = paragraphAt(text, place.byte);
    std::size_t room = kPartBytes;
    Part part = takePart(text, place.byte, end - place.character, room);
    std::size_t taken = part.end - part.begin;

    const bool isNothingButPageBreak = part.startsParagraph && part.ending == '\f' && taken == 1;
    if (!isNothingButPageBreak) {
        if (part.startsParagraph) column.leaveUnlessEmpty(format.spaceBefore);
        PartLayout layout = layouts_.layOut(text, part, column.width(), column.isMonochrome());
        while (!part.endsLine && ::pango_layout_get_line_count(layout.lines.get()) == 1) {
            part = takePart(text, place.byte, end - place.character, room *= 2);
            layout = layouts_.layOut(text, part, column.width(), column.isMonochrome());
        }
        taken = placeLines(layout, part, column);
    }
    const bool isWhole = taken == part.end - part.begin;
    place.character +=
        isWhole ? part.characters : text::length(std::string_view(text.text).substr(place.byte, taken));
    place.byte += taken;
    if (isWhole && part.endsParagraph) column.leave(format.spaceAfter);
    if (isWhole && part.ending == '\f') column.end();
}

}  // namespace t_genproc::linux_desktop
