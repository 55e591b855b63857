// The operating system as the library sees it.

#include <chrono>
#include <iomanip>
#include <iostream>
#include <optional>

#include "commands/commands.h"
#include "os/cAPIprocs.h"
#include "platform/special_folders.h"
#include "runtime/text.h"
#include "screen.h"

namespace tavoru {
namespace {

using t_genproc::cAPIprocs;

/// Chooses the calls of the newer systems; only 5.0 and older ones are asked otherwise.
constexpr float kWindowsVersion = 10;

// ---- start

/// A file that asks the library for a trace, where the library looks for it; there until the end of this
/// object.
class TraceRequest {
   public:
    explicit TraceRequest(const Places& places) : drive_(openDrive(places.drive)) {
        std::string folder =
            cAPIprocs(library_).GetSpecialFolder(t_genproc::SpecialFolder::LocalAppData, kWindowsVersion);
        const std::size_t old = folder.find("\\Application Data\\");  // beside which the library looks
        if (old != std::string::npos) folder.resize(old + 1);
        fileName_ = folder + "TestFile - SystemConstants.txt";
        if (exists()) throw std::runtime_error("there is a trace already: " + fileName_);
        const std::int16_t fileNo = library_.files().freeFile();
        library_.files().openForOutput(fileNo, fileName_);
        library_.files().printLine(fileNo, "RECORD");
        library_.files().close(fileNo);
    }
    TraceRequest(const TraceRequest&) = delete;
    TraceRequest& operator=(const TraceRequest&) = delete;
    ~TraceRequest() { drive_.platform.files->DeleteFileA(fileName_); }

    /// Prints what stands in the file; the answer No has deleted it.
    void show() {
        if (!exists()) return;
        const std::int16_t fileNo = library_.files().freeFile();
        library_.files().openForInput(fileNo, fileName_);
        print({""});
        while (!library_.files().endOfFile(fileNo)) print({library_.files().lineInput(fileNo)});
        library_.files().close(fileNo);
    }

   private:
    bool exists() { return t_genproc::cGenProcs(library_).FileExist(fileName_); }

    Drive drive_;
    TavoruHost host_{drive_.platform};
    t_genproc::Library library_{host_, drive_.platform};
    std::string fileName_;
};

int start(const Places& places, const Arguments& arguments) {
    std::optional<TraceRequest> request;
    if (!arguments[0].empty()) request.emplace(places);
    try {
        print(recordLines(Tavoru(places).prog));
    } catch (...) {
        if (request) request->show();
        throw;
    }
    if (request) request->show();
    return 0;
}

// ---- folders

int showFolders(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    cAPIprocs system(tavoru.library);
    for (const auto& [number, name, usualPath] : t_genproc::specialFolders()) {
        // A virtual folder would be answered by a message box.
        std::string path = usualPath.empty() ? "virtual" : system.GetSpecialFolder(number, kWindowsVersion);
        if (path.empty()) path = "not on this system";
        std::cout << std::setw(2) << number << "  " << std::left << std::setw(31) << name << std::right
                  << path << '\n';
    }
    return 0;
}

// ---- registry

struct Key {
    std::int32_t root;
    std::string path;
};

Key readKey(const std::string& name) {
    namespace RootKey = t_genproc::RootKey;
    static constexpr struct {
        std::string_view name;
        std::string_view shortName;
        std::int32_t key;
    } kRoots[] = {
        {"HKEY_CLASSES_ROOT", "HKCR", RootKey::ClassesRoot},
        {"HKEY_CURRENT_USER", "HKCU", RootKey::CurrentUser},
        {"HKEY_LOCAL_MACHINE", "HKLM", RootKey::LocalMachine},
        {"HKEY_USERS", "HKU", RootKey::Users},
    };
    const std::size_t end = std::min(name.find('\\'), name.size());
    const std::string_view first = std::string_view(name).substr(0, end);
    for (const auto& root : kRoots) {
        if (t_genproc::text::equalIgnoringCase(first, root.name) ||
            t_genproc::text::equalIgnoringCase(first, root.shortName)) {
            return {root.key, end < name.size() ? name.substr(end + 1) : ""};
        }
    }
    throw WrongUse("registry: " + name + R"( is no key such as HKCU\Software\Tavoru)");
}

int getRegistryValue(const Places& places, const Arguments& arguments) {
    const Key key = readKey(arguments[0]);
    Tavoru tavoru(places);
    std::string value;
    if (!cAPIprocs(tavoru.library).GetKeyValue(key.root, key.path, arguments[1], value)) {
        throw std::runtime_error("the registry has no text or number " + arguments[1] + " in " +
                                 arguments[0]);
    }
    print({value});
    return 0;
}

int setRegistryValue(const Places& places, const Arguments& arguments) {
    const Key key = readKey(arguments[0]);
    Tavoru tavoru(places);
    if (!cAPIprocs(tavoru.library).SetRegString(key.root, key.path, arguments[1], arguments[2], true)) {
        throw std::runtime_error("the registry does not take the value");
    }
    return 0;
}

// ---- launch

/// Counts how often the windows may process their messages.
class PumpCounter : public t_genproc::WindowsAndMessages {
   public:
    explicit PumpCounter(std::unique_ptr<WindowsAndMessages> windows) : windows_(std::move(windows)) {}

