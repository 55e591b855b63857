/// The windows of the application, without a screen: their controls, and the line of help at their bottom.
///
///     Window window(library, "traverse", true);
///     if (window.loadHelp("C:\\Programs\\Tavoru\\Messages.db")) print({window.pointAt(window.parts()[1])});
#pragma once

#include "host/memory_object.h"
#include "instanthelp/cInstHelp.h"

namespace tavoru {

class Window {
   public:
    /// The window itself or one of its controls.
    struct Part {
        std::string name;  ///< "frmTraverse", "txtKfactor", "optVAtype(1)"
        std::shared_ptr<t_gencvf::MemoryObject> object;

        std::int16_t number() const { return t_genproc::toInt16(object->get("HelpContextID")); }
    };

    static std::vector<std::string_view> names();

    /// `withHelp`: whether its menu has Instant Help checked. Throws WrongUse: there is no such window.
    Window(t_genproc::Library& library, std::string_view name, bool withHelp);

    /// The window itself, then its controls.
    const std::vector<Part>& parts() const { return parts_; }
    /// The elements of a control array, or a single part. Throws WrongUse: the window has none of this name.
    std::vector<Part> partsNamed(std::string_view name) const;

    /// Whether a help context number is one of the window's own.
    bool isOwn(std::int16_t number) const;

    /// Reads the texts; false: Instant Help is off, or a message box has said what is wrong, and the panel is
    /// folded away.
    bool loadHelp(const std::string& messageDatabase);
    /// What the help panel shows when the pointer is there.
    std::string pointAt(const Part& part);

    t_gencvf::LateBound form() const { return t_gencvf::LateBound(parts_.front().object); }

   private:
    void addControls(const char* names);

    t_genproc::cInstHelp help_;
    std::int16_t ownNumber_ = 0;
    std::vector<Part> parts_;
};

}  // namespace tavoru
