#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/portable/portable_platform.h"
#include "platform/portable/zone_file.h"
#include "platform_choice.h"

namespace tavoru {
namespace {

namespace fs = std::filesystem;

bool isZoneFile(const fs::path& name) {
    const char* const folder = std::getenv("TZDIR");
    const fs::path file = fs::path(folder != nullptr ? folder : "/usr/share/zoneinfo") / name;
    if (!fs::is_regular_file(file)) return false;
    std::ifstream stream(file, std::ios::binary);
    return t_genproc::portable::readZoneFile(std::string(std::istreambuf_iterator<char>(stream), {}))
        .has_value();
}

}  // namespace

const char* const kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

Drive openDrive(const fs::path& folder) {
    t_genproc::PortableOptions options;
    options.driveC = folder.string();
    options.userName = "Surveyor";
    options.canAnswer = [] { return true; };  // a pipe may answer too; its end takes the default button
    return {t_genproc::portablePlatform(std::move(options)), "C:\\"};
}

void setZone(t_genproc::Platform& /*platform*/, const std::string& name) {
    if (!isZoneFile(name) && !t_genproc::portable::zoneRule(name)) {
        throw std::runtime_error("there is no time zone " + name);
    }
    ::setenv("TZ", name.c_str(), 1);  // the clock reads it at each call
}

}  // namespace tavoru
