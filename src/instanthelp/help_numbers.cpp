#include <span>

#include "frame/procedure.h"
#include "host/object.h"
#include "instanthelp/cInstHelp.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

struct HelpNumber {
    std::string_view control;
    std::int16_t number;
    int element = -1;  // of a control array, from 0
    std::string_view property = "HelpContextID";
};
/// The frame or panel around a group, and what has no HelpContextID.
constexpr HelpNumber whatsThis(std::string_view control, std::int16_t number) {
    return {control, number, -1, "WhatsThisHelpID"};
}

constexpr HelpNumber kParameters[] = {
    whatsThis("fraParameters", 18700),
    {"chkCnR", 18702},
    {"chkMSL", 18703},
    {"txtKfactor", 18704},
    {"optVAtype", 18705, 0},
    {"optVAtype", 18705, 1},
    {"optVAtype", 18705, 2},
    {"optEDMmount", 18706, 0},
    {"optEDMmount", 18706, 1},
    {"optEDMmount", 18706, 2},
    {"txtEDMoffset", 18707},
    {"txtReflOffset", 18708},
    {"chkTiltPrism", 18709},
};
struct WindowNumber {
    std::string_view window;
    std::int16_t number;
};
/// Of `txtDescription`, by the name of its window. Any other window's keeps its number, that of "frmDataFile"
/// too.
constexpr WindowNumber kDescriptions[] = {{"frmTraverse", 18710}, {"frmLS_Edit", 18711}};

constexpr HelpNumber kAdjust[] = {
    whatsThis("fraAdjust", 18800), {"optAdjustMethod", 18801, 0}, {"optAdjustMethod", 18802, 1},
    {"optAdjustMethod", 18803, 2}, {"optAdjustMethod", 18804, 3}, {"chkMeanObs", 18805},
    {"chkUseDefSD", 18810},        {"cmdLSOptions", 18811},       {"cmdSaveSettings", 18813},
};

constexpr HelpNumber kCompute[] = {
    whatsThis("fraCompute", 18900), {"chkShowLog", 18901},    {"optPtDesc", 18902, 0},
    {"optPtDesc", 18902, 1},        {"optCompute", 18903, 0}, {"optCompute", 18903, 1},
    {"optCompute", 18903, 2},       {"cmdCompute", 18904},    {"chkPtNoPrefix", 18905},
};

constexpr HelpNumber kDatasetButtons[] = {
    whatsThis("pnlButtons", 19021), {"cmdNew", 19022},    {"cmdEdit", 19023}, {"cmdSave", 19024},
    {"cmdCancel", 19025},           {"cmdDelete", 19026}, {"cmdExit", 19027}, whatsThis("datRecords", 19028),
};

constexpr HelpNumber kEditPanel = whatsThis("pnlButtons", 19000);
/// Of `cmdExit`, by what it does.
struct ExitNumber {
    std::string_view exitSaveOK;
    std::int16_t number;
};
constexpr ExitNumber kExits[] = {{"OK", 19001}, {"EXIT", 19002}, {"EXITSAVE", 19003}, {"OKSAVE", 19004}};
constexpr HelpNumber kEditButtons[] = {
    {"cmdSave", 19005},   {"cmdCancel", 19006}, {"cmdClearPage", 19007},
    {"txtPageNo", 19008}, {"spnPage", 19011},
};

constexpr HelpNumber kHVSpin[] = {
    whatsThis("fraDecimals", 19012),
    {"spnDecH", 19013},
    {"spnDecV", 19014},
};

void set(const LateBound& form, const HelpNumber& row) {
    const LateBound control = row.element < 0 ? form[row.control] : form[row.control](row.element);
    control[row.property] = row.number;
}
void set(const LateBound& form, std::span<const HelpNumber> rows) {
    for (const HelpNumber& row : rows) set(form, row);
}

}  // namespace

void cInstHelp::SetHelpID_Parameters(const ObjectPointer& formName) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_Parameters", [&] {
        const LateBound form(formName);
        set(form, kParameters);
        const std::string name = form["name"].text();
        for (const auto& [window, number] : kDescriptions) {
            if (name == window) set(form, {"txtDescription", number});
        }
    });
}

void cInstHelp::SetHelpID_Adjust(const ObjectPointer& formName) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_Adjust",
              [&] { set(LateBound(formName), kAdjust); });
}

void cInstHelp::SetHelpID_Compute(const ObjectPointer& formName) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_Compute",
              [&] { set(LateBound(formName), kCompute); });
}

void cInstHelp::SetHelpID_DatasetButtons(const ObjectPointer& formName) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_DatasetButtons",
              [&] { set(LateBound(formName), kDatasetButtons); });
}

void cInstHelp::SetHelpID_EditButtons(const ObjectPointer& formName, const std::string& exitSaveOK) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_EditButtons", [&] {
        const LateBound form(formName);
        set(form, kEditPanel);
        const std::string exit = text::upper(exitSaveOK);
        for (const auto& [does, number] : kExits) {
            if (exit == does) set(form, {"cmdExit", number});
        }
        set(form, kEditButtons);
    });
}

void cInstHelp::SetHelpID_HVSpin(const ObjectPointer& formName) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetHelpID_HVSpin",
              [&] { set(LateBound(formName), kHVSpin); });
}

void cInstHelp::SetDummyCBO(const ObjectPointer& dummyLabel, const ObjectPointer& comboBox) {
    procedure(library_, "(Class Module) cInstHelp::Sub SetDummyCBO", [&] {
        constexpr double kFrame = 30;
        const LateBound label(dummyLabel), box(comboBox);
        const auto of = [&](std::string_view property) { return toDouble(box[property].get()); };
        label["BorderStyle"] = 0;
        label["BackStyle"] = 0;
        label["toP"] = of("Top") - kFrame;
        label["Left"] = of("Left") - kFrame;
        label["Height"] = of("Height") + 2 * kFrame;
        label["Width"] = of("Width") + 2 * kFrame;
    });
}

}  // namespace t_genproc
