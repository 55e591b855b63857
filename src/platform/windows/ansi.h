/// UTF-8 to the system's ANSI code page and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace t_genproc {

/// `text` for a call that takes a zero-terminated text; nothing where the code page cannot hold all of it, or
/// where a zero inside would cut it short.
std::optional<std::string> toAnsi(std::string_view text);

/// The same with another character, mostly "?", for each that the code page cannot hold.
std::string toAnsiWithLoss(std::string_view text);

std::string fromAnsi(std::string_view bytes);

/// For the calls that know no ANSI text.
std::string fromWide(const std::wstring& text);

}  // namespace t_genproc
