#include "settings_host.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "host/memory_object.h"
#include "instanthelp/cInstHelpSettings.h"
#include "platform/portable/portable_platform.h"

namespace t_genproc::bench {
namespace {

ObjectPointer formWithRecentJobs() {
    constexpr const char* kCaptions[] = {
        "&1  C:\\Tavoru\\Data\\Quarry boundary.job", "&2  C:\\Tavoru\\Data\\Harbour wall.job",
        "&3  C:\\Tavoru\\Data\\Tunnel portal north.job", "&4  C:\\Tavoru\\Data\\Ridge.job", ""};
    auto menu = std::make_shared<t_gencvf::MemoryControlArray>(5);
    for (int i = 0; i < 5; ++i) menu->element(i).add("Caption", Variant(std::string(kCaptions[i])));
    auto form = std::make_shared<t_gencvf::MemoryObject>();
    form->add("mnuFileRecentJobs", Variant(ObjectPointer(menu)));
    return form;
}

class RecordedWrites : public ProfileFiles {
   public:
    explicit RecordedWrites(std::vector<Entry>& writes) : writes_(writes) {}
    std::string GetPrivateProfileStringA(std::string_view, std::string_view, std::string_view defaultValue,
                                         std::size_t, const std::string&) override {
        return std::string(defaultValue);
    }
    int WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                   const std::string& fileName) override {
        writes_.push_back({fileName.substr(2), std::string(section), std::string(key), std::string(value)});
        return 1;
    }

   private:
    std::vector<Entry>& writes_;
};

/// Sections of a host that remembers where its windows were.
std::string windowSections(int first, std::size_t size) {
    std::string text;
    for (int i = first; text.size() < size; ++i) {
        text += "[Window" + std::to_string(i) + "]\r\nLeft=" + std::to_string(120 + i % 700) +
                "\r\nTop=" + std::to_string(80 + i % 400) +
                "\r\nWidth=1024\r\nHeight=768\r\nState=0\r\nColumns=86 120 64 64 200\r\n"
                "Caption=Observations and residuals\r\n\r\n";
    }
    return text;
}

}  // namespace

Platform benchPlatform() {
    PortableOptions options;
    options.driveC = std::filesystem::temp_directory_path().string();
    return portablePlatform(std::move(options));
}

SettingsHost::SettingsHost(Platform platform)
    : application_{.generalSection = "Tavoru",
                   .programSection = "Program",
                   .dataSettingsSection = "Data",
                   .leastSquaresSection = "LeastSquares",
                   .settingsSection = "RecentJobs",
                   .programKeyOne = "Language",
                   .programKeyTwo = "Units"},
      platform_(std::move(platform)) {}

void SettingsHost::save(const std::string& userFile) {
    const t_gencvf::JobItem job{"Quarry boundary", ".job", "C:\\Tavoru\\Data\\", {}};
    const t_gencvf::GeneralPreferences preferences{1, "notepad.exe", true, true, false, true, 0.9996, true};
    t_gencvf::LeastSquaresOptions leastSquares;
    leastSquares.AngleSD = 2.5;
    leastSquares.ConfLevelMDE = "95";
    t_gencvf::JobConfiguration configuration;
    configuration.Projection = "Transverse Mercator";
    configuration.GeodeticDatum = "GDA2020";
    configuration.EarthRadius = 6371000.0;
    configuration.GeoidFile = "C:\\Tavoru\\Geoid\\AUSGeoid2020.gdf";
    t_gencvf::ProgramState state;
    state.progPath = "C:\\Program Files\\Tavoru\\";
    state.listPath = "C:\\Tavoru\\List\\";
    state.userINIpath = "Z:" + userFile;
    state.progINIpath = "Z:" + userFile + ".program";
    state.programValueOne = "English";
    state.programValueTwo = "Metric";
    const cInstHelpSettings help;
    procs_.INISettingsSave(true, true, true, true, true, true, state, &job, &help, &preferences,
                           &configuration, &leastSquares, formWithRecentJobs());
}

std::vector<Entry> writesOfSave(const std::string& userFile) {
    std::vector<Entry> writes;
    Platform platform = benchPlatform();
    platform.profileFiles = std::make_unique<RecordedWrites>(writes);
    SettingsHost(std::move(platform)).save(userFile);
    return writes;
}

void makeSettingsFile(const std::string& path, std::size_t size) {
    constexpr std::size_t kSaved = 2048;  // about what INISettingsSave writes
    const std::size_t own = size > kSaved ? (size - kSaved) / 2 : 0;
    std::ofstream(path, std::ios::binary) << windowSections(1, own);
    SettingsHost().save(path);
    std::ofstream(path, std::ios::binary | std::ios::app) << windowSections(1000000, own);
}

std::string textOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Entry entryAt(const std::string& path, double share) {
    const std::string text = textOf(path);
    const auto from = static_cast<std::size_t>(share * static_cast<double>(text.size()));
    const std::size_t equals = std::min(text.find('=', from), text.rfind('='));
    const std::size_t key = text.rfind('\n', equals) + 1;
    const std::size_t section = text.rfind('[', key) + 1;
    return {path, text.substr(section, text.find(']', section) - section), text.substr(key, equals - key),
            text.substr(equals + 1, text.find('\r', equals) - equals - 1)};
}

}  // namespace t_genproc::bench
