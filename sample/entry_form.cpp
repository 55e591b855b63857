#include "entry_form.h"

#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

namespace text = t_genproc::text;
using t_gencvf::LateBound;

constexpr std::int16_t kNoNumber = -1;
constexpr struct {
    const char* heading;
    std::int16_t decimals;
} kColumns[] = {{"Point", kNoNumber}, {"East", 3}, {"North", 3}, {"Height", 4}};
constexpr std::int16_t kColumnCount = 4;

// The controls by their tab positions, which are their places among the form's controls as well: first the
// headings, then the boxes, row by row.
constexpr std::int32_t kFirstBox = kColumnCount;
constexpr std::int32_t kControlCount = kFirstBox + 3 * kColumnCount;
constexpr std::int32_t kDisabledBox = 10;
constexpr std::int32_t kHiddenBox = 11;

constexpr std::ptrdiff_t kWidth = 17;  // of a column on the screen

std::int32_t number(const LateBound& property) { return t_genproc::toInt32(property.get()); }
bool isTrue(const LateBound& property) { return t_genproc::toBoolean(property.get()); }

const auto& columnOf(const LateBound& box) {
    return kColumns[static_cast<std::size_t>(number(box["TabIndex"]) % kColumnCount)];
}

/// The text ahead of the selection, selected, and behind it.
struct Parts {
    std::string ahead, selected, behind;

    explicit Parts(const LateBound& box) {
        const std::string all = box["Text"].text();
        const std::int32_t start = number(box["SelStart"]);
        const std::int32_t length = number(box["SelLength"]);
        ahead = text::left(all, start);
        selected = text::mid(all, start + 1, length);
        behind = text::mid(all, start + length + 1);
    }
};

}  // namespace

EntryForm::EntryForm(t_genproc::cGenProcs& procs) : procs_(procs) {
    const auto controls = std::make_shared<t_gencvf::MemoryControlArray>();
    for (std::int32_t i = 0; i < kControlCount; ++i) {
        const auto control = controls->add(i < kFirstBox ? "Label" : "TextBox");
        control->add("TabIndex", i).add("Left", i % kColumnCount * 1500).add("Width", 1400);
        control->add("Text", "").add("SelStart", 0).add("SelLength", 0);
        control->add("Enabled", i != kDisabledBox).add("Visible", i != kHiddenBox);
        control->addMethod("SetFocus", [this, box = std::weak_ptr(control)](t_gencvf::Arguments) {
            setFocus(box.lock());
            return t_genproc::Variant();
        });
    }
    controls->element(kDisabledBox).add("Text", "5319406.250");
    form_->add("Controls", controls).add("ActiveControl", LateBound(controls)(kFirstBox).get());
}

/// The box that is left formats its number: with the decimals of its column, or more where more were typed.
void EntryForm::setFocus(const t_genproc::ObjectPointer& box) {
    const std::string typed = active()["Text"].text();
    const std::int16_t decimals = columnOf(active()).decimals;
    if (decimals != kNoNumber && !text::isBlank(typed)) {
        active()["Text"] = procs_.SetNumericField(typed, decimals, true);
    }
    form_->let("ActiveControl", box);
    active()["SelStart"] = 0;
    active()["SelLength"] = 0;
    procs_.SelectText(box);
}

void EntryForm::type(const std::string& typed) {
    const Parts old(active());
    active()["Text"] = old.ahead + typed + old.behind;
    active()["SelStart"] = static_cast<std::int32_t>(text::length(old.ahead + typed));
    active()["SelLength"] = 0;
}

void EntryForm::step(const std::string& step) {
    if (step == "down") {
        procs_.TextBoxDownAdvance(form_, kColumnCount);
    } else if (step == "up") {
        procs_.TextBoxUpAdvance(form_, kColumnCount);
    } else if (step == "enter") {
        procs_.TextBoxEnterAdvance(form_);
    } else if (step == "trim") {
        procs_.TrimTextBoxes(form_);
    } else {
        type(step);
    }
}

std::string EntryForm::drawn(std::int32_t index) const {
    const LateBound box(t_genproc::toObject(LateBound(form_)["Controls"](index).get()));
    if (!isTrue(box["Visible"])) return "";
    if (!isTrue(box["Enabled"])) return "(" + box["Text"].text() + ")";
    if (number(active()["TabIndex"]) != index) return "[" + box["Text"].text() + "]";
    const Parts parts(box);
    return "[" + parts.ahead + "<" + parts.selected + ">" + parts.behind + "]";
}

Lines EntryForm::lines() const {
    Lines lines(1);
    for (const auto& column : kColumns) lines[0] += padded(column.heading, kWidth);
    for (std::int32_t i = kFirstBox; i < kControlCount; ++i) {
        if (i % kColumnCount == 0) lines.emplace_back();
        lines.back() += padded(drawn(i), kWidth);
    }
    for (std::string& line : lines) line = text::trimRight(line);
    lines.push_back(std::string("Focus: ") + columnOf(active()).heading + " " +
                    std::to_string(number(active()["TabIndex"]) / kColumnCount) + ", selected: \"" +
                    Parts(active()).selected + "\"");
    return lines;
}

}  // namespace tavoru
