/// The module of free routines.
#pragma once

#include <string>

#include "host/records.h"

namespace t_genproc {

class Library;

namespace GenUtil {

/// Appends a line to the error log, the file "t_eveml" in `prog.tempPath`, creating it on first use: the date
/// and time, " : ", `errMsg` and, unless `prog.errorLogBrief`, the code that `prog.errorLogCode` stands for
/// in square brackets. Writes nothing where the folder does not exist. Nothing is ever shown.
///
/// Errors: those of opening and writing a file.
void WriteDLLerror(Library& library, const std::string& errMsg, const t_gencvf::ProgramState& prog);

/// Hands an error's source and the name of the procedure that it leaves to the host's error reporter. While
/// the reporter's suppressNextReport is set, clears that instead; while the reporter itself is at work, does
/// nothing. Returns whether a report was made.
bool ReportErrorTrail(Library& library, const std::string& source, const std::string& procedureName);

}  // namespace GenUtil
}  // namespace t_genproc
