/// Cairo's surfaces and drawings with an owner.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <memory>

namespace t_genproc::linux_desktop {

struct DestroyWithCairo {
    void operator()(cairo_surface_t* surface) const { ::cairo_surface_destroy(surface); }
    void operator()(cairo_t* drawing) const { ::cairo_destroy(drawing); }
};
using Surface = std::unique_ptr<cairo_surface_t, DestroyWithCairo>;
using Drawing = std::unique_ptr<cairo_t, DestroyWithCairo>;

inline bool isSound(const Surface& surface) {
    return ::cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS;
}

/// Black pixels of red, green and blue.
inline Surface makePixels(std::int32_t width, std::int32_t height) {
    return Surface(::cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
}

}  // namespace t_genproc::linux_desktop
