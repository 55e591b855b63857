/// The title of every message box that the library shows.
#pragma once

namespace t_genproc {

inline constexpr const char* kMessageTitle = "Tavoru procedures";

}  // namespace t_genproc
