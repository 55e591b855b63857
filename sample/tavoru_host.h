/// What a host hands to the library beside its records: names for the settings files, a clock, a folder test
/// and an ear for errors.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/host.h"
#include "platform/platform.h"

namespace tavoru {

/// One step of an error on its way up: where it came from, and the procedure that it left.
struct ErrorStep {
    std::string source;
    std::string procedure;
};

class TavoruHost : public t_gencvf::Host {
   public:
    /// `platform` must outlive the host.
    explicit TavoruHost(const t_genproc::Platform& platform) : platform_(platform) {}

    const t_gencvf::Application& application() override { return application_; }
    std::unique_ptr<t_gencvf::Utility> createUtility() override;
    std::unique_ptr<t_gencvf::ErrorReporter> createErrorReporter() override;

    const t_gencvf::ProgramState* programState() override { return programState_; }
    void mousePointer(std::int16_t shape) override { mousePointer_ = shape; }
    std::int16_t mousePointer() const { return mousePointer_; }

    /// `state` must outlive the host's last call by the library.
    void programState(const t_gencvf::ProgramState& state) { programState_ = &state; }
    void helpFile(const std::string& path) { application_.helpFile = path; }

    /// The steps reported since the last call, innermost procedure first.
    std::vector<ErrorStep> takeErrorTrail() { return std::exchange(errorTrail_, {}); }

   private:
    const t_genproc::Platform& platform_;
    std::vector<ErrorStep> errorTrail_;
    const t_gencvf::ProgramState* programState_ = nullptr;
    std::int16_t mousePointer_ = t_gencvf::MousePointer::Default;

    t_gencvf::Application application_{
        .generalSection = "General",
        .programSection = "Program",
        .dataSettingsSection = "Data settings",
        .leastSquaresSection = "Least squares",
        .settingsSection = "Recent jobs",
        .programKeyOne = "Language",
        .programKeyTwo = "Units",
        .gridModelName1 = "GridText",
        .gridModelName2 = "GridBinary",
        .tinModelName = "TIN",
        .title = "Tavoru",
        .startUp = {.registryKey = "Software\\Tavoru",
                    .registryValue = "ProgramFolder",
                    .programFolderName = "Tavoru Survey",
                    .appDataSubPath = "Tavoru\\",
                    .sampleJob = "tSampleJob.job",
                    .sampleFiles = {"tSampleJob.job", "tSampleNotes.txt", "tSamplePoints.csv"}},
    };
};

}  // namespace tavoru
