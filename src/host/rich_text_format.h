/// Rich Text Format, as far as a report uses it.
#pragma once

#include <string_view>

#include "host/rich_text.h"

namespace t_gencvf {

/// Reads RTF: paragraphs, lines, pages, tabs, fonts, sizes, bold, italic, underlined, colours, alignment,
/// indents and spaces of paragraphs, characters of Windows-1252 or Unicode. Whatever else there is, is
/// skipped; what is damaged or cut short is read as far as it goes. Bytes that are no RTF at all are taken as
/// plain text.
RichText readRichText(std::string_view bytes);

/// Plain text, its lines ended by CR LF, LF or CR, in one format.
RichText plainText(std::string_view text, const CharacterFormat& format);

}  // namespace t_gencvf
