/// The viewer of the user's help.
#pragma once

#include <cstdint>
#include <string>

#include "platform/window_handle.h"

namespace t_genproc {

/// What the viewer is to show.
namespace HelpCommand {
inline constexpr std::uint32_t TableOfContents = 1;  // HH_DISPLAY_TOC
inline constexpr std::uint32_t Topic = 15;           // HH_HELP_CONTEXT
}  // namespace HelpCommand

class HelpViewer {
   public:
    virtual ~HelpViewer() = default;

    /// Shows the help file's table of contents, or the page of the topic `data`. A message box tells where
    /// there is no viewer. Gives the viewer's window; 0 where it has none to give, or shows nothing.
    virtual WindowHandle HtmlHelpA(WindowHandle owner, const std::string& helpFile, std::uint32_t command,
                                   std::int32_t data) = 0;
};

}  // namespace t_genproc
