/// What windows would show, as lines: a path on a label, the status area, the help.
#pragma once

#include "tavoru.h"

namespace tavoru {

/// Between bars, so that its blanks show.
std::string inBars(const std::string& text);

/// A path on a label that is `width` twips wide: each text that its form is asked to measure, behind its
/// width, then what the label shows.
Lines labelLines(t_genproc::cGenProcs& procs, const std::string& path, std::int32_t width);

/// The three panels of the status area: before a prompt, with it, and after it is taken away.
Lines promptLines(Tavoru& tavoru, const std::string& prompt);

/// What the help viewer is asked for. `open`: it is asked indeed.
Lines topicLines(Tavoru& tavoru, std::int32_t topic, bool open);

}  // namespace tavoru
