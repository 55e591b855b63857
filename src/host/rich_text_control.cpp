#include "host/rich_text_control.h"

#include <algorithm>

#include "runtime/errors.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_gencvf {
namespace {

using t_genproc::ErrorNumber;
using t_genproc::RuntimeError;

enum class Member { Window, Text, SelStart, SelLength };

Member memberNamed(std::string_view name, Arguments arguments) {
    constexpr std::pair<std::string_view, Member> kMembers[] = {{"hWnd", Member::Window},
                                                                {"Text", Member::Text},
                                                                {"SelStart", Member::SelStart},
                                                                {"SelLength", Member::SelLength}};
    for (const auto& [known, member] : kMembers) {
        if (!t_genproc::text::equalIgnoringCase(known, name)) continue;
        if (!arguments.empty()) throw RuntimeError(ErrorNumber::WrongNumberOfArguments);
        return member;
    }
    throw RuntimeError(ErrorNumber::NoSuchMember);
}

/// A number of characters, `most` where it is larger.
std::int32_t characters(const Variant& value, std::int32_t most) {
    const std::int32_t number = t_genproc::toInt32(value);
    if (number < 0) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    return std::min(number, most);
}

}  // namespace

RichTextControl::RichTextControl(std::intptr_t window, std::shared_ptr<const RichText> text)
    : window_(window),
      text_(std::move(text)),
      length_(t_genproc::checkedNarrow<std::int32_t>(t_genproc::text::length(text_->text))) {}

Variant RichTextControl::get(std::string_view member, Arguments arguments) {
    switch (memberNamed(member, arguments)) {
        case Member::Window: return t_genproc::checkedNarrow<std::int32_t>(window_);
        case Member::Text: return text_->text;
        case Member::SelStart: return start_;
        case Member::SelLength: return selected_;
    }
    return {};
}

void RichTextControl::let(std::string_view member, const Variant& value, Arguments arguments) {
    switch (memberNamed(member, arguments)) {
        case Member::Window:
        case Member::Text: throw RuntimeError(ErrorNumber::PropertyReadOnly);
        case Member::SelStart:
            start_ = characters(value, length_);
            selected_ = 0;
            break;
        case Member::SelLength: selected_ = characters(value, length_ - start_); break;
    }
}

Variant RichTextControl::call(std::string_view /*member*/, Arguments /*arguments*/) {
    throw RuntimeError(ErrorNumber::NoSuchMember);
}

std::shared_ptr<RichTextControl> RichTextWindows::open(RichText text) {
    std::erase_if(texts_, [](const auto& entry) { return entry.second.expired(); });
    const auto shown = std::make_shared<const RichText>(std::move(text));
    auto control = std::make_shared<RichTextControl>(++last_, shown);
    texts_.emplace(last_, shown);
    return control;
}

std::shared_ptr<const RichText> RichTextWindows::find(std::intptr_t window) const {
    const auto found = texts_.find(window);
    return found == texts_.end() ? nullptr : found->second.lock();
}

}  // namespace t_gencvf
