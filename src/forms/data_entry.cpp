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

/// Moves the focus to the first control that qualifies for the tab position and stands in the column.
bool moveTo(const LateBound& form, std::int32_t count, std::int16_t tabIndex,
            const std::optional<Column>& column) {
    for (std::int32_t i = 0; i < count; ++i) {
        const LateBound control(toObject(form["Controls"](i).get()));
        if (!qualifies(control, tabIndex)) continue;
        if (column && !column->isSameAs(Column(control))) continue;
        control["SetFocus"].call();
        return true;
    }
    return false;
}

/// What becomes of a tab position from one step to the next, and where the steps end.
enum class Way { Down, Up };

bool isBeyond(std::int16_t tabIndex, Way way, std::int32_t count) {
    return way == Way::Down ? tabIndex > count - 1 : tabIndex < 0;
}

bool advance(const ObjectPointer& currentForm, Way way, std::int16_t step, bool inColumn) {
    const LateBound form(currentForm);
    const LateBound active(toObject(form["ActiveControl"].get()));
    if (!active.isTextBox()) return false;
    const std::optional<Column> column = inColumn ? std::optional<Column>(active) : std::nullopt;
    const std::int32_t count = toInt32(form["Controls"]["Count"].get());
    std::int16_t tabIndex = toInt16(active["TabIndex"].get());
    for (;;) {
        tabIndex = way == Way::Down ? checkedAdd(tabIndex, step) : checkedSubtract(tabIndex, step);
        if (isBeyond(tabIndex, way, count)) return false;
        if (moveTo(form, count, tabIndex, column)) return true;
        if (step == 0) return false;  // it would be tried for ever
    }
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
        const LateBound form(currentForm);
        const std::int32_t count = toInt32(form["Controls"]["Count"].get());
        for (std::int32_t i = 0; i < count; ++i) {
            const LateBound control(toObject(form["Controls"](i).get()));
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
