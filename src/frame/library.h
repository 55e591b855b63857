/// The shared context: what every class of the library needs, built once by the host and handed to each
/// class.
///
///     Platform platform = portablePlatform();
///     MyHost host;
///     Library library{host, platform};
///     cGenProcs procs{library};
///
/// Error 91: a service of the platform is missing. Host and platform must outlive the Library, and the
/// Library the classes. Everything runs on the host's user-interface thread.
#pragma once

#include <memory>

#include "host/host.h"
#include "platform/numbered_files.h"
#include "platform/platform.h"

namespace t_genproc {

class Library {
   public:
    Library(t_gencvf::Host& host, Platform& platform);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    const Platform& platform() const { return platform_; }
    const t_gencvf::Application& application() { return host_.application(); }

    ObjectPointer loadedForms() { return host_.loadedForms(); }
    const t_gencvf::ProgramState* programState() { return host_.programState(); }
    void mousePointer(std::int16_t shape) { host_.mousePointer(shape); }

    /// The host's utility object and error reporter: created on first use, kept as long as the Library.
    t_gencvf::Utility& utility();
    t_gencvf::ErrorReporter& errorReporter();

    /// Whether the error reporter is at work. It may use the library itself, and hears nothing of its own
    /// errors.
    bool& reporting() { return reporting_; }

    /// The numbered text files, shared by the host and the library.
    NumberedFiles& files() { return files_; }

   private:
    t_gencvf::Host& host_;
    Platform& platform_;
    std::unique_ptr<t_gencvf::Utility> utility_;
    std::unique_ptr<t_gencvf::ErrorReporter> errorReporter_;
    NumberedFiles files_;
    bool reporting_ = false;
};

}  // namespace t_genproc