    t_genproc::MessageAnswer MessageBoxA(const std::string& text, const std::string& caption,
                                         std::uint32_t style) override {
        return windows_->MessageBoxA(text, caption, style);
    }
    void DispatchPendingMessages() override {
        ++count_;
        windows_->DispatchPendingMessages();
    }
    int count() const { return count_; }

   private:
    std::unique_ptr<WindowsAndMessages> windows_;
    int count_ = 0;
};

/// `word` as a program's reading of its command line gives it back.
std::string quoted(const std::string& word) {
    if (!word.empty() && word.find_first_of(" \t\"") == std::string::npos) return word;
    std::string text = "\"";
    for (std::size_t i = 0; i <= word.size(); ++i) {
        const bool aheadOfQuote = i == word.size() || word[i] == '"';
        if (aheadOfQuote) text.append(text.size() - text.find_last_not_of('\\') - 1, '\\');
        if (i < word.size() && aheadOfQuote) text += '\\';
        if (i < word.size()) text += word[i];
    }
    return text + '"';
}

/// One word is the whole line; several are quoted where that is needed.
std::string commandLine(const Arguments& words) {
    if (words.size() == 1) return words.front();
    std::string line;
    for (const std::string& word : words) line += (line.empty() ? "" : " ") + quoted(word);
    return line;
}

int launch(const Places& places, const Arguments& arguments) {
    using Time = std::chrono::steady_clock;
    if (arguments.empty()) throw WrongUse("launch: COMMAND is required");
    Tavoru tavoru(places);
    auto& windows = tavoru.drive.platform.windows;
    auto counter = std::make_unique<PumpCounter>(std::move(windows));
    const PumpCounter& pump = *counter;
    windows = std::move(counter);

    const std::string line = commandLine(arguments);
    const Time::time_point begin = Time::now();
    t_genproc::Launch launched;
    const std::int32_t result = cAPIprocs(tavoru.library).LoadProcess(line, &launched);
    const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(Time::now() - begin);
    if (!launched.started) {
        const std::string code = std::to_string(static_cast<std::uint32_t>(launched.lastError));
        throw std::runtime_error("cannot start " + line + ": the system's code is " + code);
    }
    print({"The result is " + std::to_string(result) + ", after " + std::to_string(waited.count()) +
           " ms; the windows processed their messages " + std::to_string(pump.count()) + " times."});
    return 0;
}

// ---- Files, environment, machine

int recycle(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    if (!cAPIprocs(tavoru.library).FileToRecycleBin(arguments[0])) {
        throw std::runtime_error("the recycle bin does not take " + arguments[0]);
    }
    return 0;
}

int showDates(const Places& places, const Arguments& arguments) {
    constexpr std::int16_t kCreated = 0;
    constexpr std::int16_t kLastWrite = 1;
    Tavoru tavoru(places);
    cAPIprocs system(tavoru.library);
    const std::string lastWrite = system.FileDates(arguments[0], kLastWrite, true, tavoru.prog);
    if (lastWrite.empty()) throw std::runtime_error("there is no file " + arguments[0]);
    print({"created     " + system.FileDates(arguments[0], kCreated, true, tavoru.prog),
           "last write  " + lastWrite});
    return 0;
}

int showEnvironment(const Places& places, const Arguments& arguments) {
    Tavoru tavoru(places);
    cAPIprocs system(tavoru.library);
    if (arguments[0].empty()) {
        std::string entry;
        for (std::int32_t i = 1; !(entry = system.GetEnvString(i)).empty(); ++i) print({entry});
        return 0;
    }
    const std::string value = system.GetEnvStringValue(arguments[0]);
    if (t_genproc::text::isBlank(value)) {
        throw std::runtime_error("the environment has no " + arguments[0] + " of up to 2046 characters");
    }
    print({value});
    return 0;
}

int showSystem(const Places& places, const Arguments& /*arguments*/) {
    Tavoru tavoru(places);
    cAPIprocs system(tavoru.library);
    print({tavoru.prog.osVersion,
           std::to_string(static_cast<long>(system.TotalPhysicalMemory())) + " MB of memory"});
    system.StartSysInfo(tavoru.prog);
    return 0;
}

}  // namespace

std::span<const Command> systemCommands() {
    static constexpr Command kCommands[] = {
        {"start [--trace]", "Start, and show what the library finds; with a trace of it", start},
        {"folders", "Show the system's special folders, making those that are missing", showFolders},
        {"registry get KEY NAME", "Show a value of the registry; KEY is such as HKCU\\Software",
         getRegistryValue},
        {"registry set KEY NAME [VALUE]", "Change a text value; without VALUE it becomes empty",
         setRegistryValue},
        {"launch COMMAND...", "Start a program and wait for its end", launch},
        {"recycle FILE", "Put a file, with its full path, into the recycle bin", recycle},
        {"dates FILE", "Show when a file, with its full path, was made and written", showDates},
        {"environment [NAME]", "Show a variable of the environment, or all of them", showEnvironment},
        {"sysinfo", "Show the system, and start its own information program", showSystem},
    };
    return kCommands;
}

}  // namespace tavoru
