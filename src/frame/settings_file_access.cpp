#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "frame/procedure.h"
#include "runtime/integers.h"

namespace t_genproc {
namespace {

constexpr const char* kMissing = "NotFound";
constexpr std::size_t kBufferSize = 200;  // characters, the terminating zero among them

void countChange(std::int16_t* changes) {
    if (changes != nullptr) *changes = checkedAdd<std::int16_t>(*changes, 1);
}

}  // namespace

std::string cGenProcs::INIstringGet(const std::string& fileName, const std::string& sectionName,
                                    const std::string& sectionItem, const std::string& defaultValu,
                                    bool retainDefault, std::int16_t* changes) {
    return procedure(library_, "(Class Module) cGenProcs::Function INIstringGet", [&]() -> std::string {
        std::string stored = library_.platform().profileFiles->GetPrivateProfileStringA(
            sectionName, sectionItem, kMissing, kBufferSize, fileName);
        if (stored != kMissing) return stored;
        if (defaultValu.empty()) return {};

        const bool written = INIstringSet(fileName, sectionName, sectionItem, defaultValu);
        if (!written && !retainDefault) return {};
        countChange(changes);
        return defaultValu;
    });
}

bool cGenProcs::INIstringSet(const std::string& fileName, const std::string& sectionName,
                             const std::string& sectionItem, const std::string& valu, std::int16_t* changes) {
    return procedure(library_, "(Class Module) cGenProcs::Function INIstringSet", [&] {
        const bool written = library_.platform().profileFiles->WritePrivateProfileStringA(
                                 sectionName, sectionItem, valu, fileName) >= 1;
        if (written) countChange(changes);
        return written;
    });
}

}  // namespace t_genproc
