#include <optional>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

/// The horizontal span of a control.
struct Column {
    std::int16_t left;
    std::int16_t right;

    explicit Column(const LateBound& control)
        : left(toInt16(control["Left"].get())), right(checkedAdd(left, toInt16(control["Width"].get()))) {}

    bool isSameAs(const Column& other) const {
        return left == other.left || right == other.right || (right > other.left && left < other.right);
    }
};

bool qualifies(const LateBound& control, std::int16_t tabIndex) {
    return control.isTextBox() && toInt16(control["TabIndex"].get()) == tabIndex &&
           toBoolean(control["Enabled"].get()) && toBoolean(control["Visible"].get());
}

std::int32_t countOf(const LateBound& controls) { return toInt32(controls["Count"].get()); }

/// Moves the focus to the first control that qualifies for the tab position and stands in the column.
bool moveTo(const LateBound& controls, std::int16_t tabIndex, const std::optional<Column>& column) {
    const std::int32_t count = countOf(controls);
    for (std::int32_t i = 0; i < count; ++i) {
        const LateBound control(toObject(controls(i).get()));
        if (!qualifies(control, tabIndex)) continue;
        if (column && !column->isSameAs(Column(control))) continue;
        control["SetFocus"].call();
        return true;
    }
    return false;
}

enum class Way { Down, Up };

/// Tries the tab positions from the active control's on, in steps of `step`.
bool advance(const ObjectPointer& currentForm, Way way, std::int16_t step, bool inColumn) {
    const LateBound form(currentForm);
    const LateBound active(toObject(form["ActiveControl"].get()));
    if (!active.isTextBox()) return false;
    const std::optional<Column> column = inColumn ? std::optional<Column>(active) : std::nullopt;
    std::int16_t tabIndex = toInt16(active["TabIndex"].get());
    do {
        tabIndex = way == Way::Down ? checkedAdd(tabIndex, step) : checkedSubtract(tabIndex, step);
        if (way == Way::Up && tabIndex < 0) return false;
        const LateBound controls(toObject(form["Controls"].get()));
        if (way == Way::Down && tabIndex >= countOf(controls)) return false;
        if (moveTo(controls, tabIndex, column)) return true;
    } while (step != 0);  // without a step it would be the same position for ever
    return false;
}

}  // namespace

bool cGenProcs::TextBoxDownAdvance(const ObjectPointer& currentForm, std::int16_t stepVal) {
    return procedure(library_, "(Class Module) cGenProcs::Function TextBoxDownAdvance",
                     [&] { return advance(currentForm, Way::Down, stepVal, true); });
}

bool cGenProcs::TextBoxUpAdvance(const ObjectPointer& currentForm, std::int16_t stepVal) {
    return procedure(library_, "(Class Module) cGenProcs::Function TextBoxUpAdvance",
                     [&] { return advance(currentForm, Way::Up, stepVal, true); });
}

bool cGenProcs::TextBoxEnterAdvance(const ObjectPointer& currentForm) {
    return procedure(library_, "(Class Module) cGenProcs::Function TextBoxEnterAdvance",
                     [&] { return advance(currentForm, Way::Down, 1, false); });
}

void cGenProcs::SelectText(const ObjectPointer& TextBox) {
    procedure(library_, "(Class Module) cGenProcs::Sub SelectText", [&] {
        const LateBound box(TextBox);
        const std::string text = box["Text"].text();
        const std::string_view trimmed = text::trim(text);
        if (trimmed.empty()) return;
        box["Text"] = std::string(trimmed);
        box["SelStart"] = 0;
        box["SelLength"] = checkedNarrow<std::int32_t>(text::length(trimmed));
    });
}

void cGenProcs::TrimTextBoxes(const ObjectPointer& currentForm) {
    procedure(library_, "(Class Module) cGenProcs::Sub TrimTextBoxes", [&] {
        const LateBound controls(toObject(LateBound(currentForm)["Controls"].get()));
        const std::int32_t count = countOf(controls);
        for (std::int32_t i = 0; i < count; ++i) {
            const LateBound control(toObject(controls(i).get()));
            if (!control.isTextBox()) continue;
            const std::string text = control["Text"].text();
            if (text.empty() || !text::isBlank(text)) continue;
            const bool enabled = toBoolean(control["Enabled"].get());
            if (!enabled) control["Enabled"] = true;
            control["Text"] = "";
            if (!enabled) control["Enabled"] = false;
        }
    });
}

}  // namespace t_genproc
