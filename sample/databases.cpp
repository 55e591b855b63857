#include "databases.h"

#include <fstream>

#include "runtime/text.h"

namespace tavoru {
namespace {

namespace fs = std::filesystem;

fs::path onDisk(t_genproc::Files& files, const std::string& fileName) {
    const std::string path = files.nativePath(fileName).value;
    return std::u8string(path.begin(), path.end());
}

}  // namespace

void replaceDatabase(t_genproc::Files& files, const std::string& fileName,
                     const std::function<void(const std::string& newName)>& make) {
    const std::string newName = fileName + ".new";
    files.DeleteFileA(newName);  // of a process that was killed
    try {
        make(newName);
        fs::rename(onDisk(files, newName), onDisk(files, fileName));
    } catch (...) {
        files.DeleteFileA(newName);
        throw;
    }
}

void takeLines(const fs::path& source, const std::function<void(std::string_view line, int number)>& take) {
    std::ifstream file(source);
    if (!file) throw std::runtime_error("cannot read " + source.string());
    int number = 0;
    for (std::string text; std::getline(file, text);) {
        if (++number == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);  // byte order mark
        if (text.ends_with('\r')) text.pop_back();
        const std::string_view line = t_genproc::text::trim(text);
        try {
            if (!line.empty() && !line.starts_with('#')) take(line, number);
        } catch (const std::exception& error) {
            throw std::runtime_error(source.filename().string() + ", line " + std::to_string(number) + ": " +
                                     error.what());
        }
    }
}

}  // namespace tavoru
