/// The general procedures: settings files, jobs, files and folders.
///
///     cGenProcs procs{library};
///     std::int16_t changes = 0;
///     const std::string editor =
///         procs.INIstringGet("C:\\Tavoru\\user.ini", "General", "Editor", "notepad.exe", true, &changes);
///
/// Every member can fail: it then reports to the error trail and raises the error under its own name
/// (procedure.h). Members that only pass on what a host object or the system raises do not list those errors.
/// An output argument that was set before a failure keeps its value.
#pragma once

#include <cstdint>
#include <string>

#include "host/records.h"
#include "runtime/variant.h"

namespace t_genproc {

class Library;
class cInstHelpSettings;

class cGenProcs {
   public:
    explicit cGenProcs(Library& library);
    cGenProcs(const cGenProcs&) = delete;
    cGenProcs& operator=(const cGenProcs&) = delete;
    ~cGenProcs();

    /// A flag of the host's: True from creation on.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    // ---- Single keys of a settings file (frame/settings_file_access.cpp)
    //
    // `changes` counts successful writes. Error 6: it would pass 32767; the write has happened by then.

    /// The value of `sectionItem`, its first 199 characters. A missing key, and one that holds "NotFound",
    /// takes `defaultValu`: unless that is empty it is written into the file and given, and counts as one
    /// change. Where it cannot be written, the answer is empty and nothing is counted, unless `retainDefault`
    /// is set.
    std::string INIstringGet(const std::string& fileName, const std::string& sectionName,
                             const std::string& sectionItem, const std::string& defaultValu = {},
                             bool retainDefault = false, std::int16_t* changes = nullptr);

    /// Writes `valu`, creating file, section and key as needed. False: the file takes no change. Writing what
    /// the file holds already counts as a change too.
    bool INIstringSet(const std::string& fileName, const std::string& sectionName,
                      const std::string& sectionItem, const std::string& valu,
                      std::int16_t* changes = nullptr);

    // ---- Settings (settings/)

    /// Writes the settings, one group for each switch that is set, from the host's records into
    /// `prog.userINIpath` and `prog.progINIpath`; the two values of the host's own go into the latter
    /// whatever the switches say. `changes` counts the writes into the program-wide file only. A key that
    /// cannot be written is passed over. The layout stands in settings/user_settings.cpp.
    ///
    /// Error 91: a record or the form that a group needs is missing; what was written before it stays.
    void INISettingsSave(bool program, bool tavoruPath, bool preferences, bool dataSettings, bool LSPrefs,
                         bool recentJobs, const t_gencvf::ProgramState& prog,
                         const t_gencvf::JobItem* currentJob = nullptr,
                         const cInstHelpSettings* IHelp = nullptr,
                         const t_gencvf::GeneralPreferences* genPrefs = nullptr,
                         const t_gencvf::JobConfiguration* jobSettings = nullptr,
                         const t_gencvf::LeastSquaresOptions* LSOptPrefs = nullptr,
                         const ObjectPointer& mainForm = nullptr, std::int16_t* changes = nullptr);

    /// Retired: raises error 51 on every call.
    void RegSettingsSave(bool program, bool tavoruPath, bool preferences, bool dataSettings, bool LSPrefs,
                         bool recentJobs, const t_gencvf::ProgramState* prog = nullptr,
                         const t_gencvf::JobItem* currentJob = nullptr,
                         const cInstHelpSettings* IHelp = nullptr,
                         const t_gencvf::GeneralPreferences* genPrefs = nullptr,
                         const t_gencvf::JobConfiguration* jobSettings = nullptr,
                         const t_gencvf::LeastSquaresOptions* LSOptPrefs = nullptr,
                         const ObjectPointer& mainForm = nullptr);

    /// Remembers the job's name and extension as the last job of the user settings file. A job without a
    /// name, or a file that cannot be written, leaves the old one.
    void SaveCurrentJobName(const t_gencvf::JobItem& currentJob, const t_gencvf::ProgramState& prog);

