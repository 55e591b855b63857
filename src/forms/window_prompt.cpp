#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

constexpr auto kTooltipBackground = static_cast<std::int32_t>(0x80000018);  // a colour of the system
constexpr std::int32_t kLightGrey = 0xC0C0C0;

/// The panel takes the place of the two others, or gives it back. A number in its tag keeps all as it is.
class PromptPanel {
   public:
    explicit PromptPanel(const LateBound& mainForm) : mainForm_(mainForm), panel_(mainForm["pnlPrompt"]) {}

    void caption(const std::string& text) { panel_["Caption"] = text; }
    bool mayMove() const { return leadingNumber(panel_["Tag"].text()) == 0; }
    void show() {
        showOthers(false);
        panel_["Visible"] = true;
    }
    void hide() {
        showOthers(true);
        panel_["Visible"] = false;
    }
    void background(std::int32_t colour) { panel_["BackColor"] = colour; }

   private:
    void showOthers(bool areVisible) {
        for (const char* name : {"pnlDatumV", "pnlProjection"}) mainForm_[name]["Visible"] = areVisible;
    }

    LateBound mainForm_;
    LateBound panel_;
};

}  // namespace

void cGenProcs::WindowPrompt(const std::string& display, const ObjectPointer& mainForm, bool yellowBG) {
    procedure(library_, "(Class Module) cGenProcs::Sub WindowPrompt", [&] {
        PromptPanel panel{LateBound(mainForm)};
        if (!text::isBlank(display)) {
            panel.caption(display);
            if (panel.mayMove()) {
                panel.show();
                if (yellowBG) panel.background(kTooltipBackground);
            }
        } else {
            panel.caption("");
            if (panel.mayMove()) {
                panel.hide();
                panel.background(kLightGrey);
            }
        }
        library_.platform().windows->DispatchPendingMessages();
    });
}

}  // namespace t_genproc
