#include "platform/portable/drive_map.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>

#include "runtime/text.h"

namespace t_genproc::portable {
namespace {

constexpr std::size_t kLongestPath = 4096;

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool isSeparator(char c) { return c == '\\' || c == '/'; }
/// By byte: whether no path may hold it.
constexpr auto kForbidden = [] {
    std::array<bool, 256> forbidden{};
    for (std::size_t control = 0; control < ' '; ++control) forbidden[control] = true;
    for (const char c : std::string_view("<>\"|?*:")) forbidden[static_cast<unsigned char>(c)] = true;
    return forbidden;
}();
bool isForbidden(char c) { return kForbidden[static_cast<unsigned char>(c)]; }

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
        if (isLast) {
            part = part.substr(0, part.find_last_not_of(" .") + 1);
        } else if (part.ends_with('.')) {
            part.remove_suffix(1);
        }
        if (part.empty()) continue;
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

bool exists(const std::string& path) {
    struct stat found {};
    return ::lstat(path.c_str(), &found) == 0;
}

/// `path` with every part below its first `rootLength` bytes spelled as it exists.
std::string spelledAsItExists(const std::string& path, std::size_t rootLength) {
    std::size_t start =
        path.size();  // what is ahead of it exists as it is spelled: mostly all but the last part
    while (start > rootLength && !exists(path.substr(0, start))) start = path.rfind('/', start - 1);
    std::string found = path.substr(0, start);
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('/', start + 1), path.size());
        const std::string part = path.substr(start, end - start);  // "/" and a name
        if (exists(found + part)) {
            found += part;
        } else if (const auto entry = entryIgnoringCase(found + "/", part.substr(1))) {
            found += "/" + *entry;
        } else {
            return found + path.substr(start);
        }
        start = end;
    }
    return found;
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
    if (text::isBlank(path)) return {{}, SystemError::InvalidName};
    if (path.size() > kLongestPath) return {{}, SystemError::FileNameTooLong};
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

Outcome<DriveMap::Location> DriveMap::locate(std::string_view path) const {
    Outcome<std::string> full = fullPath(path);
    if (!full) return {{}, full.error};
    const std::optional<std::string>& root = roots_[driveIndex(full.value.front())];
    if (!root) return {{}, SystemError::PathNotFound};
    std::ranges::replace(full.value, '\\', '/');
    full.value.replace(0, 2, *root);
    return {{std::move(full.value), root->size()}};
}

Outcome<std::string> DriveMap::exactPath(std::string_view path) const {
    Outcome<Location> location = locate(path);
    return {std::move(location.value.path), location.error};
}

Outcome<std::string> DriveMap::actualPath(std::string_view path) const {
    const Outcome<Location> location = locate(path);
    if (!location) return {{}, location.error};
    return {spelledAsItExists(location.value.path, location.value.rootLength)};
}

std::string DriveMap::drivePath(std::string_view location) const {
    while (location.ends_with('/')) location.remove_suffix(1);
    std::size_t best = driveIndex('Z');
    for (std::size_t drive = 0; drive < kDrives; ++drive) {
        const std::optional<std::string>& root = roots_[drive];
        const bool holds = root && location.starts_with(*root) &&
                           (location.size() == root->size() || location[root->size()] == '/');
        if (holds && root->size() > roots_[best]->size()) best = drive;
    }
    std::string path(location.substr(roots_[best]->size()));
    if (path.empty()) path = "/";
    std::ranges::replace(path, '/', '\\');
    return std::string{static_cast<char>('A' + best), ':'} + path;
}

void DriveMap::setCurrent(std::string_view folder) {
    currentDrive_ = driveIndex(folder.front());
    current_[currentDrive_] = folder.substr(2);
    if (!folder.ends_with('\\')) current_[currentDrive_] += '\\';
}

}  // namespace t_genproc::portable