    /// Sets `pJob.jobName` and `pJob.jobExtension` (without its dot) from the last job of the settings file;
    /// both become empty where it has none.
    void ReadCurrentJobName(t_gencvf::JobItem& pJob, const std::string& userINIpath);

    /// The folder for list files. `ListGrouping` 1: `dataPath` + "List\"; 2: `dataPath`; any other value, or
    /// a blank choice: `mainPath` + "List\". Below 2 a missing folder is made (errors 75, 76). Both paths
    /// have a "\" at their end.
    std::string SetListPath(std::int16_t ListGrouping, const std::string& mainPath,
                            const std::string& dataPath);

    // ---- Files (files/file_helpers.cpp)
    //
    // File numbers are those of Library::files(). Positions of characters start at 1.

    /// Opens for line output, creating the file or cutting it to nothing. True, or an error of NumberedFiles.
    bool OpenFileForOutput(std::int16_t fileNo, const std::string& fileName);

    /// Opens for line input. False, after a message, where there is no such file (a folder is none).
    bool OpenFileForInput(std::int16_t fileNo, const std::string& fileName);

    /// Closes the file and then sets `fileNumber` to 0. The number is free even where closing fails.
    void CloseFile(std::int16_t& fileNumber);

    /// Whether a file of that name exists; a folder is none. `fiSize` takes its length in bytes, 2147483647
    /// where it is longer. With "?" or "*" in the name: whether any normal file matches, no hidden or system
    /// one, and `fiSize` takes their number; a folder that cannot be searched holds none.
    bool FileExist(const std::string& fiName, std::int32_t* fiSize = nullptr);

    /// Whether the file exists and is not empty, or any file matches.
    bool FileExistsNonZero(const std::string& fiName);

    /// Splits a path: "C:\Jobs\A\file.txt" into "file.txt", "\Jobs\A" and "C:".
    void FileNameDetails(const std::string& fullPathName, std::string& fiName, std::string* fiPath = nullptr,
                         std::string* fiDrv = nullptr);

    /// The text from the last dot on, or behind it where `trimDot` is set; `fiName` takes what stands ahead
    /// of the dot. Blanks around `filesName` and one "\" at its end do not count. A name that only starts
    /// with a dot, and one whose extension is empty, are kept whole in `fiName`. Both arguments may be the
    /// same text.
    std::string FileNameExtn(const std::string& filesName, std::string* fiName = nullptr,
                             bool trimDot = false);

    /// Makes every missing folder of `destPath`, which starts with a drive, and leaves the deepest one
    /// reached current. `pathOK` takes each part that was reached, without its trailing "\"; it keeps its
    /// text where none was. False: the rest cannot be made, which a message tells; with `subdueError` only
    /// `errNum` does.
    bool CreatePath(std::string destPath, bool subdueError = false, std::int32_t* errNum = nullptr,
                    std::string* pathOK = nullptr);

    // ---- The recent-jobs menu (files/recent_jobs.cpp)
    //
    // The captions of the main form's five menu entries `mnuFileRecentJobs` (0 to 4) are the list: "&1  " and
    // the path of the most recent job, down to "&5  "; an empty entry has no path behind its prefix,
    // or the caption "". An index outside raises what the form raises for it, 340 as a rule.

    /// Puts the job at the top and remembers it as the last job, unless it is on top already.
    void RecentJobsNewItem(const t_gencvf::JobItem& jobItem, const ObjectPointer& mainForm,
                           const t_gencvf::ProgramState& prog);

    /// Moves entry `Index` to the top.
    void RecentJobsReOrder(std::int16_t Index, const ObjectPointer& mainForm);

    /// Takes entry `Index` out and closes the gap. An index above 4 empties entry 4.
    void RecentJobsClearDeleted(std::int16_t Index, const ObjectPointer& mainForm);

    /// Shows the entries that hold a job and hides the others.
    void RecentJobsValidate(const ObjectPointer& mainForm);

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    Library& library_;
    bool classActive_ = false;
};

}  // namespace t_genproc
