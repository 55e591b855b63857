/// The rich-text controls of a host without windows.
///
///     RichTextWindows windows;
///     const auto control = windows.open(readRichText(bytes));
///     printer.PrintRTF(control, "Report");
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "host/object.h"
#include "host/rich_text.h"

namespace t_gencvf {

/// Members: `hWnd`, `Text` (read only; "\n" at the end of each paragraph), `SelStart` (from 0 on) and
/// `SelLength`, in characters.
class RichTextControl final : public Object {
   public:
    RichTextControl(std::intptr_t window, std::shared_ptr<const RichText> text);

    Variant get(std::string_view member, Arguments arguments = {}) override;
    /// Error 380: a number below 0; what is beyond the end of the text counts as its end. 383: the member can
    /// only be read. Setting SelStart selects nothing.
    void let(std::string_view member, const Variant& value, Arguments arguments = {}) override;
    Variant call(std::string_view member, Arguments arguments = {}) override;
    std::string_view typeName() const override { return "RichTextBox"; }

   private:
    std::intptr_t window_;
    std::shared_ptr<const RichText> text_;
    std::int32_t length_;  // characters
    std::int32_t start_ = 0;
    std::int32_t selected_ = 0;
};

/// Numbers that stand for windows, each as long as its control exists.
class RichTextWindows {
   public:
    std::shared_ptr<RichTextControl> open(RichText text);
    /// What the control with this window shows; null where there is none.
    std::shared_ptr<const RichText> find(std::intptr_t window) const;

   private:
    std::map<std::intptr_t, std::weak_ptr<const RichText>> texts_;
    std::intptr_t last_ = 0;
};

}  // namespace t_gencvf
