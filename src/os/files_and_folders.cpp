#include "frame/GenUtil.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"
#include "platform/clock_record.h"
#include "runtime/date_value.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::size_t kPathBuffer = 260;  // characters, the terminating zero among them
constexpr const char* kNoTempFile = "_¥§3µ4i¿.tmp";
constexpr int kFirstYear = 1950;  // of a file; an earlier one has lost its century

std::string asFolder(const CountedText& path) {
    return path.text.ends_with('\\') ? path.text : path.text + '\\';
}

FileTime chosenTime(const FileAttributes& file, std::int16_t mode) {
    const bool hasCreated = file.created.low != 0 && file.created.high != 0;
    return mode == 1 || (mode == 0 && !hasCreated) ? file.lastWrite : file.created;
}

}  // namespace

bool cAPIprocs::FileToRecycleBin(const std::string& fileToDelete) {
    return procedure(library_, "(Class Module) cAPIprocs::Function FileToRecycleBin", [&] {
        constexpr std::uint16_t kFlags =
            FileOperation::AllowUndo | FileOperation::NoConfirmation | FileOperation::SimpleProgress;
        return library_.platform().shell->SHFileOperationA(FileOperation::Delete, fileToDelete, "", kFlags) ==
               0;
    });
}

std::string cAPIprocs::GetWindowsSysDir() {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetWindowsSysDir",
                     [&] { return asFolder(library_.platform().system->GetSystemDirectoryA(kPathBuffer)); });
}

std::string cAPIprocs::GetWindowsTempDir() {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetWindowsTempDir",
                     [&] { return asFolder(library_.platform().system->GetTempPathA(kPathBuffer)); });
}

std::string cAPIprocs::GetWindowsDir() {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetWindowsDir",
                     [&] { return asFolder(library_.platform().system->GetWindowsDirectoryA(kPathBuffer)); });
}

std::string cAPIprocs::GetTempFilesName(const std::string& tempPath) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetTempFilesName", [&] {
        const Outcome<std::string> made = library_.platform().system->GetTempFileNameA(tempPath, "_t");
        return made ? text::lower(made.value) : tempPath + kNoTempFile;
    });
}

std::string cAPIprocs::FileDates(const std::string& fiName, std::int16_t mode, bool includeTime,
                                 const t_gencvf::ProgramState& prog, bool shortTime) {
    return procedure(library_, "(Class Module) cAPIprocs::Function FileDates", [&]() -> std::string {
        Clock& clock = *library_.platform().clock;
        const auto log = [&](const std::string& failedCall, SystemError error) {
            const std::string code = numberText(static_cast<std::int64_t>(error));
            GenUtil::WriteDLLerror(library_, failedCall + " - error code returned = " + code, prog);
        };

        const auto found = library_.platform().files->FindFirstFileA(fiName);
        if (!found) {
            log("Error in CreateFile DLL function call (1)", found.error);
            return {};
        }
        const auto local = clock.FileTimeToLocalFileTime(chosenTime(found.value.front().attributes, mode));
        if (!local)
            log("Error in FileDates after FileTimeToLocalFileTime DLL function call (2)", local.error);
        const auto record = clock.FileTimeToSystemTime(local.value);
        if (!record) {
            log("Unable to complete DLL process FileTimeToSystemTime (3)", record.error);
            return toText(Date{library_.utility().Now()});
        }

        CivilTime date = civilTime(dateValue(record.value));
        while (date.year < kFirstYear) date.year += 100;
        std::string dateText = dayMonthYear(date);
        if (!includeTime) return dateText;
        return (shortTime ? hourMinute(date) : clock.GetTimeFormatA(record.value)) + ' ' + dateText;
    });
}

std::string cAPIprocs::SystemDateVal(const SystemTime& systemTime, bool includeTime) {
    return procedure(library_, "(Class Module) cAPIprocs::Function SystemDateVal", [&] {
        const CivilTime date = civilTime(dateValue(systemTime));
        return dayMonthYear(date) + (includeTime ? "  Time : " + hourMinuteSecond(date) : "");
    });
}

}  // namespace t_genproc
