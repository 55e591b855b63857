/// The module of free routines.
#pragma once

#include <cstdint>
#include <string>

#include "host/records.h"
#include "platform/processes.h"

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

// ---- Waiting (os/waiting.cpp)

/// Starts a program with its arguments (see Processes::CreateProcessA) and waits for its end, letting the
/// host's windows process their messages meanwhile. The result is the system's last error code after a start,
/// mostly 0; a program that cannot be started gives 0 at once. `launch` tells one from the other; its
/// handles are closed by then.
std::int32_t LoadProcessAndWait(Library& library, const std::string& commandLine, Launch* launch = nullptr);

/// Waits for the end of a program as LoadProcessAndWait does, and closes both handles.
void WaitForTerm2(Library& library, const ProcessInformation& processInformation);

/// Lets the host's windows process their messages where more than `interval` seconds have passed since
/// `DoEventsStart`, which counts seconds since midnight and is then set to now. Shortly before midnight it
/// becomes 0 in any case.
void DoEventsTimer(Library& library, float& DoEventsStart, float interval);

}  // namespace GenUtil
}  // namespace t_genproc
