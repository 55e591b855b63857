#include "platform/linux_desktop/valid_text.h"

#include "runtime/text.h"

namespace t_genproc::linux_desktop {

std::string validText(std::string_view text) {
    constexpr char32_t kLastCharacter = 0x10FFFF;
    constexpr char32_t kDelete = 0x7F;
    std::string valid;
    valid.reserve(text.size());
    while (!text.empty()) {
        const std::string_view rest = text;
        const char32_t character = text::takeCharacter(text);
        const bool isControl = (character < U' ' && character != U'\t') || character == kDelete;
        if (isControl || character > kLastCharacter) {
            valid += isControl ? ' ' : '?';
        } else {
            valid += rest.substr(0, rest.size() - text.size());
        }
    }
    return valid;
}

}  // namespace t_genproc::linux_desktop
