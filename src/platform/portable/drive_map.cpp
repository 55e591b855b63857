#include "platform/portable/drive_map.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::string_view kNeverInPaths = "<>\"|?*:";

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool isSeparator(char c) { return c == '\\' || c == '/'; }
bool isForbidden(char c) {
    return static_cast<unsigned char>(c) < ' ' || kNeverInPaths.find(c) != std::string_view::npos;
}

/// Adds the parts of `path` to `folder`, which ends in "\".
void append(std::string& folder, std::string_view path) {
    while (!path.empty()) {
        const auto separator = std::ranges::find_if(path, isSeparator);
        const bool isLast = separator == path.end();
        std::string_view part(path.begin(), separator);
        path.remove_prefix(part.size() + (isLast ? 0 : 1));

        if (part == "..") {
            if (folder.size() > 1) folder.pop_back();
            folder.resize(folder.find_last_of('\\') + 1);
            continue;
        }
        if (isLast) part = part.substr(0, part.find_last_not_of(" .") + 1);
        if (part.empty() || part == ".") continue;
        folder += part;
        if (!isLast) folder += '\\';
    }
}

/// The entry of `folder` that is `name` but for letter case.
std::optional<std::string> entryIgnoringCase(const std::string& folder, std::string_view name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), &::closedir);
    std::optional<std::string> found;
    while (const dirent* entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (!text::equalIgnoringCase(entry->d_name, name)) continue;
        if (!found || *found > entry->d_name) found = entry->d_name;
    }
    return found;
}

bool exists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

/// `path` with every part below its first `rootLength` bytes spelled as it exists.
std::string spelledAsItExists(const std::string& path, std::size_t rootLength) {
    if (path.size() <= rootLength + 1 || exists(path)) return path;
    const std::size_t nameEnd = path.ends_with('/') ? path.size() - 1 : path.size();
    const std::size_t nameStart = path.find_last_of('/', nameEnd - 1) + 1;
    const std::string parent = spelledAsItExists(path.substr(0, nameStart), rootLength);
    const std::string name = path.substr(nameStart, nameEnd - nameStart);
    return parent + entryIgnoringCase(parent, name).value_or(name) + path.substr(nameEnd);
}

}  // namespace

DriveMap::DriveMap(std::string driveC) {
    const auto add = [this](char letter, std::string root) {
        while (root.ends_with('/')) root.pop_back();
        roots_[driveIndex(letter)] = std::move(root);
    };
    current_.fill("\\");
    add('C', std::move(driveC));
    add('Z', "/");
}

std::size_t DriveMap::driveIndex(char letter) { return static_cast<std::size_t>((letter | 0x20) - 'a'); }

Outcome<std::string> DriveMap::fullPath(std::string_view path) const {
    if (path.empty()) return {{}, SystemError::InvalidName};
    std::size_t drive = currentDrive_;
    if (path.size() >= 2 && path[1] == ':' && isLetter(path[0])) {
        drive = driveIndex(path[0]);
        path.remove_prefix(2);
    } else if (path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1])) {
        return {{}, SystemError::PathNotFound};
    }
    if (std::ranges::any_of(path, isForbidden)) return {{}, SystemError::InvalidName};

    std::string full = !path.empty() && isSeparator(path.front()) ? "\\" : current_[drive];
    append(full, path);
    const bool asFolder = !path.empty() && isSeparator(path.back());
    if (!asFolder && full.size() > 1 && full.ends_with('\\')) full.pop_back();  // "." and ".." leave one
    return {std::string{static_cast<char>('A' + drive), ':'} + full};
}

Outcome<std::string> DriveMap::exactPath(std::string_view path) const {
    Outcome<std::string> full = fullPath(path);
    if (!full) return full;
    const std::optional<std::string>& root = roots_[driveIndex(full.value.front())];
    if (!root) return {{}, SystemError::PathNotFound};
    std::ranges::replace(full.value, '\\', '/');
    full.value.replace(0, 2, *root);
    return full;
}

Outcome<std::string> DriveMap::actualPath(std::string_view path) const {
    Outcome<std::string> location = exactPath(path);
    if (!location) return location;
    const std::size_t drive = driveIndex(fullPath(path).value.front());
    return {spelledAsItExists(location.value, roots_[drive]->size())};
}

void DriveMap::setCurrent(std::string_view folder) {
    currentDrive_ = driveIndex(folder.front());
    current_[currentDrive_] = folder.substr(2);
    if (!folder.ends_with('\\')) current_[currentDrive_] += '\\';
}

}  // namespace t_genproc::portable
