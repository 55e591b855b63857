#include <algorithm>
#include <bit>
#include <cstring>

#include "frame/library.h"
#include "frame/message_title.h"
#include "frame/procedure.h"
#include "os/cAPIprocs.h"
#include "platform/special_folders.h"
#include "runtime/errors.h"
#include "runtime/number_text.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

constexpr std::size_t kEnvironmentBuffer = 2048;  // characters
constexpr float kFirstWithPaths = 5.0F;           // the system version; it has a call of its own

template <class Number>
Number numberAt(std::intptr_t address) {
    Number number{};
    std::memcpy(&number, std::bit_cast<const void*>(address), sizeof number);
    return number;
}

/// The item list of a special folder, given back with its owner.
class ItemList {
   public:
    ItemList(Shell& shell, std::int32_t folder)
        : shell_(shell), found_(shell.SHGetSpecialFolderLocation(folder)) {}
    ItemList(const ItemList&) = delete;
    ItemList& operator=(const ItemList&) = delete;
    ~ItemList() { shell_.CoTaskMemFree(found_.value); }

    std::int32_t status() const { return found_.status; }
    std::string path() const { return shell_.SHGetPathFromIDListA(found_.value); }

   private:
    Shell& shell_;
    ShellOutcome<ItemIdList> found_;
};

ShellOutcome<std::string> findSpecialPath(Shell& shell, std::int32_t folder, float winVersion) {
    if (winVersion == kFirstWithPaths) return shell.SHGetFolderPathA(folder);
    const ItemList list(shell, folder);
    const bool hasPath = list.status() == ShellStatus::Success && winVersion > kFirstWithPaths;
    return {list.status(), hasPath ? list.path() : ""};
}

/// The text up to its terminating zero, as a folder. Error 5: it has none.
std::string folderFromBuffer(const std::string& buffer) {
    if (text::isBlank(buffer) || text::trim(buffer) == std::string_view("\0", 1)) return {};
    const std::size_t end = buffer.find('\0');
    if (end == std::string::npos) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    std::string path = buffer.substr(0, end);
    return path.ends_with('\\') ? path : path + '\\';
}

}  // namespace

std::string cAPIprocs::GetSpecialFolder(std::int32_t CSIDL, float winVersion) {
    constexpr std::string_view kName = "(Class Module) cAPIprocs::Function GetSpecialFolder";
    return procedure(library_, kName, [&]() -> std::string {
        const auto [status, path] =
            findSpecialPath(*library_.platform().shell, CSIDL | kCreateFolder, winVersion);
        if (status == ShellStatus::Success) return folderFromBuffer(path);
        if (status > 0) {
            std::string failure = "SHGetSpecialFolderLocation failed in " + std::string(kName) +
                                  "\r\nError number: " + numberText(std::int64_t{status});
            if (status == ShellStatus::NoPath) failure += ", The folder does not exist (virtual folder)";
            library_.platform().windows->MessageBoxA(failure, kMessageTitle, MessageStyle::Ok);
        }
        return {};  // a failure, an invalid identifier among them, is not shown
    });
}

std::string cAPIprocs::GetEnvStringValue(const std::string& envstr) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetEnvStringValue", [&]() -> std::string {
        const auto [count, value] =
            library_.platform().system->GetEnvironmentVariableA(envstr, kEnvironmentBuffer - 1);
        return count >= kEnvironmentBuffer - 1 ? std::string(kEnvironmentBuffer, ' ') : value;
    });
}

std::string cAPIprocs::GetEnvString(std::int32_t idx, std::string_view datEVBlock) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetEnvString", [&]() -> std::string {
        const std::string own =
            datEVBlock.empty() ? library_.platform().system->GetEnvironmentStringsW() : std::string();
        std::string_view block = datEVBlock.empty() ? own : datEVBlock;
        for (std::int32_t i = 1; !block.empty() && block.front() != '\0'; ++i) {
            const std::size_t end = std::min(block.find('\0'), block.size());
            if (i == idx) return std::string(block.substr(0, end));
            block.remove_prefix(std::min(end + 1, block.size()));
        }
        return {};
    });
}

std::string cAPIprocs::ParseAnyString(const std::string& text, std::int32_t fieldNo,
                                      const std::string& delimiter) {
    return procedure(library_, "(Class Module) cAPIprocs::Function ParseAnyString", [&]() -> std::string {
        if (fieldNo < 1 || delimiter.empty()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        std::size_t start = 0;
        for (std::int32_t field = 1; field < fieldNo; ++field) {
            const std::size_t end = text.find(delimiter, start);
            if (end == std::string::npos) return {};
            start = end + delimiter.size();
        }
        const std::size_t end = text.find(delimiter, start);
        return text.substr(start, end == std::string::npos ? end : end - start);
    });
}

std::string cAPIprocs::CreateGUID() {
    return procedure(library_, "(Class Module) cAPIprocs::Function CreateGUID", [&] {
        constexpr std::string_view kDigits = "0123456789ABCDEF";
        const Outcome<Guid> guid = library_.platform().system->CoCreateGuid();
        if (!guid) throw RuntimeError(ErrorNumber::InternalError);
        std::string text;
        for (std::size_t i = 0; i < guid.value.size(); ++i) {
            if (i == 4 || i == 6 || i == 8 || i == 10) text += '-';
            text += kDigits[guid.value[i] >> 4];
            text += kDigits[guid.value[i] & 0xF];
        }
        return text;
    });
}

double cAPIprocs::TotalPhysicalMemory() {
    return procedure(library_, "(Class Module) cAPIprocs::Function TotalPhysicalMemory", [&] {
        return static_cast<double>(library_.platform().system->GlobalMemoryStatus()) / 1024 / 1024;
    });
}

std::int16_t cAPIprocs::GetValueINT(std::intptr_t pointer) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetValueINT",
                     [&] { return numberAt<std::int16_t>(pointer); });
}

std::int32_t cAPIprocs::GetValueLONG(std::intptr_t pointer) {
    return procedure(library_, "(Class Module) cAPIprocs::Function GetValueLONG",
                     [&] { return numberAt<std::int32_t>(pointer); });
}

}  // namespace t_genproc
