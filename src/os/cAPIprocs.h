/// Operating-system services: registry, files, folders, pictures of windows, environment, programs.
///
/// Where a call of the system fails, the member gives its neutral result and, where it says so, writes a line
/// to the error log. Errors of every member: those that it names; whatever else goes wrong inside.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/records.h"
#include "platform/clock.h"
#include "platform/graphics.h"
#include "platform/processes.h"
#include "platform/registry.h"

namespace t_genproc {

class Library;

/// What stands below a registry key, by name.
struct KeyContent {
    std::vector<std::string> keys;
    std::vector<std::string> values;
};

class cAPIprocs {
   public:
    explicit cAPIprocs(Library& library) : library_(library) {}
    cAPIprocs(const cAPIprocs&) = delete;
    cAPIprocs& operator=(const cAPIprocs&) = delete;
    ~cAPIprocs() = default;

    /// A flag of the host's: False until the host sets it.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    // ---- The registry. `hkey` is a root (RootKey), `strClassName` the name of a value.

    /// Writes a text value, making its key where missing; True when written. Error 32003: the key cannot be
    /// opened for writing; 32002: the value cannot be written. With `noError` these two give False instead.
    /// `developmentOnly` is taken for the sake of callers that give it.
    bool SetRegString(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName,
                      const std::string& strSetting, bool noError = false, bool developmentOnly = false);

    /// Reads a text value of up to 254 characters. One that is missing, empty or longer is made from
    /// `defaultVal`, unless that is blank. Where the key is there for reading only, one that is missing or
    /// longer is left alone, and the result is empty.
    /// `Trace` is taken for the sake of callers that give it. Errors: those of SetRegString.
    std::string GetRegString(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName,
                             const std::string& defaultVal, bool Trace = false);

    /// Removes the value `strClassName`; with an empty name the key, and all that is below it. True when it
    /// is gone, False where it was not there or may not be removed. An empty `strSubKey` with an empty name
    /// would stand for a whole root: False.
    bool DeleteRegKey(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName = "");

    /// Reads a text of up to 1 MB, or a 32-bit number as its decimal form, into `keyVal`, writing nothing to
    /// the registry. False, and `keyVal` empty, where there is no such value.
    bool GetKeyValue(std::int32_t hkey, const std::string& strSubKey, const std::string& strClassName,
                     std::string& keyVal);

    /// The names of the keys and values below a key; none where it cannot be read.
    KeyContent KeyDetails(std::int32_t hkey, const std::string& strSubKey);

    /// A folder or file as a registry value names it, as a plain full path: without the quotes around it and
    /// what follows them, without blanks at its ends, with a "\" at its end where it names an existing
    /// folder. Empty where the value is no path with a drive or a network name in front.
    std::string ValidateRegPath(const std::string& regPath);

    // ---- Files and the system's folders. Folder paths end in "\".

    /// Moves a file to the recycle bin; True on success. A file that the bin does not take stays where it
    /// is; on a drive without a bin, Windows deletes it. Wild cards, and a "\" at the end, are
    /// refused.
    bool FileToRecycleBin(const std::string& fileToDelete);

    std::string GetWindowsSysDir();
    std::string GetWindowsTempDir();
    std::string GetWindowsDir();

    /// Makes an empty file with a new name ("_t", a number, ".tmp") in `tempPath` and gives its full name, in
    /// small letters. Where that fails: `tempPath` and a fixed name, and there is no file.
    std::string GetTempFilesName(const std::string& tempPath);

    /// A file's date as "14-Nov-2026", with `includeTime` after its time: "22:05 14-Nov-2026" (`shortTime`)
    /// or in the system's long form. `mode` 1: the last write; 0: the creation, or the last write where the
    /// system keeps no creation; any other: the creation. A year before 1950 is raised by hundreds until it
    /// is not. Empty, and a line in the error log, where there is no such file; the present date and time,
    /// and a line, where its time cannot be told.
    std::string FileDates(const std::string& fiName, std::int16_t mode, bool includeTime,
                          const t_gencvf::ProgramState& prog, bool shortTime = false);

    /// A clock record as "14-Nov-2026", with `includeTime` as "14-Nov-2026  Time : 22:05:09". Error 5: its
    /// month or year is none.
    std::string SystemDateVal(const SystemTime& systemTime, bool includeTime = false);

    /// The path of the special folder `CSIDL` (special_folders.h), made where it is missing. `winVersion` is
    /// the system's version: the calls differ between 5.0 and later ones; below 5.0 there is no path. Empty
    /// for a number that stands for no folder; where the system calls a folder virtual, a message box says
    /// so.
    std::string GetSpecialFolder(std::int32_t CSIDL, float winVersion);

    // ---- Pictures of windows (platform/picture.h), which own their bitmaps

    /// The pixels of a window: of its client area with `Client`, else of the whole window, from its outer
    /// corner. Positions and sizes are pixels. What a failing call leaves is not released. Error 17: a call
    /// of the system failed; the description names it, and stands in the error log of Host::programState.
    /// Error 5: likewise, where the system gives no reason. Nothing, and a bitmap that is left, where the
    /// system makes no picture of it.
    ObjectPointer CaptureWindow(WindowHandle hWndSrc, bool Client, std::int32_t LeftSrc, std::int32_t TopSrc,
                                std::int32_t WidthSrc, std::int32_t HeightSrc);

    /// A whole form or control, by its members `hWnd`, `Width` and `Height` (twips), `ScaleX` and `ScaleY`.
    /// Errors: those of CaptureWindow.
    ObjectPointer CapturePicture(const ObjectPointer& sourceObject);

    // ---- Environment and machine

    /// The value of a variable, empty where it is not set. (Elsewhere than on Windows, USERPROFILE is the
    /// home folder.) One of more than 2046 characters does not fit: 2048 blanks.
    std::string GetEnvStringValue(const std::string& envstr);

    /// Entry `idx`, from 1 on, of a block of variables: "name=value". Empty behind the last one. Without a
    /// block, that of this process.
    std::string GetEnvString(std::int32_t idx, std::string_view datEVBlock = {});

    /// Field `fieldNo`, from 1 on, of a text that `delimiter` parts. Empty behind the last one. Error 5: a
    /// number below 1, or no delimiter.
    std::string ParseAnyString(const std::string& text, std::int32_t fieldNo, const std::string& delimiter);

    /// A new identifier: 32 hexadecimal digits in five groups with "-" between. Error 51: the system gives
    /// none.
    std::string CreateGUID();

    double TotalPhysicalMemory();  ///< megabytes of 1024 * 1024 bytes

    /// The number at an address in this process, which is not checked.
    std::int16_t GetValueINT(std::intptr_t pointer);
    std::int32_t GetValueLONG(std::intptr_t pointer);

    // ---- Programs

    /// See GenUtil::LoadProcessAndWait.
    std::int32_t LoadProcess(const std::string& commandLine, Launch* launch = nullptr);

    /// Starts the system-information tool that the registry names and waits for its end; a message box where
    /// there is none. A line in the error log where it cannot be started.
    void StartSysInfo(const t_gencvf::ProgramState& prog);

   private:
    ObjectPointer CreateBitmapPicture(GraphicsObject bitmap, GraphicsObject palette);

    Library& library_;
    bool classActive_ = false;
};

}  // namespace t_genproc
