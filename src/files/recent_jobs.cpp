#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "frame/recent_jobs_menu.h"
#include "runtime/text.h"

namespace t_genproc {

void cGenProcs::RecentJobsNewItem(const t_gencvf::JobItem& jobItem, const ObjectPointer& mainForm,
                                  const t_gencvf::ProgramState& prog) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsNewItem", [&] {
        RecentJobsMenu menu(mainForm);
        const std::string path = jobItem.jobPath;  // reading a caption may run code of the host
        if (menu.caption(0) == RecentJobsMenu::captionFor(0, path)) return;

        std::int16_t found = -1;
        for (std::int16_t i = 0; i <= RecentJobsMenu::kLastEntry; ++i) {
            if (text::contains(menu.caption(i), path)) found = i;  // of several, the last one counts
        }
        if (found < 0) {
            for (std::int16_t i = RecentJobsMenu::kLastEntry; i >= 1; --i)
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
        for (std::int16_t i = Index; i < RecentJobsMenu::kLastEntry; ++i) {
            const std::string next = menu.path(static_cast<std::int16_t>(i + 1));
            if (!text::isBlank(next)) {
                menu.setPath(i, next);
            } else {
                menu.clear(i);
                menu.setVisible(i, false);
            }
        }
        menu.clear(RecentJobsMenu::kLastEntry);
    });
}

void cGenProcs::RecentJobsValidate(const ObjectPointer& mainForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub RecentJobsValidate", [&] {
        RecentJobsMenu menu(mainForm);
        for (std::int16_t i = 0; i <= RecentJobsMenu::kLastEntry; ++i)
            menu.setVisible(i, !text::isBlank(menu.path(i)));
    });
}

}  // namespace t_genproc
