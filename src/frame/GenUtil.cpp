#include "frame/GenUtil.h"

#include <cstdint>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/date_value.h"
#include "runtime/number_text.h"

namespace t_genproc::GenUtil {
namespace {

constexpr std::string_view kLogName = "t_eveml";

/// Codes from 1 to 45 are logged as that power of two.
std::string codeText(std::int32_t code) {
    const bool isPower = code >= 1 && code <= 45;
    return numberText(isPower ? std::int64_t{1} << code : std::int64_t{code});
}

/// A flag that is set as long as this stands.
class SetWhileHere {
   public:
    explicit SetWhileHere(bool& flag) : flag_(flag) { flag_ = true; }
    SetWhileHere(const SetWhileHere&) = delete;
    SetWhileHere& operator=(const SetWhileHere&) = delete;
    ~SetWhileHere() { flag_ = false; }

   private:
    bool& flag_;
};

/// The log, open for appending and closed whatever happens.
class LogFile {
   public:
    LogFile(Library& library, const std::string& fileName)
        : files_(library.files()), number_(files_.freeFile()) {
        if (cGenProcs(library).FileExist(fileName)) {
            files_.openForAppend(number_, fileName);
        } else {
            files_.openForOutput(number_, fileName);
        }
    }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;
    ~LogFile() { files_.abandon(number_); }

    void print(std::string_view text) { files_.print(number_, text); }
    void printLine(std::string_view text) { files_.printLine(number_, text); }
    void close() { files_.close(number_); }

   private:
    NumberedFiles& files_;
    std::int16_t number_;
};

}  // namespace

void WriteDLLerror(Library& library, const std::string& errMsg, const t_gencvf::ProgramState& prog) {
    procedure(library, "(Module) GenUtil::Sub WriteDLLerror", [&] {
        if (!library.utility().FolderExists(prog.tempPath)) return;

        const std::string timeStamp = dayMonthYearTime(library.utility().Now());
        LogFile log(library, prog.tempPath + std::string(kLogName));
        log.print(timeStamp + " : ");
        if (prog.errorLogBrief) {
            log.printLine(errMsg);
        } else {
            log.print(errMsg + " [");
            log.printLine(codeText(prog.errorLogCode) + "]");
        }
        log.close();
    });
}

bool ReportErrorTrail(Library& library, const std::string& source, const std::string& procedureName) {
    if (library.reporting()) return false;
    const SetWhileHere reporting(library.reporting());
    t_gencvf::ErrorReporter& reporter = library.errorReporter();
    if (reporter.suppressNextReport()) {
        reporter.suppressNextReport(false);
        return false;
    }
    reporter.ReportError(source, procedureName);
    return true;
}

}  // namespace t_genproc::GenUtil
