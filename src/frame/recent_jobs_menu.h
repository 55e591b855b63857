/// The recent-jobs menu of the host's main form: what its captions mean.
#pragma once

#include <cstdint>
#include <string>

#include "host/object.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {

/// The menu entries: entry i holds "&", i + 1, two blanks and a job's path, or nothing.
class RecentJobsMenu {
   public:
    static constexpr std::int16_t kLastEntry = 4;

    explicit RecentJobsMenu(const ObjectPointer& mainForm) : form_(mainForm) {}

    std::string caption(std::int16_t entry) const { return member(entry, "Caption").text(); }
    std::string path(std::int16_t entry) const { return text::mid(caption(entry), kPathInCaption); }

    void setPath(std::int16_t entry, const std::string& path) {
        member(entry, "Caption") = captionFor(entry, path);
    }
    void clear(std::int16_t entry) { member(entry, "Caption") = ""; }
    void setVisible(std::int16_t entry, bool visible) { member(entry, "Visible") = visible; }

    static std::string captionFor(std::int16_t entry, const std::string& path) {
        return "&" + numberText(std::int64_t{entry} + 1) + "  " + path;
    }

   private:
    static constexpr int kPathInCaption = 5;

    t_gencvf::LateBound member(std::int16_t entry, std::string_view name) const {
        return form_["mnuFileRecentJobs"](entry)[name];
    }

    t_gencvf::LateBound form_;
};

}  // namespace t_genproc
