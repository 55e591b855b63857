/// A test's own world: an application whose clock the test sets, an error reporter and message boxes that
/// record, a main form in memory, and the platform under test.
///
///     TestWorld world;
///     world.procs.CreatePath("Q:\\");
///     EXPECT_EQ(world.boxes, ...);
#pragma once

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "host/memory_object.h"
#include "support/platform_under_test.h"

namespace t_genproc::test {

class TestWorld : private t_gencvf::Host {
   public:
    TestWorld();
    std::string path(const std::string& name) const { return system.path(name); }

    PlatformUnderTest system;
    t_gencvf::ProgramState prog;  // its files, and its temporary folder, are in the folder of the test
    t_gencvf::Application names;
    double now = 0;

    std::string boxes;                         // text, "|", caption, "|", style, end of line
    MessageAnswer answer = MessageAnswer::Ok;  // to every box
    int pumped = 0;                            // how often the host's windows had their messages
    std::string reports;                       // source, " > ", procedure, end of line
    bool suppressNextReport = false;
    bool reporterFails = false;
    int reporters = 0;  // created so far

    /// Five entries, visible, with empty captions.
    std::shared_ptr<t_gencvf::MemoryControlArray> menu = std::make_shared<t_gencvf::MemoryControlArray>(5);
    std::shared_ptr<t_gencvf::MemoryObject> form = std::make_shared<t_gencvf::MemoryObject>();

    ObjectPointer openForms;  // what loadedForms gives
    std::string pointers;     // the shapes of the mouse pointer, a blank behind each

    Library library;
    cGenProcs procs;

   private:
    const t_gencvf::Application& application() override { return names; }
    std::unique_ptr<t_gencvf::Utility> createUtility() override;
    std::unique_ptr<t_gencvf::ErrorReporter> createErrorReporter() override;
    ObjectPointer loadedForms() override { return openForms; }
    const t_gencvf::ProgramState* programState() override { return &prog; }
    void mousePointer(std::int16_t shape) override { pointers += std::to_string(shape) + ' '; }
};

/// The run-time error that `body` raises, its number and source: "53 (Module) Files::Sub Open", or "none".
std::string failureOf(const std::function<void()>& body);

}  // namespace t_genproc::test
