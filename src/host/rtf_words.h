/// What the control words of Rich Text Format say.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "host/rich_text.h"

namespace t_gencvf {

/// Where the text of a group goes to.
enum class RtfDestination { Text, Fonts, Colours, Nowhere };

inline constexpr std::int32_t kDefaultFont = -1;

/// What a group takes over from the one around it, and gives up at its end.
struct RtfState {
    RtfDestination destination = RtfDestination::Text;
    CharacterFormat character{};  // but for these two
    std::int32_t font = kDefaultFont;
    std::int32_t colour = 0;
    bool hidden = false;
    ParagraphFormat paragraph{};
    std::int32_t defaultFont = 0;
    std::int32_t fallback = 1;  // characters behind a \u for readers that do not know it
    std::uint32_t newColour = 0;
};

inline constexpr char32_t kReplacementCharacter = 0xFFFD;  // for what is no character

/// The character that a word or a symbol stands for.
std::optional<char32_t> rtfCharacter(std::string_view word);
std::optional<RtfDestination> rtfDestination(std::string_view word);
/// Changes the state as a word says, if it is one that does; without a number, as the word alone says.
void applyRtfWord(RtfState& state, std::string_view word, std::optional<std::int32_t> number);

}  // namespace t_gencvf
