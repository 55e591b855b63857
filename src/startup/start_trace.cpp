#include "startup/start_trace.h"

#include <utility>

#include "frame/message_title.h"
#include "platform/clock_record.h"
#include "runtime/errors.h"
#include "runtime/variant.h"

namespace t_genproc {
namespace {

constexpr const char* kFileName = "TestFile - SystemConstants.txt";
constexpr std::string_view kMark = "RECORD";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::size_t kBlock = std::size_t{64} * 1024;  // bytes

struct Closer {
    Files& files;
    FileHandle file;
    ~Closer() { files.CloseHandle(file); }
};

/// Empty where it cannot be read.
std::string contentOf(Files& files, const std::string& fileName) {
    const Outcome<FileHandle> file = files.CreateFileA(fileName, FileUse::Read);
    if (!file) return {};
    const Closer closer{files, file.value};
    std::string content;
    for (;;) {
        const Outcome<std::string> block = files.ReadFile(file.value, kBlock);
        if (!block) return {};
        if (block.value.empty()) return content;
        content += block.value;
    }
}

bool isMarked(std::string_view content) {
    if (content.starts_with(kByteOrderMark)) content.remove_prefix(kByteOrderMark.size());
    content.remove_prefix(std::min(content.find_first_not_of(kLineEnds), content.size()));
    return content.substr(0, content.find_first_of(kLineEnds)) == kMark;
}

}  // namespace

StartTrace::~StartTrace() { library_.files().abandon(fileNo_); }

void StartTrace::begin(const std::string& folder, const std::string& firstLine) {
    const std::string fileName = folder + kFileName;
    if (!procs_.FileExist(fileName)) return;

    WindowsAndMessages& windows = *library_.platform().windows;
    constexpr std::uint32_t kQuestion =
        MessageStyle::YesNo | MessageStyle::Question | MessageStyle::DefaultButton2;
    const MessageAnswer answer =
        windows.MessageBoxA("Tavoru - Test mode is active - Continue testing ?", kMessageTitle, kQuestion);
    if (answer == MessageAnswer::No) raiseOnFailure(library_.platform().files->DeleteFileA(fileName));
    if (answer != MessageAnswer::Yes) return;
    if (!open(fileName)) {
        windows.MessageBoxA("Test file requires initialisation !!\r\nNo output", kMessageTitle,
                            MessageStyle::Exclamation);
    } else {
        const double now = library_.utility().Now();
        line("*** START - " + library_.platform().clock->GetDateFormatA(systemTime(now)) + " - " +
             toText(Date{now}));
        line(firstLine);
    }
}

bool StartTrace::open(const std::string& fileName) {
    const std::string content = contentOf(*library_.platform().files, fileName);
    if (!isMarked(content)) return false;
    NumberedFiles& files = library_.files();
    const std::int16_t fileNo = files.freeFile();
    try {
        files.openForAppend(fileNo, fileName);
    } catch (const RuntimeError&) {
        return false;
    }
    fileNo_ = fileNo;
    if (kLineEnds.find(content.back()) == std::string_view::npos) line("");  // ends the line that is there
    return true;
}

void StartTrace::line(std::string_view text) {
    if (isOn()) library_.files().printLine(fileNo_, text);
}

void StartTrace::end() {
    line("*** END");
    line("");
    line("");
    if (isOn()) library_.files().close(std::exchange(fileNo_, std::int16_t{0}));
}

void StartTrace::terminate(std::string_view errorDescription) noexcept {
    try {
        line("cStartProcs::Sub SystemConstants: ");
        line(errorDescription);
        line("** Startup terminated");
        if (isOn()) library_.files().close(std::exchange(fileNo_, std::int16_t{0}));
    } catch (...) {  // the error that ended the start is the one to tell of
    }
}

}  // namespace t_genproc
