/// The folders and constants that the application needs before its first window.
#pragma once

#include <memory>
#include <string>

#include "host/records.h"

namespace t_genproc {

class Library;
class cAPIprocs;
class cGenProcs;

class cStartProcs {
   public:
    explicit cStartProcs(Library& library);
    cStartProcs(const cStartProcs&) = delete;
    cStartProcs& operator=(const cStartProcs&) = delete;
    ~cStartProcs();

    /// A flag of the host's: True from creation on. The end of the instance leaves it as it stands.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    /// Fills `prog` with what depends on machine and user: system version, the system's folders and the
    /// special folders. Makes the folders that are missing: the temporary one of the local settings, the
    /// product's data folder for all users, the user's folder ("Tavoru\" in `usersHomePath`, or in
    /// `prog.userHomeOverride` where that is not empty) with "Data\" and "List\" in it; a message box tells
    /// of the first one that cannot be made. A new "Data\" receives the sample job, and a `progPath` that is
    /// empty the folder that the job came from. Names are those of Application::startUp. Making folders
    /// changes the current folder (see cGenProcs::CreatePath).
    ///
    /// `userTavoruPathWarning` tells afterwards whether one of the user's folders had to be placed elsewhere,
    /// or could not be made at all; that does not stop the start.
    ///
    /// Where the file "TestFile - SystemConstants.txt" stands in the local settings folder, asks whether to
    /// test; with Yes, where the file begins with the line "RECORD", adds a trace of every step to it; with
    /// No deletes it (error 75: it is read-only).
    ///
    /// Errors: of copying the sample files, of the trace file; of a folder that the host calls essential.
    void SystemConstants(t_gencvf::ProgramState& prog, const std::string& usersHomePath,
                         bool& userTavoruPathWarning);

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    Library& library_;
    std::unique_ptr<cGenProcs> genProcs_;
    std::unique_ptr<cAPIprocs> apiProcs_;
    bool classActive_ = false;
};

}  // namespace t_genproc
