#include "platform/linux_desktop/text_drawing.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <cmath>

#include "platform/linux_desktop/valid_text.h"

namespace t_genproc::linux_desktop {
namespace {

struct FreeWithPango {
    void operator()(PangoLayout* layout) const { ::g_object_unref(layout); }
    void operator()(PangoFontDescription* font) const { ::pango_font_description_free(font); }
    void operator()(PangoFontMetrics* metrics) const { ::pango_font_metrics_unref(metrics); }
};
template <class Thing>
using Pango = std::unique_ptr<Thing, FreeWithPango>;

constexpr double kMostHeight = 32767;  // device units
constexpr double kUsualPoints = 12;

struct Metrics {
    double ascent = 0;
    double descent = 0;
};

Metrics metricsOf(PangoContext* context, const PangoFontDescription* font) {
    const Pango<PangoFontMetrics> metrics(::pango_context_get_metrics(context, font, nullptr));
    // Pango gives them for a device that is not scaled.
    const double scale = ::pango_matrix_get_font_scale_factor(::pango_context_get_matrix(context));
    return {scale * ::pango_units_to_double(::pango_font_metrics_get_ascent(metrics.get())),
            scale * ::pango_units_to_double(::pango_font_metrics_get_descent(metrics.get()))};
}

void setSize(PangoFontDescription* font, double deviceUnits) {
    ::pango_font_description_set_absolute_size(font, deviceUnits * PANGO_SCALE);
}

/// A height above 0 is that of a line, one below that of the letters.
void setHeight(PangoFontDescription* font, PangoContext* context, double height) {
    const double size = std::min(std::abs(height), kMostHeight);
    setSize(font, size);
    if (height < 0) return;
    const Metrics asLetters = metricsOf(context, font);
    const double line = asLetters.ascent + asLetters.descent;
    if (line > 0) setSize(font, size * size / line);
}

Pango<PangoFontDescription> describe(const LogicalFont& font, PangoContext* context,
                                     std::int32_t pixelsPerInch) {
    Pango<PangoFontDescription> description(::pango_font_description_new());
    if (!font.faceName.empty()) {
        ::pango_font_description_set_family(description.get(), validText(font.faceName).c_str());
    }
    const std::int32_t weight = font.weight == 0 ? PANGO_WEIGHT_NORMAL : font.weight;
    ::pango_font_description_set_weight(description.get(),
                                        static_cast<PangoWeight>(std::clamp(weight, 100, 1000)));
    const double usual = -kUsualPoints / 72 * std::max(pixelsPerInch, 1);
    setHeight(description.get(), context, font.height == 0 ? usual : font.height);
    return description;
}

/// Colours are 0x00BBGGRR.
void setColour(cairo_t* drawing, std::uint32_t colour) {
    const auto part = [colour](unsigned shift) { return (colour >> shift & 0xFFU) / 255.0; };
    ::cairo_set_source_rgb(drawing, part(0), part(8), part(16));
}

}  // namespace

bool drawText(Context& context, const LogicalFont& font, std::int32_t x, std::int32_t y,
              const std::string& text) {
    cairo_t* const drawing = context.drawing();
    if (drawing == nullptr) return false;
    const Pango<PangoLayout> layout(::pango_cairo_create_layout(drawing));
    PangoContext* const pango = ::pango_layout_get_context(layout.get());
    const auto description = describe(font, pango, context.deviceCaps(DeviceCaps::LogPixelsY));
    ::pango_layout_set_font_description(layout.get(), description.get());
    ::pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    ::pango_layout_set_text(layout.get(), validText(text).c_str(), -1);

    PangoLayoutLine* const line = ::pango_layout_get_line_readonly(layout.get(), 0);
    PangoRectangle extent;
    ::pango_layout_line_get_extents(line, nullptr, &extent);
    const Metrics metrics = metricsOf(pango, description.get());
    const bool endsAtX = (context.textAlign & TextAlign::Right) != 0;
    const bool standsOnY = (context.textAlign & TextAlign::Bottom) != 0;

    ::cairo_save(drawing);
    setColour(drawing, context.textColour);
    ::cairo_move_to(drawing, endsAtX ? x - ::pango_units_to_double(extent.width) : x,
                    standsOnY ? y - metrics.descent : y + metrics.ascent);
    ::pango_cairo_show_layout_line(drawing, line);
    ::cairo_new_path(drawing);
    ::cairo_restore(drawing);
    return ::cairo_status(drawing) == CAIRO_STATUS_SUCCESS;
}

}  // namespace t_genproc::linux_desktop
