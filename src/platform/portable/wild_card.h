/// Wild cards as Windows matches them.
#pragma once

#include <string_view>

namespace t_genproc::portable {

/// Whether a file name matches, whatever its letter case. "*" stands for any text; "?" for one character
/// other than a dot, or for none ahead of a dot or at the end; a dot ahead of a wild card also matches the
/// end of the name, so that "*.*" matches every name; a dot at the end of the pattern asks for a name without
/// any ("*.").
bool matchesWildCard(std::string_view name, std::string_view pattern);

}  // namespace t_genproc::portable
