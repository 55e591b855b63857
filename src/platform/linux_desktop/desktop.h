/// What printing and graphics share: contexts and objects behind their handles.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

#include "platform/linux_desktop/linux_desktop.h"

namespace t_genproc::linux_desktop {

/// Things by handles that are never given twice, so that one that is gone is never taken for another.
/// The tables of contexts and objects give handles of their own kind, odd and even ones.
template <class Thing>
class Handles {
   public:
    explicit Handles(std::intptr_t first) : next_(first) {}

    std::intptr_t add(std::shared_ptr<Thing> thing) {
        const std::intptr_t handle = std::exchange(next_, next_ + 2);
        things_.emplace(handle, std::move(thing));
        return handle;
    }
    /// Null where there is none.
    std::shared_ptr<Thing> find(std::intptr_t handle) const {
        const auto found = things_.find(handle);
        return found == things_.end() ? nullptr : found->second;
    }
    bool remove(std::intptr_t handle) { return things_.erase(handle) != 0; }
    std::size_t size() const { return things_.size(); }

   private:
    std::map<std::intptr_t, std::shared_ptr<Thing>> things_;
    std::intptr_t next_;
};

/// A font or a bitmap.
class DrawingObject {
   public:
    virtual ~DrawingObject() = default;
};

struct Font final : DrawingObject {
    explicit Font(LogicalFont description) : logical(std::move(description)) {}
    LogicalFont logical;
};

/// A device context: a printer's, a window's, or one in memory.
class Context {
   public:
    virtual ~Context() = default;
    virtual std::int32_t deviceCaps(std::int32_t index) const = 0;
    /// Where to draw, one unit a device pixel; null while there is nothing to draw on.
    virtual cairo_t* drawing() = 0;

    GraphicsObject font = 0;
    std::uint32_t textColour = 0;  ///< 0x00BBGGRR
    std::uint32_t textAlign = TextAlign::LeftTop;
};

struct Desktop {
    Desktop(LinuxDesktopOptions chosen, Files& system) : options(std::move(chosen)), files(system) {}

    LinuxDesktopOptions options;
    Files& files;
    Handles<Context> contexts{1};
    Handles<DrawingObject> objects{2};
};

std::unique_ptr<Printing> makePrinting(std::shared_ptr<Desktop> desktop);
std::unique_ptr<Graphics> makeGraphics(std::shared_ptr<Desktop> desktop);

}  // namespace t_genproc::linux_desktop
