/// Wild cards as Windows matches them.
#pragma once

#include <string_view>

namespace t_genproc::portable {

/// Whether a file name matches, whatever its letter case. "*" stands for any text; "?" for one character
/// other than a dot, or for none ahead of a dot or at the end; a dot ahead of a wild card also matches the
/// end of the name, so that "*.*" matches every name; "*." and "?." at the end ask for a name without any
/// dot. Blanks and another dot at the end of the pattern do not count.
bool matchesWildCard(std::string_view name, std::string_view pattern);

}  // namespace t_genproc::portable
