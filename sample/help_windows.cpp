#include "help_windows.h"

#include <algorithm>
#include <sstream>

#include "runtime/text.h"
#include "wrong_use.h"

namespace tavoru {
namespace {

using t_gencvf::MemoryObject;
using t_genproc::cInstHelp;

/// Controls that several windows share; "optVAtype*3" is an array of three.
struct Group {
    const char* controls;
    void (cInstHelp::*setNumbers)(const t_genproc::ObjectPointer& window);
};
constexpr Group kParameters{
    "fraParameters chkCnR chkMSL txtKfactor optVAtype*3 optEDMmount*3 txtEDMoffset txtReflOffset "
    "chkTiltPrism txtDescription",
    &cInstHelp::SetHelpID_Parameters};
constexpr Group kAdjust{"fraAdjust optAdjustMethod*4 chkMeanObs chkUseDefSD cmdLSOptions cmdSaveSettings",
                        &cInstHelp::SetHelpID_Adjust};
constexpr Group kCompute{"fraCompute chkShowLog optPtDesc*2 optCompute*3 cmdCompute chkPtNoPrefix",
                         &cInstHelp::SetHelpID_Compute};
constexpr Group kDecimals{"fraDecimals spnDecH spnDecV", &cInstHelp::SetHelpID_HVSpin};
constexpr Group kRecordButtons{"pnlButtons cmdNew cmdEdit cmdSave cmdCancel cmdDelete cmdExit datRecords",
                               &cInstHelp::SetHelpID_DatasetButtons};
constexpr const char* kEditButtons = "pnlButtons cmdExit cmdSave cmdCancel cmdClearPage txtPageNo spnPage";

constexpr std::int16_t kFirstShared = 18700;  // of the numbers of the groups
constexpr std::int16_t kLastShared = 19028;
constexpr std::int16_t kOwnNumbers = 100;  // of each window

struct Kind {
    std::string_view name;
    const char* formName;
    std::int16_t number;   // its own; those of its own controls count on from it
    const char* controls;  // its own
    std::vector<Group> groups;
    std::string exitSaveOK;  // of its edit buttons; empty: it has none
};

const Kind kKinds[] = {
    {"traverse",
     "frmTraverse",
     4100,
     "txtStation txtBacksight txtForesight txtAngle txtDistance txtVertical txtHI txtHT txtRemarks",
     {kParameters, kAdjust, kCompute, kDecimals},
     "EXITSAVE"},
    {"network", "frmLS_Edit", 4200, "txtPoint chkFixed txtSDE txtSDN", {kParameters, kAdjust}, "OKSAVE"},
    {"file", "frmDataFile", 4300, "txtFileName chkReadOnly txtDescription", {kParameters}, "EXIT"},
    {"dataset", "frmDataset", 4400, "lblDatum cboDatum txtName txtChecked", {kRecordButtons}, ""},
    {"options", "frmLSOptions", 4500, "txtIterations txtLimitH txtLimitV", {}, "OK"},
};

const Kind& kindNamed(std::string_view name) {
    const auto found = std::ranges::find(kKinds, name, &Kind::name);
    if (found != std::end(kKinds)) return *found;
    std::string names;
    for (const std::string_view each : Window::names()) names += " " + std::string(each);
    throw WrongUse("there is no window " + std::string(name) + " among" + names);
}

std::shared_ptr<MemoryObject> asControl(const std::shared_ptr<MemoryObject>& object) {
    for (const char* property : {"HelpContextID", "WhatsThisHelpID", "BorderStyle", "BackStyle"}) {
        object->add(property, 0);
    }
    object->add("Left", 1500).add("Top", 300).add("Width", 2400).add("Height", 300).add("Caption", "");
    return object;
}

/// A combo box has no number; its label, which stands ahead of it and around it, has one.
bool isComboBox(const Window::Part& part) { return part.name.starts_with("cbo"); }

}  // namespace

std::vector<std::string_view> Window::names() {
    std::vector<std::string_view> names;
    for (const Kind& kind : kKinds) names.push_back(kind.name);
    return names;
}

Window::Window(t_genproc::Library& library, std::string_view name, bool withHelp) : help_(library) {
    const Kind& kind = kindNamed(name);
    const auto window = asControl(std::make_shared<MemoryObject>());
    const auto menuEntry = std::make_shared<MemoryObject>();
    menuEntry->add("Checked", withHelp);
    window->add("name", kind.formName).add("Height", 6000).add("MenuIhelp", menuEntry);
    window->add("pnlHelp", asControl(std::make_shared<MemoryObject>()));

    parts_.push_back({kind.formName, window});
    addControls(kind.controls);
    std::int16_t number = ownNumber_ = kind.number;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        if (isComboBox(parts_[i])) {
            help_.SetDummyCBO(parts_[i - 1].object, parts_[i].object);
        } else {
            parts_[i].object->let("HelpContextID", number++);
        }
    }
    for (const auto& [controls, setNumbers] : kind.groups) {
        addControls(controls);
        (help_.*setNumbers)(window);
    }
    if (!kind.exitSaveOK.empty()) {
        addControls(kEditButtons);
        help_.SetHelpID_EditButtons(window, kind.exitSaveOK);
    }
    for (const auto& [partName, object] : parts_) {  // a frame is asked for its number like any control
        const t_genproc::Variant ofFrame = object->get("WhatsThisHelpID");
        if (t_genproc::toInt16(ofFrame) != 0) object->let("HelpContextID", ofFrame);
    }
}

/// Leaves out those that the window has already.
void Window::addControls(const char* names) {
    std::istringstream words(names);
    for (std::string word; words >> word;) {
        const std::size_t star = word.find('*');
        const std::string name = word.substr(0, star);
        if (std::ranges::find(parts_, name, &Part::name) != parts_.end()) continue;
        if (star == std::string::npos) {
            parts_.push_back({name, asControl(std::make_shared<MemoryObject>())});
            parts_.front().object->add(name, parts_.back().object);
            continue;
        }
        const auto array = std::make_shared<t_gencvf::MemoryControlArray>();
        for (char element = '0'; element < word.back(); ++element) {
            parts_.push_back({name + '(' + element + ')', asControl(array->add("Control"))});
        }
        parts_.front().object->add(name, array);
    }
}

std::vector<Window::Part> Window::partsNamed(std::string_view name) const {
    using t_genproc::text::equalIgnoringCase;
    std::vector<Part> found;
    std::string names;
    for (const Part& part : parts_) {
        const std::string array = part.name.substr(0, part.name.find('('));
        if (equalIgnoringCase(part.name, name) || equalIgnoringCase(array, name)) found.push_back(part);
        names += ' ' + part.name;
    }
    if (found.empty()) throw WrongUse("there is no control " + std::string(name) + " among" + names);
    return found;
}

bool Window::isOwn(std::int16_t number) const { return number / kOwnNumbers == ownNumber_ / kOwnNumbers; }

bool Window::loadHelp(const std::string& messageDatabase) {
    const auto lastOwn = static_cast<std::int16_t>(ownNumber_ + kOwnNumbers - 1);
    help_.LoadInstantHelp(parts_.front().object, ownNumber_, lastOwn, kFirstShared, kLastShared,
                          messageDatabase);
    return t_genproc::toBoolean(form()["MenuIhelp"]["Checked"].get());
}

std::string Window::pointAt(const Part& part) {
    const auto& window = parts_.front().object;
    if (part.object == window) {
        help_.DisplayFormHelp(window);
    } else {
        help_.DisplayHelpBox(window, part.object);
    }
    return form()["pnlHelp"]["Caption"].text();
}

}  // namespace tavoru
