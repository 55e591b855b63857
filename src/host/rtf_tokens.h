/// The words of Rich Text Format.
///
///     RtfTokens tokens(bytes);
///     for (RtfToken token = tokens.next(); token.kind != RtfToken::Kind::End; token = tokens.next()) ...
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace t_gencvf {

struct RtfToken {
    enum class Kind {
        End,
        Open,   ///< of a group
        Close,  ///< of a group
        Word,   ///< a control word, or a control symbol: a word of one character that is no letter
        Byte,   ///< of text, written as it is or as \'hh
    };
    Kind kind = Kind::End;
    std::string_view word{};
    std::optional<std::int32_t> number{};  ///< behind the word, limited to what fits
    unsigned char byte = 0;
};

class RtfTokens {
   public:
    explicit RtfTokens(std::string_view bytes) : rest_(bytes) {}

    /// Line ends and the bytes of \bin are left out. A \' without two digits is a word without a number.
    RtfToken next();

   private:
    std::optional<RtfToken> control();
    RtfToken word();
    std::optional<std::int32_t> number();

    std::string_view rest_;
};

}  // namespace t_gencvf
