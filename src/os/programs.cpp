#include "frame/GenUtil.h"
#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/message_title.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"
#include "runtime/number_text.h"

namespace t_genproc {
std::int32_t cAPIprocs::LoadProcess(const std::string& commandLine, Launch* launch) {
    return procedure(library_, "(Class Module) cAPIprocs::Function LoadProcess",
                     [&] { return GenUtil::LoadProcessAndWait(library_, commandLine, launch); });
}

void cAPIprocs::StartSysInfo(const t_gencvf::ProgramState& prog) {
    procedure(library_, "(Class Module) cAPIprocs::Sub StartSysInfo", [&] {
        const auto registered = [&](const std::string& key, const std::string& value) {
            return GetRegString(RootKey::LocalMachine, key, value, "");
        };
        std::string program = registered("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH");
        if (program.empty()) {
            const std::string folder = registered("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO");
            if (!folder.empty()) program = folder + "\\MSINFO32.EXE";
            if (!folder.empty() && !cGenProcs(library_).FileExist(program)) program.clear();
        }
        if (program.empty()) {
            library_.platform().windows->MessageBoxA("System Information is unavailable", kMessageTitle,
                                                     MessageStyle::Information);
            return;
        }

        // A name with blanks in it must not be taken for a program and its arguments.
        const bool isFile = cGenProcs(library_).FileExist(program);
        Launch launch;
        LoadProcess(isFile ? '"' + program + '"' : program, &launch);
        if (launch.started) return;
        const std::string code = numberText(static_cast<std::int64_t>(launch.lastError));
        GenUtil::WriteDLLerror(library_, code + " - SysInfoPath : >>\r\n" + program, prog);
    });
}

}  // namespace t_genproc
