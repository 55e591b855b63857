/// Capital and small letters, one for one and whatever the locale.
#pragma once

namespace t_genproc {

/// The capital of a small letter that living languages write in Latin, Greek, Cyrillic, Armenian or
/// full-width Latin; any other code point as it is. A letter whose capital would be several characters ("ß")
/// is left alone, so texts keep their length.
char32_t upperCase(char32_t character);

/// The small letter of a capital of the same writings; the one inside a word where there are two ("σ").
char32_t lowerCase(char32_t character);

}  // namespace t_genproc
