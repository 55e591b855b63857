#include "platform/portable/trash.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/portable/posix.h"

namespace t_genproc::portable {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kForTheUserAlone = 0700;
constexpr std::size_t kMostOfName = 200;  // bytes; leaves room for a number and ".trashinfo"

struct Trash {
    fs::path folder;
    fs::path top{};  // of its file system; empty: the home trash
};

/// Fails as the file-system calls of the standard library do.
[[noreturn]] void fail(const fs::path& file, int errorNumber) {
    throw fs::filesystem_error("", file, std::error_code(errorNumber, std::generic_category()));
}
void check(int result, const fs::path& file) {
    if (result != 0) fail(file, errno);
}

struct stat statusOf(const fs::path& file) {
    struct stat status {};
    check(::lstat(file.c_str(), &status), file);
    return status;
}

/// None where there is nothing.
dev_t deviceOf(const fs::path& file) {
    struct stat status {};
    return ::lstat(file.c_str(), &status) == 0 ? status.st_dev : dev_t{};
}

void flush(const fs::path& file) {
    const Descriptor open(::open(file.c_str(), O_RDONLY | kAlways));
    check(open ? ::fsync(open.number()) : -1, file);
}

void makeFolder(const fs::path& folder) {
    if (::mkdir(folder.c_str(), kForTheUserAlone) != 0 && errno != EEXIST) fail(folder, errno);
}

/// In a folder that everybody may write to, somebody else may have laid the trash out.
void make(const Trash& trash) {
    fs::create_directories(trash.folder.parent_path());
    makeFolder(trash.folder);
    if (!trash.top.empty()) {
        const struct stat status = statusOf(trash.folder);
        if (!S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) fail(trash.folder, EACCES);
    }
    makeFolder(trash.folder / "files");
    makeFolder(trash.folder / "info");
}

std::string percentEncoded(const std::string& path) {
    constexpr std::string_view kAsTheyAre =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~/";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (kAsTheyAre.find(c) != std::string_view::npos) {
            encoded += c;
        } else {
            encoded += {'%', kDigits[byte / 16], kDigits[byte % 16]};
        }
    }
    return encoded;
}

std::string localTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    std::array<char, 40> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &local)};
}

