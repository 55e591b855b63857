#pragma once

#include <string>

#include "tavoru.h"

namespace tavoru {

/// Lines as a rich text, in a font of which 80 characters fit the width of A4 between margins of 20 mm. The
/// title stands above them unless it is empty.
std::string rtfOf(const std::string& title, const Lines& lines);

}  // namespace tavoru
