#include "support/test_world.h"

#include "platform/file_system.h"
#include "runtime/errors.h"

namespace t_genproc::test {
namespace {

/// Whatever of the host and the system is not real.
struct Services : t_gencvf::Utility, t_gencvf::ErrorReporter, WindowsAndMessages {
    explicit Services(TestWorld& of) : world(of) {}

    bool FolderExists(std::string_view folder) override {
        return folderExists(*world.system.platform.files, std::string(folder));
    }
    double Now() override { return world.now; }
    double Normalise(double value, std::int16_t rule) override { return value * 100 + rule; }

    bool suppressNextReport() override { return world.suppressNextReport; }
    void suppressNextReport(bool suppress) override { world.suppressNextReport = suppress; }
    void ReportError(const std::string& source, const std::string& procedureName) override {
        if (world.reporterFails) throw std::runtime_error("no reports today");
        world.reports += source + " > " + procedureName + '\n';
    }

    MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                              std::uint32_t style) override {
        world.boxes += text + '|' + caption + '|' + std::to_string(style) + '\n';
        return world.answer;
    }
    void DispatchPendingMessages() override { ++world.pumped; }

    TestWorld& world;
};

}  // namespace

TestWorld::TestWorld() : library(*this, system.platform), procs(library) {
    system.platform.windows = std::make_unique<Services>(*this);
    prog.progPath = "C:\\P\\";
    prog.listPath = "C:\\L\\";
    prog.tempPath = path("");
    prog.userINIpath = path("user.ini");
    prog.progINIpath = path("program.ini");
    prog.programValueOne = "1";
    prog.programValueTwo = "2";
    for (int i = 0; i < 5; ++i) menu->element(i).add("Caption", "").add("Visible", true);
    form->add("mnuFileRecentJobs", menu);
}

std::unique_ptr<t_gencvf::Utility> TestWorld::createUtility() { return std::make_unique<Services>(*this); }

std::unique_ptr<t_gencvf::ErrorReporter> TestWorld::createErrorReporter() {
    ++reporters;
    return std::make_unique<Services>(*this);
}

std::string failureOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return std::to_string(error.number()) + ' ' + error.source();
    }
    return "none";
}

}  // namespace t_genproc::test
