/// Capital and small letters, one for one and whatever the locale.
#pragma once

namespace t_genproc {

/// The capital of a small letter, as Unicode has it; any other code point as it is. Left alone are letters
/// whose capital is several characters ("ß") or takes another number of bytes ("ı"), so that texts keep their
/// length, variants of other small letters ("µ"), and scripts that nobody writes any more.
char32_t upperCase(char32_t character);

/// The small letter of a capital of the same writings; the one inside a word where there are two ("σ").
char32_t lowerCase(char32_t character);

}  // namespace t_genproc
