/// The trace of a start, in a file that a tester lays beside the local settings.
#pragma once

#include <string>
#include <string_view>

#include "frame/cGenProcs.h"
#include "frame/library.h"

namespace t_genproc {

/// Before begin(), and where that finds no reason for a trace, lines are dropped.
class StartTrace {
   public:
    StartTrace(Library& library, cGenProcs& procs) : library_(library), procs_(procs) {}
    StartTrace(const StartTrace&) = delete;
    StartTrace& operator=(const StartTrace&) = delete;
    ~StartTrace();

    /// Looks for "TestFile - SystemConstants.txt" in `folder`. Where it is there, asks whether to go on
    /// testing: No deletes it, Yes adds a trace to it that starts with `firstLine`, unless the first line
    /// that is not empty is another than "RECORD", or the file cannot be read or written; then a box says so.
    /// Errors: of the deletion, of writing.
    void begin(const std::string& folder, const std::string& firstLine);

    bool isOn() const { return fileNo_ != 0; }
    void line(std::string_view text);

    void end();
    /// Ends the trace of a start that failed. Nothing fails.
    void terminate(std::string_view errorDescription) noexcept;

   private:
    bool open(const std::string& fileName);

    Library& library_;
    cGenProcs& procs_;
    std::int16_t fileNo_ = 0;  // 0: there is no trace
};

}  // namespace t_genproc