/// Cut between characters.
std::string shortened(std::string name) {
    if (name.size() <= kMostOfName) return name;
    std::size_t end = kMostOfName;
    while (end > 1 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
    name.resize(end);
    return name;
}

/// A name in a trash, which whoever makes its ".trashinfo" has. Both are given up again unless they are kept.
class Entry {
   public:
    Entry(const Trash& trash, const fs::path& file) : trash_(trash) {
        const fs::path wanted = shortened(file.filename().string());
        for (int number = 1; !claim(wanted, number); ++number) continue;
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry() {
        if (isKept_) return;
        std::error_code ignored;
        fs::remove_all(place_, ignored);
        fs::remove(info_, ignored);
    }

    /// Where the file goes.
    const fs::path& place() const { return place_; }

    void describe(const fs::path& file) {
        const fs::path path = trash_.top.empty() ? file : file.lexically_relative(trash_.top);
        std::ofstream info(info_, std::ios::binary);
        info << "[Trash Info]\nPath=" << percentEncoded(path.string()) << "\nDeletionDate=" << localTime()
             << '\n';
        info.close();
        if (!info) fail(info_, EIO);
    }

    /// What was put there is flushed by whoever puts it there.
    void flushNames() const {
        flush(info_);
        flush(info_.parent_path());
        flush(place_.parent_path());
    }

    void keep() { isKept_ = true; }

   private:
    /// False: that name is taken.
    bool claim(const fs::path& wanted, int number) {
        fs::path name = wanted;
        if (number > 1) {
            name = wanted.stem();
            name += '.' + std::to_string(number) + wanted.extension().string();
        }
        place_ = trash_.folder / "files" / name;
        info_ = trash_.folder / "info" / name;
        info_ += ".trashinfo";
        if (fs::exists(fs::symlink_status(place_))) return false;
        const Descriptor info(::open(info_.c_str(), O_WRONLY | O_CREAT | O_EXCL | kAlways, 0600));
        if (!info && errno != EEXIST) fail(info_, errno);
        return static_cast<bool>(info);
    }

    const Trash& trash_;
    fs::path place_;
    fs::path info_;
    bool isKept_ = false;
};

void rename(const fs::path& file, Entry& entry) {
    fs::rename(file, entry.place());
    entry.keep();
}

struct Copied {
    fs::path file;
    struct stat status;  // before the copy
};

/// What is gone needs no removal.
bool hasChanged(const Copied& original) {
    struct stat now {};
    if (::lstat(original.file.c_str(), &now) != 0) return errno != ENOENT;
    const struct stat& then = original.status;
    return !S_ISDIR(now.st_mode) &&
           (now.st_ino != then.st_ino || now.st_size != then.st_size ||
            now.st_mtim.tv_sec != then.st_mtim.tv_sec || now.st_mtim.tv_nsec != then.st_mtim.tv_nsec);
}

/// Copies `from`, which is on `device`, and adds to `copied` what there is to remove then, in that order.
void copyTree(const fs::path& from, const fs::path& to, dev_t device, std::vector<Copied>& copied) {
    const struct stat status = statusOf(from);
    if (S_ISLNK(status.st_mode)) {
        fs::copy_symlink(from, to);
    } else if (S_ISREG(status.st_mode)) {
        fs::copy_file(from, to);
    } else if (!S_ISDIR(status.st_mode)) {
        fail(from, ENOTSUP);
    } else {
        if (status.st_dev != device) fail(from, EBUSY);  // where another file system is attached
        check(::access(from.c_str(), W_OK | X_OK), from);
        makeFolder(to);
        for (const fs::path& part : fs::directory_iterator(from)) {
            copyTree(part, to / part.filename(), device, copied);
        }
    }
    if (!S_ISLNK(status.st_mode)) fs::permissions(to, fs::perms(status.st_mode) & fs::perms::mask);
    const std::array<timespec, 2> times{status.st_atim, status.st_mtim};
    check(::utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW), to);
    if (!S_ISLNK(status.st_mode)) flush(to);
    copied.push_back({from, status});
}

void copyAndRemove(const fs::path& file, Entry& entry) {
    check(::access(file.parent_path().c_str(), W_OK | X_OK), file);
    std::vector<Copied> copied;
    copyTree(file, entry.place(), deviceOf(file.parent_path()), copied);
    entry.flushNames();
    for (const Copied& original : copied) {
        if (hasChanged(original)) fail(original.file, EBUSY);
    }
    entry.keep();
    for (const Copied& original : copied)
        fs::remove(original.file);  // a folder with something new in it stays
}

using Way = void (*)(const fs::path& file, Entry& entry);

SystemError put(const fs::path& file, const Trash& trash, Way bringThere) {
    try {
        make(trash);
        Entry entry(trash, file);
        entry.describe(file);
        bringThere(file, entry);
        return SystemError::Success;
    } catch (const fs::filesystem_error& error) {
        return systemError(error.code().value());
    }
}

/// The places for a trash on the file system that `folder` is on, the best one first.
std::vector<Trash> trashesBeside(const fs::path& folder) {
    fs::path top = folder;
    while (top.has_relative_path() && deviceOf(top) == deviceOf(top.parent_path())) top = top.parent_path();

    const std::string user = std::to_string(::geteuid());
    std::vector<Trash> trashes;
    struct stat shared {};
    const bool isShared = ::lstat((top / ".Trash").c_str(), &shared) == 0 && S_ISDIR(shared.st_mode) &&
                          (shared.st_mode & S_ISVTX) != 0;
    if (isShared) trashes.push_back({top / ".Trash" / user, top});
    trashes.push_back({top / (".Trash-" + user), top});
    return trashes;
}

}  // namespace

SystemError moveToTrash(const std::string& location, const std::string& homeTrash) {
    const fs::path given(location);
    std::error_code error;
    const fs::path folder = fs::canonical(given.parent_path(), error);
    const fs::path file = folder / given.filename();
    if (error) return systemError(error.value(), location);
    if (deviceOf(file) == dev_t{}) return systemError(errno, location);

    const Trash home{homeTrash};
    const SystemError atHome = put(file, home, rename);
    if (atHome != SystemError::NotSameDevice) return atHome;
    if (deviceOf(folder) != deviceOf(home.folder)) {
        for (const Trash& trash : trashesBeside(folder)) {
            if (put(file, trash, rename) == SystemError::Success) return SystemError::Success;
        }
    }
    return put(file, home, copyAndRemove);
}

}  // namespace t_genproc::portable
