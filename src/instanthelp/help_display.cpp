#include "frame/procedure.h"
#include "host/object.h"
#include "instanthelp/cInstHelp.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

constexpr std::int32_t kFirstGeneralNumber = 10999;
constexpr const char* kNoHelp = "(No help available)";

std::int32_t helpNumberOf(const LateBound& object) { return toInt32(object["HelpContextID"].get()); }

bool isWanted(const LateBound& form) { return toBoolean(form["MenuIhelp"]["Checked"].get()); }

}  // namespace

void cInstHelp::DisplayHelpBox(const ObjectPointer& currentForm, const ObjectPointer& currentControl) {
    procedure(library_, "(Class Module) cInstHelp::Sub DisplayHelpBox", [&] {
        const std::int32_t number = helpNumberOf(LateBound(currentControl));
        if (number == 0) return;
        const LateBound form(currentForm);
        if (!isWanted(form) || number == lastShown_) return;
        const LateBound panel = form["pnlHelp"];
        panel["Caption"] = "";
        const std::string* const text =
            (number < kFirstGeneralNumber ? controlTexts_ : generalTexts_).find(number);
        if (text != nullptr) panel["Caption"] = *text;
        if (panel["Caption"].text().empty()) panel["Caption"] = kNoHelp;
        lastShown_ = number;
    });
}

void cInstHelp::DisplayFormHelp(const ObjectPointer& thisForm) {
    procedure(library_, "(Class Module) cInstHelp::Sub DisplayFormHelp", [&] {
        const LateBound form(thisForm);
        const std::int32_t number = helpNumberOf(form);
        if (!isWanted(form) || number == lastShown_) return;
        form["pnlHelp"]["Caption"] = windowText_.empty() ? kNoHelp : windowText_;
        lastShown_ = number;
    });
}

}  // namespace t_genproc
