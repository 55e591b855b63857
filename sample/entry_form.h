/// A data-entry form without windows: text boxes in columns and rows under their headings.
#pragma once

#include <memory>
#include <string>

#include "frame/cGenProcs.h"
#include "host/memory_object.h"
#include "tavoru.h"

namespace tavoru {

class EntryForm {
   public:
    /// The focus is in the first box. `procs` must outlive the form.
    explicit EntryForm(t_genproc::cGenProcs& procs);
    EntryForm(const EntryForm&) = delete;
    EntryForm& operator=(const EntryForm&) = delete;

    /// "down", "up", "enter" or "trim"; anything else is typed and takes the place of the selection.
    void step(const std::string& step);

    /// The boxes, a disabled one in parentheses, and the focus in words. "<" and ">" enclose the selection.
    Lines lines() const;

   private:
    void setFocus(const t_genproc::ObjectPointer& box);
    void type(const std::string& typed);
    t_gencvf::LateBound active() const { return t_gencvf::LateBound(form_)["ActiveControl"]; }
    std::string drawn(std::int32_t index) const;

    t_genproc::cGenProcs& procs_;
    std::shared_ptr<t_gencvf::MemoryObject> form_ = std::make_shared<t_gencvf::MemoryObject>("Form");
};

}  // namespace tavoru
