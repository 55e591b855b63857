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
template <class Thing>
class Handles {
   public:
    std::intptr_t add(std::shared_ptr<Thing> thing) {
        things_.emplace(++last_, std::move(thing));
        return last_;
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
    std::intptr_t last_ = 0;
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

/// Handles of contexts and objects are told apart by their tables.
struct Desktop {
    LinuxDesktopOptions options;
    Files& files;
    Handles<Context> contexts;
    Handles<DrawingObject> objects;
};

std::unique_ptr<Printing> makePrinting(std::shared_ptr<Desktop> desktop);
std::unique_ptr<Graphics> makeGraphics(std::shared_ptr<Desktop> desktop);

}  // namespace t_genproc::linux_desktop
