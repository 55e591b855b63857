#pragma once

#include <string>
#include <string_view>

namespace t_genproc::linux_desktop {

/// `text` with "?" for each byte that belongs to no character and a blank for each control character but the
/// tab: as many bytes, and nothing that libraries stumble over.
std::string validText(std::string_view text);

}  // namespace t_genproc::linux_desktop
