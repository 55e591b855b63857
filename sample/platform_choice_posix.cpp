#include <cstdlib>
#include <stdexcept>

#include "platform/portable/portable_platform.h"
#include "platform/portable/time_zone.h"
#include "platform_choice.h"

namespace tavoru {
namespace {

/// By the help context numbers of the windows and their controls.
const t_genproc::HelpPages kHelpPages{
    .contents = "contents.html",
    .topics = {{4100, "traverse.html"},
               {4104, "traverse.html#angles"},
               {4105, "traverse.html#distances"},
               {7200, "status.html"},
               {7210, "status.html#prompts"}},
};

}  // namespace

const char* const kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

Drive openDrive(const std::filesystem::path& folder) {
    t_genproc::PortableOptions options;
    options.driveC = folder.string();
    options.userName = "Surveyor";
    options.canAnswer = [] { return true; };  // a pipe may answer too; its end takes the default button
    options.helpPages = kHelpPages;
    return {t_genproc::portablePlatform(std::move(options)), "C:\\"};
}

void setZone(t_genproc::Platform& /*platform*/, const std::string& name) {
    if (!t_genproc::portable::LocalTimeZone::isZone(name)) {
        throw std::runtime_error("there is no time zone " + name);
    }
    ::setenv("TZ", name.c_str(), 1);  // the clock reads it at each call
}

}  // namespace tavoru
