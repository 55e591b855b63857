#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::int16_t kLastEntry = 4;

/// The menu entries: entry i holds "&", i + 1, two blanks and a job's path, or nothing.
class RecentJobsMenu {
   public:
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

}  // namespace

void cGenProcs::RecentJobsNewItem(const t_gencvf::JobItem& jobItem, const ObjectPointer& mainForm,
                                  const t_gencvf::ProgramState& prog) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsNewItem", [&] {
        RecentJobsMenu menu(mainForm);
        const std::string path = jobItem.jobPath;  // reading a caption may run code of the host
        if (menu.caption(0) == RecentJobsMenu::captionFor(0, path)) return;

        std::int16_t found = -1;
        for (std::int16_t i = 0; i <= kLastEntry; ++i) {
            if (text::contains(menu.caption(i), path)) found = i;  // of several, the last one counts
        }
        if (found < 0) {
            for (std::int16_t i = kLastEntry; i >= 1; --i)
                menu.setPath(i, menu.path(static_cast<std::int16_t>(i - 1)));
            menu.setPath(0, path);
        } else {
            RecentJobsReOrder(found, mainForm);
        }
        SaveCurrentJobName(jobItem, prog);
    });
}

void cGenProcs::RecentJobsReOrder(std::int16_t Index, const ObjectPointer& mainForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsReOrder", [&] {
        RecentJobsMenu menu(mainForm);
        const std::string path = menu.path(Index);
        for (std::int16_t i = Index; i >= 1; --i)
            menu.setPath(i, menu.path(static_cast<std::int16_t>(i - 1)));
        menu.setPath(0, path);
    });
}

void cGenProcs::RecentJobsClearDeleted(std::int16_t Index, const ObjectPointer& mainForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsClearDeleted", [&] {
        RecentJobsMenu menu(mainForm);
        for (std::int16_t i = Index; i < kLastEntry; ++i) {
            const std::string next = menu.path(static_cast<std::int16_t>(i + 1));
            if (!text::isBlank(next)) {
                menu.setPath(i, next);
            } else {
                menu.clear(i);
                menu.setVisible(i, false);
            }
        }
        menu.clear(kLastEntry);
    });
}

void cGenProcs::RecentJobsValidate(const ObjectPointer& mainForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsValidate", [&] {
        RecentJobsMenu menu(mainForm);
        for (std::int16_t i = 0; i <= kLastEntry; ++i) menu.setVisible(i, !text::isBlank(menu.path(i)));
    });
}

}  // namespace t_genproc
